// Behaviour of the file-system interface that only Windows has: DOS
// attributes, access control lists and account owners.
// clang-format off
#include <windows.h>
#include <aclapi.h>  // after windows.h, which it needs
// clang-format on

// windows.h maps these to their ...W forms; the interface under test has
// functions of the same names.
#undef GetFileAttributes
#undef GetVolumeInformation
#undef GetDiskFreeSpace
#undef GetFullPathName

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "PlatformTestSupport.h"
#include "platform/win32/WideString.h"

namespace fs = std::filesystem;

namespace zv::platform {
namespace {

using namespace test;
using Win32FileSystemTest = TempDirTest;

TEST_F(Win32FileSystemTest, DosAttributesAreReportedAsSet) {
    constexpr DWORD kDos = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const struct {
        std::u16string strName;
        DWORD dwSet;
        bool bDirectory;
    } aCases[] = {
        {u"plain", FILE_ATTRIBUTE_NORMAL, false},
        {u"readonly", FILE_ATTRIBUTE_READONLY, false},
        {u"hidden", FILE_ATTRIBUTE_HIDDEN, false},
        {u"system", FILE_ATTRIBUTE_SYSTEM, false},
        {u"all three", kDos, false},
        {u"hidden directory", FILE_ATTRIBUTE_HIDDEN, true},
        {u"system directory", FILE_ATTRIBUTE_SYSTEM, true},
    };
    for (const auto& c : aCases) {
        const fs::path path = Root() / ToWide(c.strName);
        ASSERT_TRUE(c.bDirectory ? fs::create_directory(path)
                                 : fs::exists(m_temp.WriteFile(path, "x")));
        ASSERT_TRUE(::SetFileAttributesW(path.c_str(), c.dwSet));
    }

    CDirectoryReader parent;
    ASSERT_TRUE(parent.Open(ToU16(Root())));
    const CListing listing = ReadListing(parent);
    ASSERT_EQ(listing.size(), std::size(aCases));
    for (const auto& c : aCases) {
        SCOPED_TRACE(Utf16ToUtf8(c.strName));
        const CDirEntry& entry = listing.at(c.strName);
        EXPECT_EQ(entry.uAttributes & kDos, c.dwSet & kDos);
        EXPECT_EQ(entry.IsDirectory(), c.bDirectory);
        EXPECT_EQ(GetFileAttributes(Path(ToWide(c.strName))), entry.uAttributes);
        CDirEntry info;
        ASSERT_TRUE(GetEntryInfo(Path(ToWide(c.strName)), info));
        EXPECT_EQ(Facts(info), Facts(entry));
        if (!c.bDirectory) continue;
        CDirectoryReader child;  // the directory tells the same of itself
        ASSERT_TRUE(child.OpenChild(parent, c.strName));
        ASSERT_TRUE(child.GetSelf(info));
        EXPECT_EQ(Facts(info), Facts(entry));
    }
}

TEST_F(Win32FileSystemTest, DirectoryDeniedByItsAclIsRefusedWithAccessDenied) {
    const fs::path locked = Root() / "locked";
    ASSERT_TRUE(fs::create_directory(locked));

    // One entry that denies everyone the listing of the directory.
    BYTE aSid[SECURITY_MAX_SID_SIZE];
    DWORD dwSid = sizeof aSid;
    ASSERT_TRUE(::CreateWellKnownSid(WinWorldSid, nullptr, aSid, &dwSid));
    EXPLICIT_ACCESSW deny{};
    deny.grfAccessPermissions = FILE_LIST_DIRECTORY | FILE_TRAVERSE;
    deny.grfAccessMode = DENY_ACCESS;
    deny.grfInheritance = NO_INHERITANCE;
    ::BuildTrusteeWithSidW(&deny.Trustee, aSid);
    PACL pAcl = nullptr;
    ASSERT_EQ(::SetEntriesInAclW(1, &deny, nullptr, &pAcl), DWORD(ERROR_SUCCESS));
    const DWORD dwResult =
        ::SetNamedSecurityInfoW(const_cast<wchar_t*>(locked.c_str()), SE_FILE_OBJECT,
                                DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                                nullptr, nullptr, pAcl, nullptr);
    ::LocalFree(pAcl);
    ASSERT_EQ(dwResult, DWORD(ERROR_SUCCESS));
    std::error_code ec;
    const fs::directory_iterator probe(locked, ec);
    if (!ec) GTEST_SKIP() << "the system does not enforce the entry (Wine run as root)";

    CDirectoryReader parent, child;
    EXPECT_FALSE(child.Open(Path("locked")));
    EXPECT_EQ(child.GetLastError(), ERR_ACCESS_DENIED);
    EXPECT_TRUE(parent.Open(ToU16(Root())));
    EXPECT_FALSE(child.OpenChild(parent, u"locked"));
    EXPECT_EQ(child.GetLastError(), ERR_ACCESS_DENIED);
    EXPECT_TRUE(ReadListing(parent).at(u"locked").IsDirectory()) << "its parent still lists it";
    ::RemoveDirectoryW(locked.c_str());  // empty; the removal of the tree could not list it
}

// Account name of the user (TokenUser) or of the default owner of new
// objects (TokenOwner) of this process.
std::optional<std::u16string> TokenAccountName(TOKEN_INFORMATION_CLASS eWhich) {
    HANDLE hToken = nullptr;
    if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &hToken)) return std::nullopt;
    std::vector<BYTE> buffer(1024);
    DWORD dwNeeded = 0;
    const BOOL bOk =
        ::GetTokenInformation(hToken, eWhich, buffer.data(), DWORD(buffer.size()), &dwNeeded);
    ::CloseHandle(hToken);
    if (!bOk) return std::nullopt;
    const PSID pSid = eWhich == TokenUser ? reinterpret_cast<TOKEN_USER*>(buffer.data())->User.Sid
                                          : reinterpret_cast<TOKEN_OWNER*>(buffer.data())->Owner;
    wchar_t szName[256], szDomain[256];
    DWORD dwName = 256, dwDomain = 256;
    SID_NAME_USE use;
    if (!::LookupAccountSidW(nullptr, pSid, szName, &dwName, szDomain, &dwDomain, &use)) {
        return std::nullopt;
    }
    return FromWide(szName);
}

