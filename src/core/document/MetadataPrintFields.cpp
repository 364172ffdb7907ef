#include "core/document/MetadataPrintFields.h"

namespace zv {
namespace {

constexpr CMetadataPrintField kMsi[] = {
    {32954, u"Print Title"},        {32955, u"Print Subject"},     {32957, u"Print Keywords"},
    {32958, u"Print Template"},     {32959, u"Print Page Count"},  {32960, u"Print Word Count"},
    {32961, u"Print Comments"},     {32963, u"Print Author"},      {32970, u"Print Last Author"},
    {32964, u"Print Revision"},     {32965, u"Print Application"}, {32969, u"Print Edit Time"},
    {32968, u"Print Printed Date"}, {32966, u"Print Create Date"}, {32967, u"Print Save Date"},
};

constexpr CMetadataPrintField kOffice[] = {
    {1702, u"Print Title"},
    {1703, u"Print Subject"},
    {1704, u"Print Author"},
    {1708, u"Print Keywords"},
    {1709, u"Print Comments"},
    {1711, u"Print Template"},
    {1712, u"Print Last Author"},
    {1713, u"Print Rev Number"},
    {1714, u"Print Edit Time"},
    {1715, u"Print Last Printed Date Time"},
    {1716, u"Print Created Date Time"},
    {1717, u"Print Last Saved Date Time"},
    {1718, u"Print Page Count"},
    {1719, u"Print Word Count"},
    {1720, u"Print Char Count"},
    {1721, u"Print App Name"},
    {1722, u"Print Doc Security"},
    {1707, u"Print Category"},
    {1723, u"Print Pres Format"},
    {1724, u"Print Byte Count"},
    {1725, u"Print Line Count"},
    {1726, u"Print Paragraph Count"},
    {1727, u"Print Slide Count"},
    {1728, u"Print Note Count"},
    {1729, u"Print Hidden Count"},
    {1730, u"Print MM Clip Count"},
    {1731, u"Print Scale"},
    {1732, u"Print Doc Parts"},
    {1705, u"Print Manager"},
    {1706, u"Print Company"},
    {1733, u"Print Links Dirty"},
    {1794, u"Print Total Time"},
    {1797, u"Print Shared Doc"},
    {1798, u"Print Hyperlinks Changed"},
    {1799, u"Print Application Version"},
    {1804, u"Print Description"},
    {1800, u"Print Content Status"},
    {1802, u"Print Version"},
};

constexpr CMetadataPrintField kMp3[] = {
    {32943, u"Print Album"},   {32942, u"Print Artist"},  {32948, u"Print Bitrate"},
    {32945, u"Print Comment"}, {32951, u"Print Frames"},  {32950, u"Print Frequency"},
    {32946, u"Print Genre"},   {32949, u"Print Length"},  {32952, u"Print Mode"},
    {32941, u"Print Title"},   {32947, u"Print Version"}, {32944, u"Print Year"},
    {33024, u"Print Track"},
};

constexpr CMetadataPrintField kWav[] = {
    {32958, u"Print archival location"},
    {32959, u"Print artist"},
    {32955, u"Print audio format"},
    {33005, u"Print audio sample rate"},
    {33006, u"Print channels"},
    {33007, u"Print sample size"},
    {33008, u"Print bit rate"},
    {32961, u"Print comments"},
    {32960, u"Print commisioned"},
    {32957, u"Print copyright"},
    {32962, u"Print create date"},
    {32963, u"Print cropped"},
    {32981, u"Print digitization"},
    {32964, u"Print dimensions"},
    {32982, u"Print display name"},
    {32965, u"Print dots per inch"},
    {32966, u"Print engineer"},
    {32967, u"Print genre"},
    {32968, u"Print keywords"},
    {32969, u"Print lightness"},
    {32956, u"Print media length"},
    {32970, u"Print medium"},
    {32971, u"Print name"},
    {32972, u"Print palette"},
    {32973, u"Print product"},
    {32976, u"Print sharpness"},
    {32980, u"Print smpte"},
    {32975, u"Print software"},
    {32977, u"Print source"},
    {32978, u"Print source form"},
    {32974, u"Print subject"},
    {32979, u"Print technician"},
};

constexpr CMetadataPrintField kAvi[] = {
    {32941, u"Print video frame width"}, {32942, u"Print video frame height"},
    {32943, u"Print video play length"}, {32944, u"Print video frame count"},
    {32945, u"Print video frame rate"},  {32946, u"Print video data rate"},
    {32947, u"Print video sample size"}, {32948, u"Print video compression"},
    {32949, u"Print audio format"},      {32950, u"Print audio avg data rate"},
    {32951, u"Print audio sample rate"}, {32953, u"Print audio sample size"},
    {32952, u"Print audio channels"},
};

constexpr CMetadataPrintField kVersion[] = {
    {32994, u"Print comments"},         {32986, u"Print company name"},
    {32990, u"Print copyright"},        {32987, u"Print description"},
    {32989, u"Print internal name"},    {32985, u"Print language"},
    {32995, u"Print legal trademarks"}, {32991, u"Print original filename"},
    {32996, u"Print private build"},    {32992, u"Print product name"},
    {32993, u"Print product version"},  {32997, u"Print special build"},
    {32988, u"Print version"},
};

}  // namespace

std::span<const CMetadataPrintField> MetadataPrintFields(EMetadataGroup eGroup) {
    switch (eGroup) {
        case MetaVersion:
            return kVersion;
        case MetaWav:
            return kWav;
        case MetaMp3:
            return kMp3;
        case MetaAvi:
            return kAvi;
        case MetaMsi:
            return kMsi;
        case MetaOffice:
            return kOffice;
        default:
            return {};
    }
}

std::u16string_view MetadataSettingsSection(EMetadataGroup eGroup) {
    switch (eGroup) {
        case MetaVersion:
            return u"[VERSION PRINT FLAGS]";
        case MetaWav:
            return u"[WAV PRINT FLAGS]";
        case MetaMp3:
            return u"[MP3 PRINT FLAGS]";
        case MetaAvi:
            return u"[AVI PRINT FLAGS]";
        case MetaMsi:
            return u"[MSI PRINT FLAGS]";
        case MetaOffice:
            return u"[OFFICE PRINT FLAGS]";
        default:
            return {};
    }
}

int MetadataFieldIndex(EMetadataGroup eGroup, int32_t nFieldId) {
    const auto aFields = MetadataPrintFields(eGroup);
    for (size_t i = 0; i < aFields.size(); ++i)
        if (aFields[i].m_nFieldId == nFieldId) return static_cast<int>(i);
    return -1;
}

}  // namespace zv
