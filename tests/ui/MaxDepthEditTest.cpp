#include <gtest/gtest.h>

#include "ui/logic/MaxDepthEdit.h"

namespace zv {
namespace {

TEST(MaxDepthEdit, FieldReadsLikeWtolAndRefusesBelowMinusOne) {
    struct {
        const char16_t* pszText;
        bool bNoLimit;
        int32_t nDepth;  // what OK stores
        bool bRefused;
    } const aCases[] = {
        {u"5", false, 5, false},
        {u"  12abc", false, 12, false},
        {u"-1", false, -1, false},
        {u"No depth (Scan all directories)", false, 0, false},
        {u"", false, 0, false},
        {u"+7", false, 7, false},
        {u"99999999999", false, 2147483647, false},
        {u"-2", false, 99, true},
        {u"-99999999999", false, 99, true},
        {u"-5", true, -1, false},  // the box wins over the field
    };
    for (const auto& c : aCases) {
        int32_t nDepth = 99;
        const std::u16string strRefusal = ParseMaxDepth(c.pszText, c.bNoLimit, nDepth);
        EXPECT_EQ(nDepth, c.nDepth);
        EXPECT_EQ(strRefusal.empty(), !c.bRefused);
    }
    int32_t nDepth = 0;
    EXPECT_EQ(ParseMaxDepth(u"-3", false, nDepth),
              u"Maximum depth must be >= 0\n-1 means no limit");
}

TEST(MaxDepthEdit, NoLimitShowsItsText) {
    EXPECT_EQ(MaxDepthText(-1), u"No depth (Scan all directories)");
    EXPECT_EQ(MaxDepthText(0), u"0");
    EXPECT_EQ(MaxDepthText(14), u"14");
}

}  // namespace
}  // namespace zv
