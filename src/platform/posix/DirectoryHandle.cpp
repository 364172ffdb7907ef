#include "platform/DirectoryHandle.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "platform/Text.h"
#include "platform/posix/OwnerName.h"

namespace zv::platform {

struct CDirectoryHandle::Impl {
    int nFd = -1;
    std::string strName;  // an entry name in UTF-8, its storage reused
};

CDirectoryHandle::CDirectoryHandle() : m_pImpl(std::make_unique<Impl>()) {}

CDirectoryHandle::~CDirectoryHandle() { Close(); }

bool CDirectoryHandle::Open(std::u16string_view path) {
    Close();
    if (path.empty()) return false;
#ifdef O_PATH
    // Only names are looked up in it: no read permission is needed, just as
    // for opening or a stat of the full path.
    constexpr int kFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;
#else
    constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
#endif
    m_pImpl->nFd = open(Utf16ToUtf8(path).c_str(), kFlags);
    return m_pImpl->nFd >= 0;
}

void CDirectoryHandle::Close() {
    if (m_pImpl->nFd >= 0) close(m_pImpl->nFd);
    m_pImpl->nFd = -1;
}

bool CDirectoryHandle::IsOpen() const { return m_pImpl->nFd >= 0; }

bool CDirectoryHandle::OpenFile(CFileReader& reader, std::u16string_view name,
                                bool bSequential) const {
    if (!IsOpen()) return false;
    return reader.OpenAt(m_pImpl->nFd, Utf16ToUtf8(name), bSequential);
}

bool CDirectoryHandle::ReadDiskInfo(std::u16string_view name, bool bWantOwner,
                                    CFileDiskInfo& info) {
    if (!IsOpen()) return false;
    info = CFileDiskInfo{};
    m_pImpl->strName = Utf16ToUtf8(name);
    const char* pszName = m_pImpl->strName.c_str();
    // The owner is the link's own; size and links are of what it names.
    struct stat st;
    if (fstatat(m_pImpl->nFd, pszName, &st, AT_SYMLINK_NOFOLLOW) != 0) return true;
    if (bWantOwner) {
        info.bOwnerKnown = true;
        info.strOwner = OwnerNameOfUid(st.st_uid);
    }
    if (S_ISLNK(st.st_mode) && fstatat(m_pImpl->nFd, pszName, &st, 0) != 0) return true;
    info.dSizeOnDisk = double(st.st_blocks) * 512.0;
    info.uLinkCount = uint32_t(st.st_nlink);
    return true;
}

}  // namespace zv::platform
