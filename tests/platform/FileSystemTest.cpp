// The file-system interface against real temporary directories. Fixtures are
// made with std::filesystem so that the same tests run on POSIX and Windows;
// what one system cannot set up is skipped with the reason.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Text.h"

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

std::u16string ToU16(const fs::path& path) {
#ifdef _WIN32
    return std::u16string(path.native().begin(), path.native().end());
#else
    return Utf8ToUtf16(path.native());
#endif
}

bool WriteFile(const fs::path& path, std::string_view content) {
    std::ofstream out(path, std::ios::binary);
    out.write(content.data(), std::streamsize(content.size()));
    return out.good();
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
    while (reader.Next(entry)) {
        EXPECT_TRUE(listing.emplace(entry.strName, entry).second) << "listed twice";
    }
    return listing;
}

CListing ListDirectory(const fs::path& dir) {
    CDirectoryReader reader;
    EXPECT_TRUE(reader.Open(ToU16(dir))) << "error " << reader.GetLastError();
    return ReadListing(reader);
}

double Ticks(FILETIME ft) { return double(FileTimeToUInt64(ft)); }

void ExpectNearNow(FILETIME ft, const char* pszWhich) {
    EXPECT_NEAR(Ticks(ft), Ticks(GetSystemTimeAsFileTime()), double(60 * kTicksPerSecond))
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

bool IsListable(const fs::path& dir) {
    std::error_code ec;
    fs::directory_iterator it(dir, ec);
    return !ec;
}

class FileSystemTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::random_device random;
        const fs::path base = fs::temp_directory_path();
        for (int nTry = 0; nTry < 100 && m_pathRoot.empty(); ++nTry) {
            const auto nClock = std::chrono::steady_clock::now().time_since_epoch().count();
            const fs::path candidate = base / ("zorvane-fs-" + std::to_string(random()) + "-" +
                                               std::to_string(nClock % 1000000));
            std::error_code ec;
            if (fs::create_directory(candidate, ec)) m_pathRoot = candidate;
        }
        ASSERT_FALSE(m_pathRoot.empty()) << "cannot create a directory under " << base;
    }

    void TearDown() override {
        if (m_pathRoot.empty()) return;
        AllowAll(m_pathRoot);
        std::error_code ec;
        fs::remove_all(m_pathRoot, ec);
    }

    // Gives the owner full access again to everything below dir.
    static void AllowAll(const fs::path& dir) {
        std::error_code ec;
        fs::permissions(dir, fs::perms::owner_all, fs::perm_options::add, ec);
        for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
            std::error_code ecItem;
            if (it->is_symlink(ecItem)) continue;
            if (it->is_directory(ecItem)) {
                AllowAll(it->path());
            } else {
                fs::permissions(it->path(), fs::perms::owner_read | fs::perms::owner_write,
                                fs::perm_options::add, ecItem);
            }
        }
    }

    std::u16string Path(const fs::path& relative) const { return ToU16(m_pathRoot / relative); }

    fs::path m_pathRoot;
};

// ---------------------------------------------------------------------------
// Listing

