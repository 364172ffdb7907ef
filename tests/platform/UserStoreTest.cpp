// The per-user store on this platform: the registry under Wine and on
// Windows, the state file on POSIX. Each test works in a place of its own
// and removes it afterwards, so the user's own store is never touched.
#ifdef _WIN32
#include <windows.h>
#endif

#include <gtest/gtest.h>

#include <random>

#include "platform/Text.h"
#include "platform/UserStore.h"
#include "platform/UserStoreText.h"
#include "support/TempDir.h"

#ifdef _WIN32
#include "platform/win32/WideString.h"
#else
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#endif

namespace zv::platform {
namespace {

#ifdef _WIN32
// A key of its own under HKEY_CURRENT_USER\Software.
class CTestPlace {
public:
    CTestPlace() {
        std::random_device rd;
        m_strPlace = u"ZorvaneTest\\" + U16(std::to_string(rd()) + std::to_string(rd()));
    }
    ~CTestPlace() {
        ::RegDeleteTreeW(HKEY_CURRENT_USER, ToWide(u"Software\\" + m_strPlace).c_str());
        ::RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\ZorvaneTest");  // fails while others use it
    }
    const std::u16string& Place() const { return m_strPlace; }

    // The value as the registry itself holds it.
    bool RawValue(const wchar_t* pszName, DWORD& dwType, std::wstring& strData) const {
        wchar_t aBuffer[512] = {};
        DWORD dwBytes = sizeof aBuffer - sizeof(wchar_t);
        if (::RegGetValueW(HKEY_CURRENT_USER, ToWide(u"Software\\" + m_strPlace).c_str(), pszName,
                           RRF_RT_ANY | RRF_NOEXPAND, &dwType, aBuffer, &dwBytes) != ERROR_SUCCESS)
            return false;
        strData = aBuffer;
        return true;
    }

private:
    std::u16string m_strPlace;
};
#else
// A directory of its own that does not exist yet.
class CTestPlace {
public:
    const std::u16string Place() const {
        return Utf8ToUtf16((m_temp.Path() / "config" / "zorvane").string());
    }
    std::filesystem::path File() const {
        return m_temp.Path() / "config" / "zorvane" / "remembered-state.txt";
    }
    const test::CTempDir& Temp() const { return m_temp; }

private:
    test::CTempDir m_temp;
};
#endif

std::u16string Read(IUserStore& store, std::u16string_view strName) {
    std::u16string strValue;
    return store.ReadValue(strName, strValue) ? strValue : u"<absent>";
}

TEST(UserStoreTest, ValuesSurviveClosingTheStore) {
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
    }
    const auto pStore = OpenUserStore(place.Place());
    ASSERT_NE(pStore, nullptr);
    for (size_t i = 0; i < std::size(aValues); ++i)
        EXPECT_EQ(Read(*pStore, u"Value" + U16(std::to_string(i))), aValues[i]) << i;
}

TEST(UserStoreTest, NamesIgnoreCaseAndDeletingTellsWhetherThereWasAValue) {
    CTestPlace place;
    const auto pStore = OpenUserStore(place.Place());
    ASSERT_NE(pStore, nullptr);
    EXPECT_EQ(Read(*pStore, u"RootDir0"), u"<absent>");
    pStore->WriteValue(u"RootDir0", u"first");
    pStore->WriteValue(u"ROOTDIR0", u"second");
    EXPECT_EQ(Read(*pStore, u"rootdir0"), u"second");
    EXPECT_TRUE(pStore->DeleteValue(u"Rootdir0"));
    EXPECT_FALSE(pStore->DeleteValue(u"RootDir0"));
    EXPECT_TRUE(pStore->Flush());
    EXPECT_EQ(Read(*OpenUserStore(place.Place()), u"RootDir0"), u"<absent>");
}

TEST(UserStoreTest, TwoStoresOpenAtOnceKeepEachOthersChanges) {
    CTestPlace place;
    {
        const auto pSeed = OpenUserStore(place.Place());
        ASSERT_NE(pSeed, nullptr);
        pSeed->WriteValue(u"Gone", u"x");
        pSeed->WriteValue(u"Kept", u"k");
    }
    auto pFirst = OpenUserStore(place.Place());
    auto pSecond = OpenUserStore(place.Place());
    ASSERT_NE(pFirst, nullptr);
    ASSERT_NE(pSecond, nullptr);
    pFirst->WriteValue(u"FileName0", u"from the first");
    pFirst->DeleteValue(u"Gone");
    pFirst.reset();
    pSecond->WriteValue(u"Dir0", u"from the second");
    pSecond.reset();
    const auto pStore = OpenUserStore(place.Place());
    EXPECT_EQ(Read(*pStore, u"FileName0"), u"from the first");
    EXPECT_EQ(Read(*pStore, u"Dir0"), u"from the second");
    EXPECT_EQ(Read(*pStore, u"Kept"), u"k");
    EXPECT_EQ(Read(*pStore, u"Gone"), u"<absent>");
}

#ifdef _WIN32

TEST(UserStoreTest, TheRegistryHoldsStringValuesUnderSoftware) {
    EXPECT_EQ(DefaultUserStorePlace(), u"Halvorn\\Zorvane");
    CTestPlace place;
    {
        const auto pStore = OpenUserStore(place.Place());
        ASSERT_NE(pStore, nullptr);
        pStore->WriteValue(u"NeverDupFiles", u"0");
    }
    DWORD dwType = 0;
    std::wstring strData;
    ASSERT_TRUE(place.RawValue(L"NeverDupFiles", dwType, strData));
    EXPECT_EQ(dwType, DWORD(REG_SZ));
    EXPECT_EQ(strData, L"0");
    // A value of another type is not a remembered text.
    const DWORD dwNumber = 1;
    ASSERT_EQ(::RegSetKeyValueW(HKEY_CURRENT_USER, ToWide(u"Software\\" + place.Place()).c_str(),
                                L"Number", REG_DWORD, &dwNumber, sizeof dwNumber),
              ERROR_SUCCESS);
    EXPECT_EQ(Read(*OpenUserStore(place.Place()), u"Number"), u"<absent>");
}

#else

TEST(UserStoreTest, ThePlaceFollowsTheEnvironment) {
    const char* aNames[] = {"ZORVANE_CONFIG_DIR", "XDG_CONFIG_HOME", "HOME"};
    std::optional<std::string> aSaved[3];
    for (int i = 0; i < 3; ++i)
        if (const char* pszValue = std::getenv(aNames[i])) aSaved[i] = pszValue;

    setenv("HOME", "/home/someone", 1);
    unsetenv("XDG_CONFIG_HOME");
    unsetenv("ZORVANE_CONFIG_DIR");
    EXPECT_EQ(DefaultUserStorePlace(), u"/home/someone/.config/zorvane");
    setenv("XDG_CONFIG_HOME", "/xdg", 1);
    EXPECT_EQ(DefaultUserStorePlace(), u"/xdg/zorvane");
    setenv("ZORVANE_CONFIG_DIR", "/tests/state", 1);
    EXPECT_EQ(DefaultUserStorePlace(), u"/tests/state");

    for (int i = 0; i < 3; ++i) {
        if (aSaved[i]) {
            setenv(aNames[i], aSaved[i]->c_str(), 1);
        } else {
            unsetenv(aNames[i]);
        }
    }
}

TEST(UserStoreTest, TheFileIsReplacedWholeAndOnlyWhenSomethingChanged) {
    CTestPlace place;
    {
        const auto pStore = OpenUserStore(place.Place());
        ASSERT_NE(pStore, nullptr);
        EXPECT_FALSE(std::filesystem::exists(place.File()));  // nothing written yet
        pStore->WriteValue(u"Owner0", u"alice");
    }
    std::ifstream in(place.File(), std::ios::binary);
    const std::string strText((std::istreambuf_iterator<char>(in)), {});
    EXPECT_EQ(strText, "# Zorvane remembered state\nOwner0=alice\n");
    size_t nEntries = 0;
    for (const auto& entry : std::filesystem::directory_iterator(place.File().parent_path())) {
        (void)entry;
        ++nEntries;
    }
    EXPECT_EQ(nEntries, 1u);  // no temporary file left behind
    struct stat st {};
    ASSERT_EQ(stat(place.File().c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
}

TEST(UserStoreTest, AStoreThatCannotBeReadOrMadeDoesNotOpen) {
    CTestPlace place;
    const auto pBlocker = place.Temp().WriteFile("plain file", "x");
    EXPECT_EQ(OpenUserStore(Utf8ToUtf16(pBlocker.string())), nullptr);
    EXPECT_EQ(OpenUserStore(Utf8ToUtf16((pBlocker / "below").string())), nullptr);
    EXPECT_EQ(OpenUserStore(u""), nullptr);
    {
        const auto pStore = OpenUserStore(place.Place());
        pStore->WriteValue(u"Dir0", u"x");
    }
    // An existing file that cannot be read is not overwritten.
    chmod(place.File().c_str(), 0);
    if (access(place.File().c_str(), R_OK) != 0) {
        EXPECT_EQ(OpenUserStore(place.Place()), nullptr);
    }
    chmod(place.File().c_str(), 0600);
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
