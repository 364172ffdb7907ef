// The record accessors read checksums, owners and metadata lazily. The
// engines that do the reading live in subsystems above the core (the CRC
// engine with its thread pool and progress texts, the metadata readers), so
// the records reach them through this interface, which those subsystems
// install at start-up. The defaults below serve until they do: plain table
// checksums without progress, owners from the platform, no metadata.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

class CFileData;

class IRecordServices {
public:
    virtual ~IRecordServices() = default;

    // Whole-file checksum. bFailed is set only when the file cannot be
    // opened; a read error midway keeps what was read.
    virtual uint32_t Crc32OfFile(const std::u16string& strPath, bool& bFailed, double dSize);
    // The same with MP3 tags left out where the name says MP3.
    virtual uint32_t Crc32OfFileWithoutTags(const std::u16string& strPath, bool& bFailed);
    // The checksum of one block in memory (the quick checksum's sample).
    virtual uint32_t Crc32OfBlock(const void* pData, size_t uLength);
    // Makes sure every file of the list has its whole-file checksum.
    virtual void ComputeCrcs(const std::vector<CFileData*>& aFiles);
    // The same on other threads: returns at once, and until FinishCrcs
    // returns no other code may touch the records of the list (their
    // checksums are being written). One such batch at a time. The default
    // computes them here and now.
    virtual void StartCrcs(std::vector<CFileData*> aFiles);
    // Waits for the batch StartCrcs started, if any. With bCancel the files
    // not begun yet are left; they compute their checksums when next asked.
    virtual void FinishCrcs(bool bCancel);
    // Owner name of a path; null when it cannot be told.
    virtual const std::u16string* LookupOwner(const std::u16string& strPath);
    // Whether the version name list lets the file be asked at all; a file it
    // holds back keeps its status bits, so a forced read can still reach it.
    virtual bool PassesVersionFilter(const CFileData& file);
    // Whether the file has a version block / media metadata.
    virtual bool ReadHasVersionInfo(const CFileData& file);
    virtual bool ReadHasMediaInfo(const CFileData& file);
    // The version text of a file's version block; empty without one.
    virtual std::u16string ReadVersionText(const CFileData& file);
};

IRecordServices& RecordServices();
// Installs the services used from now on; null restores the defaults. The
// caller keeps the object alive while it is installed.
void SetRecordServices(IRecordServices* pServices);

}  // namespace zv
