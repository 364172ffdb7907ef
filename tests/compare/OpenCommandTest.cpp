// The association cache: registered commands made ready to run, and the
// user's choices found again, newest first, by extension in any case.
#include <gtest/gtest.h>

#include "compare/OpenCommand.h"

namespace zv {
namespace {

TEST(OpenCommand, PreparesRegisteredCommands) {
    const std::pair<std::u16string, std::u16string> aCases[] = {
        {u"%SystemRoot%\\system32\\NOTEPAD.EXE %1", u"C:\\Windows\\system32\\NOTEPAD.EXE "},
        {u"\"C:\\Tools\\view.exe\" /v \"%1\" /x", u"\"C:\\Tools\\view.exe\" /v "},
        {u"view.exe \"%L\" %1", u"view.exe \"%L\" "},  // "%1" is looked for first
        {u"view.exe \"%L\"", u"view.exe "},
        {u"\"%ProgramFiles%\\App\\app.exe\" -o", u"\"C:\\Program Files\\App\\app.exe\" -o"},
        {u"x %SystemRoot%", u"x %SystemRoot%"},  // only at the start
    };
    for (const auto& [strIn, strOut] : aCases)
        EXPECT_EQ(PrepareOpenCommand(strIn, u"C:\\Windows", u"C:\\Program Files"), strOut);
}

TEST(OpenCommand, FindsTheNewestChoiceForAnExtension) {
    RememberOpenCommand(u".ZvTest", u"first");
    RememberOpenCommand(u".zvtest", u"second");
    std::u16string strCommand, strDescription = u"stale";
    ASSERT_TRUE(FindOpenCommand(u"/some/dir/file.ZVTEST", strCommand, strDescription));
    EXPECT_EQ(strCommand, u"second");
    EXPECT_EQ(strDescription, u"");
    EXPECT_FALSE(FindOpenCommand(u"/some/dir.zvtest/no-extension", strCommand, strDescription));
}

}  // namespace
}  // namespace zv
