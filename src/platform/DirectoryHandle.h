// A directory held open while many of its files are read. On POSIX a file
// then opens relative to the directory's descriptor, so the system walks one
// name instead of the whole path for every file; on Windows the handle keeps
// the path and a file opens by its full path.
#pragma once

#include <string>
#include <string_view>

namespace zv::platform {

class CFileReader;

class CDirectoryHandle {
public:
    CDirectoryHandle() = default;
    ~CDirectoryHandle();
    CDirectoryHandle(const CDirectoryHandle&) = delete;
    CDirectoryHandle& operator=(const CDirectoryHandle&) = delete;

    // Follows links on the way, as opening a file by its full path would.
    bool Open(std::u16string_view path);
    void Close();
    bool IsOpen() const;

    // Opens the file name of this directory as CFileReader::Open opens a
    // path (regular files only, the sequential hint unless bSequential is
    // false). name is one component; it may hold any name the tree lists.
    bool OpenFile(CFileReader& reader, std::u16string_view name, bool bSequential = true) const;

private:
    std::u16string m_strPath;
    int m_nFd = -1;  // POSIX only
    bool m_bOpen = false;
};

}  // namespace zv::platform
