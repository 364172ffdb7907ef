#include "compare/FilePairCompare.h"

#include <cstring>

#include "compare/CompareStatus.h"
#include "compare/TextLineReader.h"
#include "core/host/ProgressDialog.h"
#include "core/records/FileData.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {

namespace {

constexpr size_t kBinaryBlock = 8192;
constexpr size_t kLineBuffer = 10240;

// Fills the block unless the file ends first; -1 on a read error.
int64_t ReadBlock(platform::CFileReader& file, unsigned char* pBlock) {
    size_t nDone = 0;
    while (nDone < kBinaryBlock) {
        const int64_t n = file.Read(pBlock + nDone, kBinaryBlock - nDone);
        if (n < 0) return -1;
        if (n == 0) break;
        nDone += static_cast<size_t>(n);
    }
    return static_cast<int64_t>(nDone);
}

std::u16string_view FileNameOf(const std::u16string& strPath) {
    const size_t nSlash = strPath.find_last_of(u"/\\");
    return nSlash == std::u16string::npos ? std::u16string_view(strPath)
                                          : std::u16string_view(strPath).substr(nSlash + 1);
}

class CPairProgress {
public:
    CPairProgress(CProgressDialog* pProgress, const std::u16string& strPath, double dTotal)
        : m_pProgress(pProgress), m_strName(FileNameOf(strPath)), m_dTotal(dTotal) {}

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

}  // namespace

CPairResult CompareFilesBinary(const std::u16string& strLeft, const std::u16string& strRight,
                               double dLeftSize, CProgressDialog* pProgress) {
    platform::CFileReader left, right;
    if (!left.Open(strLeft)) return {CompareLeftUnreadable, 0};
    if (!right.Open(strRight)) return {CompareRightUnreadable, 0};
    CPairProgress progress(pProgress, strLeft, dLeftSize);
    unsigned char aLeft[kBinaryBlock], aRight[kBinaryBlock];
    double dEarlier = 0;
    for (;;) {
        progress.Update(dEarlier);
        const int64_t nLeft = ReadBlock(left, aLeft);
        if (nLeft < 0) return {CompareLeftUnreadable, 0};
        const int64_t nRight = ReadBlock(right, aRight);
        if (nRight < 0) return {CompareRightUnreadable, 0};
        if (nLeft != nRight) return {CompareAtByte, dEarlier};
        if (nLeft == 0) return {CompareIdentical, 0};
        const size_t nBytes = static_cast<size_t>(nLeft);
        if (std::memcmp(aLeft, aRight, nBytes) != 0) {
            // Counted in units of two bytes: the value inside the block is
            // half the offset, which the program has always shown.
            size_t nUnits = 0;
            while (nUnits < nBytes / 2 && std::memcmp(aLeft + 2 * nUnits, aRight + 2 * nUnits, 2) == 0)
                ++nUnits;
            return {CompareAtByte, dEarlier + static_cast<double>(nUnits)};
        }
        if (nBytes < kBinaryBlock) return {CompareIdentical, 0};
        dEarlier += static_cast<double>(nBytes);
    }
}

CPairResult CompareFilesByLines(const std::u16string& strLeft, const std::u16string& strRight,
                                double dLeftSize, CProgressDialog* pProgress) {
    CTextLineReader left, right;
    if (!left.Open(strLeft)) return {CompareLeftUnreadable, 0};
    if (!right.Open(strRight)) return {CompareRightUnreadable, 0};
    CPairProgress progress(pProgress, strLeft, dLeftSize);
    std::u16string aLeft(kLineBuffer, u'\0'), aRight(kLineBuffer, u'\0');
    bool bExact = true;
    double dLine = 0, dCharacters = 0;
    for (;;) {
        if (left.AtEnd() && right.AtEnd())
            return {bExact ? CompareIdentical : CompareBlanksOnly, 0};
        if (left.AtEnd() || right.AtEnd()) return {CompareAtLine, dLine};
        dLine += 1;
        progress.Update(dCharacters);
        const std::u16string_view lineLeft = AsCString(aLeft.data(), left.ReadLine(aLeft.data(), kLineBuffer));
        const std::u16string_view lineRight =
            AsCString(aRight.data(), right.ReadLine(aRight.data(), kLineBuffer));
        if (left.Failed()) return {CompareLeftUnreadable, 0};
        if (right.Failed()) return {CompareRightUnreadable, 0};
        dCharacters += static_cast<double>(lineLeft.size());
        if (bExact) bExact = lineLeft == lineRight;
        if (Trim(lineLeft) != Trim(lineRight)) return {CompareAtLine, dLine};
    }
}

CPairResult CompareFilesOfPair(CFileData& left, CFileData& right, int nMode,
                               CProgressDialog* pProgress) {
    if (left.m_dSize != right.m_dSize) return {CompareFileSize, 0};
    if ((left.m_uFlags & FILE_CRC_VALID) && (right.m_uFlags & FILE_CRC_VALID))
        return {left.m_uCrc == right.m_uCrc ? CompareIdentical : CompareFileCrc, 0};
    const std::u16string strLeft = left.GetFullPath(), strRight = right.GetFullPath();
    if (nMode == 2) return CompareFilesBinary(strLeft, strRight, left.m_dSize, pProgress);
    return CompareFilesByLines(strLeft, strRight, left.m_dSize, pProgress);
}

}  // namespace zv
