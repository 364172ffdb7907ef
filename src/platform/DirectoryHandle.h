// A directory held open while many of its entries are read: files opened
// for reading, and the size on disk, link count and owner of entries. On
// POSIX each name is then looked up relative to the directory's descriptor,
// so the system walks one name instead of the whole path for every entry.
// Windows has no such look-up in its documented API: the handle keeps the
// path, each entry is reached by its full path, and the owner account names
// are kept per SID, since looking one up asks the security authority every
// time.
#pragma once

#include <memory>
#include <string_view>

#include "platform/FileSystem.h"

namespace zv::platform {

class CDirectoryHandle {
public:
    CDirectoryHandle();
    ~CDirectoryHandle();
    CDirectoryHandle(const CDirectoryHandle&) = delete;
    CDirectoryHandle& operator=(const CDirectoryHandle&) = delete;

    // Follows links on the way, as opening a file by its full path would.
    // False when path is no directory that can be opened; the handle is
    // then closed.
    bool Open(std::u16string_view path);
    void Close();
    bool IsOpen() const;

    // Opens the file name of this directory as CFileReader::Open opens a
    // path (regular files only, the sequential hint unless bSequential is
    // false). name is one component; it may hold any name the tree lists.
    bool OpenFile(CFileReader& reader, std::u16string_view name, bool bSequential = true) const;
    // What GetFileDiskInfo gives for the entry name. False, with info
    // untouched, when no directory is open.
    bool ReadDiskInfo(std::u16string_view name, bool bWantOwner, CFileDiskInfo& info);

private:
    struct Impl;
    std::unique_ptr<Impl> m_pImpl;
};

}  // namespace zv::platform
