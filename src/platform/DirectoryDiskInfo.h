// Size on disk, link count and owner of the entries of one directory, read
// for many of its entries in a row. On POSIX the directory is opened once and
// each name is looked up in it alone, instead of walking the whole path again
// for every file; on Windows each entry is read by its path, and the owner
// account names are kept per SID, since looking one up asks the security
// authority every time.
#pragma once

#include <memory>
#include <string_view>

#include "platform/FileSystem.h"

namespace zv::platform {

class CDirectoryDiskInfo {
public:
    CDirectoryDiskInfo();
    ~CDirectoryDiskInfo();
    CDirectoryDiskInfo(const CDirectoryDiskInfo&) = delete;
    CDirectoryDiskInfo& operator=(const CDirectoryDiskInfo&) = delete;

    // Makes path the directory that Read looks names up in. False when it
    // cannot be opened; Read then reads nothing until the next Open.
    bool Open(std::u16string_view path);
    // What GetFileDiskInfo gives for the open directory's entry name. False,
    // with info untouched, when no directory is open.
    bool Read(std::u16string_view name, bool bWantOwner, CFileDiskInfo& info);

private:
    struct Impl;
    std::unique_ptr<Impl> m_pImpl;
};

}  // namespace zv::platform
