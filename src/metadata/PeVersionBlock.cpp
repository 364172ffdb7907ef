// Finds the version resource of a PE file: the section table maps the
// resource directory's address to the file, and the resource tree leads
// from type 16 to the first name and its first language.
#include <algorithm>
#include <cstring>
#include <vector>

#include "metadata/VersionMetadata.h"

namespace zv {
namespace {

constexpr uint32_t kResourceVersion = 16;
// Resource trees deeper than this or with more entries are not followed.
constexpr uint32_t kMaxEntries = 4096;

uint32_t Le32(const unsigned char* p) {
    return uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | uint32_t(p[3]) << 24;
}
uint16_t Le16(const unsigned char* p) { return uint16_t(p[0] | p[1] << 8); }

struct CSection {
    uint32_t uAddress, uVirtualSize, uRawSize, uRawOffset;
};

class CResourceReader {
public:
    CResourceReader(IByteStream& file, std::vector<CSection> aSections)
        : m_file(file), m_aSections(std::move(aSections)) {}

    // File offset of a relative virtual address with at least uSize bytes
    // behind it in the same section.
    bool Map(uint32_t uRva, uint32_t uSize, uint64_t& uOffset) const {
        for (const CSection& s : m_aSections) {
            const uint32_t uSpan = std::max(s.uVirtualSize, s.uRawSize);
            if (uRva >= s.uAddress && uRva - s.uAddress < uSpan) {
                const uint64_t uInSection = uRva - s.uAddress;
                if (uInSection + uSize > s.uRawSize) return false;
                uOffset = s.uRawOffset + uInSection;
                return true;
            }
        }
        return false;
    }

    bool ReadAt(uint64_t uOffset, void* pBuffer, size_t uSize) {
        return m_file.Seek(uOffset) && m_file.ReadExact(pBuffer, uSize);
    }

    // The directory entry of the id (or the first entry, for uId 0) of the
    // directory at uDirectory (an offset in the resource section).
    bool Entry(uint32_t uRoot, uint32_t uDirectory, uint32_t uId, uint32_t& uTarget) {
        uint64_t uOffset;
        unsigned char aHeader[16];
        if (!Map(uRoot + uDirectory, 16, uOffset) || !ReadAt(uOffset, aHeader, 16)) return false;
        const uint32_t uCount = uint32_t(Le16(aHeader + 12)) + Le16(aHeader + 14);
        if (uCount == 0 || uCount > kMaxEntries) return false;
        std::vector<unsigned char> aEntries(size_t(uCount) * 8);
        if (!Map(uRoot + uDirectory + 16, uCount * 8, uOffset) ||
            !ReadAt(uOffset, aEntries.data(), aEntries.size()))
            return false;
        for (uint32_t n = 0; n < uCount; ++n) {
            const unsigned char* p = aEntries.data() + n * 8;
            if (uId == 0 || Le32(p) == uId) {
                uTarget = Le32(p + 4);
                return true;
            }
        }
        return false;
    }

private:
    IByteStream& m_file;
    std::vector<CSection> m_aSections;
};

}  // namespace

bool ReadPeVersionBlock(IByteStream& file, std::string& strBlock) {
    unsigned char aDos[64];
    if (!file.Seek(0) || !file.ReadExact(aDos, sizeof aDos) || aDos[0] != 'M' || aDos[1] != 'Z')
        return false;
    const uint32_t uPe = Le32(aDos + 0x3C);
    unsigned char aPe[24];
    if (!file.Seek(uPe) || !file.ReadExact(aPe, sizeof aPe) || std::memcmp(aPe, "PE\0\0", 4) != 0)
        return false;
    const uint16_t uSections = Le16(aPe + 6), uOptionalSize = Le16(aPe + 20);
    std::vector<unsigned char> aOptional(uOptionalSize);
    if (!file.ReadExact(aOptional.data(), uOptionalSize) || uOptionalSize < 2) return false;
    // The data directories start at 96 (PE32) or 112 (PE32+); the resource
    // table is the third.
    const uint16_t uMagic = Le16(aOptional.data());
    const size_t uDirectories = uMagic == 0x20B ? 112 : uMagic == 0x10B ? 96 : 0;
    if (!uDirectories || uOptionalSize < uDirectories + 3 * 8 ||
        Le32(aOptional.data() + uDirectories - 4) < 3)
        return false;
    const uint32_t uResourceRva = Le32(aOptional.data() + uDirectories + 16);
    if (!uResourceRva) return false;

    std::vector<CSection> aSections;
    for (uint16_t n = 0; n < uSections; ++n) {
        unsigned char aSection[40];
        if (!file.ReadExact(aSection, sizeof aSection)) return false;
        aSections.push_back(
            {Le32(aSection + 12), Le32(aSection + 8), Le32(aSection + 16), Le32(aSection + 20)});
    }
    CResourceReader reader(file, std::move(aSections));
    // Type, then name (the first), then language (the first); the high bit
    // marks a subdirectory.
    uint32_t uTarget = 0;
    if (!reader.Entry(uResourceRva, 0, kResourceVersion, uTarget) || !(uTarget & 0x80000000u) ||
        !reader.Entry(uResourceRva, uTarget & 0x7FFFFFFF, 0, uTarget) || !(uTarget & 0x80000000u) ||
        !reader.Entry(uResourceRva, uTarget & 0x7FFFFFFF, 0, uTarget) || (uTarget & 0x80000000u))
        return false;
    uint64_t uOffset;
    unsigned char aData[16];
    if (!reader.Map(uResourceRva + uTarget, 16, uOffset) || !reader.ReadAt(uOffset, aData, 16))
        return false;
    const uint32_t uDataRva = Le32(aData), uDataSize = Le32(aData + 4);
    if (uDataSize == 0 || uDataSize > kMaxVersionBlock || !reader.Map(uDataRva, uDataSize, uOffset))
        return false;
    strBlock.assign(uDataSize, '\0');
    return reader.ReadAt(uOffset, strBlock.data(), uDataSize);
}

}  // namespace zv
