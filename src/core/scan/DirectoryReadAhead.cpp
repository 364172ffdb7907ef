#include "core/scan/DirectoryReadAhead.h"

#include <algorithm>

namespace zv {

void CDirectoryListing::GetEntry(size_t i, CDirEntry& entry) const {
    const CPackedEntry& packed = m_aEntries[i];
    entry.strName.assign(m_strNames, packed.uNameStart, packed.uNameLength);
    entry.uSizeLow = packed.uSizeLow;
    entry.uSizeHigh = packed.uSizeHigh;
    entry.ftCreated = packed.ftCreated;
    entry.ftAccessed = packed.ftAccessed;
    entry.ftModified = packed.ftModified;
    entry.uAttributes = packed.uAttributes;
}

void CDirectoryListing::Read(const std::atomic<bool>& bStop) {
    m_bOpened = m_pBase ? m_reader.OpenChild(*m_pBase, m_strPath) : m_reader.Open(m_strPath);
    if (!m_bOpened) {
        m_nError = m_reader.GetLastError();
        return;
    }
    CDirEntry entry;
    if (m_bWantSelf && m_reader.GetSelf(entry)) m_uSelfAttributes = entry.uAttributes;
    bool bHasSubdirectory = false;
    while (!bStop.load(std::memory_order_relaxed) && m_reader.Next(entry)) {
        const uint32_t uAttributes = entry.uAttributes;
        bHasSubdirectory |=
            (uAttributes & ATTR_DIRECTORY) != 0 && (uAttributes & ATTR_REPARSE_POINT) == 0;
        m_aEntries.push_back({entry.ftCreated, entry.ftAccessed, entry.ftModified, entry.uSizeLow,
                              entry.uSizeHigh, uAttributes, uint32_t(m_strNames.size()),
                              uint32_t(entry.strName.size())});
        m_strNames += entry.strName;
    }
    // Only a directory with subdirectories is opened from again; the others
    // give their handle back now, as handles are few.
    if (!bHasSubdirectory) m_reader.Close();
}

size_t CDirectoryReadAhead::DefaultThreads() {
    // One worker per core: more only add hand-overs between threads. On two
    // cores the hand-overs cost more than they overlap when the cache is warm
    // (measured on /usr), so the walk reads alone there.
    const size_t nCores = std::thread::hardware_concurrency();
    if (nCores <= 2) return 1;
    return std::min<size_t>(nCores, 8);
}

void CDirectoryReadAhead::Start(size_t nWorkers) {
    Stop();
    m_bStop = false;
    m_bExit = false;
    for (size_t i = 0; i < nWorkers; ++i)
        m_aWorkers.emplace_back(&CDirectoryReadAhead::WorkerLoop, this);
}

void CDirectoryReadAhead::Pause() {
    std::unique_lock<std::mutex> lock(m_mutex);
    m_bStop = true;
    m_aStack.clear();
    m_listingDone.wait(lock, [this] { return m_nReading == 0; });
    m_nTaken = 0;
}

void CDirectoryReadAhead::Stop() {
    Pause();
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_bExit = true;
    }
    m_workAvailable.notify_all();
    for (std::thread& worker : m_aWorkers) worker.join();
    m_aWorkers.clear();
}

void CDirectoryReadAhead::Queue(CDirectoryListing& listing) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_aStack.push_back(&listing);
    }
    m_workAvailable.notify_one();
}

bool CDirectoryReadAhead::CanTake() const { return !m_aStack.empty() && m_nTaken < kMaxTaken; }

void CDirectoryReadAhead::WorkerLoop() {
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_workAvailable.wait(lock, [this] { return m_bExit || (!m_bStop && CanTake()); });
        if (m_bExit) return;
        CDirectoryListing& listing = *m_aStack.back();
        m_aStack.pop_back();
        listing.m_eState = CDirectoryListing::EState::Taken;
        listing.m_bByWorker = true;
        ++m_nTaken;
        ++m_nReading;
        lock.unlock();
        listing.Read(m_bStop);
        lock.lock();
        --m_nReading;
        listing.m_eState = CDirectoryListing::EState::Done;
        m_listingDone.notify_all();
    }
}

void CDirectoryReadAhead::Wait(CDirectoryListing& listing) {
    std::unique_lock<std::mutex> lock(m_mutex);
    // What the walk needs next is the top of the stack, so an idle worker
    // takes it at once; only when none is idle is it read here.
    const bool bWorkerIdle = m_nReading < m_aWorkers.size() && m_nTaken < kMaxTaken;
    if (listing.m_eState == CDirectoryListing::EState::Queued && !bWorkerIdle) {
        const auto it = std::find(m_aStack.rbegin(), m_aStack.rend(), &listing);
        if (it != m_aStack.rend()) m_aStack.erase(std::next(it).base());
        listing.m_eState = CDirectoryListing::EState::Taken;
        lock.unlock();
        listing.Read(m_bStop);
        lock.lock();
        listing.m_eState = CDirectoryListing::EState::Done;
        return;
    }
    m_listingDone.wait(lock, [&] { return listing.m_eState == CDirectoryListing::EState::Done; });
    if (!listing.m_bByWorker) return;
    listing.m_bByWorker = false;
    --m_nTaken;
    lock.unlock();
    m_workAvailable.notify_all();
}

}  // namespace zv
