#include "platform/FileSystem.h"

namespace zv::platform {

// Numbers do not follow the process locale, so reports read the same
// whatever LANG says.
char16_t GetThousandsSeparator() { return u','; }

}  // namespace zv::platform
