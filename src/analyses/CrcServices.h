// The CRC engine as the records reach it: installed with SetRecordServices,
// it routes CFileData::GetCrc and GetMp3Crc to the whole-file checksums of
// this subsystem, and CDirectoryData::GetCrc's batch to the thread pool,
// which it owns.
#pragma once

#include <vector>

#include "analyses/CrcThreadPool.h"
#include "core/records/RecordServices.h"

namespace zv {

class CCrcRecordServices : public IRecordServices {
public:
    uint32_t Crc32OfFile(const std::u16string& strPath, bool& bFailed, double dSize) override;
    uint32_t Crc32OfFileWithoutTags(const std::u16string& strPath, bool& bFailed) override;
    uint32_t Crc32OfBlock(const void* pData, size_t uLength) override;
    void ComputeCrcs(const std::vector<CFileData*>& aFiles) override;
    void StartCrcs(std::vector<CFileData*> aFiles) override;
    void FinishCrcs(bool bCancel) override;

    CCrcThreadPool& Pool() { return m_pool; }

private:
    CCrcThreadPool m_pool;
};

// The pool entry points for the analyses: through the pool of the installed
// CCrcRecordServices, or one file after the other on this thread when other
// services are installed.
void ComputeCrcs(const std::vector<CFileData*>& aFiles);
void ComputeMp3Crcs(const std::vector<CFileData*>& aFiles);
void ComputeQuickCrcs(const std::vector<CFileData*>& aFiles);

}  // namespace zv
