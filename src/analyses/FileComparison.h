// Comparing the content of files without checksums: pairs and triples of a
// small duplicate group, and one file against others with its head held in
// a buffer. Files are opened sharing reads with the sequential-scan hint,
// relative to their directories (OpenRecordFile);
// sizes are the ones the scan recorded, and count down as bytes are read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace zv {

class CFileData;

struct CPairComparison {
    bool m_bError[2] = {false, false};  // that side could not be opened or read
    bool m_bDifferent = false;          // an error counts as a difference
    uint32_t m_uCrc = 0;                // WithCrc: the checksum of the bytes compared
};

// A size that is not positive compares equal once both are opened.
CPairComparison CompareTwoFiles(const CFileData& a, const CFileData& b, double dSize);
// The same, running a checksum over the equal bytes: equal files get their
// CRC from the comparison. Size 0 is equal with CRC 0 and opens nothing.
CPairComparison CompareTwoFilesWithCrc(const CFileData& a, const CFileData& b, double dSize);

struct CTripleComparison {
    bool m_bError[3] = {false, false, false};
    bool m_bSurvivor[3] = {false, false, false};  // equal to another survivor to the end
    uint32_t m_uCrc = 0;                          // WithCrc: the survivors' checksum
};

// Size 0 leaves no survivors: three empty files are not settled here.
CTripleComparison CompareThreeFiles(const CFileData* const* aFiles, double dSize);
CTripleComparison CompareThreeFilesWithCrc(const CFileData* const* aFiles, double dSize);

// A read buffer for the byte comparison: 4 MiB, halved until it can be had,
// at least 1024 bytes; empty when not even that.
class CCompareBuffer {
public:
    CCompareBuffer();
    ~CCompareBuffer();
    CCompareBuffer(const CCompareBuffer&) = delete;
    CCompareBuffer& operator=(const CCompareBuffer&) = delete;

    unsigned char* Data() const { return m_pData; }
    size_t Size() const { return m_uSize; }

private:
    unsigned char* m_pData = nullptr;
    size_t m_uSize = 0;
};

// Reads the first min(size, buffer) bytes of a file into the buffer; false
// when it cannot be opened or read.
bool ReadHead(const CFileData& file, const CCompareBuffer& buffer);

// Whether b holds the same bytes as a, whose head ReadHead has put into the
// buffer. Two empty files are equal; files of other sizes are not.
bool FilesEqual(const CFileData& a, const CFileData& b, const CCompareBuffer& buffer);

}  // namespace zv
