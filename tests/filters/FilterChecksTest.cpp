#include <gtest/gtest.h>

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
    struct Case {
        uint64_t aDates[DateFilterCount];  // absolute dates in EDateFilter order; 0: not set
        const char16_t* pszMin;            // null: the minimum is off
        const char16_t* pszMax;
        std::u16string_view strMessage;
    };
    const Case aCases[] = {
        {{}, nullptr, nullptr, u""},
        {{20, 10}, nullptr, nullptr, u"created-before date > created-after date"},
        {{10, 10, 20, 10}, nullptr, nullptr, u"accessed-before date > accessed-ater date"},
        // A date message comes before a size message.
        {{0, 0, 0, 0, 20, 10}, u"", nullptr, u"modify-before date > modify-after date"},
        {{}, u"", u"5", u"Minimum file size is enable, but there is no number entered"},
        {{}, nullptr, u"abc", u"Maximum file size is enable, but there is no number entered"},
        {{}, u"2e3", u"1999", u"Min Size > Max Size"},
        {{}, u"1000", u"1000", u""},
    };
    for (const Case& c : aCases) {
        CSizeDateDialogValues v;
        for (int i = 0; i < DateFilterCount; ++i) {
            v.m_aDates[i].m_bAbsolute = c.aDates[i] != 0;
            v.m_aDates[i].m_ftAbsolute = FileTimeFromUInt64(c.aDates[i]);
        }
        v.m_bMinSize = c.pszMin != nullptr;
        v.m_strMinSize = c.pszMin ? c.pszMin : u"";
        v.m_bMaxSize = c.pszMax != nullptr;
        v.m_strMaxSize = c.pszMax ? c.pszMax : u"";
        EXPECT_EQ(CheckSizeDateDialog(v), c.strMessage) << &c - aCases;
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
