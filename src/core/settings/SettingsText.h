// The text of a settings file as bytes on the disk and as lines for the
// reader. Files are written in UTF-16 (little-endian) with a byte order mark
// and CRLF line ends on every platform. The reader takes that form, UTF-16
// big-endian with its mark, and UTF-8 with or without a mark (files written
// by hand), and sees lines the way a 256-unit line buffer sees them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv {

// A line of the reader holds at most this many UTF-16 code units; the rest
// of a longer line comes as the next line.
inline constexpr size_t kSettingsLineLimit = 255;

// The lines as the reader sees them: split at LF and after kSettingsLineLimit
// code units, cut at a NUL, trailing white space removed. A line ending
// exactly at the limit is followed by an empty one (its line end).
std::vector<std::u16string> SplitSettingsLines(std::u16string_view text);

// Lines, each ended with CRLF, as UTF-16LE with a byte order mark.
std::string EncodeSettingsText(const std::vector<std::u16string>& aLines);

}  // namespace zv
