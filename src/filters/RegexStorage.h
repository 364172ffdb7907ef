// Heap storage owned by compiled regular expression nodes. Allocation never
// throws: a null result means the memory ran out.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "filters/Regex.h"

namespace zv {

using RegexRange = std::array<char16_t, 2>;  // start, end

// A zero-terminated copy of the text, or null.
char16_t* NewRegexText(std::u16string_view strText);

// An array of pointers to one heap pair per range, or null; nothing is left
// allocated when it fails.
char16_t** NewRegexRanges(std::span<const RegexRange> aRanges);

// Releases the node's members, ranges and group text and clears the pointers.
void ReleaseRegexNode(CRegexNode& node);

}  // namespace zv
