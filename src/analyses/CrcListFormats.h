// The two forms of a CRC list file, read from its bytes: the text report
// form (a path line, then lines such as "CRC: 0x1A2B", blocks parted by a
// blank line) and the XML report form (<file name='...' crc='...' />).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/CrcListEntry.h"

namespace zv {

// A checksum as the lists write it: "UNKNOWN" gives false (no checksum) and
// 0. Text starting "0x" is read as base 16, anything else as base 10, the
// way wcstoul reads an unsigned 32-bit number: leading blanks and a sign are
// taken, reading stops at the first invalid character, and an overflow
// gives 0xFFFFFFFF.
bool ParseCrcListValue(std::u16string_view strText, uint32_t& uValue);

// The text form. The bytes are UTF-16LE after a byte order mark, else UTF-8
// (a UTF-8 byte order mark is skipped). Empties aEntries first.
void ReadCrcListText(std::string_view bytes, std::vector<CCrcListEntry>& aEntries);

// The XML form. On success aEntries holds what the walk leaves in it and
// the result is empty; otherwise the result is the error text and aEntries
// is untouched.
std::u16string ReadCrcListXml(std::string_view bytes, std::vector<CCrcListEntry>& aEntries);

}  // namespace zv
