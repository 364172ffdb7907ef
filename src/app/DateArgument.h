#pragma once

#include <string_view>

#include "platform/FileTime.h"

namespace zv {

// An ISO 8601 date ("2024-05-31") or date and time ("2024-05-31T14:30",
// "2024-05-31 14:30:15") in local time, as UTC. False when the text is not
// such a date.
bool ParseLocalDateArgument(std::string_view strText, FILETIME& ftUtc);

}  // namespace zv
