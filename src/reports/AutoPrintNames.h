// The file names of the Auto Print reports: the extension each form
// expects, and the date stamp a report's name can carry.
#pragma once

#include <string>
#include <string_view>

namespace zv {

// Empty when the name ends as the form expects (compared without regard to
// case); otherwise the question to ask, starting with the report's prefix
// ("Main: ") and the name.
std::u16string CheckAutoPrintExtension(std::u16string_view strPrefix, int nType,
                                       std::u16string_view strName);

// "_YYYY_MM_DD" of the local date now.
std::u16string DateStamp();
// The stamp before the last "." of the name, or at its end.
std::u16string AppendDateToName(std::u16string_view strName);
std::u16string AppendDateToName(std::u16string_view strName, std::u16string_view strStamp);

}  // namespace zv