TEST_F(FileSystemTest, ListingGivesEveryEntryWithNameSizeAndKind) {
    struct CCase {
        fs::path name;
        std::u16string strName;
        size_t uSize;
        bool bDirectory;
    };
    const std::vector<CCase> aCases = {
        {"empty.txt", u"empty.txt", 0, false},
        {"data.bin", u"data.bin", 1000, false},
        {u8"Ünïcødé ✓.txt", u"Ünïcødé ✓.txt", 3, false},
        {".dotted", u".dotted", 5, false},
        {"sub", u"sub", 0, true},
    };
    for (const CCase& c : aCases) {
        if (c.bDirectory) {
            ASSERT_TRUE(fs::create_directory(m_pathRoot / c.name));
            ASSERT_TRUE(WriteFile(m_pathRoot / c.name / "inside.txt", "not listed"));
        } else {
            ASSERT_TRUE(WriteFile(m_pathRoot / c.name, std::string(c.uSize, 'x')));
        }
    }

    const CListing listing = ListDirectory(m_pathRoot);
    EXPECT_EQ(listing.size(), aCases.size()) << "only the direct entries, no \".\" or \"..\"";
    for (const CCase& c : aCases) {
        SCOPED_TRACE(Utf16ToUtf8(c.strName));
        const auto it = listing.find(c.strName);
        ASSERT_NE(it, listing.end());
        const CDirEntry& entry = it->second;
        EXPECT_EQ(entry.Size(), double(c.uSize));
        EXPECT_EQ(entry.uSizeHigh, 0u);
        EXPECT_EQ(entry.IsDirectory(), c.bDirectory);
        EXPECT_EQ(entry.uAttributes & ATTR_REPARSE_POINT, 0u);
        EXPECT_TRUE((entry.uAttributes & ATTR_NORMAL) == 0 || entry.uAttributes == ATTR_NORMAL)
            << "ATTR_NORMAL stands alone, attributes " << entry.uAttributes;
#ifndef _WIN32
        const bool bHidden = c.strName[0] == u'.';
        EXPECT_EQ((entry.uAttributes & ATTR_HIDDEN) != 0, bHidden) << "hidden = leading dot";
#endif

        // The path queries agree with the listing.
        EXPECT_EQ(GetFileAttributes(Path(c.name)), entry.uAttributes);
        CDirEntry info;
        ASSERT_TRUE(GetEntryInfo(Path(c.name), info));
        EXPECT_EQ(info.Size(), entry.Size());
        EXPECT_EQ(info.uAttributes, entry.uAttributes);
        EXPECT_EQ(info.ftModified, entry.ftModified);
    }
}

TEST_F(FileSystemTest, ReadOnlyFileHasTheReadOnlyBit) {
    ASSERT_TRUE(WriteFile(m_pathRoot / "locked.txt", "data"));
    ASSERT_TRUE(WriteFile(m_pathRoot / "open.txt", "data"));
    fs::permissions(m_pathRoot / "locked.txt",
                    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);

    const CListing listing = ListDirectory(m_pathRoot);
    ASSERT_EQ(listing.count(u"locked.txt"), 1u);
    ASSERT_EQ(listing.count(u"open.txt"), 1u);
    EXPECT_NE(listing.at(u"locked.txt").uAttributes & ATTR_READONLY, 0u);
    EXPECT_EQ(listing.at(u"open.txt").uAttributes & ATTR_READONLY, 0u);
    EXPECT_NE(GetFileAttributes(Path("locked.txt")) & ATTR_READONLY, 0u);
}

TEST_F(FileSystemTest, TimesOfANewFileAreNowAndInOrder) {
    ASSERT_TRUE(WriteFile(m_pathRoot / "new.txt", "fresh"));
    const CListing listing = ListDirectory(m_pathRoot);
    ASSERT_EQ(listing.count(u"new.txt"), 1u);
    const CDirEntry& entry = listing.at(u"new.txt");
    ExpectNearNow(entry.ftCreated, "created");
    ExpectNearNow(entry.ftAccessed, "accessed");
    ExpectNearNow(entry.ftModified, "modified");
    // Not compared with the access time: without a birth time the creation
    // time comes from the write, which leaves the access time behind.
    EXPECT_LE(CompareFileTime(entry.ftCreated, entry.ftModified), 0);
}

TEST_F(FileSystemTest, SetTimesAreListedExactly) {
    // 2001-09-09 01:46:40.1234567 and 2004-11-09 11:33:20.7654321 UTC.
    const FILETIME ftModified = FileTimeFromUInt64(126444736001234567ULL);
    const FILETIME ftAccessed = FileTimeFromUInt64(127444736007654321ULL);
    ASSERT_TRUE(WriteFile(m_pathRoot / "old.txt", "old"));
    ASSERT_TRUE(SetFileTimes(Path("old.txt"), FILETIME{}, ftAccessed, ftModified));

    const CListing listing = ListDirectory(m_pathRoot);
    ASSERT_EQ(listing.count(u"old.txt"), 1u);
    const CDirEntry& entry = listing.at(u"old.txt");
    EXPECT_EQ(FileTimeToUInt64(entry.ftModified), FileTimeToUInt64(ftModified));
    EXPECT_EQ(FileTimeToUInt64(entry.ftAccessed), FileTimeToUInt64(ftAccessed));
    // Creation is the real birth (now) where the system keeps one, else the
    // earlier of the change and modification times.
    if (HasBirthTime(m_pathRoot / "old.txt") || !(entry.ftCreated == ftModified)) {
        ExpectNearNow(entry.ftCreated, "created");
    }
}

