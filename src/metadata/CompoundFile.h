// A reader of compound files (structured storage): the streams of the root
// storage, found through the sector allocation tables and the directory.
// Every chain and size is checked against the file, so a damaged file only
// fails.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "metadata/ByteStream.h"

namespace zv {

class CCompoundFile {
public:
    // False when the file is no compound file (StgIsStorageFile) or its
    // tables cannot be read.
    bool Open(IByteStream& file);
    // A stream directly in the root storage, by name without regard to case.
    bool ReadRootStream(std::u16string_view strName, std::string& strBytes);

private:
    bool ReadSector(uint32_t uSector, std::string& strOut);
    // Follows a chain of the FAT (or of the mini FAT in the mini stream).
    bool ReadChain(uint32_t uStart, uint64_t uSize, bool bMini, std::string& strOut);
    std::u16string EntryName(uint32_t uEntry) const;

    IByteStream* m_pFile = nullptr;
    uint32_t m_uSectorSize = 512;
    uint32_t m_uMiniSectorSize = 64;
    uint32_t m_uMiniCutoff = 4096;
    std::vector<uint32_t> m_aFat, m_aMiniFat;
    std::string m_strDirectory;
    std::string m_strMiniStream;
};

// One section of a property set stream (the summary information and its
// kin): the value of each property id with its type.
class CPropertySection {
public:
    // The section of the format id (16 bytes as stored).
    bool Parse(std::string_view stream, const unsigned char* pFormatId);
    // False when the section has no such property.
    bool Find(uint32_t uId, uint32_t& uType, std::string_view& value) const;
    // The code page of the section's 8-bit strings (property 1); 0 when none.
    uint16_t CodePage() const { return m_uCodePage; }

private:
    std::string_view m_stream;
    size_t m_uStart = 0, m_uEnd = 0;
    uint32_t m_uCount = 0;
    uint16_t m_uCodePage = 0;
};

// An 8-bit string property (type 30) in the section's code page.
std::u16string PropertyString(std::string_view value, uint16_t uCodePage);
// A wide string property (type 31).
std::u16string PropertyWideString(std::string_view value);

}  // namespace zv
