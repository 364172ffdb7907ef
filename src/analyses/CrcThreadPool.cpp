#include "analyses/CrcThreadPool.h"

#include <atomic>
#include <chrono>
#include <string>
#include <system_error>

#include "analyses/CrcProgress.h"
#include "core/host/Host.h"
#include "core/records/FileData.h"
#include "core/records/RecordFileOpen.h"
#include "platform/Text.h"

namespace zv {
namespace {

// Written by the user-interface thread only; the workers read it.
std::atomic<bool> s_bBusy{false};

// How often the waiting thread looks for user input.
constexpr auto kPumpInterval = std::chrono::milliseconds(10);

void Compute(CFileData& file, ECrcOperation eOperation) {
    switch (eOperation) {
        case ECrcOperation::Quick:
            file.GetQuickCrc();
            break;
        case ECrcOperation::Whole:
            file.GetCrc();
            break;
        case ECrcOperation::Mp3:
            file.GetMp3Crc();
            break;
    }
}

}  // namespace

CCrcThreadPool::~CCrcThreadPool() {
    FinishCrcs(true);
    for (CSlot& slot : m_aSlots) {
        std::lock_guard lock(slot.mutex);
        slot.bStop = true;
        slot.signal.notify_all();
    }
    for (std::thread& thread : m_aThreads)
        if (thread.joinable()) thread.join();
}

void CCrcThreadPool::ComputeCrcs(const std::vector<CFileData*>& aFiles) {
    RunBatch(aFiles, ECrcOperation::Whole);
}

void CCrcThreadPool::ComputeMp3Crcs(const std::vector<CFileData*>& aFiles) {
    RunBatch(aFiles, ECrcOperation::Mp3);
}

void CCrcThreadPool::ComputeQuickCrcs(const std::vector<CFileData*>& aFiles) {
    RunBatch(aFiles, ECrcOperation::Quick);
}

bool CCrcThreadPool::IsBusy() { return s_bBusy.load(); }

int CCrcThreadPool::ThreadCount() const {
    int nCount = 0;
    for (const std::thread& thread : m_aThreads) nCount += thread.joinable() ? 1 : 0;
    return nCount;
}

bool CCrcThreadPool::EnsureThreads() {
    for (int k = 0; k < kWorkers; ++k) {
        if (m_aThreads[k].joinable()) continue;
        try {
            m_aThreads[k] = std::thread(&CCrcThreadPool::WorkerLoop, this, k);
        } catch (const std::system_error& error) {
            Host().ShowMessage(platform::U16(error.code().message()));
            Host().ShowMessage(u"Cannot create crc thread" + platform::U16(std::to_string(k + 1)));
        }
    }
    return ThreadCount() == kWorkers;
}

void CCrcThreadPool::RunBatch(const std::vector<CFileData*>& aFiles, ECrcOperation eOperation) {
    if (aFiles.empty() || !EnsureThreads()) return;
    // The guard against re-entry through the message pump below.
    if (s_bBusy.load()) return;
    StartBatch(aFiles, eOperation);
    WaitBatch();
}

bool CCrcThreadPool::StartCrcs(std::vector<CFileData*> aFiles) {
    if (aFiles.empty() || !EnsureThreads() || s_bBusy.load()) return false;
    m_aStartedFiles = std::move(aFiles);
    m_bStarted = true;
    StartBatch(m_aStartedFiles, ECrcOperation::Whole);
    return true;
}

void CCrcThreadPool::FinishCrcs(bool bCancel) {
    if (!m_bStarted) return;
    if (bCancel) m_bCancel.store(true);
    WaitBatch();
    m_bCancel.store(false);
    m_bStarted = false;
    m_aStartedFiles.clear();
}

void CCrcThreadPool::StartBatch(const std::vector<CFileData*>& aFiles, ECrcOperation eOperation) {
    s_bBusy.store(true);
    for (CSlot& slot : m_aSlots) {
        std::lock_guard lock(slot.mutex);
        slot.pFiles = &aFiles;
        slot.eOperation = eOperation;
        slot.bStart = true;
        slot.signal.notify_all();
    }
}

void CCrcThreadPool::WaitBatch() {
    for (CSlot& slot : m_aSlots) WaitPumping(slot);
    s_bBusy.store(false);
    const std::u16string strCurrentDir = CurrentDirectoryText();
    if (!strCurrentDir.empty()) Host().SetStatusText(strCurrentDir);
}

void CCrcThreadPool::WaitPumping(CSlot& slot) {
    std::unique_lock lock(slot.mutex);
    while (!slot.signal.wait_for(lock, kPumpInterval, [&] { return slot.bDone; })) {
        lock.unlock();
        PumpMessages();
        lock.lock();
    }
    slot.bDone = false;
}

void CCrcThreadPool::WorkerLoop(int nWorker) {
    CSlot& slot = m_aSlots[nWorker];
    for (;;) {
        std::unique_lock lock(slot.mutex);
        slot.signal.wait(lock, [&] { return slot.bStart || slot.bStop; });
        if (slot.bStop) return;
        slot.bStart = false;
        const std::vector<CFileData*>& aFiles = *slot.pFiles;
        const ECrcOperation eOperation = slot.eOperation;
        lock.unlock();

        for (size_t i = static_cast<size_t>(nWorker); i < aFiles.size() && !m_bCancel.load();
             i += kWorkers)
            Compute(*aFiles[i], eOperation);
        CloseRecordDirectories();

        lock.lock();
        slot.bDone = true;
        slot.signal.notify_all();
    }
}

}  // namespace zv
