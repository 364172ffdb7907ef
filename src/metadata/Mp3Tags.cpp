#include "metadata/Mp3Tags.h"

#include <cstring>

#include "platform/FileSystem.h"

namespace zv {

bool IsMp3Extension(std::u16string_view strName) {
    if (strName.size() < 4) return false;
    const std::u16string_view ext = strName.substr(strName.size() - 4);
    if (ext[0] != u'.' || (ext[1] != u'm' && ext[1] != u'M') || (ext[2] != u'p' && ext[2] != u'P'))
        return false;
    return ext[3] == u'1' || ext[3] == u'2' || ext[3] == u'3';
}

uint32_t DecodeSynchsafe(uint32_t uRaw) {
    if (uRaw & 0x80808080u) return 0;
    const uint32_t b0 = uRaw & 0xFF, b1 = (uRaw >> 8) & 0xFF, b2 = (uRaw >> 16) & 0xFF,
                   b3 = uRaw >> 24;
    return (b0 << 21) | (b1 << 14) | (b2 << 7) | b3;
}

uint32_t Id3v2TagSize(platform::CFileReader& file) {
    unsigned char aHeader[10];
    if (!file.Seek(0) || file.Read(aHeader, sizeof aHeader) != sizeof aHeader) return 0;
    if (std::memcmp(aHeader, "ID3", 3) != 0 || aHeader[3] == 0xFF || aHeader[4] == 0xFF) return 0;
    const uint32_t uRaw = uint32_t(aHeader[6]) | uint32_t(aHeader[7]) << 8 |
                          uint32_t(aHeader[8]) << 16 | uint32_t(aHeader[9]) << 24;
    return DecodeSynchsafe(uRaw);
}

}  // namespace zv
