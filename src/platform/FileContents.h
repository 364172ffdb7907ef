// Whole-file reads and writes, for small files such as settings files.
#pragma once

#include <string>
#include <string_view>

namespace zv::platform {

// False when the file cannot be opened or read.
bool ReadFileContents(std::u16string_view path, std::string& strBytes);
// Creates the file or empties it, then writes the bytes. False on failure.
bool WriteFileContents(std::u16string_view path, std::string_view bytes);

}  // namespace zv::platform
