// Worker threads that list directories ahead of the scanner. Listing and
// reading each entry's facts is where a scan waits on the system; the
// workers do that part and keep the finished listings until the scanning
// thread takes them, which then builds the records exactly as when it reads
// a directory itself.
//
// A listing read with subdirectories brings the requests for those along,
// so the workers go down the tree by themselves instead of waiting for the
// scanning thread to enter each directory first: with the kernel's work per
// entry fixed, only readers that overlap for real make a scan faster.
// Requests are kept on a stack, a directory's subdirectories pushed with the
// first walked on top, so the top is close to what the walk needs next.
// Workers take from the top, and stop taking while kMaxTaken listings are
// being read or wait to be taken: memory stays bounded whatever the tree.
// The bound is on listings rather than entries: a budget of entries filled
// by one large listing far ahead would leave the walk reading alone. A
// request no worker has taken yet when the scanner needs it, with every
// worker busy, is read by the scanning thread itself.
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
    // nLevel: the directory's depth, the root's being 1.
    CDirectoryListing(const platform::CDirectoryReader* pBase, std::u16string strPath,
                      bool bWantSelf, int nLevel)
        : m_pBase(pBase), m_strPath(std::move(strPath)), m_bWantSelf(bWantSelf), m_nLevel(nLevel) {}

    // The entries in the order the directory gave them.
    size_t GetCount() const { return m_aEntries.size(); }
    void GetEntry(size_t i, CDirEntry& entry) const;

    // The requests for the subdirectories (entries with the directory bit
    // and no reparse-point bit), in entry order; none when the directory
    // lies too deep for its subdirectories to be read ahead. They are
    // opened from m_reader, so this listing outlives them.
    std::vector<std::unique_ptr<CDirectoryListing>> m_aSubdirectories;

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
    // The subdirectories get requests when the level is below nExpandBelow.
    void Read(const std::atomic<bool>& bStop, int nExpandBelow);

    const platform::CDirectoryReader* m_pBase;
    std::u16string m_strPath;
    bool m_bWantSelf;
    int m_nLevel;
    EState m_eState = EState::Queued;
    bool m_bBuffered = false;
    std::vector<CPackedEntry> m_aEntries;
    std::u16string m_strNames;
};

class CDirectoryReadAhead {
public:
    static constexpr size_t kMaxTaken = 128;

    CDirectoryReadAhead() = default;
    ~CDirectoryReadAhead() { Stop(); }
    CDirectoryReadAhead(const CDirectoryReadAhead&) = delete;
    CDirectoryReadAhead& operator=(const CDirectoryReadAhead&) = delete;

    // Starts nWorkers threads; none for 0. Listings of directories at a
    // level below nExpandBelow bring requests for their subdirectories.
    void Start(size_t nWorkers, int nExpandBelow);
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
    // Its subdirectories' requests are queued by then.
    void Wait(CDirectoryListing& listing);
    // Withdraws a request that will not be waited for, with the requests
    // below it: when this returns no worker reads any of them, and they
    // may be destroyed.
    void Cancel(CDirectoryListing& listing);

    // A sensible number of reading threads for this machine, the scanning
    // thread included: 1 (no workers) on one core.
    static size_t DefaultThreads();

private:
    void WorkerLoop();
    bool CanTake() const;
    bool WorkerCanTake() const;
    // Under the lock: sleeps until a listing has been read.
    void AwaitDone(std::unique_lock<std::mutex>& lock, CDirectoryListing& listing);
    // Under the lock: one buffered listing fewer.
    void Release();
    // Under the lock: the top request, counted as buffered.
    CDirectoryListing& TakeTop();
    // Under the lock: takes a queued listing off the stack.
    void Withdraw(CDirectoryListing& listing);
    // Under the lock: marks a listing read and queues its subdirectories.
    void Finish(CDirectoryListing& listing);

    std::mutex m_mutex;
    std::condition_variable m_workAvailable;
    std::condition_variable m_listingDone;
    std::vector<CDirectoryListing*> m_aStack;
    size_t m_nTaken =
        0;  // read ahead (by a worker, or by the walk while it waited), not yet waited for
    size_t m_nReading = 0;  // of those, still being read
    bool m_bFull = false;   // the buffer filled up: workers wait until half is taken
    const CDirectoryListing* m_pAwaited = nullptr;  // the walk sleeps until it is read
    std::atomic<bool> m_bStop{false};               // paused: reads are abandoned, nothing taken
    bool m_bExit = false;
    int m_nExpandBelow = 0;
    std::vector<std::thread> m_aWorkers;
};

}  // namespace zv
