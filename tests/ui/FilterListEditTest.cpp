#include <gtest/gtest.h>

#include "ui/logic/FilterListEdit.h"

namespace zv {
namespace {

std::vector<CFilterEntry> List() {
    CFilterSet filters;
    filters.AddEntry(FilterFileNames, u"kept", false);
    filters.AddEntry(FilterFileNames, u"gone", false);
    filters.AddEntry(FilterFileNames, u"new", true);
    filters.List(FilterFileNames)[1].m_bRemoved = 1;
    return filters.List(FilterFileNames);
}

TEST(FilterListEdit, OkSettlesMarksAndCancelDropsNewEntries) {
    std::vector<CFilterEntry> aList = List();
    EXPECT_EQ(ShownFilterEntries(aList), (std::vector<size_t>{0, 2}));

    CommitFilterListEdit(aList);
    ASSERT_EQ(aList.size(), 2u);
    EXPECT_EQ(aList[1].m_strText, u"new");
    EXPECT_EQ(aList[1].m_bAdded, 0);

    aList = List();
    CancelFilterListEdit(aList);
    ASSERT_EQ(aList.size(), 2u);
    EXPECT_EQ(aList[1].m_strText, u"gone");
    EXPECT_EQ(aList[1].m_bRemoved, 1);  // a removal mark outlives Cancel
}

}  // namespace
}  // namespace zv
