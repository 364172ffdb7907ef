// The file-system calls the system needs, behind one portable interface.
// The POSIX meaning of each Windows notion is documented in docs/platform.md.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "FileTime.h"

namespace zv {

// Windows file attribute bits, kept on every platform.
inline constexpr uint32_t ATTR_READONLY = 0x00000001;
inline constexpr uint32_t ATTR_HIDDEN = 0x00000002;
inline constexpr uint32_t ATTR_SYSTEM = 0x00000004;
inline constexpr uint32_t ATTR_DIRECTORY = 0x00000010;
inline constexpr uint32_t ATTR_ARCHIVE = 0x00000020;
inline constexpr uint32_t ATTR_NORMAL = 0x00000080;
inline constexpr uint32_t ATTR_REPARSE_POINT = 0x00000400;
inline constexpr uint32_t ATTR_COMPRESSED = 0x00000800;
inline constexpr uint32_t ATTR_ENCRYPTED = 0x00004000;
inline constexpr uint32_t ATTR_INVALID = 0xFFFFFFFF;

// Error codes as the Windows calls report them; POSIX errors map onto these.
inline constexpr int ERR_NONE = 0;
inline constexpr int ERR_FILE_NOT_FOUND = 2;
inline constexpr int ERR_PATH_NOT_FOUND = 3;
inline constexpr int ERR_TOO_MANY_OPEN_FILES = 4;  // EMFILE, ENFILE
inline constexpr int ERR_ACCESS_DENIED = 5;        // EACCES, EPERM
inline constexpr int ERR_OTHER = 31;

// One entry of a directory listing, as FindFirstFileW/FindNextFileW give it.
struct CDirEntry {
    std::u16string strName;
    uint32_t uSizeLow = 0;
    uint32_t uSizeHigh = 0;
    FILETIME ftCreated;
    FILETIME ftAccessed;
    FILETIME ftModified;
    uint32_t uAttributes = 0;

    double Size() const { return uSizeHigh * 4294967296.0 + uSizeLow; }
    bool IsDirectory() const { return (uAttributes & ATTR_DIRECTORY) != 0; }
};

namespace platform {

#ifdef _WIN32
inline constexpr char16_t kPathSeparator = u'\\';
#else
inline constexpr char16_t kPathSeparator = u'/';
#endif

// Whether a listing entry was read from the object itself (POSIX stats each
// entry) rather than from a directory index that may lag behind it
// (Windows). Where it was, a directory's attributes need no second reading
// when the directory is entered.
#ifdef _WIN32
inline constexpr bool kListingReadsEachEntry = false;
#else
inline constexpr bool kListingReadsEachEntry = true;
#endif

// Lists one directory. A child can be opened from an open parent by name,
// which on POSIX works relative to the parent's handle, so trees deeper than
// the OS path limit can still be walked.
class CDirectoryReader {
public:
    CDirectoryReader();
    ~CDirectoryReader();
    CDirectoryReader(CDirectoryReader&&) noexcept;
    CDirectoryReader& operator=(CDirectoryReader&&) noexcept;
    CDirectoryReader(const CDirectoryReader&) = delete;
    CDirectoryReader& operator=(const CDirectoryReader&) = delete;

    // False on failure; GetLastError() then tells why (ERR_ACCESS_DENIED
    // for a refused listing, ERR_TOO_MANY_OPEN_FILES when handles ran out).
    // Open follows a final link, as a root names what the user means.
    bool Open(std::u16string_view path);
    // name may be a relative path of several components; a final link is
    // not followed. The child is taken to be on the parent's volume: it is
    // one the parent's listing showed as a directory, not a mount point.
    bool OpenChild(const CDirectoryReader& parent, std::u16string_view name);

    // The next entry, "." and ".." skipped. False at the end of the listing.
    bool Next(CDirEntry& entry);

    // Attributes and times of the open directory itself.
    bool GetSelf(CDirEntry& entry) const;

