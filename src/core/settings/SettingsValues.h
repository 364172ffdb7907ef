// Numbers in a settings file: written as "%d" and "%f" write them, read as
// the C runtime's _wtoi and _wtof read them, whatever the process locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zv {

// Leading white space, a sign and digits; reading stops at the first other
// character. No digits give 0; a value out of range gives the nearest limit.
int32_t ParseSettingsInteger(std::u16string_view text);
// The same for a decimal number with fraction and exponent, "inf" and "nan".
double ParseSettingsReal(std::u16string_view text);

std::u16string FormatSettingsInteger(int64_t nValue);
// Six decimals.
std::u16string FormatSettingsReal(double dValue);

}  // namespace zv
