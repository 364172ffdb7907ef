// The words that stand for numbers in a settings file: sort codes of file
// and directory lists, report types, the size unit and the compare mode.
#pragma once

#include <cstdint>
#include <string_view>

namespace zv {

// "nothing" for code 0 and for a code without a word; an unknown word, with
// case ignored, reads as 0.
std::u16string_view FileSortWord(int nCode);
uint8_t FileSortCode(std::u16string_view strWord);
std::u16string_view DirSortWord(int nCode);
uint8_t DirSortCode(std::u16string_view strWord);

// "none", "text", "excel", "html", "xml"; read as exact words, 0 otherwise.
std::u16string_view PrintTypeWord(int nType);
int32_t PrintTypeFromWord(std::u16string_view strWord);

// "Display size": "BYTES", "KB", "MB", "GB", read with case ignored; false
// for another word. The unit's text shown beside sizes is another word.
std::u16string_view SizeUnitWord(int nUnit);
bool SizeUnitFromWord(std::u16string_view strWord, int32_t& nUnit);
std::u16string_view SizeUnitText(int nUnit);

// "[DEFAULT FILE COMPARE MODE]": "side by side", "side by side ignore
// blanks", "binary", "none", read with case ignored; false for another word.
std::u16string_view CompareModeWord(int nMode);
bool CompareModeFromWord(std::u16string_view strWord, int32_t& nMode);

}  // namespace zv
