// The text form of the POSIX user store: UTF-8 lines "name=value" after one
// comment line. A backslash escapes itself, and "\n" and "\r" stand for line
// ends, so that every text fits on its line. Lines that start with '#' or
// have no '=' are skipped when reading.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/Text.h"

namespace zv::platform {

struct CNoCaseLess {
    bool operator()(const std::u16string& a, const std::u16string& b) const {
        return CompareNoCase(a, b) < 0;
    }
};

using CUserStoreValues = std::map<std::u16string, std::u16string, CNoCaseLess>;

std::string FormatUserStoreText(const CUserStoreValues& aValues);
// A later line for the same name replaces an earlier one.
CUserStoreValues ParseUserStoreText(std::string_view text);

}  // namespace zv::platform
