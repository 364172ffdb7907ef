// The per-user store on this platform: the registry under Wine and on
// Windows, the state file on POSIX. Each test works in a place of its own
// and removes it afterwards, so the user's own store is never touched.
#ifdef _WIN32
#include <windows.h>
#endif

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <vector>

#include "PlatformTestSupport.h"
#include "platform/UserStore.h"
#include "platform/UserStoreText.h"

#ifdef _WIN32
#include "platform/win32/WideString.h"
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zv::platform {
namespace {

#ifdef _WIN32
// A key of its own under HKEY_CURRENT_USER\Software.
struct CTestPlace {
    std::u16string strPlace = u"ZorvaneTest\\" + U16(std::to_string(std::random_device()()));
    ~CTestPlace() {
        ::RegDeleteTreeW(HKEY_CURRENT_USER, Key().c_str());
        ::RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\ZorvaneTest");  // fails while others use it
    }
    const std::u16string& Place() const { return strPlace; }
    std::wstring Key() const { return ToWide(u"Software\\" + strPlace); }
};
#else
// A directory of its own that does not exist yet.
struct CTestPlace {
    test::CTempDir temp;
    std::u16string Place() const { return Utf8ToUtf16(Dir().string()); }
    std::filesystem::path Dir() const { return temp.Path() / "config" / "zorvane"; }
    std::filesystem::path File() const { return Dir() / "remembered-state.txt"; }
};
#endif

std::u16string Read(IUserStore& store, std::u16string_view strName) {
    std::u16string strValue;
    return store.ReadValue(strName, strValue) ? strValue : u"<absent>";
}

TEST(UserStoreTest, ValuesSurviveClosingAndTwoOpenStoresKeepEachOthersChanges) {
    CTestPlace place;
    // Texts that a line-based file could mangle, and one that is not valid
    // UTF-16 (a POSIX name with a byte that is not UTF-8).
    const std::u16string aValues[] = {
        u"C:\\Program Files\\x", u"two\nlines\r\n",        u"a=b=c", u"\u65e5\u672c \u00e9", u"",
        u"bad\xDC80name",        std::u16string(260, u'z')};
    {
        const auto pStore = OpenUserStore(place.Place());
        ASSERT_NE(pStore, nullptr);
        for (size_t i = 0; i < std::size(aValues); ++i)
            EXPECT_TRUE(pStore->WriteValue(u"Value" + U16(std::to_string(i)), aValues[i]));
        EXPECT_EQ(Read(*pStore, u"Value2"), aValues[2]);
        EXPECT_EQ(Read(*pStore, u"RootDir0"), u"<absent>");
        pStore->WriteValue(u"RootDir0", u"first");
        pStore->WriteValue(u"ROOTDIR0", u"second");  // names ignore case
        EXPECT_EQ(Read(*pStore, u"rootdir0"), u"second");
        pStore->WriteValue(u"Gone", u"x");
    }
    auto pFirst = OpenUserStore(place.Place());
    auto pSecond = OpenUserStore(place.Place());
    EXPECT_TRUE(pFirst->DeleteValue(u"GONE"));
    EXPECT_FALSE(pFirst->DeleteValue(u"Gone")) << "there is no value left to delete";
    pFirst->WriteValue(u"FileName0", u"from the first");
    EXPECT_TRUE(pFirst->Flush());
    pFirst.reset();
    pSecond->WriteValue(u"Dir0", u"from the second");
    pSecond.reset();

    const auto pStore = OpenUserStore(place.Place());
    for (size_t i = 0; i < std::size(aValues); ++i)
        EXPECT_EQ(Read(*pStore, u"Value" + U16(std::to_string(i))), aValues[i]) << i;
    EXPECT_EQ(Read(*pStore, u"RootDir0"), u"second");
    EXPECT_EQ(Read(*pStore, u"Gone"), u"<absent>");
    EXPECT_EQ(Read(*pStore, u"FileName0"), u"from the first");
    EXPECT_EQ(Read(*pStore, u"Dir0"), u"from the second");
}

#ifdef _WIN32

TEST(UserStoreTest, TheRegistryHoldsStringValuesUnderSoftware) {
    EXPECT_EQ(DefaultUserStorePlace(), u"Halvorn\\Zorvane");
    CTestPlace place;
    OpenUserStore(place.Place())->WriteValue(u"NeverDupFiles", u"0");
    DWORD dwType = 0;
    wchar_t aData[16] = {};
    DWORD dwBytes = sizeof aData - sizeof(wchar_t);
    ASSERT_EQ(::RegGetValueW(HKEY_CURRENT_USER, place.Key().c_str(), L"NeverDupFiles",
                             RRF_RT_ANY | RRF_NOEXPAND, &dwType, aData, &dwBytes),
              ERROR_SUCCESS);
    EXPECT_EQ(dwType, DWORD(REG_SZ));
    EXPECT_EQ(std::wstring(aData), L"0");
    // A value of another type is not a remembered text.
    const DWORD dwNumber = 1;
    ASSERT_EQ(::RegSetKeyValueW(HKEY_CURRENT_USER, place.Key().c_str(), L"Number", REG_DWORD,
                                &dwNumber, sizeof dwNumber),
              ERROR_SUCCESS);
    EXPECT_EQ(Read(*OpenUserStore(place.Place()), u"Number"), u"<absent>");
}

#else

TEST(UserStoreTest, ThePlaceFollowsTheEnvironment) {
    const test::CScopedEnv home("HOME", "/home/someone"), xdg("XDG_CONFIG_HOME", nullptr),
        own("ZORVANE_CONFIG_DIR", nullptr);
    EXPECT_EQ(DefaultUserStorePlace(), u"/home/someone/.config/zorvane");
    xdg.Set("/xdg");
    EXPECT_EQ(DefaultUserStorePlace(), u"/xdg/zorvane");
    own.Set("/tests/state");
    EXPECT_EQ(DefaultUserStorePlace(), u"/tests/state");
}

TEST(UserStoreTest, TheFileIsReplacedWholeAndAnUnreadableOneIsLeftAlone) {
    CTestPlace place;
    {
        const auto pStore = OpenUserStore(place.Place());
        ASSERT_NE(pStore, nullptr);
        EXPECT_FALSE(std::filesystem::exists(place.File()));  // nothing written yet
        pStore->WriteValue(u"Owner0", u"alice");
    }
    std::ifstream in(place.File(), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}),
              "# Zorvane remembered state\nOwner0=alice\n");
    std::vector<std::string> aNames;
    for (const auto& entry : std::filesystem::directory_iterator(place.Dir()))
        aNames.push_back(entry.path().filename().string());
    std::sort(aNames.begin(), aNames.end());
    EXPECT_EQ(aNames, (std::vector<std::string>{"remembered-state.lock", "remembered-state.txt"}))
        << "no temporary file left behind";
    struct stat st {};
    ASSERT_EQ(stat(place.File().c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);

    // An existing file that cannot be read is not overwritten.
    chmod(place.File().c_str(), 0);
    if (access(place.File().c_str(), R_OK) != 0) {
        EXPECT_EQ(OpenUserStore(place.Place()), nullptr);
    }
    chmod(place.File().c_str(), 0600);
    // Nor does a store open where no directory can be.
    const auto blocker = place.temp.WriteFile("plain file", "x");
    EXPECT_EQ(OpenUserStore(Utf8ToUtf16(blocker.string())), nullptr);
    EXPECT_EQ(OpenUserStore(Utf8ToUtf16((blocker / "below").string())), nullptr);
    EXPECT_EQ(OpenUserStore(u""), nullptr);
}

#endif

TEST(UserStoreTextTest, ReadsWhatItWritesAndSkipsTheRest) {
    CUserStoreValues aValues;
    aValues[u"A"] = u"back\\slash \\n not a line end";
    aValues[u"b"] = u"line\nend\rcarriage";
    aValues[u"C"] = u"=equals=";
    aValues[u""] = u"no name";
    EXPECT_EQ(ParseUserStoreText(FormatUserStoreText(aValues)), aValues);

    const CUserStoreValues aRead = ParseUserStoreText(
        "# comment=1\nno equals sign\nKey=one\r\nkey=two\n\\q=\\x\\\nlast=no line end");
    EXPECT_EQ(aRead.size(), 3u);
    EXPECT_EQ(aRead.at(u"KEY"), u"two");    // a later line wins, names ignore case
    EXPECT_EQ(aRead.at(u"\\q"), u"\\x\\");  // a backslash that escapes nothing stays
    EXPECT_EQ(aRead.at(u"last"), u"no line end");
}

}  // namespace
}  // namespace zv::platform
