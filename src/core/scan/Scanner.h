// The scanner turns the roots of the main document into a forest of
// records, applying the filter set as it walks, and then drives the steps
// that follow a scan. It runs on the user-interface thread in one call and
// pumps the host once per directory entry; worker threads may read the
// directories ahead of it (see CDirectoryReadAhead), which changes nothing
// in what it finds or in what order. The walk keeps its own stack of
// directories whose subdirectories are still to be entered, so the depth of
// a tree is bounded by memory, not by the call stack.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "core/scan/DirectoryReadAhead.h"
#include "core/scan/ScanHooks.h"
#include "platform/FileSystem.h"

namespace zv {

class CWZorvaneDoc;
class CRootDirectoryData;

class CScanner {
public:
    // Without a filter everything is kept; without steps only the headless
    // tree building follows the walk.
    CScanner(CWZorvaneDoc& doc, IScanFilter* pFilter = nullptr, IScanSteps* pSteps = nullptr);

    // Threads that read directories, the scanning thread one of them: 1
    // reads them on the scanning thread alone, N adds N - 1 workers reading
    // ahead of it. The default suits the machine.
    void SetReadThreads(size_t nThreads) { m_nReadThreads = nThreads; }
    size_t GetReadThreads() const { return m_nReadThreads; }

    // The entry point of every scan.
    void Rescan();
    // Prepares and runs the walk over all roots.
    void ScanAllRoots();

    // A root's own three times; all zero when nothing can be read.
    static bool GetDirectoryTimes(const std::u16string& strPath, FILETIME& ftCreated,
                                  FILETIME& ftAccessed, FILETIME& ftModified);

private:
    // A directory whose subdirectories are being entered, from the last
    // child to the first (they are sorted by name descending).
    struct CPendingDirectory {
        CDirectoryData* pDir = nullptr;
        int nLevel = 0;
        size_t nPathLength = 0;  // of its path, the front of m_strPath
        size_t nChildrenLeft = 0;
        bool bAnchor = false;               // its handle stays open however many are in use
        platform::CDirectoryReader reader;  // open while children are opened from it
        // Read ahead: the listing holds the handle instead, as the
        // children's requests were made from it.
        std::unique_ptr<CDirectoryListing> pListing;
        // With read-ahead: the children's listings by child index; a child
        // without one is read by the walk itself.
        bool bReadAhead = false;
        std::vector<std::unique_ptr<CDirectoryListing>> aListings;

        const platform::CDirectoryReader& Handle() const {
            return pListing ? pListing->m_reader : reader;
        }
    };

    void ClearPreviousScan();
    void ScanRootDirectory(size_t nRootIndex, CRootDirectoryData& root);
    // Lists the directory named by m_strPath into dir and, when its
    // subdirectories are to be entered, pushes it onto m_aPending.
    // pListing: the directory as read ahead; without it, it is read here.
    void ListDirectory(int nLevel, CDirectoryData& dir, CRootDirectoryData& root,
                       std::unique_ptr<CDirectoryListing> pListing = nullptr);
    void QueueChildren(CPendingDirectory& pending);
    // The subdirectory requests a listing brought, by index of the children
    // made from it after they were sorted (aUnsorted: before).
    void AdoptSubdirectoryListings(CPendingDirectory& pending, CDirectoryListing& listing,
                                   const std::vector<CDirectoryData*>& aUnsorted);
    // From here on the walk reads every directory itself.
    void EndReadAhead();
    bool OpenDirectory(platform::CDirectoryReader& reader);
    bool OpenFromNearestHandle(platform::CDirectoryReader& reader) const;
    void CloseSpareHandles();
    size_t AnchorPathLength() const;
    CFileData* AddFileRecord(CDirectoryData& dir, const CDirEntry& entry, double dSize,
                             double dClusterSize, CFileCandidate& candidate);
    bool IsStopRequested() const;

    CWZorvaneDoc& m_doc;
    IScanFilter* m_pFilter;
    IScanSteps m_defaultSteps;
    IScanSteps* m_pSteps;

    std::u16string m_strPath;  // of the directory being listed
    // A deque: queued listings refer to the handles of its elements.
    std::deque<CPendingDirectory> m_aPending;
    bool m_bSparingHandles = false;  // handles ran out once in this scan
    size_t m_nReadThreads = CDirectoryReadAhead::DefaultThreads();
    CDirectoryReadAhead m_readAhead;  // after m_aPending: its workers end first
};

}  // namespace zv
