// Which reader a file goes to, the records' status bits, and the version
// name filter.
#include "core/document/Document.h"
#include "core/records/FileData.h"
#include "filters/WildcardMatch.h"
#include "metadata/MetadataFields.h"
#include "metadata/MetadataRecords.h"
#include "metadata/Mp3Metadata.h"
#include "metadata/Mp3Tags.h"
#include "metadata/OfficeMetadata.h"
#include "metadata/RiffMetadata.h"
#include "metadata/VersionMetadata.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr int32_t kVersionField = 32988;

// The last four characters, lower-cased; empty for a shorter name.
std::u16string LastFourLower(std::u16string_view strName) {
    if (strName.size() < 4) return {};
    std::u16string str(strName.substr(strName.size() - 4));
    for (char16_t& c : str)
        if (c >= u'A' && c <= u'Z') c = char16_t(c - u'A' + u'a');
    return str;
}

bool AnyPatternMatches(const std::vector<CFilterEntry>& aList, std::u16string_view strName) {
    if (aList.empty()) return false;
    // The name upper-cased once for all the patterns; from the last entry
    // to the first, the first hit decides.
    const std::u16string strUpper = platform::ToUpperCopy(strName);
    for (auto it = aList.rbegin(); it != aList.rend(); ++it)
        if (WildcardMatchUpper(it->m_strUpper, strUpper, true)) return true;
    return false;
}

void SetFlag(CFileData& file, uint32_t uFlag, bool bOn) {
    if (bOn)
        file.m_uFlags |= uFlag;
    else
        file.m_uFlags &= ~uFlag;
}

}  // namespace

bool IsInstallerExtension(std::u16string_view strName) {
    const std::u16string strLast = LastFourLower(strName);
    return strLast == u".msi" || strLast == u".msm" || strLast == u".msp" || strLast == u".mst";
}

bool IsOfficeExtension(std::u16string_view strName) {
    if (const CWZorvaneDoc* pDoc = GetMainDocument())
        return AnyPatternMatches(pDoc->m_filters.List(FilterOfficeExtensions), strName);
    // Without a document, the list a new document installs.
    for (const char16_t* pszPattern :
         {u"*.DOC", u"*.DOCX", u"*.XLS", u"*.XLSX", u"*.PPT", u"*.PPTX"})
        if (WildcardMatch(pszPattern, strName, true)) return true;
    return false;
}

namespace {

using MetadataReader = bool (*)(std::u16string_view strPath, MetadataValueList& aValues);

// The reader a name goes to; null for none.
MetadataReader ReaderOf(std::u16string_view strName) {
    const std::u16string strLast = LastFourLower(strName);
    if (strLast == u".wav") return ReadWavMetadata;
    if (IsMp3Extension(strName)) return ReadMp3Metadata;
    if (strLast == u".avi") return ReadAviMetadata;
    if (IsInstallerExtension(strName)) return ReadInstallerMetadata;
    if (IsOfficeExtension(strName)) return ReadOfficeMetadata;
    return nullptr;
}

// The path is made only for a file some reader takes.
bool ReadRecordMetadata(const CFileData& file, MetadataValueList& aValues) {
    const MetadataReader Read = ReaderOf(file.m_strName.View());
    return Read && Read(file.GetFullPath(), aValues);
}

}  // namespace

bool ReadMetadataOfPath(std::u16string_view strPath, std::u16string_view strName,
                        MetadataValueList& aValues) {
    const MetadataReader Read = ReaderOf(strName);
    return Read && Read(strPath, aValues);
}

bool ProbeFileMetadata(const CFileData& file) {
    MetadataValueList aScratch;
    return ReadRecordMetadata(file, aScratch);
}

bool ReadFileMetadata(CFileData& file, MetadataValueList& aValues) {
    aValues.clear();
    if ((file.m_uFlags & FILE_MEDIA_READ) && !(file.m_uFlags & FILE_HAS_MEDIA)) return false;
    const bool bHas = ReadRecordMetadata(file, aValues);
    file.m_uFlags |= FILE_MEDIA_READ;
    SetFlag(file, FILE_HAS_MEDIA, bHas);
    return bHas;
}

bool HasFileMetadata(CFileData& file) {
    if (file.m_uFlags & FILE_MEDIA_READ) return (file.m_uFlags & FILE_HAS_MEDIA) != 0;
    const bool bHas = ProbeFileMetadata(file);
    file.m_uFlags |= FILE_MEDIA_READ;
    SetFlag(file, FILE_HAS_MEDIA, bHas);
    return bHas;
}

bool ReadVersionMetadata(CFileData& file, MetadataValueList& aValues) {
    aValues.clear();
    // A file outside the name list is not asked, and its bits stay as they are.
    if (!(file.m_uFlags & FILE_HAS_VERSION) && !PassesVersionFilter(file)) return false;
    if ((file.m_uFlags & FILE_VERSION_READ) && !(file.m_uFlags & FILE_HAS_VERSION)) return false;
    file.m_uFlags |= FILE_VERSION_READ;
    const bool bHas = ReadVersionResource(file, aValues);
    SetFlag(file, FILE_HAS_VERSION, bHas);
    return bHas;
}

bool PassesVersionFilter(const CFileData& file) {
    const CWZorvaneDoc* pDoc = GetMainDocument();
    if (!pDoc || pDoc->m_options.m_bAllVersionFiles) return true;
    const std::vector<CFilterEntry>& aList = pDoc->m_filters.List(FilterVersionFiles);
    return aList.empty() || AnyPatternMatches(aList, file.m_strName.View());
}

bool ProbeVersionMetadata(const CFileData& file) {
    MetadataValueList aScratch;
    return PassesVersionFilter(file) && ReadVersionResource(file, aScratch);
}

std::u16string ReadVersionText(const CFileData& file) {
    MetadataValueList aValues;
    if (!PassesVersionFilter(file) || !ReadVersionResource(file, aValues)) return {};
    const MetadataValue* pValue = FindValue(aValues, kVersionField);
    return pValue ? pValue->m_strValue : std::u16string();
}

}  // namespace zv
