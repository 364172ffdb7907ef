#include "fileops/RenameOnDisk.h"

#include <string>

#include "core/host/Host.h"
#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "core/records/RecordPath.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {

namespace {

constexpr int kAttempts = 1000;

std::u16string Number(int n) { return platform::Utf8ToUtf16(std::to_string(n)); }

}  // namespace

std::u16string NumberedFileName(std::u16string_view strName, int nAttempt) {
    const size_t nDot = strName.find(u'.');
    if (nDot == std::u16string_view::npos) return std::u16string(strName) + u"_" + Number(nAttempt);
    return std::u16string(strName.substr(0, nDot)) + u"_" + Number(nAttempt) + u"." +
           std::u16string(strName.substr(nDot + 1));
}

std::u16string NumberedDirectoryName(std::u16string_view strName, int nAttempt) {
    return std::u16string(strName) + u"_" + Number(nAttempt);
}

bool RenameFileOnDisk(CFileData& file, std::u16string_view strNewName) {
    if (strNewName.empty() || file.m_strName == strNewName) return true;
    const std::u16string strOldPath = file.GetFullPath();
    if (file.IsStream()) {
        Host().ShowMessage(u"Cannot rename stream: " + strOldPath);
        return false;
    }
    const std::u16string strDirectory = file.m_pDirectory ? file.m_pDirectory->GetFullPath() : u"";
    std::u16string strCandidate(strNewName);
    for (int nAttempt = 1; nAttempt <= kAttempts; ++nAttempt) {
        if (platform::RenamePath(strOldPath, JoinPath(strDirectory, strCandidate))) {
            file.m_strName = strCandidate;
            file.m_uFlags &= ~FILE_NAME_CRC_VALID;
            return true;
        }
        strCandidate = NumberedFileName(strNewName, nAttempt);
    }
    Host().ShowMessage(u"Cannot rename file " + strOldPath);
    return false;
}

bool RenameDirectoryOnDisk(CDirectoryData& dir, std::u16string_view strNewName) {
    std::u16string strName(strNewName);
    std::u16string strParent;
    if (dir.m_pParent) {
        strParent = dir.m_pParent->GetFullPath();
    } else {
        // A root's record holds its whole path; the new name replaces the
        // part after the last separator.
        const std::u16string strPath = dir.GetFullPath();
        const size_t nSlash = strPath.find_last_of(platform::kPathSeparator);
        strParent = nSlash == std::u16string::npos ? u"" : strPath.substr(0, nSlash + 1);
        const size_t nNameSlash = strName.find_last_of(platform::kPathSeparator);
        if (nNameSlash != std::u16string::npos) strName = strName.substr(nNameSlash + 1);
    }
    const std::u16string strOldPath = dir.GetFullPath();
    if (strName.empty() || JoinPath(strParent, strName) == strOldPath) return true;
    std::u16string strCandidate = strName;
    for (int nAttempt = 1; nAttempt <= kAttempts; ++nAttempt) {
        const std::u16string strNewPath = JoinPath(strParent, strCandidate);
        if (platform::RenamePath(strOldPath, strNewPath)) {
            dir.m_strName = dir.m_pParent ? strCandidate : strNewPath;
            dir.m_uFlags &= ~DIR_NAME_CRC_VALID;
            return true;
        }
        strCandidate = NumberedDirectoryName(strName, nAttempt);
    }
    Host().ShowMessage(u"Cannot rename directory " + strOldPath);
    return false;
}

}  // namespace zv