TEST_F(FileSystemTest, GetSelfDescribesTheOpenDirectory) {
    ASSERT_TRUE(fs::create_directory(m_pathRoot / "plain"));
    ASSERT_TRUE(fs::create_directory(m_pathRoot / ".hidden"));

    CDirectoryReader reader;
    CDirEntry self;
    EXPECT_FALSE(reader.GetSelf(self)) << "not open yet";
    ASSERT_TRUE(reader.Open(Path("plain")));
    ASSERT_TRUE(reader.GetSelf(self));
    EXPECT_TRUE(self.IsDirectory());
    EXPECT_EQ(self.Size(), 0.0);
    ExpectNearNow(self.ftCreated, "created");
    ExpectNearNow(self.ftModified, "modified");
#ifndef _WIN32
    EXPECT_TRUE(self.strName.empty());
    EXPECT_EQ(self.uAttributes & ATTR_HIDDEN, 0u);

    // Hidden by its own name, whether opened by path or from its parent.
    ASSERT_TRUE(reader.Open(Path(".hidden")));
    ASSERT_TRUE(reader.GetSelf(self));
    EXPECT_NE(self.uAttributes & ATTR_HIDDEN, 0u);
    CDirectoryReader parent, child;
    ASSERT_TRUE(parent.Open(ToU16(m_pathRoot)));
    ASSERT_TRUE(child.OpenChild(parent, u".hidden"));
    ASSERT_TRUE(child.GetSelf(self));
    EXPECT_NE(self.uAttributes & ATTR_HIDDEN, 0u);
    EXPECT_EQ(GetFileAttributes(Path(".hidden") + u"/"), ATTR_DIRECTORY | ATTR_HIDDEN);
#endif
}

TEST_F(FileSystemTest, LargeFileSizeSplitsIntoTwoHalves) {
    constexpr uint64_t kSize = (5ULL << 30) + 123;
    std::error_code ec;
    const fs::space_info space = fs::space(m_pathRoot, ec);
    if (ec || space.available < kSize + (1ULL << 30)) {
        GTEST_SKIP() << "no room for a 5 GiB file should it not be sparse";
    }
    ASSERT_TRUE(WriteFile(m_pathRoot / "big.bin", ""));
    fs::resize_file(m_pathRoot / "big.bin", kSize, ec);
    if (ec) GTEST_SKIP() << "the file system refuses a 5 GiB file: " << ec.message();

    const CListing listing = ListDirectory(m_pathRoot);
    ASSERT_EQ(listing.count(u"big.bin"), 1u);
    const CDirEntry& entry = listing.at(u"big.bin");
    EXPECT_EQ(entry.uSizeHigh, 1u);
    EXPECT_EQ(entry.uSizeLow, (1u << 30) + 123u);
    EXPECT_EQ(entry.Size(), double(kSize));
    CDirEntry info;
    ASSERT_TRUE(GetEntryInfo(Path("big.bin"), info));
    EXPECT_EQ(info.Size(), double(kSize));
}

// ---------------------------------------------------------------------------
// Refused and failed opens

TEST_F(FileSystemTest, OpenFailuresTellWhy) {
    ASSERT_TRUE(WriteFile(m_pathRoot / "file.txt", "x"));
    struct CCase {
        const char* pszWhat;
        fs::path name;
        int nPosixError;
    };
    const CCase aCases[] = {
        {"missing", "missing", ERR_FILE_NOT_FOUND},
        {"below a missing directory", fs::path("missing") / "deeper", ERR_FILE_NOT_FOUND},
        {"a file", "file.txt", ERR_PATH_NOT_FOUND},
        {"below a file", fs::path("file.txt") / "x", ERR_PATH_NOT_FOUND},
    };
    CDirectoryReader parent;
    ASSERT_TRUE(parent.Open(ToU16(m_pathRoot)));
    for (const CCase& c : aCases) {
        SCOPED_TRACE(c.pszWhat);
        CDirectoryReader byPath, byParent;
        EXPECT_FALSE(byPath.Open(Path(c.name)));
        EXPECT_FALSE(byPath.IsOpen());
        EXPECT_FALSE(byParent.OpenChild(parent, ToU16(c.name)));
#ifdef _WIN32
        EXPECT_NE(byPath.GetLastError(), ERR_NONE);
        EXPECT_NE(byPath.GetLastError(), ERR_ACCESS_DENIED);
        EXPECT_NE(byParent.GetLastError(), ERR_NONE);
#else
        EXPECT_EQ(byPath.GetLastError(), c.nPosixError);
        EXPECT_EQ(byParent.GetLastError(), c.nPosixError);
#endif
    }

    CDirectoryReader closed, child;
    EXPECT_FALSE(child.OpenChild(closed, u"anything"));
}

