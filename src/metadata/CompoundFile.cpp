#include "metadata/CompoundFile.h"

#include <cstring>

#include "metadata/MetadataText.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr uint32_t kNoStream = 0xFFFFFFFF;
constexpr size_t kEntrySize = 128;

uint32_t Le32(const char* p) {
    const auto* b = reinterpret_cast<const unsigned char*>(p);
    return uint32_t(b[0]) | uint32_t(b[1]) << 8 | uint32_t(b[2]) << 16 | uint32_t(b[3]) << 24;
}
uint16_t Le16(const char* p) {
    const auto* b = reinterpret_cast<const unsigned char*>(p);
    return uint16_t(b[0] | b[1] << 8);
}

void AppendTable(const std::string& strSector, std::vector<uint32_t>& aTable) {
    for (size_t n = 0; n + 4 <= strSector.size(); n += 4)
        aTable.push_back(Le32(strSector.data() + n));
}

}  // namespace

bool CCompoundFile::ReadSector(uint32_t uSector, std::string& strOut) {
    strOut.assign(m_uSectorSize, '\0');
    return m_pFile->Seek((uint64_t(uSector) + 1) * m_uSectorSize) &&
           m_pFile->ReadExact(strOut.data(), m_uSectorSize);
}

bool CCompoundFile::ReadChain(uint32_t uStart, uint64_t uSize, bool bMini, std::string& strOut) {
    strOut.clear();
    const std::vector<uint32_t>& aTable = bMini ? m_aMiniFat : m_aFat;
    const uint32_t uUnit = bMini ? m_uMiniSectorSize : m_uSectorSize;
    // No stream is longer than the file, and no chain visits a sector twice.
    if (uSize > (bMini ? m_strMiniStream.size() : m_pFile->Size())) return false;
    std::string strSector;
    uint32_t uSector = uStart;
    for (size_t nSteps = 0; strOut.size() < uSize; ++nSteps) {
        if (uSector >= aTable.size() || nSteps > aTable.size()) return false;
        if (bMini) {
            const uint64_t uOffset = uint64_t(uSector) * uUnit;
            if (uOffset + uUnit > m_strMiniStream.size()) return false;
            strOut.append(m_strMiniStream, size_t(uOffset), uUnit);
        } else {
            if (!ReadSector(uSector, strSector)) return false;
            strOut += strSector;
        }
        uSector = aTable[uSector];
    }
    strOut.resize(size_t(uSize));
    return true;
}

bool CCompoundFile::Open(IByteStream& file) {
    m_pFile = &file;
    char aHeader[512];
    if (!file.Seek(0) || !file.ReadExact(aHeader, sizeof aHeader) ||
        std::memcmp(aHeader, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8) != 0)
        return false;
    const uint16_t uShift = Le16(aHeader + 0x1E), uMiniShift = Le16(aHeader + 0x20);
    if ((uShift != 9 && uShift != 12) || uMiniShift != 6) return false;
    m_uSectorSize = 1u << uShift;
    m_uMiniSectorSize = 1u << uMiniShift;
    m_uMiniCutoff = Le32(aHeader + 0x38);
    const uint32_t uFatSectors = Le32(aHeader + 0x2C), uFirstDirectory = Le32(aHeader + 0x30),
                   uFirstMiniFat = Le32(aHeader + 0x3C), uMiniFatSectors = Le32(aHeader + 0x40);
    const uint64_t uFileSectors = file.Size() / m_uSectorSize;
    if (uFatSectors > uFileSectors || uMiniFatSectors > uFileSectors) return false;

    // The FAT's own sectors: 109 in the header, the rest in the DIFAT chain.
    std::vector<uint32_t> aFatSectors;
    for (uint32_t n = 0; n < 109 && aFatSectors.size() < uFatSectors; ++n)
        aFatSectors.push_back(Le32(aHeader + 0x4C + 4 * n));
    std::string strSector;
    uint32_t uDifat = Le32(aHeader + 0x44);
    for (uint64_t nSteps = 0; aFatSectors.size() < uFatSectors; ++nSteps) {
        if (nSteps > uFileSectors || !ReadSector(uDifat, strSector)) return false;
        const uint32_t uPerSector = m_uSectorSize / 4 - 1;
        for (uint32_t n = 0; n < uPerSector && aFatSectors.size() < uFatSectors; ++n)
            aFatSectors.push_back(Le32(strSector.data() + 4 * n));
        uDifat = Le32(strSector.data() + 4 * uPerSector);
    }
    m_aFat.clear();
    for (uint32_t uSector : aFatSectors) {
        if (!ReadSector(uSector, strSector)) return false;
        AppendTable(strSector, m_aFat);
    }

    // The directory has no size of its own: its chain runs to the end.
    m_strDirectory.clear();
    uint32_t uSector = uFirstDirectory;
    while (uSector != kEndOfChain) {
        // A chain that visits sectors again would outgrow the file.
        if (uSector >= m_aFat.size() || m_strDirectory.size() >= file.Size() ||
            !ReadSector(uSector, strSector))
            return false;
        m_strDirectory += strSector;
        uSector = m_aFat[uSector];
    }
    if (m_strDirectory.size() < kEntrySize) return false;

    m_aMiniFat.clear();
    m_strMiniStream.clear();
    std::string strMiniFat;
    if (uMiniFatSectors &&
        !ReadChain(uFirstMiniFat, uint64_t(uMiniFatSectors) * m_uSectorSize, false, strMiniFat))
        return false;
    AppendTable(strMiniFat, m_aMiniFat);
    // The root entry's stream is the mini stream.
    const char* pRoot = m_strDirectory.data();
    const uint64_t uMiniSize = Le32(pRoot + 0x78);
    if (uMiniSize && !ReadChain(Le32(pRoot + 0x74), uMiniSize, false, m_strMiniStream))
        return false;
    return true;
}

