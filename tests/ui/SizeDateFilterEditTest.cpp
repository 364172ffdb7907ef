#include <gtest/gtest.h>

#include "ui/logic/SizeDateFilterEdit.h"

namespace zv {
namespace {

CDateFilter Absolute(bool bEnabled, uint64_t uTicks) {
    CDateFilter date;
    date.m_bAbsolute = bEnabled;
    date.m_ftAbsolute = FileTimeFromUInt64(uTicks);
    return date;
}

TEST(SizeDateFilterEdit, OkChecksInTheirOrder) {
    CSizeDateFilterValues values;
    EXPECT_EQ(CheckSizeDateFilters(values), u"");

    // A before date later than its after date, for each pair; the first
    // pair's message comes first.
    const struct {
        EDateFilter eBefore, eAfter;
        const char16_t* pszMessage;
    } aPairs[] = {
        {CreatedBefore, CreatedAfter, u"created-before date > created-after date"},
        {AccessedBefore, AccessedAfter, u"accessed-before date > accessed-ater date"},
        {ModifiedBefore, ModifiedAfter, u"modify-before date > modify-after date"},
    };
    for (const auto& pair : aPairs) {
        CSizeDateFilterValues dates;
        dates.m_aDates[pair.eBefore] = Absolute(true, 200);
        dates.m_aDates[pair.eAfter] = Absolute(true, 100);
        EXPECT_EQ(CheckSizeDateFilters(dates), pair.pszMessage);
        dates.m_aDates[pair.eAfter].m_ftAbsolute = FileTimeFromUInt64(200);  // equal dates are fine
        EXPECT_EQ(CheckSizeDateFilters(dates), u"");
        dates.m_aDates[pair.eAfter] = Absolute(false, 100);  // only one of the two enabled
        EXPECT_EQ(CheckSizeDateFilters(dates), u"");
    }

    values.m_bMinSize = 1;
    values.m_strMinSize = u" ";
    values.m_bMaxSize = 1;
    EXPECT_EQ(CheckSizeDateFilters(values),
              u"Minimum file size is enable, but there is no number entered");
    values.m_strMinSize = u"2048";
    EXPECT_EQ(CheckSizeDateFilters(values),
              u"Maximum file size is enable, but there is no number entered");
    values.m_strMaxSize = u"1e3";
    EXPECT_EQ(CheckSizeDateFilters(values), u"Min Size > Max Size");
    values.m_strMaxSize = u"2048";
    EXPECT_EQ(CheckSizeDateFilters(values), u"");
    values.m_aDates[CreatedBefore] = Absolute(true, 9);
    values.m_aDates[CreatedAfter] = Absolute(true, 8);
    values.m_strMaxSize = u"";
    EXPECT_EQ(CheckSizeDateFilters(values), u"created-before date > created-after date");
}

TEST(SizeDateFilterEdit, ValuesRoundTripThroughTheFilterSet) {
    CFilterSet filters;
    filters.m_bMaxSize = 1;
    filters.m_dMaxSize = 1536.5;
    filters.m_aAttributes[AttrFilterHidden].m_bNo = 1;
    filters.m_nPathLength = 120;
    CSizeDateFilterValues values = ReadSizeDateFilters(filters);
    EXPECT_EQ(values.m_strMaxSize, u"1536.5");
    EXPECT_EQ(values.m_strMinSize, u"");

    values.m_bMinSize = 1;
    values.m_strMinSize = u" 12.5e3";
    values.m_bMaxSize = 0;
    values.m_aDates[ModifiedAfter].m_bRelative = 1;
    values.m_aDates[ModifiedAfter].m_nDays = -30;
    ApplySizeDateFilters(values, filters);
    EXPECT_EQ(filters.m_dMinSize, 12500.0);
    EXPECT_EQ(filters.m_bMaxSize, 0);
    EXPECT_EQ(filters.m_aAttributes[AttrFilterHidden].m_bNo, 1);
    EXPECT_EQ(filters.m_nPathLength, 120);
    EXPECT_EQ(filters.m_aDates[ModifiedAfter].m_nDays, -30);
    EXPECT_EQ(ReadSizeField(u"abc"), 0.0);
}

TEST(SizeDateFilterEdit, YesAndNoOfOneAttributeExcludeEachOther) {
    CYesNoFilter filter;
    TickAttribute(filter, true, true);
    EXPECT_EQ(filter.m_bYes, 1);
    TickAttribute(filter, false, true);
    EXPECT_EQ(filter.m_bYes, 0);
    EXPECT_EQ(filter.m_bNo, 1);
    TickAttribute(filter, false, false);
    EXPECT_EQ(filter.m_bNo, 0);
}

TEST(SizeDateFilterEdit, RelativeDateTextAndAllZeroLeavesTheTest) {
    CDateFilter date;
    SetRelativeDate(date, -30, 2, 5, 7);
    EXPECT_EQ(RelativeDateText(date), u"-30D 2H 5M ");
    SetRelativeDate(date, 0, 0, 0, 0);
    EXPECT_EQ(date.m_nDays, -30);
    EXPECT_EQ(date.m_nSeconds, 7);
    EXPECT_EQ(RelativeDateTitle(ModifiedAfter), u"Modify before - Relative Date");
    EXPECT_EQ(AbsoluteDateTitle(AccessedAfter), u"Select Accessed After Date");
}

TEST(SizeDateFilterEdit, CalendarDayRoundTripsThroughUtc) {
    const FILETIME ft = LocalDayToFileTime(2024, 2, 29);
    int nYear = 0, nMonth = 0, nDay = 0;
    ASSERT_TRUE(FileTimeToLocalDay(ft, nYear, nMonth, nDay));
    EXPECT_EQ(nYear * 10000 + nMonth * 100 + nDay, 20240229);
    EXPECT_EQ(AbsoluteDateText(ft), u"2024-02-29");
    EXPECT_EQ(AbsoluteDateText(FILETIME{}), u"");
}

}  // namespace
}  // namespace zv
