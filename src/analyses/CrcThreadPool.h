// The three checksum workers. A batch hands one list of files to all three:
// worker k computes the entries whose index i has i mod 3 == k, so each
// record is touched by one thread only and no lock guards the records. The
// caller, the user-interface thread, waits for the batch and keeps the
// program alive by pumping messages meanwhile. The threads are created at
// the first batch and live as long as the pool.
#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace zv {

class CFileData;

enum class ECrcOperation {
    Quick,  // GetQuickCrc
    Whole,  // GetCrc
    Mp3,    // GetMp3Crc
};

class CCrcThreadPool {
public:
    static constexpr int kWorkers = 3;

    CCrcThreadPool() = default;
    // Stops the workers and waits for them.
    ~CCrcThreadPool();
    CCrcThreadPool(const CCrcThreadPool&) = delete;
    CCrcThreadPool& operator=(const CCrcThreadPool&) = delete;

    // Each computes one checksum of every file of the list in one batch and
    // returns when all are done. The list must hold each record once and
    // must stay unchanged until the call returns. While a batch runs (the
    // pool is busy) a further request returns at once and computes nothing;
    // the records compute what is missing when next asked. An empty list
    // does nothing.
    void ComputeCrcs(const std::vector<CFileData*>& aFiles);
    void ComputeMp3Crcs(const std::vector<CFileData*>& aFiles);
    void ComputeQuickCrcs(const std::vector<CFileData*>& aFiles);

    // A batch of whole-file checksums that runs while the caller goes on:
    // StartCrcs returns at once and the pool keeps the list; FinishCrcs
    // waits for it (with bCancel, the workers leave the files they have not
    // begun). Until then the pool is busy, and the records of the list are
    // the workers'. False when the batch did not start (the pool was busy
    // or has no threads); FinishCrcs without a started batch does nothing.
    bool StartCrcs(std::vector<CFileData*> aFiles);
    void FinishCrcs(bool bCancel = false);

    // Whether a batch is running, in any pool of the process. The checksum
    // of a large file does not pump messages while it is set.
    static bool IsBusy();
    // How many worker threads exist.
    int ThreadCount() const;

private:
    struct CSlot {
        std::mutex mutex;
        std::condition_variable signal;
        bool bStart = false;
        bool bDone = false;
        bool bStop = false;
        const std::vector<CFileData*>* pFiles = nullptr;
        ECrcOperation eOperation = ECrcOperation::Whole;
    };

    void RunBatch(const std::vector<CFileData*>& aFiles, ECrcOperation eOperation);
    bool EnsureThreads();
    void WaitPumping(CSlot& slot);
    void WorkerLoop(int nWorker);

    void StartBatch(const std::vector<CFileData*>& aFiles, ECrcOperation eOperation);
    void WaitBatch();

    CSlot m_aSlots[kWorkers];
    std::thread m_aThreads[kWorkers];
    std::vector<CFileData*> m_aStartedFiles;
    bool m_bStarted = false;
    std::atomic<bool> m_bCancel{false};
};

}  // namespace zv