std::u16string CCompoundFile::EntryName(uint32_t uEntry) const {
    const char* p = m_strDirectory.data() + size_t(uEntry) * kEntrySize;
    const uint16_t uBytes = std::min<uint16_t>(Le16(p + 0x40), 64);
    return WideText(reinterpret_cast<const unsigned char*>(p), uBytes);
}

bool CCompoundFile::ReadRootStream(std::u16string_view strName, std::string& strBytes) {
    const size_t uEntries = m_strDirectory.size() / kEntrySize;
    // The root's children form a tree through their left and right links.
    std::vector<uint32_t> aPending{Le32(m_strDirectory.data() + 0x4C)};
    for (size_t nVisits = 0; !aPending.empty() && nVisits <= uEntries;) {
        const uint32_t uEntry = aPending.back();
        aPending.pop_back();
        if (uEntry == kNoStream || uEntry >= uEntries) continue;
        ++nVisits;
        const char* p = m_strDirectory.data() + size_t(uEntry) * kEntrySize;
        if (p[0x42] == 2 && platform::EqualsNoCase(EntryName(uEntry), strName)) {
            const uint64_t uSize = Le32(p + 0x78);
            return ReadChain(Le32(p + 0x74), uSize, uSize < m_uMiniCutoff, strBytes);
        }
        aPending.push_back(Le32(p + 0x44));
        aPending.push_back(Le32(p + 0x48));
    }
    return false;
}

bool CPropertySection::Parse(std::string_view stream, const unsigned char* pFormatId) {
    m_stream = stream;
    if (stream.size() < 28) return false;
    const uint32_t uSets = Le32(stream.data() + 24);
    for (uint32_t n = 0; n < uSets && 28 + 20 * size_t(n + 1) <= stream.size(); ++n) {
        const char* pSet = stream.data() + 28 + 20 * n;
        if (std::memcmp(pSet, pFormatId, 16) != 0) continue;
        m_uStart = Le32(pSet + 16);
        if (m_uStart > stream.size() || stream.size() - m_uStart < 8) return false;
        m_uEnd =
            m_uStart + std::min<size_t>(Le32(stream.data() + m_uStart), stream.size() - m_uStart);
        m_uCount = Le32(stream.data() + m_uStart + 4);
        if (m_uCount > (m_uEnd - m_uStart) / 8) return false;
        uint32_t uType = 0;
        std::string_view value;
        m_uCodePage =
            Find(1, uType, value) && uType == 2 && value.size() >= 2 ? Le16(value.data()) : 0;
        return true;
    }
    return false;
}

bool CPropertySection::Find(uint32_t uId, uint32_t& uType, std::string_view& value) const {
    for (uint32_t n = 0; n < m_uCount; ++n) {
        const char* pPair = m_stream.data() + m_uStart + 8 + 8 * size_t(n);
        if (Le32(pPair) != uId) continue;
        const size_t uAt = m_uStart + size_t(Le32(pPair + 4));
        if (uAt < m_uStart || uAt + 4 > m_uEnd) return false;
        uType = Le32(m_stream.data() + uAt);
        value = m_stream.substr(uAt + 4, m_uEnd - uAt - 4);
        return true;
    }
    return false;
}

std::u16string PropertyString(std::string_view value, uint16_t uCodePage) {
    if (value.size() < 4) return {};
    const size_t uCount = std::min<size_t>(Le32(value.data()), value.size() - 4);
    const auto* p = reinterpret_cast<const unsigned char*>(value.data() + 4);
    if (uCodePage == 1200) return WideText(p, uCount);
    if (uCodePage == 65001) {
        const std::string_view text(value.data() + 4, uCount);
        return platform::Utf8ToUtf16(text.substr(0, text.find('\0')));
    }
    return NarrowText(p, uCount);
}

std::u16string PropertyWideString(std::string_view value) {
    if (value.size() < 4) return {};
    const size_t uBytes = std::min<size_t>(size_t(Le32(value.data())) * 2, value.size() - 4);
    return WideText(reinterpret_cast<const unsigned char*>(value.data() + 4), uBytes);
}

}  // namespace zv
