#include "compare/FilePairCompare.h"

#include <cstring>
#include <vector>

#include "compare/CompareStatus.h"
#include "compare/TextLineReader.h"
#include "core/host/ProgressDialog.h"
#include "core/records/FileData.h"
#include "core/records/RecordFileOpen.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {

namespace {

constexpr size_t kBinaryBlock = 8192;
constexpr size_t kLineBuffer = 10240;

// The files are read in chunks of several blocks, to spend fewer calls on
// the system, and walked block by block as if each block had been read on
// its own.
constexpr size_t kChunk = 8 * kBinaryBlock;

struct CChunk {
    size_t nBytes = 0;
    bool bFailed = false;  // a read failed after nBytes
};

// Fills the buffer unless the file ends or a read fails first. A regular
// file reads short only at its end, so a short read ends the chunk without
// one more call to see the end.
CChunk ReadChunk(platform::CFileReader& file, unsigned char* pBuffer) {
    CChunk chunk;
    while (chunk.nBytes < kChunk) {
        const size_t nWanted = kChunk - chunk.nBytes;
        const int64_t n = file.Read(pBuffer + chunk.nBytes, nWanted);
        if (n < 0) chunk.bFailed = true;
        if (n <= 0) break;
        chunk.nBytes += static_cast<size_t>(n);
        if (static_cast<size_t>(n) < nWanted) break;
    }
    return chunk;
}

// The bytes of a block at nOffset: a block ends at the chunk's end.
size_t BlockAt(const CChunk& chunk, size_t nOffset) {
    if (nOffset >= chunk.nBytes) return 0;
    return chunk.nBytes - nOffset < kBinaryBlock ? chunk.nBytes - nOffset : kBinaryBlock;
}

// Whether reading the block at nOffset on its own would have failed.
bool BlockFails(const CChunk& chunk, size_t nOffset) {
    return chunk.bFailed && nOffset + kBinaryBlock > chunk.nBytes;
}

std::u16string_view FileNameOf(std::u16string_view strPath) {
    const size_t nSlash = strPath.find_last_of(u"/\\");
    return nSlash == std::u16string_view::npos ? strPath : strPath.substr(nSlash + 1);
}

class CPairProgress {
public:
    CPairProgress(CProgressDialog* pProgress, std::u16string_view strName, double dTotal)
        : m_pProgress(pProgress), m_strName(strName), m_dTotal(dTotal) {}

    void Update(double dDone) {
        if (!m_pProgress || !m_tracker.Update(dDone, m_dTotal)) return;
        const std::u16string strLine =
            m_strName + u" " + platform::U16(std::to_string(m_tracker.GetPercent())) + u"%";
        m_pProgress->SetLine3(strLine.c_str());
    }

private:
    CProgressDialog* m_pProgress;
    std::u16string m_strName;
    double m_dTotal;
    CPercentTracker m_tracker;
};

bool IsBlank(char16_t ch) { return ch == u'\t' || ch == u'\n' || ch == u'\r' || ch == u' '; }

// Leading blanks go; trailing ones are cut from the last unit but one, so
// that a final line feed is kept unless the cut reaches it.
std::u16string_view Trim(std::u16string_view line) {
    size_t nStart = 0;
    while (nStart < line.size() && IsBlank(line[nStart])) ++nStart;
    line.remove_prefix(nStart);
    size_t nLength = line.size();
    for (ptrdiff_t i = static_cast<ptrdiff_t>(line.size()) - 2; i >= 0 && IsBlank(line[i]); --i)
        nLength = static_cast<size_t>(i);
    return line.substr(0, nLength);
}

// The line as a C string sees it: up to its first NUL.
std::u16string_view AsCString(const char16_t* pBuffer, size_t nRead) {
    std::u16string_view line(pBuffer, nRead);
    return line.substr(0, line.find(u'\0'));
}

// Both files open; the name is the left file's, for the progress line.
CPairResult CompareOpenedBinary(platform::CFileReader& left, platform::CFileReader& right,
                                std::u16string_view strName, double dLeftSize,
                                CProgressDialog* pProgress) {
    CPairProgress progress(pProgress, strName, dLeftSize);
    static thread_local std::vector<unsigned char> aLeft(kChunk), aRight(kChunk);
    double dEarlier = 0;
    for (;;) {
        const CChunk chunkLeft = ReadChunk(left, aLeft.data());
        const CChunk chunkRight = ReadChunk(right, aRight.data());
        for (size_t nOffset = 0; nOffset < kChunk; nOffset += kBinaryBlock) {
            progress.Update(dEarlier);
            if (BlockFails(chunkLeft, nOffset)) return {CompareLeftUnreadable, 0};
            if (BlockFails(chunkRight, nOffset)) return {CompareRightUnreadable, 0};
            const size_t nBytes = BlockAt(chunkLeft, nOffset);
            if (nBytes != BlockAt(chunkRight, nOffset)) return {CompareAtByte, dEarlier};
            if (nBytes == 0) return {CompareIdentical, 0};
            const unsigned char* pLeft = aLeft.data() + nOffset;
            const unsigned char* pRight = aRight.data() + nOffset;
            if (std::memcmp(pLeft, pRight, nBytes) != 0) {
                // Counted in units of two bytes: the value inside the block
                // is half the offset, which the program has always shown.
                size_t nUnits = 0;
                while (nUnits < nBytes / 2 &&
                       std::memcmp(pLeft + 2 * nUnits, pRight + 2 * nUnits, 2) == 0)
                    ++nUnits;
                return {CompareAtByte, dEarlier + static_cast<double>(nUnits)};
            }
            if (nBytes < kBinaryBlock) return {CompareIdentical, 0};
            dEarlier += static_cast<double>(nBytes);
        }
    }
}

}  // namespace

