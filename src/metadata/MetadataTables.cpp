// The six field tables: each field's id and label, in the order a reader's
// table is filled; the print flags come from the document's print options.
#include <array>

#include "core/document/Document.h"
#include "core/document/PrintSettings.h"
#include "metadata/MetadataFields.h"

namespace zv {
namespace {

struct CFieldLabel {
    int32_t m_nFieldId;
    const char16_t* m_pszLabel;
};

constexpr CFieldLabel kMp3[] = {
    {32941, u"MP3 Title"},     {32942, u"MP3 Artist"},  {32943, u"MP3 Album"},
    {32944, u"MP3 Year"},      {32945, u"MP3 Comment"}, {32946, u"MP3 Genre"},
    {32947, u"MP3 Version"},   {32948, u"MP3 Bitrate"}, {32949, u"MP3 Length"},
    {32950, u"MP3 Frequency"}, {32951, u"MP3 Frames"},  {32952, u"MP3 Mode"},
    {33024, u"MP3 Track"},
};

constexpr CFieldLabel kAvi[] = {
    {32941, u"AVI Video Frame width"}, {32942, u"AVI Video Frame height"},
    {32943, u"AVI Video Play Length"}, {32944, u"AVI Video Frame count"},
    {32945, u"AVI Video Frame rate"},  {32946, u"AVI Video Data rate"},
    {32947, u"AVI Video sample size"}, {32948, u"AVI Video compression"},
    {32949, u"AVI Audio format"},      {32950, u"AVI Audio average data rate"},
    {32951, u"AVI Audio sample rate"}, {32952, u"AVI Audio channels"},
    {32953, u"AVI Audio sample size"},
};

constexpr CFieldLabel kWav[] = {
    {32955, u"WAV Audio Format"},
    {33005, u"WAV Audio sample rate"},
    {33006, u"WAV Channels"},
    {33007, u"WAV Audio Sample size"},
    {33008, u"WAV Bit Rate"},
    {32956, u"WAV Media Length"},
    {32957, u"WAV Copyright"},
    {32958, u"WAV Archival location"},
    {32959, u"WAV Artist"},
    {32960, u"WAV Commissioned"},
    {32961, u"WAV Comments"},
    {32962, u"WAV Creation date"},
    {32963, u"WAV Cropped"},
    {32964, u"WAV Dimensions"},
    {32965, u"WAV Dots per inch"},
    {32966, u"WAV Engineer"},
    {32967, u"WAV Genre"},
    {32968, u"WAV Keywords"},
    {32969, u"WAV Lightness"},
    {32970, u"WAV Medium"},
    {32971, u"WAV Name"},
    {32972, u"WAV Palette"},
    {32973, u"WAV Product"},
    {32974, u"WAV Subject"},
    {32975, u"WAV Software"},
    {32976, u"WAV Sharpness"},
    {32977, u"WAV Source"},
    {32978, u"WAV Source Form"},
    {32979, u"WAV Technician"},
    {32980, u"WAV SMPTE time code"},
    {32981, u"WAV Digitization Time"},
    {32982, u"WAV Display Name"},
};

constexpr CFieldLabel kMsi[] = {
    {32954, u"MSI Title"},
    {32955, u"MSI Subject"},
    {32957, u"MSI Keywords"},
    {32958, u"MSI Template"},
    {32959, u"MSI Page Count"},
    {32960, u"MSI Word Count"},
    {32961, u"MSI Comments"},
    {32963, u"MSI Author"},
    {32970, u"MSI Last author"},
    {32964, u"MSI Revision Number"},
    {32965, u"MSI Application Name"},
    {32969, u"MSI Edit time"},
    {32968, u"MSI Last printed"},
    {32966, u"MSI Date of Creation"},
    {32967, u"MSI Date last saved"},
};

constexpr CFieldLabel kOffice[] = {
    {1702, u"Office Title"},
    {1703, u"Office Subject"},
    {1704, u"Office Author"},
    {1705, u"Office Manager"},
    {1706, u"Office Company"},
    {1707, u"Office Category"},
    {1708, u"Office Keywords"},
    {1709, u"Office Comments"},
    {1711, u"Office Template"},
    {1712, u"Office Last Author"},
    {1713, u"Office Rev Number"},
    {1714, u"Office Edit Time"},
    {1715, u"Office Last Printed"},
    {1716, u"Office Create Date Time"},
    {1717, u"Office Last Save Date Time"},
    {1718, u"Office Page Count"},
    {1719, u"Office Word Count"},
    {1720, u"Office Char Count"},
    {1721, u"Office App Name"},
    {1722, u"Office Doc Security"},
    {1723, u"Office Pres Format"},
    {1724, u"Office Byte Count"},
    {1725, u"Office Line Count"},
    {1726, u"Office Paragraph Count"},
    {1727, u"Office Slide Count"},
    {1728, u"Office Note Count"},
    {1729, u"Office Hidden Count"},
    {1730, u"Office MM Clip Count"},
    {1731, u"Office Scale"},
    {1732, u"Office Doc Parts"},
    {1733, u"Office Links Dirty"},
    {1794, u"Office Total Time"},
    {1797, u"Office Shared Doc"},
    {1798, u"Office Hyperlinks Changed"},
    {1799, u"Office Application Version"},
    {1800, u"Office Content Status"},
    {1802, u"Office Version"},
    {1804, u"Office Description"},
};

constexpr CFieldLabel kVersion[] = {
    {32985, u"VER Language"},          {32986, u"VER Company Name"},
    {32987, u"VER Description"},       {32988, u"VER Version"},
    {32989, u"VER Internal Name"},     {32990, u"VER Legal Copyright"},
    {32991, u"VER Original Filename"}, {32992, u"VER Product Name"},
    {32993, u"VER Product Version"},   {32994, u"VER Comments"},
    {32995, u"VER Legal Trademarks"},  {32996, u"VER Private Build"},
    {32997, u"VER Special Build"},
};

std::span<const CFieldLabel> Labels(EMetadataGroup eGroup) {
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

std::array<MetadataFieldTable, MetadataGroupCount> s_aTables;
bool s_bBuilt = false;

void BuildTables(const CPrintSettings& print) {
    for (int nGroup = 0; nGroup < MetadataGroupCount; ++nGroup) {
        const auto eGroup = static_cast<EMetadataGroup>(nGroup);
        MetadataFieldTable& table = s_aTables[nGroup];
        table = MetadataFieldTable();
        for (const CFieldLabel& field : Labels(eGroup)) {
            // One document option switches both the author and the keywords
            // of Office documents.
            const int32_t nFlagField =
                eGroup == MetaOffice && field.m_nFieldId == 1704 ? 1708 : field.m_nFieldId;
            table.Add(field.m_nFieldId, field.m_pszLabel, print.MetadataFlag(eGroup, nFlagField));
        }
        table.Sort();
    }
    s_bBuilt = true;
}

}  // namespace

void BuildMetadataTables(const CWZorvaneDoc& doc) { BuildTables(doc.m_print); }

const MetadataFieldTable& MetadataTable(EMetadataGroup eGroup) {
    // A program that reads metadata before any document exists gets the
    // tables of the default print options.
    if (!s_bBuilt) BuildTables(CPrintSettings());
    return s_aTables[eGroup];
}

}  // namespace zv
