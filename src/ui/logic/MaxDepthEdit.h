// The field of the maximum directory depth dialog: the text shown for a
// depth, and the depth a typed text stands for.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zv {

inline constexpr std::u16string_view kNoDepthText = u"No depth (Scan all directories)";

// The number, or kNoDepthText for -1 (no limit).
std::u16string MaxDepthText(int32_t nDepth);

// A leading number as the C run time's _wtol reads it: blanks, a sign and
// digits up to the first other character; no digits read as 0, and a
// number out of range stops at the 32-bit limit.
int32_t ReadLeadingNumber(std::u16string_view strText);

// The depth the dialog's OK stores: -1 when "Set no limit" is ticked, else
// the field's number. Returns the refusal message, or an empty text.
std::u16string ParseMaxDepth(std::u16string_view strText, bool bNoLimit, int32_t& nDepth);

}  // namespace zv