TEST_F(FileSystemTest, UnreadableDirectoryIsRefusedWithAccessDenied) {
    const fs::path locked = m_pathRoot / "locked";
    ASSERT_TRUE(fs::create_directory(locked));
    ASSERT_TRUE(WriteFile(locked / "secret.txt", "x"));
    fs::permissions(locked, fs::perms::none);
    if (IsListable(locked)) {
        GTEST_SKIP() << "permission bits do not stop this user (root, or Windows)";
    }

    CDirectoryReader reader;
    EXPECT_FALSE(reader.Open(ToU16(locked)));
    EXPECT_EQ(reader.GetLastError(), ERR_ACCESS_DENIED);

    CDirectoryReader parent, child;
    ASSERT_TRUE(parent.Open(ToU16(m_pathRoot)));
    EXPECT_FALSE(child.OpenChild(parent, u"locked"));
    EXPECT_EQ(child.GetLastError(), ERR_ACCESS_DENIED);

    // Its parent still lists it as a directory.
    const CListing listing = ReadListing(parent);
    ASSERT_EQ(listing.count(u"locked"), 1u);
    EXPECT_TRUE(listing.at(u"locked").IsDirectory());
}

TEST_F(FileSystemTest, ReadableButUnsearchableDirectoryStillListsItsNames) {
    const fs::path dir = m_pathRoot / "names-only";
    ASSERT_TRUE(fs::create_directory(dir));
    ASSERT_TRUE(fs::create_directory(dir / "inner"));
    ASSERT_TRUE(WriteFile(dir / "file.txt", "x"));
    fs::permissions(dir, fs::perms::owner_read);
    std::error_code ec;
    if (fs::exists(dir / "file.txt", ec)) {
        GTEST_SKIP() << "permission bits do not stop this user (root, or Windows)";
    }

    CDirectoryReader reader;
    ASSERT_TRUE(reader.Open(ToU16(dir)));
    CDirectoryReader child;
    EXPECT_FALSE(child.OpenChild(reader, u"inner"));
    EXPECT_EQ(child.GetLastError(), ERR_ACCESS_DENIED);

    const CListing listing = ReadListing(reader);
    ASSERT_EQ(listing.size(), 2u);
    ASSERT_EQ(listing.count(u"inner"), 1u);
    ASSERT_EQ(listing.count(u"file.txt"), 1u);
    EXPECT_TRUE(listing.at(u"inner").IsDirectory());
    EXPECT_FALSE(listing.at(u"file.txt").IsDirectory());
}

// ---------------------------------------------------------------------------
// Links and awkward trees

TEST_F(FileSystemTest, SymbolicLinksListAsReparsePointsAndAreNotFollowed) {
    ASSERT_TRUE(fs::create_directory(m_pathRoot / "target"));
    ASSERT_TRUE(WriteFile(m_pathRoot / "target" / "inside.txt", "x"));
    std::error_code ec;
    fs::create_directory_symlink(m_pathRoot / "target", m_pathRoot / "link", ec);
    if (ec) GTEST_SKIP() << "cannot create symbolic links here: " << ec.message();
    fs::create_symlink(m_pathRoot / "nowhere", m_pathRoot / "dangling", ec);
    ASSERT_FALSE(ec) << ec.message();

    const CListing listing = ListDirectory(m_pathRoot);
    EXPECT_EQ(listing.size(), 3u);
    for (const std::u16string strName : {u"link", u"dangling"}) {
        SCOPED_TRACE(Utf16ToUtf8(strName));
        ASSERT_EQ(listing.count(strName), 1u) << "a link is listed even when it leads nowhere";
        EXPECT_NE(listing.at(strName).uAttributes & ATTR_REPARSE_POINT, 0u);
        EXPECT_NE(GetFileAttributes(Path(strName)) & ATTR_REPARSE_POINT, 0u);
    }
    ASSERT_EQ(listing.count(u"target"), 1u);
    EXPECT_EQ(listing.at(u"target").uAttributes & ATTR_REPARSE_POINT, 0u);

    // A link to a directory carries the directory bit too, as on Windows,
    // so walkers skip it; a dangling link lists as a file.
    EXPECT_TRUE(listing.at(u"link").IsDirectory());
    EXPECT_FALSE(listing.at(u"dangling").IsDirectory());
#ifndef _WIN32
    // The link itself, not what it leads to.
    EXPECT_EQ(listing.at(u"link").Size(), 0.0);
    CDirectoryReader parent, child;
    ASSERT_TRUE(parent.Open(ToU16(m_pathRoot)));
    EXPECT_FALSE(child.OpenChild(parent, u"link"));
#endif
}

