#include "analyses/DuplicateOptionChecks.h"

#include "core/document/Document.h"

namespace zv {

std::u16string CheckDuplicateFileOptions(const CDuplicateFileCriteria& criteria,
                                         bool bFindAfterScan) {
    if (bFindAfterScan && !criteria.Any())
        return u"Please select the method to detect duplicate files";
    return {};
}

std::u16string CheckDuplicateOptions(const CDocumentOptions& options) {
    std::u16string strMessage =
        CheckDuplicateFileOptions(options.m_dupFiles, options.m_bFindDupFilesAfterScan != 0);
    if (!strMessage.empty()) return strMessage;
    if (options.m_bFindDupDirsAfterScan && !options.m_dupDirs.Any())
        return u"Please select the method to detect duplicate directories";
    if (options.m_bPlaySound && options.m_strSoundFile.empty())
        return u"Please select a sound file to play when finished";
    return {};
}

std::u16string NoDuplicateFilesMessage(const CWZorvaneDoc& doc) {
    return doc.m_results.m_aDuplicateGroups.empty() ? u"There are no duplicate files"
                                                    : std::u16string();
}

std::u16string NoDuplicateDirsMessage(const CWZorvaneDoc& doc) {
    return doc.m_results.m_aDuplicateDirGroups.empty() ? u"There are no duplicate directories"
                                                       : std::u16string();
}

}  // namespace zv
