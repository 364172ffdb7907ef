// Handing files to a diff program: the argument vectors, the Windows
// command line that carries them, and hostile file names that must reach a
// program as one argument each with nothing else run.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "compare/DiffProgram.h"
#include "core/host/Host.h"
#include "platform/Process.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

namespace fs = std::filesystem;
using Args = std::vector<std::u16string>;

CDiffProgramSettings OwnProgram(std::u16string strProgram, std::u16string strOptions,
                                std::u16string strFile1Options, std::u16string strFile2Options) {
    CDiffProgramSettings settings;
    settings.m_bUseDefaultDiff = 0;
    settings.m_strDiffProgram = std::move(strProgram);
    settings.m_strDiffOptions = std::move(strOptions);
    settings.m_strDiffFile1Options = std::move(strFile1Options);
    settings.m_strDiffFile2Options = std::move(strFile2Options);
    return settings;
}

TEST(DiffProgram, BuildsTheArgumentsOfEachForm) {
    struct CCase {
        const char* pszName;
        CDiffProgramSettings settings;
        int nMode;
        Args aExpected;
    };
    const CCase aCases[] = {
        {"own_plain", OwnProgram(u"my diff", u"", u"", u""), 1, {u"my diff", u"a b", u"-c"}},
        {"own_quoted_program",
         OwnProgram(u"\"C:\\Pro gram\\d.exe\"", u"/x \"two words\"", u"", u""),
         0,
         {u"C:\\Pro gram\\d.exe", u"/x", u"two words", u"a b", u"-c"}},
        // File options stick to the path unless they end in a blank.
        {"own_file_options",
         OwnProgram(u"d", u"", u"/dl Left /left:", u"-R "),
         0,
         {u"d", u"/dl", u"Left", u"/left:a b", u"-R", u"-c"}},
#ifdef _WIN32
        {"built_in", CDiffProgramSettings{}, 0, {u"wmerrow.exe", u"a b", u"-c"}},
        {"built_in_blanks", CDiffProgramSettings{}, 1, {u"wmerrow.exe", u"-i1", u"a b", u"-c"}},
#else
        {"default", CDiffProgramSettings{}, 0, {u"diff", u"-u", u"a b", u"-c"}},
        {"default_blanks", CDiffProgramSettings{}, 1, {u"diff", u"-u", u"-w", u"a b", u"-c"}},
#endif
    };
    for (const CCase& c : aCases)
        EXPECT_EQ(BuildDiffArguments(c.settings, c.nMode, u"a b", u"-c"), c.aExpected) << c.pszName;
}

TEST(WindowsCommandLine, CarriesEveryArgumentUnchanged) {
    const Args aArgs = {u"C:\\Program Files\\d.exe",
                        u"",
                        u"plain",
                        u"two words",
                        u"quote\"inside",
                        u"\"",
                        u"trailing\\",
                        u"trailing space\\",
                        u"\\\\server\\share",
                        u"back\\\"quote",
                        u"tab\there",
                        u"; $(touch x) `y` & | > <",
                        u"-rf"};
    const std::u16string strLine = platform::BuildWindowsCommandLine(aArgs);
    EXPECT_EQ(platform::SplitWindowsCommandLine(strLine), aArgs) << platform::Utf16ToUtf8(strLine);
}

std::vector<std::string> ReadRecord(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::vector<std::string> aArgs;
    std::string strArg;
    while (std::getline(in, strArg, '\0')) aArgs.push_back(strArg);
    return aArgs;
}

TEST(DiffProgram, HandsHostileNamesOverAsOneArgumentEach) {
    test::CTempDir temp;
    const fs::path oldDirectory = fs::current_path();
    fs::current_path(temp.Path());
    CQuietHost host;
    SetHost(&host);

    const fs::path record = temp.Path() / "record";
    const std::string strName1 = "it's \"quoted\"; $(touch x) `touch y` & echo z > z | w";
    const std::string strName2 = "-rf --output=x";
    const CDiffProgramSettings settings = OwnProgram(
        platform::Utf8ToUtf16(RECORD_ARGS_PROGRAM),
        platform::QuoteWindowsArgument(platform::Utf8ToUtf16(record.string())), u"", u"");
    platform::CStartedProcess process;
    const bool bStarted = StartDiffProgram(settings, 0, platform::Utf8ToUtf16(strName1),
                                           platform::Utf8ToUtf16(strName2), &process);
    const int nExit = bStarted ? platform::WaitForProcess(process) : -1;
    fs::current_path(oldDirectory);
    SetHost(nullptr);

    ASSERT_TRUE(bStarted) << (host.m_aMessages.empty()
                                  ? ""
                                  : platform::Utf16ToUtf8(host.m_aMessages[0]));
    EXPECT_EQ(nExit, 0);
    EXPECT_EQ(ReadRecord(record), (std::vector<std::string>{strName1, strName2}));
    for (const char* pszStray : {"x", "y", "z", "w"})
        EXPECT_FALSE(fs::exists(temp.Path() / pszStray)) << pszStray;
}

TEST(DiffProgram, ShowsTheSystemTextWhenTheProgramCannotStart) {
    CQuietHost host;
    SetHost(&host);
    const bool bStarted =
        StartDiffProgram(OwnProgram(u"no-such-program-zv", u"", u"", u""), 0, u"a", u"b", nullptr);
    SetHost(nullptr);
    EXPECT_FALSE(bStarted);
    ASSERT_EQ(host.m_aMessages.size(), 1u);
    EXPECT_FALSE(host.m_aMessages[0].empty());
}

}  // namespace
}  // namespace zv
