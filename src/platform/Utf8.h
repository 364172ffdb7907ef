// Building UTF-8 text one code point at a time, for writers that escape
// some characters and pass the rest through.
#pragma once

#include <cstdint>
#include <string>

namespace zv::platform {

// Appends the UTF-8 bytes of one code point (a lone surrogate as its
// three-byte form).
void AppendUtf8(std::string& out, uint32_t cp);

}  // namespace zv::platform
