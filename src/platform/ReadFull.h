// Reading a block whole: a file read may return fewer bytes than asked even
// before the end (a pipe, a network share), so comparisons loop until the
// block is full.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/FileSystem.h"

namespace zv::platform {

// Reads until uWant bytes are in pData or the file ends: the bytes read, or
// -1 on a read error.
int64_t ReadFull(CFileReader& reader, void* pData, size_t uWant);

}  // namespace zv::platform
