#include "core/records/ParallelReads.h"

#include <system_error>

#include "core/records/RecordFileOpen.h"

namespace zv {

CParallelReads::CParallelReads() {
    try {
        for (int i = 0; i < kHelpers; ++i)
            m_aHelpers.emplace_back(&CParallelReads::HelperLoop, this);
    } catch (const std::system_error&) {
        // Fewer helpers, or none: the calling thread does the rest.
    }
}

CParallelReads::~CParallelReads() {
    {
        std::lock_guard lock(m_mutex);
        m_bStop = true;
    }
    m_signal.notify_all();
    for (std::thread& helper : m_aHelpers) helper.join();
}

void CParallelReads::Share() {
    for (;;) {
        const size_t nFirst = m_nNext.fetch_add(kClaim);
        if (nFirst >= m_nCount) return;
        const size_t nEnd = nFirst + kClaim < m_nCount ? nFirst + kClaim : m_nCount;
        for (size_t i = nFirst; i < nEnd; ++i) (*m_pTask)(i);
    }
}

void CParallelReads::Run(size_t nCount, const std::function<void(size_t)>& task) {
    if (nCount == 0) return;
    {
        std::lock_guard lock(m_mutex);
        m_pTask = &task;
        m_nCount = nCount;
        m_nNext.store(0);
        m_nBusy = static_cast<int>(m_aHelpers.size());
        ++m_uRun;
    }
    m_signal.notify_all();
    Share();
    std::unique_lock lock(m_mutex);
    m_signal.wait(lock, [&] { return m_nBusy == 0; });
    m_pTask = nullptr;
}

void CParallelReads::HelperLoop() {
    unsigned uSeen = 0;
    for (;;) {
        {
            std::unique_lock lock(m_mutex);
            m_signal.wait(lock, [&] { return m_bStop || m_uRun != uSeen; });
            if (m_bStop) return;
            uSeen = m_uRun;
        }
        Share();
        CloseRecordDirectories();
        {
            std::lock_guard lock(m_mutex);
            --m_nBusy;
        }
        m_signal.notify_all();
    }
}

}  // namespace zv
