// Building small trees of records for tests, and record services that
// answer from a table instead of reading files.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "core/records/DirectoryData.h"
#include "core/records/RecordServices.h"
#include "platform/FileSystem.h"

namespace zv::test {

// A root as the scanner would have it after preparation, without asking
// the file system.
inline std::unique_ptr<CRootDirectoryData> MakeRoot(std::u16string_view strPath,
                                                    double dClusterSize = 4096) {
    auto pRoot = std::make_unique<CRootDirectoryData>(strPath);
    pRoot->m_uFlags |= DIR_IS_ROOT;
    pRoot->m_bNewRoot = 0;
    pRoot->m_dClusterSize = dClusterSize;
    return pRoot;
}

inline CDirectoryData* AddDir(CDirectoryData& parent, std::u16string_view strName) {
    auto* pDir = new CDirectoryData(&parent, strName, {}, {}, {}, ATTR_DIRECTORY);
    parent.m_aChildren.Add(pDir);
    return pDir;
}

inline CFileData* AddFile(CDirectoryData& dir, std::u16string_view strName, double dSize) {
    auto* pFile = new CFileData(strName, dSize, {}, {}, {}, 0, &dir, false, nullptr);
    const CRootDirectoryData* pRoot = dir.GetRoot();
    dir.AddFile(pFile, pRoot ? pRoot->m_dClusterSize : 0);
    return pFile;
}

// Answers whole-file checksums from a table by full path; a path missing
// from the table fails as an unreadable file would.
class CTableServices : public IRecordServices {
public:
    CTableServices() { SetRecordServices(this); }
    ~CTableServices() override { SetRecordServices(nullptr); }
    uint32_t Crc32OfFile(const std::u16string& strPath, bool& bFailed, double) override {
        ++m_nReads;
        const auto it = m_mapCrc.find(strPath);
        if (it != m_mapCrc.end()) return it->second;
        bFailed = true;
        return 0;
    }

    std::map<std::u16string, uint32_t> m_mapCrc;
    int m_nReads = 0;
};

}  // namespace zv::test
