// One file, or one alternate data stream of a file, as a scan found it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/RecordName.h"
#include "platform/FileTime.h"

namespace zv {

class CDirectoryData;

// Status bits of CFileData::m_uFlags.
inline constexpr uint32_t FILE_RECORD = 0x00000001;
inline constexpr uint32_t FILE_COMPARE_MATCH = 0x00000002;
inline constexpr uint32_t FILE_IN_DUPLICATE_GROUP = 0x00000004;
inline constexpr uint32_t FILE_IS_STREAM = 0x00000008;
inline constexpr uint32_t FILE_CUT_MARK = 0x00000010;
inline constexpr uint32_t FILE_NAME_CRC_VALID = 0x00000020;
inline constexpr uint32_t FILE_PARTIAL_CRC_VALID = 0x00000040;
inline constexpr uint32_t FILE_PARTIAL_CRC_FAILED = 0x00000080;
inline constexpr uint32_t FILE_CRC_VALID = 0x00000100;
inline constexpr uint32_t FILE_CRC_FAILED = 0x00000200;
inline constexpr uint32_t FILE_CRC_NOTAGS_VALID = 0x00000800;
inline constexpr uint32_t FILE_CRC_NOTAGS_FAILED = 0x00001000;
inline constexpr uint32_t FILE_OWNER_VALID = 0x00002000;
inline constexpr uint32_t FILE_HAS_VERSION = 0x00004000;
inline constexpr uint32_t FILE_VERSION_READ = 0x00008000;
inline constexpr uint32_t FILE_HAS_MEDIA = 0x00010000;
inline constexpr uint32_t FILE_MEDIA_READ = 0x00020000;
inline constexpr uint32_t FILE_CRC_FROM_LIST = 0x00040000;

class CFileData {
public:
    // Leaves the owner undecided.
    CFileData(std::u16string_view strName, double dSize, FILETIME ftCreated, FILETIME ftAccessed,
              FILETIME ftModified, uint32_t uAttributes, CDirectoryData* pDirectory, bool bIsStream,
              CFileData* pStreamOwner);
    // Interns the owner name and marks the owner as decided.
    CFileData(std::u16string_view strName, double dSize, FILETIME ftCreated, FILETIME ftAccessed,
              FILETIME ftModified, uint32_t uAttributes, CDirectoryData* pDirectory, bool bIsStream,
              CFileData* pStreamOwner, std::u16string_view strOwner);
    // Deletes the stream array only; the stream records belong to the
    // directory's file list.
    ~CFileData();
    CFileData(const CFileData&) = delete;
    CFileData& operator=(const CFileData&) = delete;

    // Directory path, the native separator and the name; the bare name for a
    // record that has no directory.
    std::u16string GetFullPath() const;
    // Text after the last '.', empty when there is none or it ends the name.
    std::u16string GetExtension() const;
    // Space on disk as the file system reports it; never cached, 0 on failure.
    double GetSizeOnDisk() const;
    // Size rounded up to the cluster size of the file's root.
    double GetActualSize() const;
    // Hard links to the file; never cached, 0 on failure.
    uint32_t GetLinkCount() const;

    uint32_t GetNameCrc();
    uint32_t GetCrc();
    uint32_t GetMp3Crc();
    uint32_t GetQuickCrc();
    void SetCrc(uint32_t uCrc);
    // "UNKNOWN" after a failure; else decimal, or hexadecimal without
    // leading zeros ("0x" in front for the plain checksum only).
    std::u16string GetCrcText(bool bHexadecimal);
    std::u16string GetMp3CrcText(bool bHexadecimal);

    // Empty when the owner cannot be told; a stream never looks it up.
    const std::u16string& GetOwner();
    void SetOwner(std::u16string_view strOwner);

    bool HasVersionInfo();
    bool HasMediaInfo();

    // Writes the times to the file and, on success, to the record.
    bool SetTimes(FILETIME ftCreated, FILETIME ftAccessed, FILETIME ftModified);
    // Forgets every lazily read value: checksums, version and media bits.
    void ResetDerived();
    // Takes name, size, times, attributes and the stream bit of another
    // record, as when a copy replaces a target.
    void CopyFrom(const CFileData& other);

    bool IsStream() const { return (m_uFlags & FILE_IS_STREAM) != 0; }
    void AddStream(CFileData* pStream);

    // Fields are laid out for size, not in the order of their meaning: a
    // scan holds one record per file.
    uint32_t m_uFlags;
    uint32_t m_uAttributes;
    CRecordName m_strName;
    double m_dSize;
    FILETIME m_ftCreated;
    FILETIME m_ftAccessed;
    FILETIME m_ftModified;
    CDirectoryData* m_pDirectory;
    std::vector<CFileData*>* m_pStreams;
    CFileData* m_pStreamOwner;
    int64_t m_nDuplicateGroup;
    uint32_t m_uNameCrc;
    uint32_t m_uQuickCrc;
    uint32_t m_uCrc;
    uint32_t m_uMp3Crc;
    const std::u16string* m_pOwner;
};

}  // namespace zv