TEST_F(Win32FileSystemTest, OwnerOfANewEntryIsTheAccountOfThisProcess) {
    // Windows makes new files belong to the token's default owner (for an
    // elevated administrator the Administrators group); Wine to the user.
    const std::optional<std::u16string> strUser = TokenAccountName(TokenUser);
    const std::optional<std::u16string> strDefaultOwner = TokenAccountName(TokenOwner);
    if (!strUser && !strDefaultOwner) GTEST_SKIP() << "the process token names no account";
    m_temp.WriteFile("mine.txt", "x");
    ASSERT_TRUE(fs::create_directory(Root() / "mine"));
    for (const char* pszName : {"mine.txt", "mine"}) {
        std::u16string strOwner;
        ASSERT_TRUE(LookupOwnerName(Path(pszName), strOwner));
        EXPECT_TRUE(strOwner == strUser || strOwner == strDefaultOwner)
            << Utf16ToUtf8(strOwner) << " is neither " << Utf16ToUtf8(strUser.value_or(u"-"))
            << " nor " << Utf16ToUtf8(strDefaultOwner.value_or(u"-"));
    }
}

TEST(Win32FileSystemPaths, DriveOfARelativePathIsTheDriveOfTheCurrentDirectory) {
    wchar_t szCurrent[MAX_PATH + 1] = {};
    ASSERT_GT(::GetCurrentDirectoryW(MAX_PATH + 1, szCurrent), 0u);
    const std::u16string strCurrent = FromWide(szCurrent);
    const std::u16string strDrive = DriveOfWindowsPath(strCurrent);
    ASSERT_FALSE(strDrive.empty());

    EXPECT_EQ(GetDriveOfPath(u"relative\\file.txt"), strDrive);
    EXPECT_EQ(GetDriveOfPath(u"."), strDrive);
    EXPECT_EQ(GetFullPathName(u"relative\\.\\file.txt"),
              strCurrent + (strCurrent.ends_with(u'\\') ? u"" : u"\\") + u"relative\\file.txt");
    EXPECT_EQ(GetDriveOfPath(u"Q:\\anything"), u"Q:") << "no such drive need exist";
}

}  // namespace
}  // namespace zv::platform
