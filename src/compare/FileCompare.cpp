#include "compare/FileCompare.h"

#include <cstdio>
#include <cstring>

#include "core/host/ProgressDialog.h"
#include "platform/FileSystem.h"
#include "platform/Process.h"
#include "platform/Text.h"

namespace zv {

namespace {

constexpr size_t kBlock = 1024;

std::u16string Decimal(uint64_t u) { return platform::U16(std::to_string(u)); }

std::u16string Hex(unsigned char c) {
    char szText[8];
    std::snprintf(szText, sizeof szText, "%02X", c);
    return platform::U16(szText);
}

std::u16string OpenFailure(const std::u16string& strPath) {
    return platform::GetSystemErrorText(platform::GetLastSystemError()) + u"\nCannot open file " +
           strPath;
}

}  // namespace

CFileCompareOutcome CompareTwoFilesBinary(const std::u16string& strFile1,
                                          const std::u16string& strFile2, double dSize1) {
    CFileCompareOutcome outcome;
    platform::CFileReader file1, file2;
    if (!file1.Open(strFile1)) {
        outcome.m_strMessage = OpenFailure(strFile1);
        return outcome;
    }
    if (!file2.Open(strFile2)) {
        outcome.m_strMessage = OpenFailure(strFile2);
        return outcome;
    }
    outcome.m_bOpened = true;

    CProgressDialog progress(true);
    progress.Open();
    progress.SetText(u"Comparing files");
    CPercentTracker percent;
    unsigned char a1[kBlock], a2[kBlock];
    uint32_t uPosition = 0;  // unsigned 32-bit, as the result has always counted
    double dBytes1 = 0;
    int64_t n1 = 0, n2 = 0;
    for (;;) {
        n1 = file1.Read(a1, kBlock);
        if (n1 < 0) break;
        n2 = file2.Read(a2, kBlock);
        if (n2 < 0) break;
        dBytes1 += static_cast<double>(n1);
        if (percent.Update(dBytes1, dSize1)) {
            progress.SetText(
                (u"Comparing files %" + platform::U16(std::to_string(percent.GetPercent())))
                    .c_str());
        }
        if (progress.IsStopped()) break;
        const size_t nCommon = static_cast<size_t>(n1 < n2 ? n1 : n2);
        if (std::memcmp(a1, a2, nCommon) != 0) {
            size_t i = 0;
            while (a1[i] == a2[i]) ++i;
            uPosition += static_cast<uint32_t>(i);
            outcome.m_bDifferent = true;
            outcome.m_strMessage = u"Difference found at byte " + Decimal(uPosition) + u"\nFile1=" +
                                   strFile1 + u"\nFile2=" + strFile2 + u"\nBytes (Int)=File1(" +
                                   Decimal(a1[i]) + u") File2(" + Decimal(a2[i]) +
                                   u")\nBytes (Hex)=File1(x" + Hex(a1[i]) + u") File2(x" +
                                   Hex(a2[i]) + u")";
            return outcome;
        }
        uPosition += static_cast<uint32_t>(nCommon);
        if (n1 < static_cast<int64_t>(kBlock) || n2 < static_cast<int64_t>(kBlock)) break;
    }
    outcome.m_strMessage = u"No differences found";
    // The lengths of the last blocks read tell which file has bytes left.
    if (n1 > n2 && n2 >= 0) {
        outcome.m_bDifferent = true;
        outcome.m_strMessage += u"\nBytes left in file " + strFile1;
    } else if (n2 > n1 && n1 >= 0) {
        outcome.m_bDifferent = true;
        outcome.m_strMessage += u"\nBytes left in file " + strFile2;
    }
    return outcome;
}

}  // namespace zv
