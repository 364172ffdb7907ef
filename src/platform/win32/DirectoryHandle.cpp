#include "platform/DirectoryHandle.h"

#include "platform/FileSystem.h"

namespace zv::platform {

CDirectoryHandle::~CDirectoryHandle() { Close(); }

// Windows has no open relative to a directory handle in its documented API:
// the handle is the path, and a file opens by its full path.
bool CDirectoryHandle::Open(std::u16string_view path) {
    Close();
    const uint32_t uAttributes = GetFileAttributes(path);
    if (uAttributes == ATTR_INVALID || !(uAttributes & ATTR_DIRECTORY)) return false;
    m_strPath.assign(path);
    if (m_strPath.back() != u'\\' && m_strPath.back() != u'/') m_strPath += u'\\';
    m_bOpen = true;
    return true;
}

void CDirectoryHandle::Close() {
    m_bOpen = false;
    m_strPath.clear();
}

bool CDirectoryHandle::IsOpen() const { return m_bOpen; }

bool CDirectoryHandle::OpenFile(CFileReader& reader, std::u16string_view name,
                                bool bSequential) const {
    if (!m_bOpen) return false;
    std::u16string strPath = m_strPath;
    strPath += name;
    return reader.Open(strPath, bSequential);
}

}  // namespace zv::platform
