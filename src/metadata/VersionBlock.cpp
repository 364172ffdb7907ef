// Values of a version block as VerQueryValueW finds them, and the version
// fields in the order of their table.
#include <vector>

#include "core/records/FileData.h"
#include "metadata/MetadataText.h"
#include "metadata/VersionMetadata.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr int32_t kLanguage = 32985;

constexpr struct {
    const char16_t* pszKey;
    int32_t nFieldId;
} kStrings[] = {
    {u"CompanyName", 32986},     {u"FileDescription", 32987}, {u"FileVersion", 32988},
    {u"InternalName", 32989},    {u"LegalCopyright", 32990},  {u"OriginalFilename", 32991},
    {u"ProductName", 32992},     {u"ProductVersion", 32993},  {u"Comments", 32994},
    {u"LegalTrademarks", 32995}, {u"PrivateBuild", 32996},    {u"SpecialBuild", 32997},
};

uint16_t Le16(std::string_view block, size_t uAt) {
    return uint16_t(static_cast<unsigned char>(block[uAt]) |
                    static_cast<unsigned char>(block[uAt + 1]) << 8);
}

size_t Align4(size_t u) { return (u + 3) & ~size_t(3); }

// One node of the block: length, value length, type (1 for text), a key
// ending in a zero unit, the value and the children, each on a 4-byte
// boundary.
struct CNode {
    size_t uStart = 0, uEnd = 0;
    std::u16string strKey;
    size_t uValue = 0, uValueSize = 0, uChildren = 0;
    bool bText = false;
};

bool ParseNode(std::string_view block, size_t uStart, size_t uLimit, CNode& node) {
    if (uStart + 6 > uLimit) return false;
    const size_t uLength = Le16(block, uStart);
    if (uLength < 6 || uStart + uLength > uLimit) return false;
    node.uStart = uStart;
    node.uEnd = uStart + uLength;
    node.bText = Le16(block, uStart + 4) == 1;
    node.strKey.clear();
    size_t uAt = uStart + 6;
    for (;; uAt += 2) {
        if (uAt + 2 > node.uEnd) return false;
        const char16_t c = Le16(block, uAt);
        if (!c) break;
        node.strKey += c;
    }
    node.uValue = std::min(Align4(uAt + 2), node.uEnd);
    const size_t uValueLength = Le16(block, uStart + 2);
    node.uValueSize =
        std::min(node.bText ? uValueLength * 2 : uValueLength, node.uEnd - node.uValue);
    node.uChildren = std::min(Align4(node.uValue + node.uValueSize), node.uEnd);
    return true;
}

}  // namespace

bool QueryVersionValue(std::string_view block, std::u16string_view strPath, std::string_view& value,
                       bool& bText) {
    CNode node;
    if (!ParseNode(block, 0, block.size(), node)) return false;
    size_t uPos = 0;
    while (uPos < strPath.size()) {
        const size_t uSeparator = std::min(strPath.find(u'\\', uPos), strPath.size());
        const std::u16string_view strKey = strPath.substr(uPos, uSeparator - uPos);
        uPos = uSeparator + 1;
        if (strKey.empty()) continue;
        CNode child;
        bool bFound = false;
        for (size_t uAt = node.uChildren; !bFound && ParseNode(block, uAt, node.uEnd, child);
             uAt = Align4(child.uEnd))
            bFound = platform::EqualsNoCase(child.strKey, strKey);
        if (!bFound) return false;
        node = child;
    }
    value = block.substr(node.uValue, node.uValueSize);
    bText = node.bText;
    return true;
}

bool ReadVersionBlockFields(std::string_view block, MetadataValueList& aValues) {
    std::vector<std::u16string> aCandidates;
    bool bFound = false;
    for (const char16_t* pszQuery : {u"\\VarFileInfo\\Translation", u"StringFileInfo"}) {
        std::string_view value;
        bool bText = false;
        if (!QueryVersionValue(block, pszQuery, value, bText)) continue;
        bFound = true;
        if (value.size() >= 4) {
            const auto* p = reinterpret_cast<const unsigned char*>(value.data());
            // Language in the low half, code page in the high half: swapped,
            // they name the string table.
            const uint32_t uSwapped = uint32_t(p[0] | p[1] << 8) << 16 | uint32_t(p[2] | p[3] << 8);
            const std::u16string strTable = FormatText("%08X", unsigned(uSwapped));
            aCandidates.push_back(u"\\StringFileInfo\\" + strTable + u"\\");
            if (strTable != u"040904E4") aCandidates.push_back(u"\\StringFileInfo\\040904E4\\");
            AddValue(aValues, MetaVersion, kLanguage, LanguageName(uint16_t(uSwapped >> 16)));
        }
        break;
    }
    if (!bFound) return false;
    for (const auto& string : kStrings) {
        bool bLastEmpty = false, bAdded = false;
        for (const std::u16string& strCandidate : aCandidates) {
            std::string_view value;
            bool bText = false;
            const bool bOk = QueryVersionValue(block, strCandidate + string.pszKey, value, bText);
            bLastEmpty = bOk && value.empty();
            if (bOk && !value.empty()) {
                const auto* p = reinterpret_cast<const unsigned char*>(value.data());
                AddValue(aValues, MetaVersion, string.nFieldId,
                         bText ? WideText(p, value.size()) : NarrowText(p, value.size()));
                bAdded = true;
                break;
            }
        }
        if (!bAdded && !bLastEmpty) AddValue(aValues, MetaVersion, string.nFieldId, u"");
    }
    return true;
}

namespace {

bool ReadVersionResource(CFileByteStream& file, MetadataValueList& aValues) {
    std::string strBlock;
    if (ReadPeVersionBlock(file, strBlock)) return ReadVersionBlockFields(strBlock, aValues);
    // The section probes that stand behind a failed block read for ".dll"
    // names compare section names beyond the header bytes they read, so no
    // file passes them: a library without a readable version block has no
    // version fields.
    return false;
}

}  // namespace

bool ReadVersionResource(std::u16string_view strPath, MetadataValueList& aValues) {
    CFileByteStream file;
    return file.Open(strPath) && ReadVersionResource(file, aValues);
}

bool ReadVersionResource(const CFileData& file, MetadataValueList& aValues) {
    if (file.m_dSize < kMinVersionFileSize && !(file.m_uAttributes & ATTR_REPARSE_POINT))
        return false;
    CFileByteStream stream;
    return stream.Open(file) && ReadVersionResource(stream, aValues);
}

}  // namespace zv
