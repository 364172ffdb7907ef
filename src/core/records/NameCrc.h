#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zv {

// Checksum of the upper-cased name over its UTF-16 code units, two bytes
// each, low byte first, no terminator.
uint32_t NameCrc(std::u16string_view strName);

}  // namespace zv
