#include "platform/FileSystem.h"

namespace zv::platform {

// Numbers do not follow the process locale, so reports read the same
// whatever LANG says.
char16_t GetThousandsSeparator() { return u','; }

}  // namespace zv::platform

#include "platform/DateLocale.h"

namespace zv::platform {

bool ReadDateLocale(CDateLocale&) { return false; }

bool FormatDateSerial(const SYSTEMTIME&, std::u16string&) { return false; }

}  // namespace zv::platform
