#include "core/settings/SettingsWords.h"

#include <span>

#include "platform/Text.h"

namespace zv {
namespace {

struct CWord {
    int m_nCode;
    std::u16string_view m_strWord;
};

constexpr CWord kFileSortWords[] = {
    {1, u"Name asc"},      {2, u"Name des"},         {4, u"Size asc"},
    {5, u"Size des"},      {6, u"Size wsubdir asc"}, {7, u"Size wsubdir des"},
    {8, u"created asc"},   {9, u"created des"},      {10, u"accessed asc"},
    {11, u"accessed des"}, {12, u"modified asc"},    {13, u"modified des"},
    {16, u"crc asc"},      {17, u"crc des"},         {19, u"dir asc"},
    {20, u"dir des"},      {21, u"extension asc"},   {22, u"extension des"},
    {23, u"Owner asc"},    {24, u"Owner des"},
};

constexpr CWord kDirSortWords[] = {
    {1, u"short name asc"},   {2, u"short name des"},   {4, u"long name asc"},
    {5, u"long name des"},    {6, u"size asc"},         {7, u"size des"},
    {8, u"size wsubdir asc"}, {9, u"size wsubdir des"}, {10, u"created asc"},
    {11, u"created des"},     {12, u"accessed asc"},    {13, u"accessed des"},
    {14, u"modified asc"},    {15, u"modified des"},    {16, u"crc asc"},
    {17, u"crc des"},         {18, u"crc wsubdir asc"}, {19, u"crc wsubdir des"},
    {20, u"owner asc"},       {21, u"owner des"},
};

constexpr CWord kPrintTypeWords[] = {
    {0, u"none"}, {1, u"text"}, {2, u"excel"}, {3, u"html"}, {4, u"xml"},
};

constexpr CWord kSizeUnitWords[] = {{0, u"BYTES"}, {1, u"KB"}, {2, u"MB"}, {3, u"GB"}};
constexpr CWord kSizeUnitTexts[] = {{0, u"bytes"}, {1, u"KB"}, {2, u"MB"}, {3, u"GB"}};

constexpr CWord kCompareModeWords[] = {
    {0, u"side by side"},
    {1, u"side by side ignore blanks"},
    {2, u"binary"},
    {3, u"none"},
};

constexpr std::u16string_view kNothing = u"nothing";

std::u16string_view WordOf(std::span<const CWord> aWords, int nCode, std::u16string_view strElse) {
    for (const CWord& word : aWords)
        if (word.m_nCode == nCode) return word.m_strWord;
    return strElse;
}

const CWord* FindNoCase(std::span<const CWord> aWords, std::u16string_view strWord) {
    for (const CWord& word : aWords)
        if (platform::EqualsNoCase(word.m_strWord, strWord)) return &word;
    return nullptr;
}

}  // namespace

std::u16string_view FileSortWord(int nCode) { return WordOf(kFileSortWords, nCode, kNothing); }

uint8_t FileSortCode(std::u16string_view strWord) {
    const CWord* pWord = FindNoCase(kFileSortWords, strWord);
    return pWord ? static_cast<uint8_t>(pWord->m_nCode) : 0;
}

std::u16string_view DirSortWord(int nCode) { return WordOf(kDirSortWords, nCode, kNothing); }

uint8_t DirSortCode(std::u16string_view strWord) {
    const CWord* pWord = FindNoCase(kDirSortWords, strWord);
    return pWord ? static_cast<uint8_t>(pWord->m_nCode) : 0;
}

std::u16string_view PrintTypeWord(int nType) { return WordOf(kPrintTypeWords, nType, u"none"); }

int32_t PrintTypeFromWord(std::u16string_view strWord) {
    for (const CWord& word : kPrintTypeWords)
        if (word.m_strWord == strWord) return word.m_nCode;
    return 0;
}

std::u16string_view SizeUnitWord(int nUnit) { return WordOf(kSizeUnitWords, nUnit, u"BYTES"); }

bool SizeUnitFromWord(std::u16string_view strWord, int32_t& nUnit) {
    const CWord* pWord = FindNoCase(kSizeUnitWords, strWord);
    if (!pWord) return false;
    nUnit = pWord->m_nCode;
    return true;
}

std::u16string_view SizeUnitText(int nUnit) { return WordOf(kSizeUnitTexts, nUnit, u"bytes"); }

std::u16string_view CompareModeWord(int nMode) {
    return WordOf(kCompareModeWords, nMode, u"binary");
}

bool CompareModeFromWord(std::u16string_view strWord, int32_t& nMode) {
    const CWord* pWord = FindNoCase(kCompareModeWords, strWord);
    if (!pWord) return false;
    nMode = pWord->m_nCode;
    return true;
}

}  // namespace zv
