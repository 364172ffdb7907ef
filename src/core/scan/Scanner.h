// The scanner turns the roots of the main document into a forest of
// records, applying the filter set as it walks, and then drives the steps
// that follow a scan. It runs on the user-interface thread in one call and
// pumps the host once per directory entry.
#pragma once

#include <string>
#include <vector>

#include "core/scan/ScanHooks.h"

namespace zv {

class CWZorvaneDoc;
class CRootDirectoryData;
namespace platform {
class CDirectoryReader;
}

class CScanner {
public:
    // Without a filter everything is kept; without steps only the headless
    // tree building follows the walk.
    CScanner(CWZorvaneDoc& doc, IScanFilter* pFilter = nullptr, IScanSteps* pSteps = nullptr);

    // The entry point of every scan.
    void Rescan();
    // Prepares and runs the walk over all roots.
    void ScanAllRoots();

    // A root's own three times; all zero when nothing can be read.
    static bool GetDirectoryTimes(const std::u16string& strPath, FILETIME& ftCreated,
                                  FILETIME& ftAccessed, FILETIME& ftModified);

private:
    void ClearPreviousScan();
    void ScanRootDirectory(int nLevel, size_t nRootIndex, CDirectoryData& dir,
                           CRootDirectoryData& root, std::vector<std::u16string>& aErrors,
                           const std::u16string& strPath,
                           const platform::CDirectoryReader* pParentReader);
    void WalkChildren(int nLevel, size_t nRootIndex, CDirectoryData& dir, CRootDirectoryData& root,
                      std::vector<std::u16string>& aErrors, const std::u16string& strPath,
                      const platform::CDirectoryReader* pReader);
    CFileData* AddFileRecord(CDirectoryData& dir, const CDirEntry& entry, double dSize,
                             double dClusterSize, CFileCandidate& candidate);
    bool IsStopRequested() const;

    CWZorvaneDoc& m_doc;
    IScanFilter* m_pFilter;
    IScanSteps m_defaultSteps;
    IScanSteps* m_pSteps;
};

}  // namespace zv
