// Language names as VerLanguageNameW gives them in English, for the
// languages version resources commonly name.
#include <algorithm>
#include <iterator>

#include "metadata/VersionMetadata.h"

namespace zv {
namespace {

struct CLanguage {
    uint16_t uId;
    const char16_t* pszName;
};

// Sorted by id.
constexpr CLanguage kLanguages[] = {
    {0x0000, u"Language Neutral"},
    {0x0401, u"Arabic (Saudi Arabia)"},
    {0x0402, u"Bulgarian (Bulgaria)"},
    {0x0403, u"Catalan (Catalan)"},
    {0x0404, u"Chinese (Traditional, Taiwan)"},
    {0x0405, u"Czech (Czech Republic)"},
    {0x0406, u"Danish (Denmark)"},
    {0x0407, u"German (Germany)"},
    {0x0408, u"Greek (Greece)"},
    {0x0409, u"English (United States)"},
    {0x040A, u"Spanish (Spain, Traditional Sort)"},
    {0x040B, u"Finnish (Finland)"},
    {0x040C, u"French (France)"},
    {0x040D, u"Hebrew (Israel)"},
    {0x040E, u"Hungarian (Hungary)"},
    {0x040F, u"Icelandic (Iceland)"},
    {0x0410, u"Italian (Italy)"},
    {0x0411, u"Japanese (Japan)"},
    {0x0412, u"Korean (Korea)"},
    {0x0413, u"Dutch (Netherlands)"},
    {0x0414, u"Norwegian, Bokm\u00e5l (Norway)"},
    {0x0415, u"Polish (Poland)"},
    {0x0416, u"Portuguese (Brazil)"},
    {0x0418, u"Romanian (Romania)"},
    {0x0419, u"Russian (Russia)"},
    {0x041A, u"Croatian (Croatia)"},
    {0x041B, u"Slovak (Slovakia)"},
    {0x041D, u"Swedish (Sweden)"},
    {0x041E, u"Thai (Thailand)"},
    {0x041F, u"Turkish (Turkey)"},
    {0x0422, u"Ukrainian (Ukraine)"},
    {0x0424, u"Slovenian (Slovenia)"},
    {0x0425, u"Estonian (Estonia)"},
    {0x0426, u"Latvian (Latvia)"},
    {0x0427, u"Lithuanian (Lithuania)"},
    {0x0800, u"Language Neutral"},
    {0x0804, u"Chinese (Simplified, PRC)"},
    {0x0807, u"German (Switzerland)"},
    {0x0809, u"English (United Kingdom)"},
    {0x080A, u"Spanish (Mexico)"},
    {0x080C, u"French (Belgium)"},
    {0x0816, u"Portuguese (Portugal)"},
    {0x0C07, u"German (Austria)"},
    {0x0C09, u"English (Australia)"},
    {0x0C0A, u"Spanish (Spain, International Sort)"},
    {0x0C0C, u"French (Canada)"},
    {0x1009, u"English (Canada)"},
};

}  // namespace

std::u16string LanguageName(uint16_t uLanguage) {
    const auto* pEnd = std::end(kLanguages);
    const auto* p = std::lower_bound(std::begin(kLanguages), pEnd, uLanguage,
                                     [](const CLanguage& l, uint16_t u) { return l.uId < u; });
    return p != pEnd && p->uId == uLanguage ? p->pszName : u"";
}

}  // namespace zv