CPairResult CompareFilesBinary(const std::u16string& strLeft, const std::u16string& strRight,
                               double dLeftSize, CProgressDialog* pProgress) {
    platform::CFileReader left, right;
    if (!left.Open(strLeft)) return {CompareLeftUnreadable, 0};
    if (!right.Open(strRight)) return {CompareRightUnreadable, 0};
    return CompareOpenedBinary(left, right, FileNameOf(strLeft), dLeftSize, pProgress);
}

CPairResult CompareFilesByLines(const std::u16string& strLeft, const std::u16string& strRight,
                                double dLeftSize, CProgressDialog* pProgress) {
    CTextLineReader left, right;
    if (!left.Open(strLeft)) return {CompareLeftUnreadable, 0};
    if (!right.Open(strRight)) return {CompareRightUnreadable, 0};
    CPairProgress progress(pProgress, FileNameOf(strLeft), dLeftSize);
    std::u16string aLeft(kLineBuffer, u'\0'), aRight(kLineBuffer, u'\0');
    bool bExact = true;
    double dLine = 0, dCharacters = 0;
    for (;;) {
        if (left.AtEnd() && right.AtEnd())
            return {bExact ? CompareIdentical : CompareBlanksOnly, 0};
        if (left.AtEnd() || right.AtEnd()) return {CompareAtLine, dLine};
        dLine += 1;
        progress.Update(dCharacters);
        const std::u16string_view lineLeft =
            AsCString(aLeft.data(), left.ReadLine(aLeft.data(), kLineBuffer));
        const std::u16string_view lineRight =
            AsCString(aRight.data(), right.ReadLine(aRight.data(), kLineBuffer));
        if (left.Failed()) return {CompareLeftUnreadable, 0};
        if (right.Failed()) return {CompareRightUnreadable, 0};
        dCharacters += static_cast<double>(lineLeft.size());
        if (bExact) bExact = lineLeft == lineRight;
        if (Trim(lineLeft) != Trim(lineRight)) return {CompareAtLine, dLine};
    }
}

bool MustReadPair(const CFileData& left, const CFileData& right) {
    return left.m_dSize == right.m_dSize &&
           !((left.m_uFlags & FILE_CRC_VALID) && (right.m_uFlags & FILE_CRC_VALID));
}

CPairResult CompareFilesOfPair(CFileData& left, CFileData& right, int nMode,
                               CProgressDialog* pProgress) {
    if (left.m_dSize != right.m_dSize) return {CompareFileSize, 0};
    if ((left.m_uFlags & FILE_CRC_VALID) && (right.m_uFlags & FILE_CRC_VALID))
        return {left.m_uCrc == right.m_uCrc ? CompareIdentical : CompareFileCrc, 0};
    if (nMode == 2) {
        // A file read in one chunk gains nothing from the read-ahead hint,
        // which costs a call.
        const bool bSequential = left.m_dSize > static_cast<double>(kChunk);
        platform::CFileReader leftReader, rightReader;
        if (!OpenRecordFile(leftReader, left, bSequential)) return {CompareLeftUnreadable, 0};
        if (!OpenRecordFile(rightReader, right, bSequential)) return {CompareRightUnreadable, 0};
        return CompareOpenedBinary(leftReader, rightReader, left.m_strName.View(), left.m_dSize,
                                   pProgress);
    }
    return CompareFilesByLines(left.GetFullPath(), right.GetFullPath(), left.m_dSize, pProgress);
}

}  // namespace zv
