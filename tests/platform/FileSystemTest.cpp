// The file-system interface against real temporary directories. Fixtures are
// made with std::filesystem so that the same tests run on POSIX and Windows;
// what one system cannot set up is skipped with the reason.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "PlatformTestSupport.h"

#ifndef _WIN32
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#endif

namespace fs = std::filesystem;

namespace zv::platform {
namespace {

using namespace test;
using FileSystemTest = TempDirTest;

void ExpectNearNow(FILETIME ft, const char* pszWhich) {
    EXPECT_NEAR(double(FileTimeToUInt64(ft)), double(FileTimeToUInt64(GetSystemTimeAsFileTime())),
                60.0 * kTicksPerSecond)
        << pszWhich;
}

// Whether the file system is known to keep the time each file was made.
bool HasBirthTime([[maybe_unused]] const fs::path& path) {
#if defined(__linux__) && defined(STATX_BTIME)
    struct statx sx;
    return statx(AT_FDCWD, path.c_str(), 0, STATX_BTIME, &sx) == 0 && (sx.stx_mask & STATX_BTIME);
#else
    return false;
#endif
}

TEST_F(FileSystemTest, ListingGivesEachDirectEntryAsThePathQueriesDo) {
    constexpr uint64_t kBig = (5ULL << 30) + 123;
    // 2001-09-09 01:46:40.1234567 and 2004-11-09 11:33:20.7654321 UTC.
    const FILETIME ftModified = FileTimeFromUInt64(126444736001234567ULL);
    const FILETIME ftAccessed = FileTimeFromUInt64(127444736007654321ULL);
    struct CCase {
        fs::path name;
        uint64_t uSize;
        uint32_t uAttributes;  // the directory, hidden, read-only and reparse-point bits
    };
    std::vector<CCase> aCases = {
        {"empty.txt", 0, 0},
        {"data.bin", 1000, 0},
        {u8"Ünïcødé ✓ 日本語.txt", 3, 0},
        {u8"outside the BMP \U0001F600 \U00010400.bin", 7, 0},  // surrogate pairs
        {"locked.txt", 4, ATTR_READONLY},
        {"old.txt", 3, 0},
        {"sub", 0, ATTR_DIRECTORY},
        {u8"Verzeichnis ÄÖÜ ß", 0, ATTR_DIRECTORY},
    };
    std::error_code ec;
    const fs::space_info space = fs::space(Root(), ec);
    if (!ec && space.available > kBig + (1ULL << 30)) aCases.push_back({"big.bin", kBig, 0});
    // On POSIX a leading dot hides, and a name need not be UTF-8 to list and
    // name the file again.
    const std::string strNotUtf8 = "bad\xff\xfe.txt";
    if (!kWindows) {
        aCases.insert(aCases.end(),
                      {{".dotted", 5, ATTR_HIDDEN}, {".hidden", 0, ATTR_DIRECTORY | ATTR_HIDDEN}});
        if (std::ofstream(Root() / strNotUtf8)) aCases.push_back({strNotUtf8, 7, 0});
    }
    for (const CCase& c : aCases) {
        if (c.uAttributes & ATTR_DIRECTORY) {
            ASSERT_TRUE(fs::create_directory(Root() / c.name));
            m_temp.WriteFile(c.name / "inside.txt", "not listed");
        } else {
            m_temp.WriteFile(c.name, "");
            fs::resize_file(Root() / c.name, c.uSize);
        }
    }
    fs::permissions(Root() / "locked.txt",
                    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
    ASSERT_TRUE(SetFileTimes(Path("old.txt"), FILETIME{}, ftAccessed, ftModified));

    CDirectoryReader parent;
    ASSERT_TRUE(parent.Open(ToU16(Root())));
    const CListing listing = ReadListing(parent);
    EXPECT_EQ(listing.size(), aCases.size()) << "only the direct entries, no \".\" or \"..\"";
    for (const CCase& c : aCases) {
        const std::u16string strName = ToU16(c.name);
        SCOPED_TRACE(Utf16ToUtf8(strName));
        const CDirEntry& entry = listing.at(strName);
        EXPECT_EQ(entry.uSizeHigh, uint32_t(c.uSize >> 32));
        EXPECT_EQ(entry.uSizeLow, uint32_t(c.uSize));
        EXPECT_EQ(
            entry.uAttributes & (ATTR_DIRECTORY | ATTR_HIDDEN | ATTR_READONLY | ATTR_REPARSE_POINT),
            c.uAttributes);
        EXPECT_TRUE((entry.uAttributes & ATTR_NORMAL) == 0 || entry.uAttributes == ATTR_NORMAL)
            << "ATTR_NORMAL stands alone, attributes " << entry.uAttributes;
        if (c.name == "old.txt") {
            EXPECT_EQ(FileTimeToUInt64(entry.ftModified), FileTimeToUInt64(ftModified));
            EXPECT_EQ(FileTimeToUInt64(entry.ftAccessed), FileTimeToUInt64(ftAccessed));
            // Creation is the real birth (now) where the system keeps one,
            // else the earlier of the change and modification times.
            if (HasBirthTime(Root() / c.name) || !(entry.ftCreated == ftModified)) {
                ExpectNearNow(entry.ftCreated, "created");
            }
        } else {
            ExpectNearNow(entry.ftCreated, "created");
            ExpectNearNow(entry.ftAccessed, "accessed");
            ExpectNearNow(entry.ftModified, "modified");
            // Not compared with the access time: without a birth time the
            // creation time comes from the write, which leaves the access
            // time behind.
            EXPECT_LE(CompareFileTime(entry.ftCreated, entry.ftModified), 0);
        }

        EXPECT_EQ(GetFileAttributes(Path(c.name)), entry.uAttributes);
        CDirEntry info;
        ASSERT_TRUE(GetEntryInfo(Path(c.name), info));
        EXPECT_EQ(info.strName, strName);
        EXPECT_EQ(Facts(info), Facts(entry));
        EXPECT_EQ(CFileReader().Open(Path(c.name)), !entry.IsDirectory()) << "opens as a file";
        if (!entry.IsDirectory()) continue;

        // A directory lists and tells the same of itself, opened by path or
        // from its parent.
        EXPECT_EQ(GetFileAttributes(Path(c.name) + kPathSeparator), entry.uAttributes);
        CDirectoryReader byPath, byParent;
        ASSERT_TRUE(byPath.Open(Path(c.name)));
        ASSERT_TRUE(byParent.OpenChild(parent, strName));
        for (CDirectoryReader* pReader : {&byPath, &byParent}) {
            ASSERT_TRUE(pReader->GetSelf(info));
            EXPECT_EQ(Facts(info), Facts(entry));
            EXPECT_TRUE(kWindows || info.strName.empty());
            EXPECT_EQ(ReadListing(*pReader).size(), 1u);
        }
    }
}

// A listing the system hands over in several reads: no entry lost or
// repeated where one read ends and the next begins.
TEST_F(FileSystemTest, LargeListingGivesEveryEntryOnce) {
    constexpr int kCount = 3000;  // some 180 KB of names and entry headers
    std::vector<std::u16string> aExpected;
    for (int i = 0; i < kCount; ++i) {
        const std::string strName = "entry number " + std::to_string(i) + std::string(40, 'n');
        ASSERT_TRUE(std::ofstream(Root() / strName)) << strName;
        aExpected.push_back(Utf8ToUtf16(strName));
    }
    CDirectoryReader reader;
    ASSERT_TRUE(reader.Open(ToU16(Root())));
    const CListing listing = ReadListing(reader);
    CDirEntry entry;
    EXPECT_FALSE(reader.Next(entry));  // stays at the end
    ASSERT_EQ(listing.size(), aExpected.size());
    for (const std::u16string& strName : aExpected) EXPECT_EQ(listing.count(strName), 1u);
}

TEST_F(FileSystemTest, FailuresTellWhyOrGiveTheFailureValues) {
    constexpr int kAnyButDenied = -1;
    m_temp.WriteFile("file.txt", "x");
    ASSERT_TRUE(fs::create_directory(Root() / "present"));
    const struct {
        fs::path name;
        int nPosixError, nWindowsError;
    } aCases[] = {
        {"missing", ERR_FILE_NOT_FOUND, ERR_PATH_NOT_FOUND},
        {fs::path("missing") / "deeper", ERR_FILE_NOT_FOUND, ERR_PATH_NOT_FOUND},
        {fs::path("present") / "missing", ERR_FILE_NOT_FOUND, ERR_PATH_NOT_FOUND},
        {"file.txt", ERR_PATH_NOT_FOUND, kAnyButDenied},
        {fs::path("file.txt") / "x", ERR_PATH_NOT_FOUND, kAnyButDenied},
    };
    CDirectoryReader parent;
    ASSERT_TRUE(parent.Open(ToU16(Root())));
    for (const auto& c : aCases) {
        SCOPED_TRACE(Utf16ToUtf8(ToU16(c.name)));
        CDirectoryReader byPath, byParent;
        EXPECT_FALSE(byPath.Open(Path(c.name)));
        EXPECT_FALSE(byParent.OpenChild(parent, ToU16(c.name)));
        const int nExpected = kWindows ? c.nWindowsError : c.nPosixError;
        for (const int nError : {byPath.GetLastError(), byParent.GetLastError()}) {
            EXPECT_TRUE(nExpected == kAnyButDenied
                            ? nError != ERR_NONE && nError != ERR_ACCESS_DENIED
                            : nError == nExpected)
                << "error " << nError;
        }
    }
    CDirectoryReader closed, child;
    CDirEntry entry;
    EXPECT_FALSE(closed.GetSelf(entry));
    EXPECT_FALSE(child.OpenChild(closed, u"anything"));

    // The path queries give their failure values.
    const std::u16string strMissing = Path("missing");
    EXPECT_EQ(GetFileAttributes(strMissing), ATTR_INVALID);
    EXPECT_FALSE(GetEntryInfo(strMissing, entry));
    EXPECT_EQ(GetSizeOnDisk(strMissing), 0.0);
    EXPECT_EQ(GetLinkCount(strMissing), 0u);
    std::u16string strText;
    EXPECT_FALSE(LookupOwnerName(strMissing, strText));
#ifndef _WIN32
    // Windows names the volume of any path on a drive, present or not.
    EXPECT_EQ(GetDriveOfPath(strMissing), u"");
    EXPECT_EQ(GetClusterSize(strMissing), 0.0);
    EXPECT_FALSE(GetVolumeInformation(strMissing, strText));
    double dFree = 0, dTotal = 0;
    EXPECT_FALSE(GetDiskFreeSpace(strMissing, dFree, dTotal));
#endif
}

TEST_F(FileSystemTest, DirectoriesClosedByTheirPermissionsAreRefusedWithAccessDenied) {
    // "locked" cannot be listed; "names-only" can, but not entered.
    ASSERT_TRUE(fs::create_directories(Root() / "locked" / "inner"));
    ASSERT_TRUE(fs::create_directories(Root() / "names-only" / "inner"));
    m_temp.WriteFile(fs::path("names-only") / "file.txt", "x");
    fs::permissions(Root() / "locked", fs::perms::none);
    fs::permissions(Root() / "names-only", fs::perms::owner_read);
    std::error_code ec;
    const fs::directory_iterator probe(Root() / "locked", ec);
    if (!ec) GTEST_SKIP() << "permission bits do not stop this user (root, or Windows)";

    CDirectoryReader parent, locked, namesOnly, inner;
    ASSERT_TRUE(parent.Open(ToU16(Root())));
    EXPECT_FALSE(locked.Open(Path("locked")));
    EXPECT_EQ(locked.GetLastError(), ERR_ACCESS_DENIED);
    EXPECT_FALSE(locked.OpenChild(parent, u"locked"));
    EXPECT_EQ(locked.GetLastError(), ERR_ACCESS_DENIED);
    ASSERT_TRUE(namesOnly.Open(Path("names-only")));
    EXPECT_FALSE(inner.OpenChild(namesOnly, u"inner"));
    EXPECT_EQ(inner.GetLastError(), ERR_ACCESS_DENIED);

    // Its parent still lists "locked" as a directory, and the names in
    // "names-only" list with their kinds.
    const CListing listing = ReadListing(parent);
    EXPECT_TRUE(listing.at(u"locked").IsDirectory());
    const CListing names = ReadListing(namesOnly);
    EXPECT_EQ(names.size(), 2u);
    EXPECT_TRUE(names.at(u"inner").IsDirectory());
    EXPECT_FALSE(names.at(u"file.txt").IsDirectory());
}

TEST_F(FileSystemTest, SymbolicLinksListAsReparsePointsAndAreNotFollowed) {
    ASSERT_TRUE(fs::create_directories(Root() / "far" / "target"));
    std::error_code ec;
    fs::create_directory_symlink(Root() / "far" / "target", Root() / "link", ec);
    if (ec) GTEST_SKIP() << "cannot create symbolic links here: " << ec.message();
    fs::create_symlink(Root() / "nowhere", Root() / "dangling", ec);

    // A link to a directory carries the directory bit too, as on Windows, so
    // that walkers skip it; a link is listed even when it leads nowhere.
    constexpr uint32_t kKind = ATTR_REPARSE_POINT | ATTR_DIRECTORY;
    CDirectoryReader parent, child;
    ASSERT_TRUE(parent.Open(ToU16(Root())));
    const CListing listing = ReadListing(parent);
    EXPECT_EQ(listing.size(), 3u);
    EXPECT_EQ(listing.at(u"link").uAttributes & kKind, kKind);
    EXPECT_EQ(listing.at(u"dangling").uAttributes & kKind, ATTR_REPARSE_POINT);
    EXPECT_EQ(listing.at(u"far").uAttributes & kKind, ATTR_DIRECTORY);
    EXPECT_NE(GetFileAttributes(Path("link")) & ATTR_REPARSE_POINT, 0u);
    EXPECT_NE(GetFileAttributes(Path("dangling")) & ATTR_REPARSE_POINT, 0u);
    // Paths are made absolute without resolving the link.
    EXPECT_EQ(GetFullPathName(ToU16(Root() / "link" / ".." / "x")), Path("x"));
#ifndef _WIN32
    EXPECT_EQ(listing.at(u"link").Size(), 0.0) << "the link itself, not what it leads to";
    EXPECT_FALSE(child.OpenChild(parent, u"link"));
#endif
}

TEST_F(FileSystemTest, FileReaderReadsSeeksAndRefusesWhatIsNotAFile) {
    m_temp.WriteFile("digits.txt", "0123456789");
    CFileReader reader;
    char aBuffer[100];
    EXPECT_EQ(reader.Read(aBuffer, sizeof aBuffer), -1) << "not open";
    EXPECT_FALSE(reader.Open(Path("missing.txt")));
    ASSERT_TRUE(reader.Open(Path("digits.txt")));
    const struct {
        int nSeek;  // none when negative
        size_t uSize;
        std::string_view expected;
    } aSteps[] = {{-1, 4, "0123"}, {7, 100, "789"}, {-1, 100, ""}, {2, 2, "23"}};
    for (const auto& step : aSteps) {
        EXPECT_TRUE(step.nSeek < 0 || reader.Seek(uint64_t(step.nSeek)));
        const int64_t nRead = reader.Read(aBuffer, step.uSize);
        EXPECT_EQ(std::string_view(aBuffer, size_t(std::max<int64_t>(nRead, 0))), step.expected);
    }
    EXPECT_TRUE(reader.IsOpen());
    reader.Close();
    EXPECT_FALSE(reader.IsOpen());
}

TEST_F(FileSystemTest, PathQueriesDescribeTheFileAndItsVolume) {
    // Varied bytes, so that a compressing file system cannot shrink them.
    std::mt19937 random(42);
    std::string strData(65536, '\0');
    for (char& ch : strData) ch = char(random());
    m_temp.WriteFile("one.bin", strData);
    EXPECT_GE(GetSizeOnDisk(Path("one.bin")), double(strData.size()));
    EXPECT_EQ(GetLinkCount(Path("one.bin")), 1u);
    std::error_code ec;
    fs::create_hard_link(Root() / "one.bin", Root() / "two.bin", ec);
    if (!ec) {
        EXPECT_EQ(GetLinkCount(Path("one.bin")), 2u);
        EXPECT_EQ(GetLinkCount(Path("two.bin")), 2u);
    }

    std::u16string strOwner;
    ASSERT_TRUE(LookupOwnerName(Path("one.bin"), strOwner));
    EXPECT_FALSE(strOwner.empty());
#ifndef _WIN32
    const passwd* pUser = getpwuid(geteuid());
    EXPECT_EQ(Utf16ToUtf8(strOwner), pUser ? pUser->pw_name : std::to_string(geteuid()));
#endif

    const std::u16string strRoot = ToU16(Root());
    EXPECT_GT(GetClusterSize(strRoot), 0.0);
    std::u16string strFileSystem;
    EXPECT_TRUE(GetVolumeInformation(strRoot, strFileSystem));
    EXPECT_FALSE(strFileSystem.empty());
    double dFree = -1, dTotal = -1;
    ASSERT_TRUE(GetDiskFreeSpace(strRoot, dFree, dTotal));
    EXPECT_TRUE(0 <= dFree && dFree <= dTotal && dTotal > 0) << dFree << " free of " << dTotal;
    // The drive starts the path as the system resolves it.
    const std::u16string strResolved =
        ToU16(kWindows ? fs::absolute(Root()) : fs::canonical(Root()));
    const std::u16string strDrive = GetDriveOfPath(strRoot);
    EXPECT_FALSE(strDrive.empty());
    EXPECT_TRUE(strResolved.starts_with(strDrive))
        << Utf16ToUtf8(strDrive) << " does not start " << Utf16ToUtf8(strResolved);
}

#ifndef _WIN32
// POSIX only: handle-relative calls and /proc.

TEST_F(FileSystemTest, OpenChildWalksBelowThePathLengthLimit) {
    // Each directory made and opened relative to the one above, so that the
    // chain runs deeper than any path can name (remove_all takes it away
    // the same way).
    const std::string strName(200, 'd');
    const int nLevels = PATH_MAX / int(strName.size() + 1) + 2;
    int nFd = open(Root().c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < nLevels && nFd >= 0; ++i) {
        const int nParent = nFd;
        nFd = mkdirat(nParent, strName.c_str(), 0700) == 0
                  ? openat(nParent, strName.c_str(), O_RDONLY | O_DIRECTORY)
                  : -1;
        close(nParent);
    }
    ASSERT_GE(nFd, 0);
    const int nLeaf = openat(nFd, "leaf.txt", O_WRONLY | O_CREAT, 0600);
    close(nFd);
    ASSERT_EQ(write(nLeaf, "deep", 4), 4);
    close(nLeaf);

    CDirectoryReader reader;
    ASSERT_TRUE(reader.Open(ToU16(Root())));
    for (int i = 0; i < nLevels; ++i) {
        CDirectoryReader child;
        ASSERT_TRUE(child.OpenChild(reader, Utf8ToUtf16(strName)))
            << "level " << i << ", error " << child.GetLastError();
        reader = std::move(child);
    }
    CDirEntry self;
    ASSERT_TRUE(reader.GetSelf(self));
    EXPECT_TRUE(self.IsDirectory());
    const CListing listing = ReadListing(reader);
    ASSERT_EQ(listing.size(), 1u);
    EXPECT_EQ(listing.at(u"leaf.txt").Size(), 4.0);
}

TEST(FileSystemMounts, DriveAndFileSystemComeFromTheMountHoldingThePath) {
    if (!fs::exists("/proc/self/mountinfo")) GTEST_SKIP() << "/proc is not mounted";
    EXPECT_EQ(GetDriveOfPath(u"/proc/self"), u"/proc");
    EXPECT_EQ(GetDriveOfPath(u"/"), u"/");
    std::u16string strFileSystem;
    ASSERT_TRUE(GetVolumeInformation(u"/proc/self/status", strFileSystem));
    EXPECT_EQ(strFileSystem, u"proc") << "the longest mount point holding the path";
}
#endif

TEST(FileSystemPaths, FullPathIsAbsoluteAndLexicallyNormal) {
    const fs::path cwd = fs::current_path();
    EXPECT_EQ(GetFullPathName(u"a/./b/../c"), ToU16(cwd / "a" / "c"));
    EXPECT_EQ(GetFullPathName(u"../x"), ToU16(cwd.parent_path() / "x"));
    EXPECT_EQ(GetFullPathName(u""), u"");
#ifndef _WIN32
    const std::pair<std::u16string_view, std::u16string_view> aCases[] = {
        {u"/x/../y", u"/y"},
        {u"/../..", u"/"},
        {u"//a///b/./", u"/a/b/"},
        {u"/a/b/..", u"/a"},
        {u"/a/b/.", u"/a/b"},
        {u"/", u"/"},
        {u"/a/\xDCFF/b", u"/a/\xDCFF/b"},
    };
    for (const auto& [path, strFull] : aCases) {
        EXPECT_EQ(GetFullPathName(path), strFull) << Utf16ToUtf8(path);
    }
#endif
}

TEST(FileSystemPaths, DriveOfWindowsPathFollowsTheTextualRule) {
    const std::pair<std::u16string_view, std::u16string_view> aCases[] = {
        {u"C:\\x", u"C:"},
        {u"c:", u"c:"},
        {u"D:relative\\x", u"D:"},
        {u"\\\\?\\C:\\x", u"\\\\?\\C:"},
        {u"\\\\server\\share\\dir", u"\\\\server"},
        {u"\\\\server\\", u"\\\\server"},
        {u"\\\\server", u"\\\\server"},
        {u"\\\\", u"\\\\"},
        {u"\\\\\\share", u"\\\\"},
        {u"a\\\\b\\c", u"a\\\\b"},
        {u"\\root\\dir", u""},
        {u"rel\\path", u""},
        {u"//server/share", u""},
        {u"", u""},
    };
    for (const auto& [path, strDrive] : aCases) {
        EXPECT_EQ(DriveOfWindowsPath(path), strDrive) << Utf16ToUtf8(path);
    }
}

}  // namespace
}  // namespace zv::platform
