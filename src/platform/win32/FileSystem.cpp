// The file-system interface on Win32, over the wide-character API calls.
#include <windows.h>

// windows.h maps these names to their ...W forms; the portable interface
// uses them for its own functions.
#undef GetFileAttributes
#undef GetVolumeInformation
#undef GetDiskFreeSpace
#undef GetFullPathName

#include <algorithm>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/win32/WideString.h"

namespace zv::platform {
namespace {

bool IsSeparator16(char16_t ch) { return ch == u'\\' || ch == u'/'; }

int MapError(DWORD dwError) {
    switch (dwError) {
        case ERROR_ACCESS_DENIED:
            return ERR_ACCESS_DENIED;
        case ERROR_TOO_MANY_OPEN_FILES:
            return ERR_TOO_MANY_OPEN_FILES;
        case ERROR_FILE_NOT_FOUND:
            return ERR_FILE_NOT_FOUND;
        case ERROR_PATH_NOT_FOUND:
            return ERR_PATH_NOT_FOUND;
        default:
            return ERR_OTHER;
    }
}

zv::FILETIME FromWin32(const ::FILETIME& ft) {
    return zv::FILETIME{ft.dwLowDateTime, ft.dwHighDateTime};
}

std::wstring FullPathOf(const std::wstring& strPath) {
    std::wstring strFull;
    DWORD dwNeeded = ::GetFullPathNameW(strPath.c_str(), 0, nullptr, nullptr);
    // The needed size can change between calls only if the current
    // directory does; a few tries settle it.
    for (int nTry = 0; nTry < 4 && dwNeeded != 0; ++nTry) {
        strFull.resize(dwNeeded);
        const DWORD dwLength =
            ::GetFullPathNameW(strPath.c_str(), dwNeeded, strFull.data(), nullptr);
        if (dwLength == 0) break;
        if (dwLength < dwNeeded) {
            strFull.resize(dwLength);
            return strFull;
        }
        dwNeeded = dwLength;
    }
    return std::wstring();
}

// The path as the API calls take it. No long-path prefix is added: a path
// beyond MAX_PATH fails like any unreachable path, and a directory there
// lists as empty.
std::wstring ToApiPath(std::u16string_view path) { return ToWide(path); }

// parent + "\" + name, without doubling a separator the parent ends with.
std::u16string JoinPath(std::u16string_view parent, std::u16string_view name) {
    std::u16string strPath(parent);
    if (!strPath.empty() && !IsSeparator16(strPath.back())) strPath += u'\\';
    strPath += name;
    return strPath;
}

// The last component of a path; empty for a drive root.
std::u16string FinalComponent(std::u16string_view path) {
    while (!path.empty() && IsSeparator16(path.back())) path.remove_suffix(1);
    const size_t uPos = path.find_last_of(u"\\/:");
    return std::u16string(uPos == std::u16string_view::npos ? path : path.substr(uPos + 1));
}

bool IsDotOrDotDot(const wchar_t* pName) {
    return pName[0] == L'.' && (pName[1] == 0 || (pName[1] == L'.' && pName[2] == 0));
}

// Size, times and attributes from any of the Win32 records that carry them
// under the same field names (find data, handle information, attribute data).
template <typename TRecord>
void FillInfo(const TRecord& data, CDirEntry& entry) {
    entry.uSizeLow = data.nFileSizeLow;
    entry.uSizeHigh = data.nFileSizeHigh;
    entry.ftCreated = FromWin32(data.ftCreationTime);
    entry.ftAccessed = FromWin32(data.ftLastAccessTime);
    entry.ftModified = FromWin32(data.ftLastWriteTime);
    entry.uAttributes = data.dwFileAttributes;
}

void FillEntry(const WIN32_FIND_DATAW& data, CDirEntry& entry) {
    entry.strName = FromWide(data.cFileName);
    FillInfo(data, entry);
}

// The root of the volume holding path ("C:\", a mount folder, "\\server\share\").
bool VolumeRootOf(std::u16string_view path, std::wstring& strRoot) {
    const std::wstring strPath = ToApiPath(path);
    std::vector<wchar_t> buffer(std::max<size_t>(MAX_PATH + 1, strPath.size() + 2));
    if (!::GetVolumePathNameW(strPath.c_str(), buffer.data(), DWORD(buffer.size()))) {
        return false;
    }
    strRoot = buffer.data();
    return true;
}

class CHandle {
public:
    explicit CHandle(HANDLE h) : m_hHandle(h) {}
    ~CHandle() {
        if (IsValid()) ::CloseHandle(m_hHandle);
    }
    CHandle(const CHandle&) = delete;
    CHandle& operator=(const CHandle&) = delete;