#ifndef _WIN32
// Nested directories made step by step relative to handles, so the chain
// may run deeper than any path can name; removed the same way.
class CDeepChain {
public:
    CDeepChain(const fs::path& root, std::string strName) : m_strName(std::move(strName)) {
        m_aFds.push_back(open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    ~CDeepChain() {
        if (m_aFds.back() >= 0) {
            unlinkat(m_aFds.back(), kLeaf, 0);
            unlinkat(m_aFds.back(), m_strName.c_str(), AT_REMOVEDIR);
        }
        for (size_t i = m_aFds.size(); i-- > 1;) {
            close(m_aFds[i]);
            unlinkat(m_aFds[i - 1], m_strName.c_str(), AT_REMOVEDIR);
        }
        if (m_aFds[0] >= 0) close(m_aFds[0]);
    }

    bool AddLevel() {
        const int nFd = m_aFds.back();
        if (nFd < 0 || mkdirat(nFd, m_strName.c_str(), 0700) != 0) return false;
        m_aFds.push_back(openat(nFd, m_strName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        return m_aFds.back() >= 0;
    }

    bool AddLeaf(std::string_view content) {
        const int nFd = openat(m_aFds.back(), kLeaf, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (nFd < 0) return false;
        const bool bOk = write(nFd, content.data(), content.size()) == ssize_t(content.size());
        return close(nFd) == 0 && bOk;
    }

    static constexpr const char* kLeaf = "leaf.txt";

private:
    std::string m_strName;
    std::vector<int> m_aFds;
};
#endif

TEST_F(FileSystemTest, OpenChildWalksBelowThePathLengthLimit) {
#ifdef _WIN32
    GTEST_SKIP() << "the chain is built with POSIX handle-relative calls";
#else
    const std::string strName(200, 'd');
    const int nLevels = PATH_MAX / int(strName.size() + 1) + 2;
    ASSERT_GT(m_pathRoot.native().size() + nLevels * (strName.size() + 1), size_t(PATH_MAX));
    CDeepChain chain(m_pathRoot, strName);
    for (int i = 0; i < nLevels; ++i) ASSERT_TRUE(chain.AddLevel()) << "level " << i;
    ASSERT_TRUE(chain.AddLeaf("deep"));

    CDirectoryReader reader;
    ASSERT_TRUE(reader.Open(ToU16(m_pathRoot)));
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
    ASSERT_EQ(listing.count(u"leaf.txt"), 1u);
    EXPECT_EQ(listing.at(u"leaf.txt").Size(), 4.0);
#endif
}

TEST_F(FileSystemTest, NameThatIsNotUtf8RoundTrips) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows names are UTF-16 already";
#else
    const std::string strBytes = "bad\xff\xfe.txt";
    if (!WriteFile(m_pathRoot / strBytes, "payload")) {
        GTEST_SKIP() << "the file system refuses names that are not UTF-8";
    }
    const CListing listing = ListDirectory(m_pathRoot);
    ASSERT_EQ(listing.size(), 1u);
    const std::u16string& strName = listing.begin()->first;
    EXPECT_EQ(Utf16ToUtf8(strName), strBytes);

    const std::u16string strPath = ToU16(m_pathRoot) + kPathSeparator + strName;
    EXPECT_EQ(ReadAll(strPath), std::optional<std::string>("payload"));
    CDirEntry info;
    ASSERT_TRUE(GetEntryInfo(strPath, info));
    EXPECT_EQ(info.strName, strName);
    EXPECT_EQ(info.Size(), 7.0);
#endif
}

// ---------------------------------------------------------------------------
// Reading files

TEST_F(FileSystemTest, FileReaderReadsSeeksAndRefusesWhatIsNotAFile) {
    ASSERT_TRUE(WriteFile(m_pathRoot / "digits.txt", "0123456789"));
    CFileReader reader;
    char aBuffer[100];
    EXPECT_EQ(reader.Read(aBuffer, sizeof aBuffer), -1) << "not open";
    ASSERT_TRUE(reader.Open(Path("digits.txt")));
    EXPECT_TRUE(reader.IsOpen());

    ASSERT_EQ(reader.Read(aBuffer, 4), 4);
    EXPECT_EQ(std::string_view(aBuffer, 4), "0123");
    ASSERT_TRUE(reader.Seek(7));
    ASSERT_EQ(reader.Read(aBuffer, sizeof aBuffer), 3);
    EXPECT_EQ(std::string_view(aBuffer, 3), "789");
    EXPECT_EQ(reader.Read(aBuffer, sizeof aBuffer), 0) << "at the end";
    ASSERT_TRUE(reader.Seek(2));
    ASSERT_EQ(reader.Read(aBuffer, 2), 2);
    EXPECT_EQ(std::string_view(aBuffer, 2), "23");

    reader.Close();
    EXPECT_FALSE(reader.IsOpen());
    EXPECT_EQ(ReadAll(Path("digits.txt")), std::optional<std::string>("0123456789"));
    EXPECT_FALSE(reader.Open(Path("missing.txt")));
    EXPECT_FALSE(reader.Open(ToU16(m_pathRoot))) << "a directory is not read as a file";
    EXPECT_FALSE(reader.IsOpen());
}

// ---------------------------------------------------------------------------
// Path queries

TEST_F(FileSystemTest, LinkCountFollowsHardLinks) {
    ASSERT_TRUE(WriteFile(m_pathRoot / "one.txt", "x"));
    EXPECT_EQ(GetLinkCount(Path("one.txt")), 1u);
    std::error_code ec;
    fs::create_hard_link(m_pathRoot / "one.txt", m_pathRoot / "two.txt", ec);
    if (ec) GTEST_SKIP() << "cannot create hard links here: " << ec.message();
    EXPECT_EQ(GetLinkCount(Path("one.txt")), 2u);
    EXPECT_EQ(GetLinkCount(Path("two.txt")), 2u);
    fs::remove(m_pathRoot / "two.txt");
    EXPECT_EQ(GetLinkCount(Path("one.txt")), 1u);
}

TEST_F(FileSystemTest, SizeOnDiskCoversTheWrittenBytes) {
    // Varied bytes, so that a compressing file system cannot shrink them.
    std::mt19937 random(42);
    std::string strData(65536, '\0');
    for (char& ch : strData) ch = char(random());
    ASSERT_TRUE(WriteFile(m_pathRoot / "data.bin", strData));
    EXPECT_GE(GetSizeOnDisk(Path("data.bin")), double(strData.size()));
}

TEST_F(FileSystemTest, VolumeQueriesDescribeTheVolumeOfTheTemporaryDirectory) {
    const std::u16string strRoot = ToU16(m_pathRoot);
    EXPECT_GT(GetClusterSize(strRoot), 0.0);

    std::u16string strFileSystem;
    EXPECT_TRUE(GetVolumeInformation(strRoot, strFileSystem));
    EXPECT_FALSE(strFileSystem.empty());

    double dFree = -1, dTotal = -1;
    ASSERT_TRUE(GetDiskFreeSpace(strRoot, dFree, dTotal));
    EXPECT_GT(dTotal, 0.0);
    EXPECT_GE(dFree, 0.0);
    EXPECT_LE(dFree, dTotal);

    // The drive starts the path as the system resolves it.
#ifdef _WIN32
    const std::u16string strResolved = ToU16(fs::absolute(m_pathRoot));
#else
    const std::u16string strResolved = ToU16(fs::canonical(m_pathRoot));
#endif
    const std::u16string strDrive = GetDriveOfPath(strRoot);
    EXPECT_FALSE(strDrive.empty());
    EXPECT_TRUE(strResolved.starts_with(strDrive))
        << Utf16ToUtf8(strDrive) << " does not start " << Utf16ToUtf8(strResolved);
}

TEST(FileSystemMounts, DriveAndFileSystemComeFromTheMountHoldingThePath) {
#ifndef __linux__
    GTEST_SKIP() << "relies on the Linux /proc mount";
#else
    if (!fs::exists("/proc/self/mountinfo")) GTEST_SKIP() << "/proc is not mounted";
    EXPECT_EQ(Utf16ToUtf8(GetDriveOfPath(u"/proc/self")), "/proc");
    EXPECT_EQ(Utf16ToUtf8(GetDriveOfPath(u"/")), "/");
    std::u16string strFileSystem;
    ASSERT_TRUE(GetVolumeInformation(u"/proc/self/status", strFileSystem));
    EXPECT_EQ(Utf16ToUtf8(strFileSystem), "proc") << "the longest mount point holding the path";
#endif
}

TEST_F(FileSystemTest, MissingPathGivesTheFailureValues) {
    const std::u16string strMissing = Path("missing");
    EXPECT_EQ(GetFileAttributes(strMissing), ATTR_INVALID);
    CDirEntry entry;
    EXPECT_FALSE(GetEntryInfo(strMissing, entry));
    EXPECT_EQ(GetSizeOnDisk(strMissing), 0.0);
    EXPECT_EQ(GetLinkCount(strMissing), 0u);
    std::u16string strOwner;
    EXPECT_FALSE(LookupOwnerName(strMissing, strOwner));
#ifndef _WIN32
    // Windows names the volume of any path on a drive, present or not.
    EXPECT_EQ(GetDriveOfPath(strMissing), u"");
    EXPECT_EQ(GetClusterSize(strMissing), 0.0);
    std::u16string strFileSystem;
    EXPECT_FALSE(GetVolumeInformation(strMissing, strFileSystem));
    double dFree = 0, dTotal = 0;
    EXPECT_FALSE(GetDiskFreeSpace(strMissing, dFree, dTotal));
#endif
}

TEST_F(FileSystemTest, OwnerOfANewFileIsTheCurrentUser) {
    ASSERT_TRUE(WriteFile(m_pathRoot / "mine.txt", "x"));
    std::u16string strOwner;
    ASSERT_TRUE(LookupOwnerName(Path("mine.txt"), strOwner));
    EXPECT_FALSE(strOwner.empty());
#ifndef _WIN32
    const passwd* pUser = getpwuid(geteuid());
    const std::string strExpected = pUser ? pUser->pw_name : std::to_string(geteuid());
    EXPECT_EQ(Utf16ToUtf8(strOwner), strExpected);
#endif
}

TEST(FileSystemPaths, FullPathIsAbsoluteAndLexicallyNormal) {
    const fs::path cwd = fs::current_path();
    EXPECT_EQ(GetFullPathName(u"a/./b/../c"), ToU16(cwd / "a" / "c"));
    EXPECT_EQ(GetFullPathName(u"../x"), ToU16(cwd.parent_path() / "x"));
    EXPECT_EQ(GetFullPathName(u""), u"");
#ifndef _WIN32
    struct CCase {
        std::u16string_view path;
        std::u16string_view strFull;
    };
    const CCase aCases[] = {
        {u"/x/../y", u"/y"},
        {u"/../..", u"/"},
        {u"//a///b/./", u"/a/b/"},
        {u"/a/b/..", u"/a"},
        {u"/a/b/.", u"/a/b"},
        {u"/", u"/"},
        {u"/a/\xDCFF/b", u"/a/\xDCFF/b"},
    };
    for (const CCase& c : aCases) {
        EXPECT_EQ(GetFullPathName(c.path), c.strFull) << Utf16ToUtf8(c.path);
    }
#endif
}

TEST_F(FileSystemTest, FullPathDoesNotResolveLinks) {
    ASSERT_TRUE(fs::create_directories(m_pathRoot / "far" / "target"));
    std::error_code ec;
    fs::create_directory_symlink(m_pathRoot / "far" / "target", m_pathRoot / "link", ec);
    if (ec) GTEST_SKIP() << "cannot create symbolic links here: " << ec.message();
    EXPECT_EQ(GetFullPathName(ToU16(m_pathRoot / "link" / ".." / "x")), Path("x"));
}

TEST(FileSystemPaths, DriveOfWindowsPathFollowsTheTextualRule) {
    struct CCase {
        std::u16string_view path;
        std::u16string_view strDrive;
    };
    const CCase aCases[] = {
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
    for (const CCase& c : aCases) {
        EXPECT_EQ(DriveOfWindowsPath(c.path), c.strDrive) << Utf16ToUtf8(c.path);
    }
}

}  // namespace
}  // namespace zv::platform
