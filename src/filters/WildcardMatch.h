// The matcher of the whole filter set: file names, paths, owners, versions
// and extensions are all tested against '*' and '?' patterns with it.
#pragma once

#include <string_view>

namespace zv {

// True when the text matches the pattern. The text is upper-cased first, so
// the match ignores case provided the pattern is stored upper-cased.
//
// '?' matches any one character and '*' any run of characters. With bEscape
// set, '\' makes the next pattern character literal; with it clear '\' is an
// ordinary character, as in paths.
//
// This is a single pass without backtracking. After a '*' the rest of the
// pattern is compared literally at the first text position where its first
// character occurs ('?' and '\' stand for themselves there), and only a
// mismatch before the next '*' or the end of pattern or text moves on to a
// later position. So "*AB" does not match "ABXAB", "*A?C" does not match
// "XABC", and "ABC**" does not match "ABC": these answers are intended.
bool WildcardMatch(std::u16string_view strPattern, std::u16string_view strText, bool bEscape);
// The same for a text already upper-cased (platform::ToUpperCopy), which a
// caller trying several patterns on one name upper-cases once.
bool WildcardMatchUpper(std::u16string_view strPattern, std::u16string_view strUpper, bool bEscape);

}  // namespace zv
