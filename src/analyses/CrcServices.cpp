#include "analyses/CrcServices.h"

#include "analyses/Crc32Fast.h"
#include "analyses/Crc32OfFile.h"
#include "core/records/FileData.h"

namespace zv {

uint32_t CCrcRecordServices::Crc32OfFile(const std::u16string& strPath, bool& bFailed,
                                         double dSize) {
    return zv::Crc32OfFile(strPath, bFailed, dSize);
}

uint32_t CCrcRecordServices::Crc32OfFileWithoutTags(const std::u16string& strPath, bool& bFailed) {
    return zv::Crc32OfFileWithoutTags(strPath, bFailed);
}

uint32_t CCrcRecordServices::Crc32OfBlock(const void* pData, size_t uLength) {
    return Crc32BufferFast(pData, uLength);
}

void CCrcRecordServices::ComputeCrcs(const std::vector<CFileData*>& aFiles) {
    m_pool.ComputeCrcs(aFiles);
}

void CCrcRecordServices::StartCrcs(std::vector<CFileData*> aFiles) {
    // A pool already busy computes nothing; the rows then ask file by file.
    m_pool.StartCrcs(std::move(aFiles));
}

void CCrcRecordServices::FinishCrcs(bool bCancel) { m_pool.FinishCrcs(bCancel); }

namespace {

CCrcThreadPool* InstalledPool() {
    auto* pServices = dynamic_cast<CCrcRecordServices*>(&RecordServices());
    return pServices ? &pServices->Pool() : nullptr;
}

}  // namespace

void ComputeCrcs(const std::vector<CFileData*>& aFiles) { RecordServices().ComputeCrcs(aFiles); }

void ComputeMp3Crcs(const std::vector<CFileData*>& aFiles) {
    if (CCrcThreadPool* pPool = InstalledPool()) return pPool->ComputeMp3Crcs(aFiles);
    for (CFileData* pFile : aFiles) pFile->GetMp3Crc();
}

void ComputeQuickCrcs(const std::vector<CFileData*>& aFiles) {
    if (CCrcThreadPool* pPool = InstalledPool()) return pPool->ComputeQuickCrcs(aFiles);
    for (CFileData* pFile : aFiles) pFile->GetQuickCrc();
}

}  // namespace zv
