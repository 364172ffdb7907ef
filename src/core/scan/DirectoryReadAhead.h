// Worker threads that list directories ahead of the scanner. Listing and
// reading each entry's facts is where a scan waits on the system; the
// workers do that part and keep the finished listings until the scanning
// thread takes them, which then builds the records exactly as when it reads
// a directory itself.
//
// Requests are kept on a stack: the scanner queues the subdirectories of a
// directory, first-walked on top, after those of the directories it is still
// inside, so the top is always the next directory the walk enters. Workers
// take from the top, and stop taking while kMaxTaken listings are being read
// or wait to be taken: memory stays bounded whatever the tree. The bound is
// on listings rather than entries: a budget of entries filled by one large
// listing far ahead would leave the walk reading alone. A request no worker
// has taken yet when the scanner needs it, with every worker busy, is read
// by the scanning thread itself.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/FileSystem.h"

namespace zv {

// One directory as a worker read it: whether it opened (and why not), its
// own facts where they are wanted, and its entries packed into two blocks.
class CDirectoryListing {
public:
    // pBase: an open ancestor that path is relative to; without one, path
    // is the directory's full path.
    CDirectoryListing(const platform::CDirectoryReader* pBase, std::u16string strPath,
                      bool bWantSelf)
        : m_pBase(pBase), m_strPath(std::move(strPath)), m_bWantSelf(bWantSelf) {}

    // The entries in the order the directory gave them.
    size_t GetCount() const { return m_aEntries.size(); }
    void GetEntry(size_t i, CDirEntry& entry) const;

    // Open while the directory has subdirectories to be opened from it.
    platform::CDirectoryReader m_reader;
    bool m_bOpened = false;
    int m_nError = ERR_NONE;                    // of a failed open
    uint32_t m_uSelfAttributes = ATTR_INVALID;  // where they were wanted and read

private:
    friend class CDirectoryReadAhead;
    enum class EState { Queued, Taken, Done };
    struct CPackedEntry {
        FILETIME ftCreated, ftAccessed, ftModified;
        uint32_t uSizeLow, uSizeHigh, uAttributes;
        uint32_t uNameStart, uNameLength;
    };

    // Reads the directory; gives up between entries once bStop is set.
    void Read(const std::atomic<bool>& bStop);

    const platform::CDirectoryReader* m_pBase;
    std::u16string m_strPath;
    bool m_bWantSelf;
    EState m_eState = EState::Queued;
    bool m_bByWorker = false;
    std::vector<CPackedEntry> m_aEntries;
    std::u16string m_strNames;
};

class CDirectoryReadAhead {
public:
    static constexpr size_t kMaxTaken = 32;

    CDirectoryReadAhead() = default;
    ~CDirectoryReadAhead() { Stop(); }
    CDirectoryReadAhead(const CDirectoryReadAhead&) = delete;
    CDirectoryReadAhead& operator=(const CDirectoryReadAhead&) = delete;

    // Starts nWorkers threads; none for 0.
    void Start(size_t nWorkers);
    // Returns promptly once no worker reads (a listing being read is left
    // unfinished) and forgets every request; the workers take no more until
    // the next Start. Listings stay with their owners.
    void Pause();
    // Pauses and ends the workers. Threads end only here, when the walk has
    // given its handles back: sanitizer checks at a thread's end need a
    // descriptor, and a pause may come because there are none left.
    void Stop();
    bool IsRunning() const { return !m_aWorkers.empty() && !m_bStop; }
    size_t GetWorkerCount() const { return m_aWorkers.size(); }

    // Queues a listing; the last queued is the first read.
    void Queue(CDirectoryListing& listing);
    // Returns once the listing has been read, reading it here when no
    // worker has taken it; a listing waited for is no longer buffered.
    void Wait(CDirectoryListing& listing);

    // A sensible number of readers for this machine: 1 (no workers) on one
    // or two cores.
    static size_t DefaultThreads();

private:
    void WorkerLoop();
    bool CanTake() const;

    std::mutex m_mutex;
    std::condition_variable m_workAvailable;
    std::condition_variable m_listingDone;
    std::vector<CDirectoryListing*> m_aStack;
    size_t m_nTaken = 0;               // by workers, not yet waited for
    size_t m_nReading = 0;             // of those, still being read
    std::atomic<bool> m_bStop{false};  // paused: reads are abandoned, nothing taken
    bool m_bExit = false;
    std::vector<std::thread> m_aWorkers;
};

}  // namespace zv
