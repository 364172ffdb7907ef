// The binary compare of two picked files: the words of its result for
// equal files, a prefix, a first-byte and a later difference, and a file
// that cannot be opened.
#include <gtest/gtest.h>

#include "compare/FileCompare.h"
#include "core/host/Host.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

struct CCase {
    const char* pszName;
    std::string strFile1, strFile2;
    bool bDifferent;
    std::u16string strMessage;  // "$1" and "$2" stand for the two paths
};

std::string Block(size_t n, size_t nChangedAt = std::string::npos, char chChanged = 'B') {
    std::string s(n, 'A');
    if (nChangedAt < n) s[nChangedAt] = chChanged;
    return s;
}

const CCase kCases[] = {
    {"equal", Block(3000), Block(3000), false, u"No differences found"},
    {"equal_empty", "", "", false, u"No differences found"},
    {"prefix_of_file_2", Block(1500), Block(2100), true,
     u"No differences found\nBytes left in file $2"},
    {"file_2_is_prefix", Block(1024), Block(1000), true,
     u"No differences found\nBytes left in file $1"},
    {"first_byte", "\x01rest", "\xFFrest", true,
     u"Difference found at byte 0\nFile1=$1\nFile2=$2\nBytes (Int)=File1(1) File2(255)\n"
     u"Bytes (Hex)=File1(x01) File2(xFF)"},
    {"second_block", Block(4000), Block(4000, 1027, '\x0a'), true,
     u"Difference found at byte 1027\nFile1=$1\nFile2=$2\nBytes (Int)=File1(65) File2(10)\n"
     u"Bytes (Hex)=File1(x41) File2(x0A)"},
};

std::u16string Expand(std::u16string strText, const std::u16string& str1,
                      const std::u16string& str2) {
    for (const auto& [strMark, strPath] : {std::pair{u"$1", str1}, std::pair{u"$2", str2}}) {
        const size_t n = strText.find(strMark);
        if (n != std::u16string::npos) strText.replace(n, 2, strPath);
    }
    return strText;
}

class BinaryFileCompare : public ::testing::TestWithParam<CCase> {};

TEST_P(BinaryFileCompare, SaysWhatItFound) {
    const CCase& c = GetParam();
    test::CTempDir temp;
    const std::u16string str1 = platform::Utf8ToUtf16(temp.WriteFile("one", c.strFile1).string());
    const std::u16string str2 = platform::Utf8ToUtf16(temp.WriteFile("two", c.strFile2).string());
    const CFileCompareOutcome outcome =
        CompareTwoFilesBinary(str1, str2, double(c.strFile1.size()));
    EXPECT_TRUE(outcome.m_bOpened);
    EXPECT_EQ(outcome.m_bDifferent, c.bDifferent);
    EXPECT_EQ(platform::Utf16ToUtf8(outcome.m_strMessage),
              platform::Utf16ToUtf8(Expand(c.strMessage, str1, str2)));
}

INSTANTIATE_TEST_SUITE_P(FileCompare, BinaryFileCompare, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.pszName); });

TEST(FileCompare, NamesTheFileThatCannotBeOpened) {
    test::CTempDir temp;
    const std::u16string str1 = platform::Utf8ToUtf16(temp.WriteFile("one", "1").string());
    const std::u16string str2 = platform::Utf8ToUtf16((temp.Path() / "missing").string());
    const CFileCompareOutcome outcome = CompareTwoFilesBinary(str1, str2, 1);
    EXPECT_FALSE(outcome.m_bOpened);
    EXPECT_TRUE(outcome.m_strMessage.ends_with(u"\nCannot open file " + str2));
    EXPECT_GT(outcome.m_strMessage.size(), (u"\nCannot open file " + str2).size());
}

}  // namespace
}  // namespace zv
