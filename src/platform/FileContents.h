// Whole-file reads and writes, for small files such as settings files.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace zv::platform {

// False when the file cannot be opened or read.
bool ReadFileContents(std::u16string_view path, std::string& strBytes);
// Creates the file or empties it, then writes the bytes. False on failure.
bool WriteFileContents(std::u16string_view path, std::string_view bytes);
// Creates the file or empties it and opens it for binary writing through the
// C library, so that a caller can check each write. Null on failure, with
// the library's error text in strError.
std::FILE* OpenFileForWriting(std::u16string_view path, std::string& strError);

}  // namespace zv::platform
