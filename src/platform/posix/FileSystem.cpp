// The file-system interface on POSIX systems (Linux first).
//
// The system keeps Windows notions on every platform: attribute bits,
// FILETIME stamps, error codes, drives, clusters. How each of them maps onto
// POSIX (hidden = leading dot, reparse point = symbolic link, drive = mount
// point, error 5 = EACCES/EPERM, ...) is documented once in docs/platform.md;
// the helpers in the anonymous namespace below are where this file decides it.
#include "platform/FileSystem.h"

#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Text.h"
#include "platform/posix/OwnerName.h"

namespace zv::platform {
namespace {

struct CUnixTime {
    int64_t nSeconds = 0;
    uint32_t uNanoseconds = 0;
};

bool operator<(CUnixTime a, CUnixTime b) {
    return a.nSeconds != b.nSeconds ? a.nSeconds < b.nSeconds : a.uNanoseconds < b.uNanoseconds;
}

// What the mapping needs to know of one file-system object.
struct CStatInfo {
    mode_t uMode = 0;
    uint64_t uSize = 0;
    CUnixTime accessed;
    CUnixTime modified;
    CUnixTime changed;
    CUnixTime born;
    bool bHasBirthTime = false;
    uint64_t uDevice = 0;
    bool bMountRoot = false;  // known to be the root of a mount
};

int ErrorFromErrno(int nErrno) {
    switch (nErrno) {
        case 0:
            return ERR_NONE;
        case EACCES:
        case EPERM:
            return ERR_ACCESS_DENIED;
        case ENOENT:
            return ERR_FILE_NOT_FOUND;
        case ENOTDIR:
            return ERR_PATH_NOT_FOUND;
        case EMFILE:
        case ENFILE:
            return ERR_TOO_MANY_OPEN_FILES;
        default:
            return ERR_OTHER;
    }
}

void FromStat(const struct stat& st, CStatInfo& info) {
    info.uMode = st.st_mode;
    info.uSize = uint64_t(st.st_size);
    info.accessed = {int64_t(st.st_atim.tv_sec), uint32_t(st.st_atim.tv_nsec)};
    info.modified = {int64_t(st.st_mtim.tv_sec), uint32_t(st.st_mtim.tv_nsec)};
    info.changed = {int64_t(st.st_ctim.tv_sec), uint32_t(st.st_ctim.tv_nsec)};
    info.bHasBirthTime = false;
    info.uDevice = uint64_t(st.st_dev);
    info.bMountRoot = false;
}

// Facts of the object named pszName relative to the directory nDirFd, or of
// nDirFd itself when pszName is empty. A final symbolic link is followed only
// with bFollow. False with errno set on failure.
bool StatAt(int nDirFd, const char* pszName, bool bFollow, CStatInfo& info) {
#if defined(__linux__) && defined(STATX_BTIME)
    // statx gives the birth time where the file system keeps one; kernels
    // before 4.11 lack the call, and then fstatat serves.
    static std::atomic<bool> s_bNoStatx{false};
    if (!s_bNoStatx.load(std::memory_order_relaxed)) {
        const int nFlags =
            (bFollow ? 0 : AT_SYMLINK_NOFOLLOW) | (*pszName ? 0 : AT_EMPTY_PATH) | AT_NO_AUTOMOUNT;
        // Only the fields the mapping uses: a file system may have to work
        // for the others (the device always comes).
        constexpr unsigned kFields = STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_ATIME |
                                     STATX_MTIME | STATX_CTIME | STATX_BTIME;
        struct statx sx;
        if (statx(nDirFd, pszName, nFlags, kFields, &sx) == 0) {
            info.uMode = sx.stx_mode;
            info.uSize = sx.stx_size;
            info.accessed = {sx.stx_atime.tv_sec, sx.stx_atime.tv_nsec};
            info.modified = {sx.stx_mtime.tv_sec, sx.stx_mtime.tv_nsec};
            info.changed = {sx.stx_ctime.tv_sec, sx.stx_ctime.tv_nsec};
            info.bHasBirthTime = (sx.stx_mask & STATX_BTIME) != 0;
            if (info.bHasBirthTime) info.born = {sx.stx_btime.tv_sec, sx.stx_btime.tv_nsec};
            info.uDevice = (uint64_t(sx.stx_dev_major) << 32) | sx.stx_dev_minor;
#ifdef STATX_ATTR_MOUNT_ROOT
            // Linux 5.8 and later tell a mount root, bind mounts of a
            // directory on the same device included.
            info.bMountRoot = (sx.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) &&
                              (sx.stx_attributes & STATX_ATTR_MOUNT_ROOT);
#endif
            return true;
        }
        if (errno != ENOSYS) return false;
        s_bNoStatx.store(true, std::memory_order_relaxed);
    }
#endif
    struct stat st;
    const int nResult = *pszName ? fstatat(nDirFd, pszName, &st, bFollow ? 0 : AT_SYMLINK_NOFOLLOW)
                                 : fstat(nDirFd, &st);
    if (nResult != 0) return false;
    FromStat(st, info);
    return true;
}

bool IsHiddenName(std::string_view name) {
    return !name.empty() && name[0] == '.' && name != "." && name != "..";
}

// The Windows attribute bits of an object of the given mode and name.
// Every object gets one kind bit (reparse point, directory, archive or
// system), so ATTR_NORMAL, which stands alone, never arises.
uint32_t AttributesOf(mode_t uMode, std::string_view name) {
    uint32_t uAttributes = 0;
    if (S_ISLNK(uMode)) {
        uAttributes |= ATTR_REPARSE_POINT;  // never followed
    } else if (S_ISDIR(uMode)) {
        uAttributes |= ATTR_DIRECTORY;
    } else if (S_ISREG(uMode)) {
        uAttributes |= ATTR_ARCHIVE;  // as Windows marks new and changed files
    } else {
        uAttributes |= ATTR_SYSTEM;  // device, FIFO or socket
    }
    if (IsHiddenName(name)) uAttributes |= ATTR_HIDDEN;
    if (!S_ISLNK(uMode) && (uMode & S_IWUSR) == 0) uAttributes |= ATTR_READONLY;
    return uAttributes;
}

FILETIME ToFileTime(CUnixTime t) { return FileTimeFromUnix(t.nSeconds, t.uNanoseconds); }

// Fills everything but the name. Only regular files have a size, as only
// files do on Windows.
void FillEntry(const CStatInfo& info, std::string_view name, CDirEntry& entry) {
    const uint64_t uSize = S_ISREG(info.uMode) ? info.uSize : 0;
    entry.uSizeLow = uint32_t(uSize);
    entry.uSizeHigh = uint32_t(uSize >> 32);
    CUnixTime created = info.born;
    if (!info.bHasBirthTime) {
        created = info.changed < info.modified ? info.changed : info.modified;
    }
    entry.ftCreated = ToFileTime(created);
    entry.ftAccessed = ToFileTime(info.accessed);
    entry.ftModified = ToFileTime(info.modified);
    entry.uAttributes = AttributesOf(info.uMode, name);
}

// A symbolic link to a directory carries the directory bit beside the
// reparse-point bit, as a Windows directory link does, so that the scanner
// skips it like any directory link instead of keeping it as a file. The
// target is only looked at, never entered.
void MarkLinkToDirectory(int nDirFd, const char* pszName, CDirEntry& entry) {
    struct stat st;
    if (fstatat(nDirFd, pszName, &st, 0) == 0 && S_ISDIR(st.st_mode))
        entry.uAttributes |= ATTR_DIRECTORY;
}

// An entry that is listed but cannot be examined (its directory is readable
// but not searchable): the kind from the listing itself, no size, no times.
void FillEntryFromType(unsigned char uType, std::string_view name, CDirEntry& entry) {
    mode_t uMode = S_IFREG;
    if (uType == DT_DIR) {
        uMode = S_IFDIR;
    } else if (uType == DT_LNK) {
        uMode = S_IFLNK;
    } else if (uType != DT_REG && uType != DT_UNKNOWN) {
        uMode = S_IFIFO;
    }
    entry.uSizeLow = 0;
    entry.uSizeHigh = 0;
    entry.ftCreated = FILETIME{};
    entry.ftAccessed = FILETIME{};
    entry.ftModified = FILETIME{};
    entry.uAttributes = AttributesOf(uMode | S_IWUSR, name);
}

// The last component of a path, trailing separators ignored; "/" for the root.
std::string_view LastComponent(std::string_view path) {
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    const size_t uSlash = path.rfind('/');
    if (uSlash == std::string_view::npos || path.size() == 1) return path;
    return path.substr(uSlash + 1);
}

std::optional<std::string> RealPath(const std::string& strPath) {
    char* pszReal = realpath(strPath.c_str(), nullptr);
    if (!pszReal) return std::nullopt;
    std::string strReal(pszReal);
    free(pszReal);
    return strReal;
}

// Undoes the octal escapes (\040 for a space, ...) of /proc/self/mountinfo.
std::string UnescapeMountField(std::string_view field) {
    std::string strOut;
    for (size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size()) {
            const char c1 = field[i + 1], c2 = field[i + 2], c3 = field[i + 3];
            if (c1 >= '0' && c1 <= '3' && c2 >= '0' && c2 <= '7' && c3 >= '0' && c3 <= '7') {
                strOut += char((c1 - '0') * 64 + (c2 - '0') * 8 + (c3 - '0'));
                i += 3;
                continue;
            }
        }
        strOut += field[i];
    }
    return strOut;
}

bool IsUnderMountPoint(std::string_view path, std::string_view mountPoint) {
    if (mountPoint == "/") return true;
    return path.starts_with(mountPoint) &&
           (path.size() == mountPoint.size() || path[mountPoint.size()] == '/');
}

bool StatVfs(std::u16string_view path, struct statvfs& vfs) {
    return statvfs(Utf16ToUtf8(path).c_str(), &vfs) == 0;
}

double FragmentSize(const struct statvfs& vfs) {
    return double(vfs.f_frsize != 0 ? vfs.f_frsize : vfs.f_bsize);
}

// Opened as a reader would open it; O_NONBLOCK keeps a FIFO from blocking
// the open.
int OpenForReading(int nDirFd, const std::string& strPath) {
    return openat(nDirFd, strPath.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
}

}  // namespace

// ---------------------------------------------------------------------------
// CDirectoryReader

// The listing is read with getdents64 straight from the descriptor:
// fdopendir would cost two fcntl calls per directory, and a scan opens every
// directory once. The buffer is held only while the listing is being read,
// and buffers are reused on each thread, so a walk keeping many directories
// open for their children holds only their descriptors.
class CListingBuffers {
public:
    static constexpr size_t kSize = 32 * 1024;
    static std::unique_ptr<char[]> Take() {
        auto& aFree = Pool();
        if (aFree.empty()) return std::make_unique<char[]>(kSize);
        auto pBuffer = std::move(aFree.back());
        aFree.pop_back();
        return pBuffer;
    }
    static void Give(std::unique_ptr<char[]> pBuffer) {
        auto& aFree = Pool();
        if (pBuffer && aFree.size() < kKept) aFree.push_back(std::move(pBuffer));
    }

private:
    static constexpr size_t kKept = 4;
    static std::vector<std::unique_ptr<char[]>>& Pool() {
        thread_local std::vector<std::unique_ptr<char[]>> s_aFree;
        return s_aFree;
    }
};

struct CDirectoryReader::Impl {
    int nFd = -1;
    std::unique_ptr<char[]> pBuffer;  // while the listing is read
    size_t uPos = 0;
    size_t uEnd = 0;
    bool bListingDone = false;
    std::string strName;   // the directory's own name, for its hidden bit
    uint64_t uDevice = 0;  // of the directory itself: a subdirectory elsewhere is a mount

