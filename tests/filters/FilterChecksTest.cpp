#include <gtest/gtest.h>

#include <functional>

#include "filters/FilterChecks.h"

namespace zv {
namespace {

TEST(FilterChecks, ADuplicateEntryIsRefusedUnlessMarkedRemoved) {
    CFilterSet f;
    f.AddEntry(FilterFileNames, u"*.Txt");
    EXPECT_EQ(CheckNewFilterEntry(f.List(FilterFileNames), u"*.TXT"),
              u"That filter has already been chosen");
    EXPECT_EQ(CheckNewFilterEntry(f.List(FilterFileNames), u"*.doc"), u"");
    f.List(FilterFileNames)[0].m_bRemoved = 1;
    EXPECT_EQ(CheckNewFilterEntry(f.List(FilterFileNames), u"*.txt"), u"");
}

TEST(FilterChecks, SizeAndDateDialogMessagesInTheirOrder) {
    auto Dated = [](CSizeDateDialogValues& v, EDateFilter e, uint64_t u) {
        v.m_aDates[e].m_bAbsolute = 1;
        v.m_aDates[e].m_ftAbsolute = FileTimeFromUInt64(u);
    };
    struct Case {
        std::function<void(CSizeDateDialogValues&)> configure;
        std::u16string strMessage;
    };
    const Case aCases[] = {
        {[](CSizeDateDialogValues&) {}, u""},
        {[&](CSizeDateDialogValues& v) {
             Dated(v, CreatedBefore, 20);
             Dated(v, CreatedAfter, 10);
         },
         u"created-before date > created-after date"},
        {[&](CSizeDateDialogValues& v) {
             Dated(v, CreatedBefore, 10);
             Dated(v, CreatedAfter, 10);  // equal is fine
             Dated(v, AccessedBefore, 20);
             Dated(v, AccessedAfter, 10);
         },
         u"accessed-before date > accessed-ater date"},
        {[&](CSizeDateDialogValues& v) {
             Dated(v, ModifiedBefore, 20);
             Dated(v, ModifiedAfter, 10);
             v.m_bMinSize = 1;  // a later check: the date message comes first
         },
         u"modify-before date > modify-after date"},
        {[](CSizeDateDialogValues& v) { v.m_bMinSize = 1; },
         u"Minimum file size is enable, but there is no number entered"},
        {[](CSizeDateDialogValues& v) {
             v.m_bMaxSize = 1;
             v.m_strMaxSize = u"abc";
         },
         u"Maximum file size is enable, but there is no number entered"},
        {[](CSizeDateDialogValues& v) {
             v.m_bMinSize = v.m_bMaxSize = 1;
             v.m_strMinSize = u"2e3";
             v.m_strMaxSize = u"1999";
         },
         u"Min Size > Max Size"},
        {[](CSizeDateDialogValues& v) {
             v.m_bMinSize = v.m_bMaxSize = 1;
             v.m_strMinSize = v.m_strMaxSize = u"1000";
         },
         u""},
    };
    for (size_t i = 0; i < std::size(aCases); ++i) {
        CSizeDateDialogValues values;
        aCases[i].configure(values);
        EXPECT_EQ(CheckSizeDateDialog(values), aCases[i].strMessage) << "case " << i;
    }
}

TEST(FilterChecks, StreamWarningAndDuplicateCriterion) {
    EXPECT_EQ(StreamFilterWarning(true, false),
              u"This will not work unless you turn on checking for streams\nby selecting menu\n"
              u"File / Check for streams");
    EXPECT_EQ(StreamFilterWarning(true, true), u"");
    EXPECT_EQ(StreamFilterWarning(false, false), u"");
    EXPECT_EQ(CheckDuplicateCriterion(false), u"Please pick a method of finding duplicate files");
    EXPECT_EQ(CheckDuplicateCriterion(true), u"");
}

}  // namespace
}  // namespace zv
