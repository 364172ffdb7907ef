// Roots and directories typed with trailing separators name the same
// directory as without them; the roots of file systems and drives stay roots.
#include <gtest/gtest.h>

#include "app/CommandScan.h"
#include "platform/FileSystem.h"

namespace zv {
namespace {

TEST(CommandScan, WithoutTrailingSeparators) {
    const bool bWindows = platform::kPathSeparator == u'\\';
    const struct {
        std::u16string strTyped;
        std::u16string strExpected;
    } kCases[] = {
        {u"photos/", u"photos"},
        {u"/a/b//", u"/a/b"},
        {u"/", u"/"},
        {u"//", u"/"},
        {u"photos", u"photos"},
        // A drive's root keeps its separator; elsewhere "C:" is a name.
        {u"C:/", bWindows ? u"C:/" : u"C:"},
        {u"C:\\\\", bWindows ? u"C:\\" : u"C:\\\\"},
        {u"C:\\x\\", bWindows ? u"C:\\x" : u"C:\\x\\"},
        {u"ab:/", u"ab:"},
    };
    for (const auto& test : kCases)
        EXPECT_EQ(WithoutTrailingSeparators(test.strTyped), test.strExpected)
            << std::string(test.strTyped.begin(), test.strTyped.end());
}

}  // namespace
}  // namespace zv
