// Reads of many records spread over the calling thread and two helpers: on
// two or more cores, and on a busy machine, reading files is the part of a
// pass that more threads shorten. Items are claimed in index order, a few at
// a time, so that neighbours (files of one directory) go to one thread; each
// task writes its own result slot, so no lock guards the results. The
// helpers start with the object and close the directories they opened at
// the end of every run.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zv {

class CParallelReads {
public:
    CParallelReads();
    // Stops the helpers and waits for them.
    ~CParallelReads();
    CParallelReads(const CParallelReads&) = delete;
    CParallelReads& operator=(const CParallelReads&) = delete;

    // Runs task(i) once for every i below nCount and returns when all have
    // run. Without helpers (they could not be started) all run here.
    void Run(size_t nCount, const std::function<void(size_t)>& task);

private:
    static constexpr int kHelpers = 2;
    static constexpr size_t kClaim = 4;

    void Share();
    void HelperLoop();

    std::mutex m_mutex;
    std::condition_variable m_signal;
    std::vector<std::thread> m_aHelpers;
    const std::function<void(size_t)>* m_pTask = nullptr;
    size_t m_nCount = 0;
    std::atomic<size_t> m_nNext{0};
    unsigned m_uRun = 0;  // counts runs, so that a helper sees a new one
    int m_nBusy = 0;      // helpers still at the current run
    bool m_bStop = false;
};

}  // namespace zv
