#include "core/records/RecordServices.h"

#include "core/records/Crc32.h"
#include "core/records/FileData.h"
#include "core/records/OwnerNameCache.h"
#include "core/records/OwnerPool.h"
#include "platform/FileSystem.h"

namespace zv {
namespace {

IRecordServices s_defaultServices;
IRecordServices* s_pServices = &s_defaultServices;

}  // namespace

uint32_t IRecordServices::Crc32OfFile(const std::u16string& strPath, bool& bFailed, double) {
    platform::CFileReader reader;
    if (!reader.Open(strPath)) {
        bFailed = true;
        return 0;
    }
    constexpr size_t kBlock = 8192;
    unsigned char aBuffer[kBlock];
    uint32_t uRegister = Crc32Init();
    bool bAnyByte = false;
    for (;;) {
        const int64_t nRead = reader.Read(aBuffer, kBlock);
        if (nRead <= 0) break;
        uRegister = Crc32Update(uRegister, aBuffer, static_cast<size_t>(nRead));
        bAnyByte = true;
        if (static_cast<size_t>(nRead) < kBlock) break;
    }
    return bAnyByte ? Crc32Final(uRegister) : 0;
}

uint32_t IRecordServices::Crc32OfBlock(const void* pData, size_t uLength) {
    return Crc32Buffer(pData, uLength);
}

uint32_t IRecordServices::Crc32OfFileWithoutTags(const std::u16string& strPath, bool& bFailed) {
    return Crc32OfFile(strPath, bFailed, 0);
}

void IRecordServices::ComputeCrcs(const std::vector<CFileData*>& aFiles) {
    for (CFileData* pFile : aFiles) pFile->GetCrc();
}

void IRecordServices::StartCrcs(std::vector<CFileData*> aFiles) { ComputeCrcs(aFiles); }

void IRecordServices::FinishCrcs(bool) {}

const std::u16string* IRecordServices::LookupOwner(const std::u16string& strPath) {
    // Through the scan's owner caches: most files share a few owners.
    std::u16string strOwner;
    if (!OwnerNames().GetOwnerName(strPath, strOwner)) return nullptr;
    return InternOwner(strOwner);
}

bool IRecordServices::PassesVersionFilter(const CFileData&) { return true; }
bool IRecordServices::ReadHasVersionInfo(const CFileData&) { return false; }
bool IRecordServices::ReadHasMediaInfo(const CFileData&) { return false; }
std::u16string IRecordServices::ReadVersionText(const CFileData&) { return {}; }

IRecordServices& RecordServices() { return *s_pServices; }

void SetRecordServices(IRecordServices* pServices) {
    s_pServices = pServices ? pServices : &s_defaultServices;
}

}  // namespace zv
