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

void CDirectoryListing::Read(const std::atomic<bool>& bStop, int nExpandBelow) {
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
    if (!bHasSubdirectory) {
        m_reader.Close();
        return;
    }
    if (m_nLevel >= nExpandBelow || bStop.load(std::memory_order_relaxed)) return;
    for (const CPackedEntry& packed : m_aEntries) {
        if ((packed.uAttributes & ATTR_DIRECTORY) == 0 ||
            (packed.uAttributes & ATTR_REPARSE_POINT) != 0)
            continue;
        m_aSubdirectories.push_back(std::make_unique<CDirectoryListing>(
            &m_reader, m_strNames.substr(packed.uNameStart, packed.uNameLength), m_bWantSelf,
            m_nLevel + 1));
    }
}

size_t CDirectoryReadAhead::DefaultThreads() {
    // One reader per core, the scanning thread being one: more only add
    // hand-overs between threads, and the work per entry is the kernel's.
    const size_t nCores = std::thread::hardware_concurrency();
    if (nCores <= 1) return 1;
    return std::min<size_t>(nCores, 8);
}

void CDirectoryReadAhead::Start(size_t nWorkers, int nExpandBelow) {
    Stop();
    m_nExpandBelow = nExpandBelow;
    m_bStop = false;
    m_bExit = false;
    for (size_t i = 0; i < nWorkers; ++i)
        m_aWorkers.emplace_back(&CDirectoryReadAhead::WorkerLoop, this);
}

void CDirectoryReadAhead::Pause() {
    std::unique_lock<std::mutex> lock(m_mutex);
    m_bStop = true;
    m_aStack.clear();
    m_pAwaited = nullptr;
    m_listingDone.wait(lock, [this] { return m_nReading == 0; });
    m_nTaken = 0;
    m_bFull = false;
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

bool CDirectoryReadAhead::CanTake() const {
    return !m_bStop && !m_aStack.empty() && m_nTaken < kMaxTaken;
}

bool CDirectoryReadAhead::WorkerCanTake() const { return !m_bFull && CanTake(); }

CDirectoryListing& CDirectoryReadAhead::TakeTop() {
    CDirectoryListing& listing = *m_aStack.back();
    m_aStack.pop_back();
    listing.m_eState = CDirectoryListing::EState::Taken;
    listing.m_bBuffered = true;
    if (++m_nTaken == kMaxTaken) m_bFull = true;
    return listing;
}

void CDirectoryReadAhead::WorkerLoop() {
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_workAvailable.wait(lock, [this] { return m_bExit || WorkerCanTake(); });
        if (m_bExit) return;
        CDirectoryListing& listing = TakeTop();
        ++m_nReading;
        lock.unlock();
        listing.Read(m_bStop, m_nExpandBelow);
        lock.lock();
        --m_nReading;
        Finish(listing);
        // The walk sleeps only for one listing, or for the last reader to
        // stop at a pause.
        if (&listing == m_pAwaited || (m_bStop && m_nReading == 0)) m_listingDone.notify_all();
    }
}

void CDirectoryReadAhead::Finish(CDirectoryListing& listing) {
    listing.m_eState = CDirectoryListing::EState::Done;
    if (m_bStop || listing.m_aSubdirectories.empty()) return;
    // The walk enters subdirectories in name order: the first of them goes
    // on top. (The walk's own order decides nothing here but how soon a
    // listing is ready.)
    const size_t nFirst = m_aStack.size();
    for (const auto& pSubdirectory : listing.m_aSubdirectories)
        m_aStack.push_back(pSubdirectory.get());
    std::sort(m_aStack.begin() + std::ptrdiff_t(nFirst), m_aStack.end(),
              [](const CDirectoryListing* pA, const CDirectoryListing* pB) {
                  return pA->m_strPath > pB->m_strPath;
              });
    m_workAvailable.notify_all();
}

void CDirectoryReadAhead::Withdraw(CDirectoryListing& listing) {
    const auto it = std::find(m_aStack.rbegin(), m_aStack.rend(), &listing);
    if (it != m_aStack.rend()) m_aStack.erase(std::next(it).base());
}

void CDirectoryReadAhead::Wait(CDirectoryListing& listing) {
    std::unique_lock<std::mutex> lock(m_mutex);
    if (listing.m_eState == CDirectoryListing::EState::Queued) {
        // Needed now: read here, while the workers read what comes next.
        Withdraw(listing);
        listing.m_eState = CDirectoryListing::EState::Taken;
        lock.unlock();
        listing.Read(m_bStop, m_nExpandBelow);
        lock.lock();
        Finish(listing);
        return;
    }
    // While a worker reads it, the walk reads what is queued next instead
    // of sleeping: the scanning thread is a reader too, and every sleep
    // and wake-up costs two context switches.
    while (listing.m_eState != CDirectoryListing::EState::Done && CanTake()) {
        CDirectoryListing& next = TakeTop();
        lock.unlock();
        next.Read(m_bStop, m_nExpandBelow);
        lock.lock();
        Finish(next);
    }
    AwaitDone(lock, listing);
    if (!listing.m_bBuffered) return;
    listing.m_bBuffered = false;
    if (!m_bStop) Release();
}

void CDirectoryReadAhead::AwaitDone(std::unique_lock<std::mutex>& lock,
                                    CDirectoryListing& listing) {
    m_pAwaited = &listing;
    m_listingDone.wait(lock, [&] { return listing.m_eState == CDirectoryListing::EState::Done; });
    m_pAwaited = nullptr;
}

void CDirectoryReadAhead::Release() {
    --m_nTaken;
    // Workers that found the buffer full wake only once half of it has been
    // taken, so that they read a run of listings for each wake-up instead
    // of one listing per listing the walk takes.
    if (m_bFull && m_nTaken <= kMaxTaken / 2) {
        m_bFull = false;
        m_workAvailable.notify_all();
    }
}

void CDirectoryReadAhead::Cancel(CDirectoryListing& listing) {
    std::unique_lock<std::mutex> lock(m_mutex);
    std::vector<CDirectoryListing*> aWithdrawn{&listing};
    while (!aWithdrawn.empty()) {
        CDirectoryListing& each = *aWithdrawn.back();
        aWithdrawn.pop_back();
        if (each.m_eState == CDirectoryListing::EState::Queued) {
            Withdraw(each);
            continue;
        }
        // Taken by a worker: being read from its parent's handle still.
        AwaitDone(lock, each);
        if (each.m_bBuffered) {
            each.m_bBuffered = false;
            if (!m_bStop) Release();  // a pause forgot the count
        }
        for (const auto& pSubdirectory : each.m_aSubdirectories)
            if (pSubdirectory) aWithdrawn.push_back(pSubdirectory.get());
    }
}

}  // namespace zv
