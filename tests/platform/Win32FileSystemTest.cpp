// Behaviour of the file-system interface that only Windows has: UTF-16 names
// beyond ASCII, DOS attributes, access control lists and account owners. Fixtures are made with the
// Win32 calls themselves, in the "\\?\" form so that they do not depend on the code under test.
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

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "platform/win32/WideString.h"

namespace zv::platform {
namespace {

// Fixture paths are absolute drive paths with backslashes, which the long
// form takes as they are.
std::wstring LongForm(const std::wstring& strPath) { return L"\\\\?\\" + strPath; }

bool MakeDirectory(const std::wstring& strPath) {
    return ::CreateDirectoryW(LongForm(strPath).c_str(), nullptr) != FALSE;
}

bool MakeFile(const std::wstring& strPath, std::string_view content) {
    const HANDLE hFile = ::CreateFileW(LongForm(strPath).c_str(), GENERIC_WRITE, 0, nullptr,
                                       CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) return false;
    DWORD dwWritten = 0;
    const BOOL bOk = ::WriteFile(hFile, content.data(), DWORD(content.size()), &dwWritten, nullptr);
    ::CloseHandle(hFile);
    return bOk && dwWritten == content.size();
}

void RemoveTree(const std::wstring& strPath) {
    WIN32_FIND_DATAW data;
    const HANDLE hFind = ::FindFirstFileW(LongForm(strPath + L"\\*").c_str(), &data);
    if (hFind != INVALID_HANDLE_VALUE) {
        do {
            const std::wstring strName = data.cFileName;
            if (strName == L"." || strName == L"..") continue;
            const std::wstring strChild = strPath + L"\\" + strName;
            ::SetFileAttributesW(LongForm(strChild).c_str(), FILE_ATTRIBUTE_NORMAL);
            if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
                RemoveTree(strChild);
            } else {
                ::DeleteFileW(LongForm(strChild).c_str());
            }
        } while (::FindNextFileW(hFind, &data));
        ::FindClose(hFind);
    }
    ::RemoveDirectoryW(LongForm(strPath).c_str());
}

std::optional<std::string> ReadAll(std::u16string_view path) {
    CFileReader reader;
    if (!reader.Open(path)) return std::nullopt;
    std::string strContent;
    char aBuffer[4096];
    int64_t nRead = 0;
    while ((nRead = reader.Read(aBuffer, sizeof aBuffer)) > 0) strContent.append(aBuffer, nRead);
    if (nRead < 0) return std::nullopt;
    return strContent;
}

using CListing = std::map<std::u16string, CDirEntry>;

CListing ReadListing(CDirectoryReader& reader) {
    CListing listing;
    CDirEntry entry;
    while (reader.Next(entry)) listing.emplace(entry.strName, entry);
    EXPECT_EQ(reader.GetLastError(), ERR_NONE) << "the end of a listing is no error";
    return listing;
}

class Win32FileSystemTest : public ::testing::Test {
protected:
    void SetUp() override {
        wchar_t szTemp[MAX_PATH + 1] = {};
        const DWORD dwLength = ::GetTempPathW(MAX_PATH + 1, szTemp);
        ASSERT_GT(dwLength, 0u);
        // Long names, as listings give them, should TMP hold short 8.3 ones.
        wchar_t szFull[MAX_PATH + 1] = {};
        ASSERT_GT(::GetLongPathNameW(szTemp, szFull, MAX_PATH + 1), 0u);
        const std::wstring strBase = std::wstring(szFull) + L"zorvane-w32-" +
                                     std::to_wstring(::GetCurrentProcessId()) + L"-";
        for (unsigned uTry = 0; uTry < 100 && m_strRoot.empty(); ++uTry) {
            const std::wstring strCandidate = strBase + std::to_wstring(::GetTickCount() + uTry);
            if (MakeDirectory(strCandidate)) m_strRoot = strCandidate;
        }
        ASSERT_FALSE(m_strRoot.empty()) << "cannot create a directory under the temporary one";
    }

    void TearDown() override {
        if (!m_strRoot.empty()) RemoveTree(m_strRoot);
    }

    std::wstring Child(const std::wstring& strName) const { return m_strRoot + L"\\" + strName; }