    bool IsValid() const { return m_hHandle != INVALID_HANDLE_VALUE && m_hHandle != nullptr; }
    HANDLE Get() const { return m_hHandle; }

private:
    HANDLE m_hHandle;
};

}  // namespace

// ---------------------------------------------------------------------------
// CDirectoryReader

struct CDirectoryReader::Impl {
    std::u16string strPath;  // as opened, the base of OpenChild and GetSelf
    HANDLE hFind = INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAW findData{};
    bool bOpen = false;
    bool bPending = false;  // findData holds an entry Next has not returned
    bool bEnded = false;

    ~Impl() { CloseFind(); }

    void CloseFind() {
        if (hFind != INVALID_HANDLE_VALUE) ::FindClose(hFind);
        hFind = INVALID_HANDLE_VALUE;
    }
};

CDirectoryReader::CDirectoryReader() = default;
CDirectoryReader::~CDirectoryReader() = default;
CDirectoryReader::CDirectoryReader(CDirectoryReader&&) noexcept = default;
CDirectoryReader& CDirectoryReader::operator=(CDirectoryReader&&) noexcept = default;

bool CDirectoryReader::Open(std::u16string_view path) {
    std::u16string strPath(path);  // path may point into this reader's own state
    Close();
    m_nLastError = ERR_NONE;
    if (strPath.empty()) {
        m_nLastError = ERR_PATH_NOT_FOUND;
        return false;
    }

    const std::wstring strPattern = ToApiPath(JoinPath(strPath, u"*.*"));
    WIN32_FIND_DATAW data{};
    HANDLE hFind = ::FindFirstFileW(strPattern.c_str(), &data);
    bool bEmpty = false;
    if (hFind == INVALID_HANDLE_VALUE) {
        const DWORD dwError = ::GetLastError();
        // A drive root holds no "." or "..", so an empty one has nothing to
        // find at all; it is still a directory that lists.
        const DWORD dwAttributes = dwError == ERROR_FILE_NOT_FOUND
                                       ? ::GetFileAttributesW(ToApiPath(strPath).c_str())
                                       : INVALID_FILE_ATTRIBUTES;
        if (dwAttributes == INVALID_FILE_ATTRIBUTES || !(dwAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
            m_nLastError = MapError(dwError);
            return false;
        }
        bEmpty = true;
    }

    if (!m_pImpl) m_pImpl = std::make_unique<Impl>();
    m_pImpl->strPath = std::move(strPath);
    m_pImpl->bOpen = true;
    m_pImpl->hFind = hFind;
    m_pImpl->findData = data;
    m_pImpl->bPending = !bEmpty;
    m_pImpl->bEnded = bEmpty;
    return true;
}

bool CDirectoryReader::OpenChild(const CDirectoryReader& parent, std::u16string_view name) {
    if (!parent.IsOpen()) {
        m_nLastError = ERR_PATH_NOT_FOUND;
        return false;
    }
    return Open(JoinPath(parent.m_pImpl->strPath, name));
}

bool CDirectoryReader::Next(CDirEntry& entry) {
    if (!IsOpen() || m_pImpl->bEnded) return false;
    Impl& impl = *m_pImpl;
    for (;;) {
        if (!impl.bPending) {
            if (!::FindNextFileW(impl.hFind, &impl.findData)) {
                const DWORD dwError = ::GetLastError();
                m_nLastError = dwError == ERROR_NO_MORE_FILES ? ERR_NONE : MapError(dwError);
                impl.bEnded = true;
                return false;
            }
        }
        impl.bPending = false;
        if (!IsDotOrDotDot(impl.findData.cFileName)) break;
    }
    FillEntry(impl.findData, entry);
    return true;
}

bool CDirectoryReader::GetSelf(CDirEntry& entry) const {
    if (!IsOpen()) return false;
    const std::wstring strPath = ToApiPath(m_pImpl->strPath);
    CHandle handle(::CreateFileW(strPath.c_str(), 0, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                 FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!handle.IsValid()) return false;
    BY_HANDLE_FILE_INFORMATION info{};
    if (!::GetFileInformationByHandle(handle.Get(), &info)) return false;
    entry.strName.clear();
    FillInfo(info, entry);
    return true;
}

bool CDirectoryReader::IsOpen() const { return m_pImpl && m_pImpl->bOpen; }

void CDirectoryReader::Close() {
    if (!m_pImpl) return;
    m_pImpl->CloseFind();
    m_pImpl->strPath.clear();
    m_pImpl->bOpen = false;
    m_pImpl->bPending = false;
    m_pImpl->bEnded = false;
}

// ---------------------------------------------------------------------------
// CFileReader

struct CFileReader::Impl {
    HANDLE hFile = INVALID_HANDLE_VALUE;
};

CFileReader::CFileReader() : m_pImpl(std::make_unique<Impl>()) {}

CFileReader::~CFileReader() { Close(); }

bool CFileReader::Open(std::u16string_view path, bool bSequential) {
    Close();
    const std::wstring strPath = ToApiPath(path);
    m_pImpl->hFile =
        ::CreateFileW(strPath.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                      bSequential ? FILE_FLAG_SEQUENTIAL_SCAN : 0, nullptr);
    return IsOpen();
}

int64_t CFileReader::Read(void* pBuffer, size_t uSize) {
    if (!IsOpen()) return -1;
    // One call reads at most what a DWORD counts; a larger request comes
    // back short, as any read may.
    const DWORD dwWanted = DWORD(std::min<size_t>(uSize, 0x40000000));
    DWORD dwRead = 0;
    if (!::ReadFile(m_pImpl->hFile, pBuffer, dwWanted, &dwRead, nullptr)) return -1;
    return dwRead;
}

bool CFileReader::Seek(uint64_t uOffset) {
    if (!IsOpen()) return false;
    LARGE_INTEGER distance;
    distance.QuadPart = LONGLONG(uOffset);
    return ::SetFilePointerEx(m_pImpl->hFile, distance, nullptr, FILE_BEGIN) != FALSE;
}

int64_t CFileReader::GetSize() const {
    LARGE_INTEGER size;
    if (!IsOpen() || !::GetFileSizeEx(m_pImpl->hFile, &size)) return -1;
    return int64_t(size.QuadPart);
}

void CFileReader::Close() {
    if (!IsOpen()) return;
    ::CloseHandle(m_pImpl->hFile);
    m_pImpl->hFile = INVALID_HANDLE_VALUE;
}

bool CFileReader::IsOpen() const { return m_pImpl->hFile != INVALID_HANDLE_VALUE; }

// ---------------------------------------------------------------------------
// Path queries

uint32_t GetFileAttributes(std::u16string_view path) {
    return ::GetFileAttributesW(ToApiPath(path).c_str());
}

bool GetEntryInfo(std::u16string_view path, CDirEntry& entry, bool bFollowLink) {
    if (bFollowLink) {
        // Opened with no access, as for reading a directory's own times;
        // a link or junction leads to its target.
        CHandle file(::CreateFileW(ToApiPath(path).c_str(), 0,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        BY_HANDLE_FILE_INFORMATION info{};
        if (!file.IsValid() || !::GetFileInformationByHandle(file.Get(), &info)) return false;
        entry.strName = FinalComponent(path);
        FillInfo(info, entry);
        return true;
    }
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExW(ToApiPath(path).c_str(), GetFileExInfoStandard, &data)) {
        return false;
    }
    entry.strName = FinalComponent(path);
    FillInfo(data, entry);
    return true;
}

// Win32 directory listings hold no devices, FIFOs or sockets.
bool IsSpecialFile(std::u16string_view) { return false; }

bool GetVolumeInformation(std::u16string_view path, std::u16string& strFileSystem) {
    std::wstring strRoot;
    if (!VolumeRootOf(path, strRoot)) return false;
    wchar_t szFileSystem[MAX_PATH + 1] = {};
    if (!::GetVolumeInformationW(strRoot.c_str(), nullptr, 0, nullptr, nullptr, nullptr,
                                 szFileSystem, MAX_PATH + 1)) {
        return false;
    }
    strFileSystem = FromWide(szFileSystem);
    return true;
}

double GetClusterSize(std::u16string_view path) {
    std::wstring strRoot;
    if (!VolumeRootOf(path, strRoot)) return 0;
    DWORD dwSectorsPerCluster = 0, dwBytesPerSector = 0, dwFreeClusters = 0, dwClusters = 0;
    if (!::GetDiskFreeSpaceW(strRoot.c_str(), &dwSectorsPerCluster, &dwBytesPerSector,
                             &dwFreeClusters, &dwClusters)) {
        return 0;
    }
    return double(dwSectorsPerCluster) * double(dwBytesPerSector);
}

bool GetDiskFreeSpace(std::u16string_view path, double& dFree, double& dTotal) {
    // The call wants a directory; the volume root also serves a file's path.
    std::wstring strRoot;
    if (!VolumeRootOf(path, strRoot)) strRoot = ToApiPath(path);
    ULARGE_INTEGER freeForCaller{}, total{}, totalFree{};
    if (!::GetDiskFreeSpaceExW(strRoot.c_str(), &freeForCaller, &total, &totalFree)) {
        return false;
    }
    dFree = double(freeForCaller.QuadPart);
    dTotal = double(total.QuadPart);
    return true;
}

double GetSizeOnDisk(std::u16string_view path) {
    DWORD dwHigh = 0;
    ::SetLastError(NO_ERROR);
    const DWORD dwLow = ::GetCompressedFileSizeW(ToApiPath(path).c_str(), &dwHigh);
    if (dwLow == INVALID_FILE_SIZE && ::GetLastError() != NO_ERROR) return 0;
    return dwHigh * 4294967296.0 + dwLow;
}

uint32_t GetLinkCount(std::u16string_view path) {
    CHandle handle(::CreateFileW(ToApiPath(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!handle.IsValid()) return 0;
    BY_HANDLE_FILE_INFORMATION info{};
    if (!::GetFileInformationByHandle(handle.Get(), &info)) return 0;
    return info.nNumberOfLinks;
}

void GetFileDiskInfo(std::u16string_view path, bool bWantOwner, CFileDiskInfo& info) {
    info = CFileDiskInfo{};
    info.dSizeOnDisk = GetSizeOnDisk(path);
    info.uLinkCount = GetLinkCount(path);
    if (bWantOwner) info.bOwnerKnown = LookupOwnerName(path, info.strOwner);
}

bool LookupOwnerName(std::u16string_view path, std::u16string& strOwner) {
    const std::wstring strPath = ToApiPath(path);
    DWORD dwNeeded = 0;
    std::vector<BYTE> descriptor(512);
    while (!::GetFileSecurityW(strPath.c_str(), OWNER_SECURITY_INFORMATION, descriptor.data(),
                               DWORD(descriptor.size()), &dwNeeded)) {
        if (::GetLastError() != ERROR_INSUFFICIENT_BUFFER || dwNeeded <= descriptor.size()) {
            return false;
        }
        descriptor.resize(dwNeeded);
    }

    PSID pOwner = nullptr;
    BOOL bDefaulted = FALSE;
    if (!::GetSecurityDescriptorOwner(descriptor.data(), &pOwner, &bDefaulted) || !pOwner) {
        return false;
    }

    DWORD dwName = 0, dwDomain = 0;
    SID_NAME_USE use;
    ::LookupAccountSidW(nullptr, pOwner, nullptr, &dwName, nullptr, &dwDomain, &use);
    if (dwName == 0) return false;
    std::vector<wchar_t> name(dwName), domain(std::max<DWORD>(dwDomain, 1));
    if (!::LookupAccountSidW(nullptr, pOwner, name.data(), &dwName, domain.data(), &dwDomain,
                             &use)) {
        return false;
    }
    // On success the counts exclude the terminating zero.
    const std::u16string strName = FromWide(name.data(), dwName);
    strOwner = strName;  // the domain is dropped
    return true;
}

std::u16string GetDriveOfPath(std::u16string_view path) {
    return DriveOfWindowsPath(GetFullPathName(path));
}

std::u16string GetFullPathName(std::u16string_view path) {
    if (path.empty()) return std::u16string(path);
    const std::wstring strFull = FullPathOf(ToWide(path));
    return strFull.empty() ? std::u16string(path) : FromWide(strFull);
}

}  // namespace zv::platform
