// Text files that users and other programs write: UTF-16 with a byte order
// mark (either byte order), or UTF-8 with or without one.
#pragma once

#include <string>
#include <string_view>

namespace zv {

// The whole text, read as a C runtime's text mode reads it: CR LF becomes
// LF, a lone CR stays. Bytes that are not UTF-8 survive as escapes.
std::u16string DecodeTextFile(std::string_view bytes);

}  // namespace zv
