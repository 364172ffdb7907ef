#include <gtest/gtest.h>

#include "core/document/Document.h"
#include "core/document/SizeText.h"

namespace zv {
namespace {

TEST(SizeText, NumbersAreGroupedInThreesFromTheRight) {
    // clang-format off
    const std::pair<double, std::u16string> aCases[] = {
        {0, u"0"}, {123, u"123"}, {1234, u"1,234"}, {1234567, u"1,234,567"},
        {999999999999999.0, u"999,999,999,999,999"}, {1e15, u""} /* too large */, {-1, u""}};
    // clang-format on
    for (const auto& [dValue, strText] : aCases) EXPECT_EQ(FormatNumber(dValue), strText) << dValue;
    EXPECT_EQ(GroupThousands(u"1000000"), u"1,000,000");
}

TEST(SizeText, SizesInEachUnit) {
    struct Case {
        double dValue;
        int nUnit;
        const char16_t *pszUnit, *pszSuffix;
        bool bWithUnits;
        std::u16string strExpected;
    };
    const Case aCases[] = {
        {1234, 0, u"bytes", u"", true, u"1,234 bytes"},
        {1234, 0, u"bytes", u" actual", true, u"1,234 actual bytes"},
        {1234, 0, u"bytes", u"", false, u"1,234"},
        {2047, 1, u"KB", u"", true, u"1 KB"},  // floored
        {3 * 1048576.0 - 1, 2, u"MB", u"", true, u"2 MB"},
        {5 * 1073741824.0, 3, u"GB", u"", true, u"5 GB"},
        {4294967296.0 * 1024 + 5 * 1024, 1, u"KB", u"", false, u"5"}};  // 32-bit wrap in KB
    for (const Case& c : aCases)
        EXPECT_EQ(FormatSize(c.dValue, c.nUnit, c.pszUnit, c.pszSuffix, c.bWithUnits),
                  c.strExpected);
}

TEST(SizeText, FreeSpaceText) {
    CWZorvaneDoc doc;
    EXPECT_EQ(FreeSpaceText(doc), u"");
    auto* pRoot = new CRootDirectoryData(u".");
    doc.m_scan.m_aRoots.Add(pRoot);
    EXPECT_EQ(FreeSpaceText(doc), u"Cannot get free space");  // volume never read
    pRoot->Prepare(doc.m_scan.m_aDrives);
    EXPECT_TRUE(FreeSpaceText(doc).ends_with(u" bytes free"));
}

}  // namespace
}  // namespace zv
