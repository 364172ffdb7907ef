#include "platform/DirectoryHandle.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv::platform {

CDirectoryHandle::~CDirectoryHandle() { Close(); }

bool CDirectoryHandle::Open(std::u16string_view path) {
    Close();
    if (path.empty()) return false;
    m_nFd = open(Utf16ToUtf8(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    m_bOpen = m_nFd >= 0;
    if (m_bOpen) m_strPath.assign(path);
    return m_bOpen;
}

void CDirectoryHandle::Close() {
    if (m_nFd >= 0) close(m_nFd);
    m_nFd = -1;
    m_bOpen = false;
    m_strPath.clear();
}

bool CDirectoryHandle::IsOpen() const { return m_bOpen; }

bool CDirectoryHandle::OpenFile(CFileReader& reader, std::u16string_view name,
                                bool bSequential) const {
    if (!m_bOpen) return false;
    return reader.OpenAt(m_nFd, Utf16ToUtf8(name), bSequential);
}

}  // namespace zv::platform
