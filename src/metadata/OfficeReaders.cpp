// Installer summaries and the property sets of compound-file documents.
#include <cmath>
#include <cstring>

#include "metadata/CompoundFile.h"
#include "metadata/MetadataText.h"
#include "metadata/OfficeMetadata.h"

namespace zv {
namespace {

constexpr unsigned char kSummaryInformation[16] = {0xE0, 0x85, 0x9F, 0xF2, 0xF9, 0x4F, 0x68, 0x10,
                                                   0xAB, 0x91, 0x08, 0x00, 0x2B, 0x27, 0xB3, 0xD9};
constexpr unsigned char kDocumentSummary[16] = {0x02, 0xD5, 0xCD, 0xD5, 0x9C, 0x2E, 0x1B, 0x10,
                                                0x93, 0x97, 0x08, 0x00, 0x2B, 0x2C, 0xF9, 0xAE};

constexpr uint32_t kString = 30, kWideString = 31, kInteger = 3, kFileTime = 64;
// The text buffer of the installer call: longer values do not fit.
constexpr size_t kInstallerTextLimit = 520;

uint32_t Le32(std::string_view value, size_t uAt = 0) {
    const auto* b = reinterpret_cast<const unsigned char*>(value.data() + uAt);
    return uint32_t(b[0]) | uint32_t(b[1]) << 8 | uint32_t(b[2]) << 16 | uint32_t(b[3]) << 24;
}

FILETIME FileTimeOf(uint32_t uType, std::string_view value) {
    if (uType != kFileTime || value.size() < 8) return {};
    return FILETIME{Le32(value), Le32(value, 4)};
}

// Property id and field id, in the order the rows are asked and added.
struct CRow {
    uint32_t uProperty;
    int32_t nFieldId;
};

constexpr CRow kInstallerRows[] = {
    {2, 32954},  {3, 32955},  {5, 32957},  {7, 32958},  {14, 32959},
    {15, 32960}, {6, 32961},  {4, 32963},  {8, 32970},  {9, 32964},
    {18, 32965}, {10, 32969}, {11, 32968}, {12, 32966}, {13, 32967},
};

constexpr CRow kSummaryRows[] = {
    {2, 1702},  {3, 1703},  {4, 1704},  {5, 1708},  {6, 1709},  {7, 1711},
    {8, 1712},  {9, 1713},  {10, 1714}, {11, 1715}, {12, 1716}, {13, 1717},
    {14, 1718}, {15, 1719}, {16, 1720}, {18, 1721}, {19, 1722},
};

constexpr CRow kDocumentRows[] = {
    {2, 1707}, {3, 1723},  {4, 1724},  {5, 1725},  {6, 1726},  {7, 1727},  {8, 1728},
    {9, 1729}, {10, 1730}, {11, 1731}, {13, 1732}, {14, 1705}, {15, 1706}, {16, 1733},
};

bool ReadSection(CCompoundFile& storage, std::u16string_view strStream,
                 const unsigned char* pFormatId, std::string& strBytes, CPropertySection& section) {
    return storage.ReadRootStream(strStream, strBytes) && section.Parse(strBytes, pFormatId);
}

// The text of a property by its variant type. A double (type 5) assigns
// nothing, so the text stays that of the property before it.
void PropertyValueText(uint32_t uType, std::string_view value, uint16_t uCodePage,
                       std::u16string& strOut) {
    if (uType >= 72 || (uType & 0x6000)) {
        strOut.clear();
        return;
    }
    switch (uType) {
        case 2:
            strOut =
                value.size() >= 2
                    ? FormatText("%d",
                                 int(int16_t(uint16_t(static_cast<unsigned char>(value[0]) |
                                                      static_cast<unsigned char>(value[1]) << 8))))
                    : u"";
            break;
        case 3:
            strOut = value.size() >= 4 ? FormatText("%d", int(int32_t(Le32(value)))) : u"";
            break;
        case 4: {
            float f = 0;
            if (value.size() >= 4) std::memcpy(&f, value.data(), 4);
            strOut = FormatFixed(f, 2);
            break;
        }
        case 5:
            break;
        case 8:
        case kString:
            strOut = PropertyString(value, uCodePage);
            break;
        case 11:
            strOut = value.size() >= 2 && (value[0] || value[1]) ? u"TRUE" : u"FALSE";
            break;
        case kFileTime: {
            FILETIME ftLocal;
            SYSTEMTIME st;
            strOut = platform::FileTimeToLocalFileTime(FileTimeOf(uType, value), ftLocal) &&
                             platform::FileTimeToSystemTime(ftLocal, st)
                         ? SystemTimeText(st, true)
                         : u"";
            break;
        }
        default:
            strOut.clear();
    }
}

// An elapsed time held in a file time. Within 32 bits the hours stay 0 and
// the minutes run on: two hours show as "00:120:00".
std::u16string EditTimeText(FILETIME ft) {
    if (ft.dwHighDateTime) {
        const double dSeconds = double(FileTimeToUInt64(ft)) * 1e-7;
        const double dHours = std::floor(dSeconds / 3600);
        const double dMinutes = std::floor((dSeconds - dHours * 3600) / 60);
        return FormatText("%02.0f:%02.0f:%02.0f", dHours, dMinutes,
                          dSeconds - dHours * 3600 - dMinutes * 60);
    }
    const uint32_t uSeconds = ft.dwLowDateTime / 10000000;
    return FormatText("%02d:%02d:%02d", 0, int(uSeconds / 60), int(uSeconds % 60));
}

}  // namespace

bool ReadInstallerMetadata(std::u16string_view strPath, MetadataValueList& aValues) {
    CFileByteStream file;
    return file.Open(strPath) && ReadInstallerStream(file, aValues);
}

bool ReadInstallerStream(IByteStream& file, MetadataValueList& aValues) {
    CCompoundFile storage;
    std::string strBytes;
    CPropertySection section;
    if (!storage.Open(file) ||
        !ReadSection(storage, u"\x05SummaryInformation", kSummaryInformation, strBytes, section))
        return false;
    for (const CRow& row : kInstallerRows) {
        uint32_t uType = 0;
        std::string_view value;
        if (!section.Find(row.uProperty, uType, value)) continue;
        if (uType == kString || uType == kWideString) {
            const std::u16string strText = uType == kString
                                               ? PropertyString(value, section.CodePage())
                                               : PropertyWideString(value);
            if (strText.size() < kInstallerTextLimit)
                AddValue(aValues, MetaMsi, row.nFieldId, strText);
        } else if (uType == kInteger && value.size() >= 4) {
            AddValue(aValues, MetaMsi, row.nFieldId, FormatText("%d", int(int32_t(Le32(value)))));
        } else if (uType == kFileTime) {
            // The edit time with its time of day, the other dates without.
            AddValue(aValues, MetaMsi, row.nFieldId,
                     DateText(FileTimeOf(uType, value), row.uProperty == 10));
        }
    }
    return true;
}

bool ReadStorageProperties(IByteStream& file, MetadataValueList& aValues) {
    CCompoundFile storage;
    std::string strBytes;
    CPropertySection section;
    if (!storage.Open(file) ||
        !ReadSection(storage, u"\x05SummaryInformation", kSummaryInformation, strBytes, section))
        return false;
    std::u16string strText;
    // Every property is added, empty when the document lacks it.
    for (const CRow& row : kSummaryRows) {
        uint32_t uType = 0;
        std::string_view value;
        section.Find(row.uProperty, uType, value);
        if (row.uProperty == 10)
            strText = EditTimeText(FileTimeOf(uType, value));
        else
            PropertyValueText(uType, value, section.CodePage(), strText);
        AddValue(aValues, MetaOffice, row.nFieldId, strText);
    }
    if (!ReadSection(storage,
                     u"\x05"
                     u"DocumentSummaryInformation",
                     kDocumentSummary, strBytes, section))
        return false;
    for (const CRow& row : kDocumentRows) {
        uint32_t uType = 0;
        std::string_view value;
        section.Find(row.uProperty, uType, value);
        PropertyValueText(uType, value, section.CodePage(), strText);
        AddValue(aValues, MetaOffice, row.nFieldId, strText);
    }
    return true;
}

bool ReadOfficeMetadata(std::u16string_view strPath, MetadataValueList& aValues) {
    CFileByteStream file;
    if (!file.Open(strPath)) return false;
    return ReadStorageProperties(file, aValues) || ReadPackageProperties(file, aValues);
}

}  // namespace zv
