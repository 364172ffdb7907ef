#include "fileops/NewFolder.h"

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/records/DirectoryData.h"
#include "core/records/RecordPath.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {

std::u16string FirstFreeFolderName(const std::function<bool(std::u16string_view)>& bTaken) {
    for (int n = 1; n < 0xFFFFF; ++n) {
        const std::u16string strName =
            n == 1 ? std::u16string(u"New Folder")
                   : u"New Folder (" + platform::Utf8ToUtf16(std::to_string(n)) + u")";
        if (!bTaken(strName)) return strName;
    }
    return {};
}

CDirectoryData* CreateNewFolder(CWZorvaneDoc& doc, CDirectoryData& dir) {
    const std::u16string strDirectory = dir.GetFullPath();
    const std::u16string strName = FirstFreeFolderName([&](std::u16string_view strCandidate) {
        return platform::GetFileAttributes(JoinPath(strDirectory, strCandidate)) != ATTR_INVALID;
    });
    if (strName.empty()) {
        Host().ShowMessage(u"Cannot create a temporary new folder");
        return nullptr;
    }
    const std::u16string strPath = JoinPath(strDirectory, strName);
    if (!platform::MakeDirectory(strPath)) {
        Host().ShowMessage(u"Cannot create directory: " + strPath);
        return nullptr;
    }
    CDirEntry entry;
    if (!platform::GetEntryInfo(strPath, entry)) entry.uAttributes = ATTR_DIRECTORY;
    auto* pFolder = new CDirectoryData(&dir, strName, entry.ftCreated, entry.ftAccessed,
                                       entry.ftModified, entry.uAttributes);
    dir.m_aChildren.Add(pFolder);
    // The new entry stands where the present order puts it at the next sort.
    dir.m_nDirSort = 0;
    doc.m_scan.m_aAllDirs.Add(pFolder);
    return pFolder;
}

}  // namespace zv
