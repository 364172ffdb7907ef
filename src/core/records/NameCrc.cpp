#include "core/records/NameCrc.h"

#include <vector>

#include "core/records/Crc32.h"
#include "platform/Text.h"

namespace zv {

uint32_t NameCrc(std::u16string_view strName) {
    std::vector<unsigned char> aBytes;
    aBytes.reserve(strName.size() * 2);
    for (char16_t ch : strName) {
        const char16_t chUpper = platform::ToUpper(ch);
        aBytes.push_back(static_cast<unsigned char>(chUpper & 0xFF));
        aBytes.push_back(static_cast<unsigned char>(chUpper >> 8));
    }
    return Crc32Buffer(aBytes.data(), aBytes.size());
}

}  // namespace zv