    int GetLastError() const { return m_nLastError; }
    bool IsOpen() const;
    void Close();

private:
    struct Impl;
#ifndef _WIN32
    // Takes an open directory descriptor (or -1 after a failed open).
    // pDevice: the directory's device when it is known already.
    bool Adopt(int nFd, const std::string& strName, const uint64_t* pDevice);
#endif
    std::unique_ptr<Impl> m_pImpl;
    int m_nLastError = ERR_NONE;
};

// Reads a file; opened for reading, sharing reads, and with the
// sequential-scan hint unless the caller reads only a block of it.
class CFileReader {
public:
    CFileReader();
    ~CFileReader();
    CFileReader(const CFileReader&) = delete;
    CFileReader& operator=(const CFileReader&) = delete;

    bool Open(std::u16string_view path, bool bSequential = true);
#ifndef _WIN32
    // The same for a name relative to an open directory descriptor, as
    // CDirectoryHandle opens its files.
    bool OpenAt(int nDirFd, const std::string& strName, bool bSequential);
#endif
    // Bytes read, 0 at the end, -1 on a read error.
    int64_t Read(void* pBuffer, size_t uSize);
    bool Seek(uint64_t uOffset);
    // Size of the open file in bytes; -1 on failure. On POSIX it is the
    // size the open found, which costs no further call.
    int64_t GetSize() const;
    void Close();
    bool IsOpen() const;

private:
    struct Impl;
    std::unique_ptr<Impl> m_pImpl;
};

// ATTR_INVALID on failure.
uint32_t GetFileAttributes(std::u16string_view path);

// Attributes and times of one path, a final link described itself unless
// bFollowLink (then what it leads to, as for a root the user named).
bool GetEntryInfo(std::u16string_view path, CDirEntry& entry, bool bFollowLink = false);

// True only for an object known to be neither a regular file nor a
// directory (a final link followed): a device, FIFO or socket, which has no
// contents to read.
bool IsSpecialFile(std::u16string_view path);

// File-system name of the volume holding path (for example "NTFS", "ext4").
bool GetVolumeInformation(std::u16string_view path, std::u16string& strFileSystem);

// Bytes per cluster of the volume holding path; 0 on failure.
double GetClusterSize(std::u16string_view path);

// Free bytes for the caller and total bytes of the volume holding path.
bool GetDiskFreeSpace(std::u16string_view path, double& dFree, double& dTotal);

// Space the file takes on disk; 0 on failure.
double GetSizeOnDisk(std::u16string_view path);

// Number of hard links to the file; 0 on failure.
uint32_t GetLinkCount(std::u16string_view path);

// Size on disk, link count and (with bWantOwner) owner of a file at once,
// from one look-up where the platform allows: a report row needs all three.
// Each stays 0 or empty, and bOwnerKnown false, when it cannot be read.
struct CFileDiskInfo {
    double dSizeOnDisk = 0;
    uint32_t uLinkCount = 0;
    bool bOwnerKnown = false;
    std::u16string strOwner;
};
void GetFileDiskInfo(std::u16string_view path, bool bWantOwner, CFileDiskInfo& info);

// Owner of a file: the account name without its domain on Windows, the user
// name on POSIX (the numeric uid where no name is known). False when it cannot be told.
bool LookupOwnerName(std::u16string_view path, std::u16string& strOwner);

// The "drive" of a path: the drive or server prefix on Windows, the mount
// point on POSIX.
std::u16string GetDriveOfPath(std::u16string_view path);

// Absolute, normalised form of a path; the input itself on failure.
std::u16string GetFullPathName(std::u16string_view path);

// Writes the three times of a file; a zero time leaves that time as it is.
// POSIX keeps no settable creation time, so there the creation time is
// ignored. Implemented in posix/ and win32/ SetFileTimes.cpp.
bool SetFileTimes(std::u16string_view path, FILETIME ftCreated, FILETIME ftAccessed,
                  FILETIME ftModified);

// Gives a file or directory a new path, as MoveFileW does: fails when the
// target exists. Implemented in posix/ and win32/ PathChanges.cpp.
bool RenamePath(std::u16string_view from, std::u16string_view to);
// Creates one directory; fails when it exists.
bool MakeDirectory(std::u16string_view path);

// The thousands separator of the user's settings: the registry's
// "sThousand" on Windows, ',' on POSIX.
char16_t GetThousandsSeparator();

// The textual drive rule of Windows paths, used by the Windows platform and
// available everywhere: "X:" up to the colon, "\\server" for UNC paths.
std::u16string DriveOfWindowsPath(std::u16string_view path);

}  // namespace platform
}  // namespace zv
