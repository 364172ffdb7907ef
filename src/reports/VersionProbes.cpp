#include "reports/VersionProbes.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>

#include "core/records/FileData.h"
#include "core/records/RecordFileOpen.h"
#include "metadata/MetadataFields.h"
#include "metadata/MetadataRecords.h"

namespace zv {
namespace {

// The probes mostly wait for the disk, so more threads than cores pay.
constexpr size_t kProbeThreads = 4;
constexpr size_t kFilesPerThread = 16;

}  // namespace

bool NeedsVersionProbe(const CFileData& file) {
    return !(file.m_uFlags & FILE_VERSION_READ) && PassesVersionFilter(file);
}

void ProbeVersionBlocks(const std::vector<CFileData*>& aFiles) {
    std::atomic<size_t> nNext{0};
    const auto Work = [&] {
        MetadataValueList aScratch;
        for (size_t i; (i = nNext.fetch_add(1)) < aFiles.size();) {
            ReadVersionMetadata(*aFiles[i], aScratch);
        }
        CloseRecordDirectories();
    };
    const size_t nThreads = std::min(kProbeThreads, aFiles.size() / kFilesPerThread);
    std::vector<std::thread> aThreads;
    for (size_t t = 1; t < nThreads; ++t) {
        try {
            aThreads.emplace_back(Work);
        } catch (const std::system_error&) {
            break;  // the threads there are share the rest
        }
    }
    Work();
    for (std::thread& thread : aThreads) thread.join();
}

}  // namespace zv