    ~Impl() {
        CListingBuffers::Give(std::move(pBuffer));
        if (nFd >= 0) close(nFd);
    }

    // The next raw entry; null at the end or on an error (errno then set).
    const struct dirent64* NextRaw() {
        if (bListingDone) {
            errno = 0;
            return nullptr;
        }
        if (uPos >= uEnd) {
            if (!pBuffer) pBuffer = CListingBuffers::Take();
            const ssize_t nRead = getdents64(nFd, pBuffer.get(), CListingBuffers::kSize);
            if (nRead <= 0) {
                bListingDone = true;
                CListingBuffers::Give(std::move(pBuffer));
                if (nRead == 0) errno = 0;
                return nullptr;
            }
            uPos = 0;
            uEnd = size_t(nRead);
        }
        const auto* pEntry = reinterpret_cast<const struct dirent64*>(pBuffer.get() + uPos);
        uPos += pEntry->d_reclen;
        return pEntry;
    }
};

CDirectoryReader::CDirectoryReader() = default;
CDirectoryReader::~CDirectoryReader() = default;
CDirectoryReader::CDirectoryReader(CDirectoryReader&&) noexcept = default;
CDirectoryReader& CDirectoryReader::operator=(CDirectoryReader&&) noexcept = default;

bool CDirectoryReader::Open(std::u16string_view path) {
    const std::string strPath = Utf16ToUtf8(path);  // path may point into this reader
    Close();
    m_nLastError = ERR_NONE;
    if (strPath.empty()) {
        m_nLastError = ERR_PATH_NOT_FOUND;
        return false;
    }
    const std::string strName(LastComponent(strPath));
    const int nFd = open(strPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return Adopt(nFd, strName, nullptr);
}

bool CDirectoryReader::Adopt(int nFd, const std::string& strName, const uint64_t* pDevice) {
    if (nFd < 0) {
        m_nLastError = ErrorFromErrno(errno);
        return false;
    }
    // Replaced only now: the directory may have been opened from this very
    // reader as its parent.
    auto pImpl = std::make_unique<Impl>();
    pImpl->nFd = nFd;
    pImpl->strName = strName;
    CStatInfo self;
    if (pDevice) {
        pImpl->uDevice = *pDevice;
    } else if (StatAt(nFd, "", true, self)) {
        pImpl->uDevice = self.uDevice;
    }
    m_pImpl = std::move(pImpl);
    m_nLastError = ERR_NONE;
    return true;
}

bool CDirectoryReader::OpenChild(const CDirectoryReader& parent, std::u16string_view name) {
    if (!parent.IsOpen()) {
        m_nLastError = ERR_PATH_NOT_FOUND;
        return false;
    }
    const std::string strName = Utf16ToUtf8(name);
    // Relative to the parent's handle, so no path length limit applies; a
    // symbolic link is not followed.
    const int nFd = openat(parent.m_pImpl->nFd, strName.c_str(),
                           O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    // A child entered is never a mount point, so it is on its parent's
    // device: one look-up per directory fewer.
    return Adopt(nFd, strName, &parent.m_pImpl->uDevice);
}

bool CDirectoryReader::Next(CDirEntry& entry) {
    if (!IsOpen()) return false;
    Impl& impl = *m_pImpl;
    const int nDirFd = impl.nFd;
    for (;;) {
        const struct dirent64* pEntry = impl.NextRaw();
        if (!pEntry) {
            m_nLastError = ErrorFromErrno(errno);
            return false;
        }
        const std::string_view name = pEntry->d_name;
        if (name == "." || name == "..") continue;

        CStatInfo info;
        if (StatAt(nDirFd, pEntry->d_name, false, info)) {
            FillEntry(info, name, entry);
            if (S_ISLNK(info.uMode)) MarkLinkToDirectory(nDirFd, pEntry->d_name, entry);
            // A directory on another device, or a mount root, is the
            // counterpart of a Windows volume mount point.
            if (S_ISDIR(info.uMode) && (info.bMountRoot || info.uDevice != impl.uDevice))
                entry.uAttributes |= ATTR_REPARSE_POINT;
        } else if (errno == ENOENT) {
            continue;  // removed since the listing was read
        } else {
            FillEntryFromType(pEntry->d_type, name, entry);
        }
        Utf8ToUtf16(name, entry.strName);
        return true;
    }
}

bool CDirectoryReader::GetSelf(CDirEntry& entry) const {
    if (!IsOpen()) return false;
    CStatInfo info;
    if (!StatAt(m_pImpl->nFd, "", true, info)) return false;
    FillEntry(info, m_pImpl->strName, entry);
    entry.strName.clear();
    return true;
}

bool CDirectoryReader::IsOpen() const { return m_pImpl && m_pImpl->nFd >= 0; }

void CDirectoryReader::Close() { m_pImpl.reset(); }

// ---------------------------------------------------------------------------
// CFileReader

struct CFileReader::Impl {
    int nFd = -1;
    int64_t nSize = -1;  // from the check that the open makes anyway
};

CFileReader::CFileReader() : m_pImpl(std::make_unique<Impl>()) {}

CFileReader::~CFileReader() { Close(); }

bool CFileReader::Open(std::u16string_view path, bool bSequential) {
    return OpenAt(AT_FDCWD, Utf16ToUtf8(path), bSequential);
}

bool CFileReader::OpenAt(int nDirFd, const std::string& strName, bool bSequential) {
    Close();
    const int nFd = OpenForReading(nDirFd, strName);
    if (nFd < 0) return false;
    // Only regular files: a device or FIFO would never end or never start.
    struct stat st;
    if (fstat(nFd, &st) != 0 || !S_ISREG(st.st_mode)) {
        close(nFd);
        return false;
    }
    // O_NONBLOCK only kept a FIFO from blocking the open; reads of a regular
    // file never block on it, so it stays set (two calls fewer per file).
    if (bSequential) posix_fadvise(nFd, 0, 0, POSIX_FADV_SEQUENTIAL);
    m_pImpl->nFd = nFd;
    m_pImpl->nSize = int64_t(st.st_size);
    return true;
}

int64_t CFileReader::Read(void* pBuffer, size_t uSize) {
    if (!IsOpen()) return -1;
    if (uSize > size_t(SSIZE_MAX)) uSize = size_t(SSIZE_MAX);
    for (;;) {
        const ssize_t nRead = read(m_pImpl->nFd, pBuffer, uSize);
        if (nRead >= 0) return nRead;
        if (errno != EINTR) return -1;
    }
}

bool CFileReader::Seek(uint64_t uOffset) {
    if (!IsOpen() || uOffset > uint64_t(INT64_MAX)) return false;
    return lseek(m_pImpl->nFd, off_t(uOffset), SEEK_SET) != off_t(-1);
}

int64_t CFileReader::GetSize() const { return IsOpen() ? m_pImpl->nSize : -1; }

void CFileReader::Close() {
    if (!IsOpen()) return;
    close(m_pImpl->nFd);
    m_pImpl->nFd = -1;
}

bool CFileReader::IsOpen() const { return m_pImpl->nFd >= 0; }

// ---------------------------------------------------------------------------
// Path queries

uint32_t GetFileAttributes(std::u16string_view path) {
    const std::string strPath = Utf16ToUtf8(path);
    struct stat st;
    if (strPath.empty() || lstat(strPath.c_str(), &st) != 0) return ATTR_INVALID;
    return AttributesOf(st.st_mode, LastComponent(strPath));
}

bool GetEntryInfo(std::u16string_view path, CDirEntry& entry, bool bFollowLink) {
    const std::string strPath = Utf16ToUtf8(path);
    CStatInfo info;
    if (strPath.empty() || !StatAt(AT_FDCWD, strPath.c_str(), bFollowLink, info)) return false;
    const std::string_view name = LastComponent(strPath);
    FillEntry(info, name, entry);
    entry.strName = Utf8ToUtf16(name);
    return true;
}

bool IsSpecialFile(std::u16string_view path) {
    struct stat st;
    if (stat(Utf16ToUtf8(path).c_str(), &st) != 0) return false;
    return !S_ISREG(st.st_mode) && !S_ISDIR(st.st_mode);
}

bool GetVolumeInformation(std::u16string_view path, std::u16string& strFileSystem) {
    const std::optional<std::string> real = RealPath(Utf16ToUtf8(path));
    if (!real) return false;
    std::ifstream mountInfo("/proc/self/mountinfo");
    std::string strLine, strBestMount, strBestType;
    bool bFound = false;
    // Each line: id parent major:minor root mount-point options [optional
    // fields...] - type source super-options. Of mounts stacked on the same
    // point the last listed is the visible one.
    while (std::getline(mountInfo, strLine)) {
        std::vector<std::string_view> aFields;
        std::string_view rest = strLine;
        while (!rest.empty()) {
            const size_t uSpace = rest.find(' ');
            aFields.push_back(rest.substr(0, uSpace));
            if (uSpace == std::string_view::npos) break;
            rest.remove_prefix(uSpace + 1);
        }
        if (aFields.size() < 5) continue;
        size_t uDash = 6;
        while (uDash < aFields.size() && aFields[uDash] != "-") ++uDash;
        if (uDash + 1 >= aFields.size()) continue;
        const std::string strMount = UnescapeMountField(aFields[4]);
        if (!IsUnderMountPoint(*real, strMount)) continue;
        if (!bFound || strMount.size() >= strBestMount.size()) {
            strBestMount = strMount;
            strBestType = UnescapeMountField(aFields[uDash + 1]);
            bFound = true;
        }
    }
    if (!bFound) return false;
    strFileSystem = Utf8ToUtf16(strBestType);
    return true;
}

double GetClusterSize(std::u16string_view path) {
    struct statvfs vfs;
    if (!StatVfs(path, vfs)) return 0;
    return FragmentSize(vfs);
}

bool GetDiskFreeSpace(std::u16string_view path, double& dFree, double& dTotal) {
    struct statvfs vfs;
    if (!StatVfs(path, vfs)) return false;
    dFree = double(vfs.f_bavail) * FragmentSize(vfs);
    dTotal = double(vfs.f_blocks) * FragmentSize(vfs);
    return true;
}

double GetSizeOnDisk(std::u16string_view path) {
    struct stat st;
    if (stat(Utf16ToUtf8(path).c_str(), &st) != 0) return 0;
    return double(st.st_blocks) * 512.0;
}

uint32_t GetLinkCount(std::u16string_view path) {
    struct stat st;
    if (stat(Utf16ToUtf8(path).c_str(), &st) != 0) return 0;
    return uint32_t(st.st_nlink);
}

// The account database is read afresh on every lookup (a whole
// /etc/passwd for the files service), and a tree has few owners: names are
// kept per uid for the life of the process.
std::u16string OwnerNameOfUid(uid_t uid) {
    static std::mutex s_mutex;
    static std::unordered_map<uid_t, std::u16string> s_mapNames;
    std::lock_guard<std::mutex> lock(s_mutex);
    if (const auto it = s_mapNames.find(uid); it != s_mapNames.end()) return it->second;
    const long nSuggested = sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> aBuffer(nSuggested > 0 ? size_t(nSuggested) : 1024);
    std::u16string strName;
    for (;;) {
        passwd pw;
        passwd* pFound = nullptr;
        const int nError = getpwuid_r(uid, &pw, aBuffer.data(), aBuffer.size(), &pFound);
        if (nError == ERANGE && aBuffer.size() < (1u << 20)) {
            aBuffer.resize(aBuffer.size() * 2);
            continue;
        }
        strName =
            Utf8ToUtf16(nError == 0 && pFound ? std::string(pFound->pw_name) : std::to_string(uid));
        break;
    }
    s_mapNames.emplace(uid, strName);
    return strName;
}

bool LookupOwnerName(std::u16string_view path, std::u16string& strOwner) {
    struct stat st;
    if (lstat(Utf16ToUtf8(path).c_str(), &st) != 0) return false;
    strOwner = OwnerNameOfUid(st.st_uid);
    return true;
}

void GetFileDiskInfo(std::u16string_view path, bool bWantOwner, CFileDiskInfo& info) {
    info = CFileDiskInfo{};
    const std::string strPath = Utf16ToUtf8(path);
    // The owner is the link's own; size and links are of what it names.
    struct stat st;
    if (lstat(strPath.c_str(), &st) != 0) return;
    if (bWantOwner) {
        info.bOwnerKnown = true;
        info.strOwner = OwnerNameOfUid(st.st_uid);
    }
    if (S_ISLNK(st.st_mode) && stat(strPath.c_str(), &st) != 0) return;
    info.dSizeOnDisk = double(st.st_blocks) * 512.0;
    info.uLinkCount = uint32_t(st.st_nlink);
}

std::u16string GetDriveOfPath(std::u16string_view path) {
    const std::optional<std::string> real = RealPath(Utf16ToUtf8(path));
    struct stat st;
    if (!real || stat(real->c_str(), &st) != 0) return std::u16string();
    // The mount point is the highest ancestor still on the same device.
    std::string strMount = *real;
    while (strMount != "/") {
        const size_t uSlash = strMount.rfind('/');
        const std::string strParent = uSlash == 0 ? "/" : strMount.substr(0, uSlash);
        struct stat stParent;
        if (stat(strParent.c_str(), &stParent) != 0 || stParent.st_dev != st.st_dev) break;
        strMount = strParent;
    }
    return Utf8ToUtf16(strMount);
}

std::u16string GetFullPathName(std::u16string_view path) {
    if (path.empty()) return std::u16string(path);
    std::string strPath = Utf16ToUtf8(path);
    if (strPath[0] != '/') {
        std::vector<char> aCwd(PATH_MAX);
        while (!getcwd(aCwd.data(), aCwd.size())) {
            if (errno != ERANGE) return std::u16string(path);
            aCwd.resize(aCwd.size() * 2);
        }
        strPath = std::string(aCwd.data()) + '/' + strPath;
    }

    // Lexical only: ".." removes the component before it, links are not
    // looked at. A trailing separator stays, as on Windows.
    std::vector<std::string_view> aParts;
    std::string_view rest = strPath;
    while (!rest.empty()) {
        const size_t uSlash = rest.find('/');
        const std::string_view part = rest.substr(0, uSlash);
        if (part == "..") {
            if (!aParts.empty()) aParts.pop_back();
        } else if (!part.empty() && part != ".") {
            aParts.push_back(part);
        }
        if (uSlash == std::string_view::npos) break;
        rest.remove_prefix(uSlash + 1);
    }
    std::string strFull;
    for (const std::string_view part : aParts) {
        strFull += '/';
        strFull += part;
    }
    if (strFull.empty() || strPath.back() == '/') strFull += '/';
    return Utf8ToUtf16(strFull);
}

}  // namespace zv::platform
