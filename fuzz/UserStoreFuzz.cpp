// Parses each input as the POSIX user store's file and checks that writing
// what was read and reading it again gives the same values.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "FuzzInput.h"
#include "platform/UserStoreText.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    using namespace zv::platform;
    const std::string_view text(reinterpret_cast<const char*>(pData), nSize);
    const CUserStoreValues aValues = ParseUserStoreText(text);
    const std::string strWritten = FormatUserStoreText(aValues);
    ZV_FUZZ_CHECK(ParseUserStoreText(strWritten) == aValues);
    ZV_FUZZ_CHECK(FormatUserStoreText(ParseUserStoreText(strWritten)) == strWritten);
    return 0;
}
