#include "core/records/RecordFileOpen.h"

#include <atomic>
#include <cstdint>

#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "platform/DirectoryHandle.h"

namespace zv {
namespace {

std::atomic<uint64_t> s_uGeneration{0};

// Four places: a directory compare reads from two directories at a time.
constexpr int kPlaces = 4;

struct COpenDirectories {
    const CDirectoryData* aDirs[kPlaces] = {};
    platform::CDirectoryHandle aHandles[kPlaces];
    const CDirectoryData* pLastAsked = nullptr;
    uint64_t uGeneration = 0;
    int nNext = 0;

    void CloseAll() {
        pLastAsked = nullptr;
        for (int i = 0; i < kPlaces; ++i) {
            aDirs[i] = nullptr;
            aHandles[i].Close();
        }
    }

    const platform::CDirectoryHandle* Find(const CDirectoryData* pDir) {
        const uint64_t uNow = s_uGeneration.load(std::memory_order_acquire);
        if (uNow != uGeneration) {
            CloseAll();
            uGeneration = uNow;
        }
        for (int i = 0; i < kPlaces; ++i)
            if (aDirs[i] == pDir) return &aHandles[i];
        // Opening the directory pays only when more of its files follow:
        // it is opened at the second file in a row from it, and a lone file
        // opens by its full path.
        if (pDir != pLastAsked) {
            pLastAsked = pDir;
            return nullptr;
        }
        const int n = nNext;
        nNext = (nNext + 1) % kPlaces;
        aDirs[n] = nullptr;
        if (!aHandles[n].Open(pDir->GetFullPath())) return nullptr;
        aDirs[n] = pDir;
        return &aHandles[n];
    }
};

// A plain pointer, not a thread-local object: MinGW's emulated thread
// storage may be freed before a thread-local destructor runs at thread exit,
// which then reads freed memory. CloseRecordDirectories deletes it instead.
thread_local COpenDirectories* t_pOpen = nullptr;

COpenDirectories& ThreadDirectories() {
    if (!t_pOpen) t_pOpen = new COpenDirectories;
    return *t_pOpen;
}

}  // namespace

bool OpenRecordFile(platform::CFileReader& reader, const CFileData& file, bool bSequential) {
    if (file.m_pDirectory && !file.IsStream()) {
        const platform::CDirectoryHandle* pHandle = ThreadDirectories().Find(file.m_pDirectory);
        if (pHandle && pHandle->OpenFile(reader, file.m_strName.View(), bSequential)) return true;
    }
    // A failure is confirmed by the full path, which is what the file is
    // known by, and which names the right file even where the directory was
    // replaced since it was opened.
    return reader.Open(file.GetFullPath(), bSequential);
}

void CloseRecordDirectories() {
    delete t_pOpen;
    t_pOpen = nullptr;
}

void ForgetRecordDirectories() { s_uGeneration.fetch_add(1, std::memory_order_release); }

}  // namespace zv
