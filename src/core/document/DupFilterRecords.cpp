#include "core/document/DupFilterRecords.h"

#include "core/document/FilterSet.h"
#include "core/host/Host.h"
#include "platform/FileSystem.h"

namespace zv {
namespace {

// The listing is read to its end before any child is opened.
void ScanFilterDirectory(CDirectoryData& dir, platform::CDirectoryReader& reader,
                         bool bWithSubdirs) {
    CDirEntry entry;
    while (reader.Next(entry)) {
        if (!entry.IsDirectory()) {
            dir.m_aFiles.Add(new CFileData(entry.strName, entry.Size(), entry.ftCreated,
                                           entry.ftAccessed, entry.ftModified, entry.uAttributes,
                                           &dir, false, nullptr));
        } else if (bWithSubdirs && !(entry.uAttributes & ATTR_REPARSE_POINT)) {
            dir.m_aChildren.Add(new CDirectoryData(&dir, entry.strName, entry.ftCreated,
                                                   entry.ftAccessed, entry.ftModified,
                                                   entry.uAttributes));
        }
    }
    for (CDirectoryData* pChild : dir.m_aChildren) {
        platform::CDirectoryReader childReader;
        if (childReader.OpenChild(reader, pChild->m_strName))
            ScanFilterDirectory(*pChild, childReader, true);
    }
}

}  // namespace

bool AddDupFileFilter(CFilterSet& filters, std::u16string_view strPath) {
    const std::u16string strFullPath(strPath);
    {
        platform::CFileReader reader;
        if (!reader.Open(strFullPath)) {
            Host().ShowMessage(u"Cannot open file: " + strFullPath);
            return false;
        }
    }
    CDirEntry entry;
    if (!platform::GetEntryInfo(strFullPath, entry)) {
        Host().ShowMessage(u"Cannot get size for file: " + strFullPath);
        return false;
    }
    // The record's name is the whole path: it has no directory.
    auto* pRecord = new CFileData(strFullPath, entry.Size(), entry.ftCreated, entry.ftAccessed,
                                  entry.ftModified, entry.uAttributes, nullptr, false, nullptr);
    pRecord->GetCrc();
    if (pRecord->m_uFlags & FILE_CRC_FAILED) {
        delete pRecord;
        Host().ShowMessage(u"Cannot get CRC for file: " + strFullPath);
        return false;
    }
    filters.m_aDupFileRecords.Add(pRecord);
    filters.AddEntry(FilterDupFiles, strPath);
    return true;
}

void AddDupDirFilterTree(CFilterSet& filters, std::u16string_view strPath, bool bWithSubdirs) {
    const std::u16string strFullPath(strPath);
    Host().SetStatusText(u"Scanning Filter " + strFullPath);
    platform::CDirectoryReader reader;
    CDirEntry self;
    const bool bOpened = reader.Open(strFullPath);
    if (bOpened) reader.GetSelf(self);
    auto* pTree = new CDirectoryData(nullptr, strFullPath, self.ftCreated, self.ftAccessed,
                                     self.ftModified, self.uAttributes);
    filters.m_aDupDirTrees.Add(pTree);
    if (bOpened) ScanFilterDirectory(*pTree, reader, bWithSubdirs);
    Host().SetStatusText(u"");
}

}  // namespace zv