    std::wstring m_strRoot;
};

// ---------------------------------------------------------------------------
// Names

TEST_F(Win32FileSystemTest, NamesBeyondAsciiRoundTripFromListingToReading) {
    const std::u16string strDirectory = u"Verzeichnis ÄÖÜ ß";
    const std::u16string aNames[] = {
        u"Ünïcødé ✓.txt",
        u"日本語のファイル.txt",
        u"Ελληνικά",
        u"outside the BMP \U0001F600 \U00010400.bin",  // surrogate pairs
        u"ÆØÅ æøå",
    };
    const std::wstring strDirectoryPath = Child(ToWide(strDirectory));
    ASSERT_TRUE(MakeDirectory(strDirectoryPath));
    for (const std::u16string& strName : aNames) {
        ASSERT_TRUE(MakeFile(strDirectoryPath + L"\\" + ToWide(strName), Utf16ToUtf8(strName)));
    }

    // Reached both from the parent and by its own path.
    CDirectoryReader parent, byParent, byPath;
    ASSERT_TRUE(parent.Open(FromWide(m_strRoot)));
    ASSERT_TRUE(byParent.OpenChild(parent, strDirectory)) << "error " << byParent.GetLastError();
    ASSERT_TRUE(byPath.Open(FromWide(strDirectoryPath))) << "error " << byPath.GetLastError();
    const CListing listing = ReadListing(byParent);
    EXPECT_EQ(ReadListing(byPath).size(), listing.size());

    ASSERT_EQ(listing.size(), std::size(aNames));
    for (const std::u16string& strName : aNames) {
        SCOPED_TRACE(Utf16ToUtf8(strName));
        const std::string strContent = Utf16ToUtf8(strName);
        const auto it = listing.find(strName);
        ASSERT_NE(it, listing.end()) << "the listing keeps every UTF-16 code unit";
        EXPECT_EQ(it->second.Size(), double(strContent.size()));

        // The listed name, joined to the directory, names the file again.
        const std::u16string strPath = FromWide(strDirectoryPath) + kPathSeparator + it->first;
        EXPECT_EQ(ReadAll(strPath), std::optional<std::string>(strContent));
        CDirEntry info;
        ASSERT_TRUE(GetEntryInfo(strPath, info));
        EXPECT_EQ(info.strName, strName);
        EXPECT_EQ(info.Size(), double(strContent.size()));
        EXPECT_EQ(GetFileAttributes(strPath), it->second.uAttributes);
        EXPECT_EQ(GetLinkCount(strPath), 1u);
    }
}

// ---------------------------------------------------------------------------
// Attributes

TEST_F(Win32FileSystemTest, DosAttributesAreReportedAsSet) {
    struct CCase {
        const wchar_t* pszName;
        DWORD dwSet;
        bool bDirectory;
    };
    const CCase aCases[] = {
        {L"plain", FILE_ATTRIBUTE_NORMAL, false},
        {L"readonly", FILE_ATTRIBUTE_READONLY, false},
        {L"hidden", FILE_ATTRIBUTE_HIDDEN, false},
        {L"system", FILE_ATTRIBUTE_SYSTEM, false},
        {L"all three", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM,
         false},
        {L"hidden directory", FILE_ATTRIBUTE_HIDDEN, true},
        {L"system directory", FILE_ATTRIBUTE_SYSTEM, true},
    };
    constexpr uint32_t kDos = ATTR_READONLY | ATTR_HIDDEN | ATTR_SYSTEM;
    for (const CCase& c : aCases) {
        const std::wstring strPath = Child(c.pszName);
        ASSERT_TRUE(c.bDirectory ? MakeDirectory(strPath) : MakeFile(strPath, "x"));
        ASSERT_TRUE(::SetFileAttributesW(LongForm(strPath).c_str(), c.dwSet));
    }

    CDirectoryReader parent;
    ASSERT_TRUE(parent.Open(FromWide(m_strRoot)));
    const CListing listing = ReadListing(parent);
    ASSERT_EQ(listing.size(), std::size(aCases));
    for (const CCase& c : aCases) {
        SCOPED_TRACE(Utf16ToUtf8(FromWide(c.pszName)));
        const std::u16string strName = FromWide(c.pszName);
        const std::u16string strPath = FromWide(Child(c.pszName));
        const uint32_t uExpected = c.dwSet & kDos;
        ASSERT_EQ(listing.count(strName), 1u);
        const CDirEntry& entry = listing.at(strName);
        EXPECT_EQ(entry.uAttributes & kDos, uExpected);
        EXPECT_EQ(entry.IsDirectory(), c.bDirectory);
        EXPECT_EQ(GetFileAttributes(strPath), entry.uAttributes);
        CDirEntry info;
        ASSERT_TRUE(GetEntryInfo(strPath, info));
        EXPECT_EQ(info.uAttributes, entry.uAttributes);

        if (c.bDirectory) {
            // The directory tells the same of itself as its parent does.
            CDirectoryReader child;
            ASSERT_TRUE(child.OpenChild(parent, strName));
            CDirEntry self;
            ASSERT_TRUE(child.GetSelf(self));
            EXPECT_EQ(self.uAttributes, entry.uAttributes);
            EXPECT_EQ(self.ftCreated, entry.ftCreated);
            EXPECT_EQ(self.ftModified, entry.ftModified);
        }
    }
}

// ---------------------------------------------------------------------------
// Failures

TEST_F(Win32FileSystemTest, MissingDirectoryIsPathNotFound) {
    ASSERT_TRUE(MakeDirectory(Child(L"present")));
    CDirectoryReader parent;
    ASSERT_TRUE(parent.Open(FromWide(m_strRoot)));
    for (const std::u16string strName : {u"missing", u"missing\\deeper", u"present\\missing"}) {
        SCOPED_TRACE(Utf16ToUtf8(strName));
        CDirectoryReader byPath, byParent;
        EXPECT_FALSE(byPath.Open(FromWide(m_strRoot) + u"\\" + strName));
        EXPECT_EQ(byPath.GetLastError(), ERR_PATH_NOT_FOUND);
        EXPECT_FALSE(byParent.OpenChild(parent, strName));
        EXPECT_EQ(byParent.GetLastError(), ERR_PATH_NOT_FOUND);
    }
}

TEST_F(Win32FileSystemTest, DirectoryDeniedByItsAclIsRefusedWithAccessDenied) {
    const std::wstring strLocked = Child(L"locked");
    ASSERT_TRUE(MakeDirectory(strLocked));

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
        ::SetNamedSecurityInfoW(const_cast<wchar_t*>(strLocked.c_str()), SE_FILE_OBJECT,
                                DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                                nullptr, nullptr, pAcl, nullptr);
    ::LocalFree(pAcl);
    ASSERT_EQ(dwResult, DWORD(ERROR_SUCCESS));

    WIN32_FIND_DATAW data;
    const HANDLE hFind = ::FindFirstFileW((strLocked + L"\\*").c_str(), &data);
    if (hFind != INVALID_HANDLE_VALUE) {
        ::FindClose(hFind);
        GTEST_SKIP() << "the system does not enforce the entry (Wine run as root)";
    }

    CDirectoryReader byPath;
    EXPECT_FALSE(byPath.Open(FromWide(strLocked)));
    EXPECT_EQ(byPath.GetLastError(), ERR_ACCESS_DENIED);
    CDirectoryReader parent, child;
    ASSERT_TRUE(parent.Open(FromWide(m_strRoot)));
    EXPECT_FALSE(child.OpenChild(parent, u"locked"));
    EXPECT_EQ(child.GetLastError(), ERR_ACCESS_DENIED);
    const CListing listing = ReadListing(parent);
    ASSERT_EQ(listing.count(u"locked"), 1u) << "its parent still lists it";
    EXPECT_TRUE(listing.at(u"locked").IsDirectory());
}

// ---------------------------------------------------------------------------
// Owners and drives

// Account name of the user (TokenUser) or of the default owner of new
// objects (TokenOwner) of this process.
std::optional<std::u16string> TokenAccountName(TOKEN_INFORMATION_CLASS eWhich) {
    HANDLE hToken = nullptr;
    if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &hToken)) return std::nullopt;
    std::vector<BYTE> buffer(256);
    DWORD dwNeeded = 0;
    BOOL bOk =
        ::GetTokenInformation(hToken, eWhich, buffer.data(), DWORD(buffer.size()), &dwNeeded);
    if (!bOk && dwNeeded > buffer.size()) {
        buffer.resize(dwNeeded);
        bOk = ::GetTokenInformation(hToken, eWhich, buffer.data(), DWORD(buffer.size()), &dwNeeded);
    }
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
    ASSERT_TRUE(MakeFile(Child(L"mine.txt"), "x"));
    ASSERT_TRUE(MakeDirectory(Child(L"mine")));
    for (const wchar_t* pszName : {L"mine.txt", L"mine"}) {
        std::u16string strOwner;
        ASSERT_TRUE(LookupOwnerName(FromWide(Child(pszName)), strOwner));
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
