#include <gtest/gtest.h>

#include "app/DateArgument.h"

namespace zv {
namespace {

TEST(DateArgument, AcceptsIsoDatesAndTimesInLocalTime) {
    struct Case {
        const char* pszText;
        bool bValid;
        SYSTEMTIME local;  // expected, when valid
    };
    const Case aCases[] = {
        {"2024-05-31", true, {2024, 5, 0, 31, 0, 0, 0, 0}},
        {"2024-05-31T14:30", true, {2024, 5, 0, 31, 14, 30, 0, 0}},
        {"2024-05-31 14:30:15", true, {2024, 5, 0, 31, 14, 30, 15, 0}},
        {"2024-02-30", false, {}},
        {"2024-13-01", false, {}},
        {"2024-05-31T25:00", false, {}},
        {"2024-05-31X14:30", false, {}},
        {"2024-05-31T14:30junk", false, {}},
        {"31/05/2024", false, {}},
        {"", false, {}},
    };
    for (const Case& c : aCases) {
        SCOPED_TRACE(c.pszText);
        FILETIME ftUtc;
        ASSERT_EQ(ParseLocalDateArgument(c.pszText, ftUtc), c.bValid);
        if (!c.bValid) continue;
        FILETIME ftLocal, ftExpected;
        ASSERT_TRUE(platform::FileTimeToLocalFileTime(ftUtc, ftLocal));
        ASSERT_TRUE(platform::SystemTimeToFileTime(c.local, ftExpected));
        EXPECT_EQ(FileTimeToUInt64(ftLocal), FileTimeToUInt64(ftExpected));
    }
}

}  // namespace
}  // namespace zv
