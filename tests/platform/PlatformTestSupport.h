// Helpers shared by the platform tests: a fixture with a temporary directory,
// readers that gather a file or a listing through the interface under test,
// and a scoped environment variable.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <tuple>

#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv::test {

#ifdef _WIN32
inline constexpr bool kWindows = true;
#else
inline constexpr bool kWindows = false;
#endif

inline std::u16string ToU16(const std::filesystem::path& path) {
#ifdef _WIN32
    return std::u16string(path.native().begin(), path.native().end());
#else
    return platform::Utf8ToUtf16(path.native());
#endif
}

using CListing = std::map<std::u16string, CDirEntry>;

// What a listing, GetEntryInfo and GetSelf must agree on for one entry.
inline auto Facts(const CDirEntry& entry) {
    return std::tuple(entry.uAttributes, entry.Size(), FileTimeToUInt64(entry.ftCreated),
                      FileTimeToUInt64(entry.ftModified));
}

inline CListing ReadListing(platform::CDirectoryReader& reader) {
    CListing listing;
    CDirEntry entry;
    while (reader.Next(entry)) {
        EXPECT_TRUE(listing.emplace(entry.strName, entry).second) << "listed twice";
    }
    EXPECT_EQ(reader.GetLastError(), ERR_NONE) << "the end of a listing is no error";
    return listing;
}

// A test with a temporary directory of its own.
class TempDirTest : public ::testing::Test {
protected:
    // Gives the owner back what a test took away, so that the directory can
    // be removed.
    void TearDown() override { AllowAll(Root()); }

    static void AllowAll(const std::filesystem::path& dir) {
        namespace fs = std::filesystem;
        std::error_code ec;
        fs::permissions(dir, fs::perms::owner_all, fs::perm_options::add, ec);
        for (const fs::directory_entry& entry : fs::directory_iterator(dir, ec)) {
            if (entry.is_directory(ec)) AllowAll(entry.path());
            fs::permissions(entry.path(), fs::perms::owner_read | fs::perms::owner_write,
                            fs::perm_options::add, ec);
        }
    }

    const std::filesystem::path& Root() const { return m_temp.Path(); }
    std::u16string Path(const std::filesystem::path& relative) const {
        return ToU16(Root() / relative);
    }

    CTempDir m_temp;
};

#ifndef _WIN32
// Sets an environment variable, or unsets it for nullptr, until the end of
// the scope.
class CScopedEnv {
public:
    CScopedEnv(const char* pszName, const char* pszValue) : m_strName(pszName) {
        if (const char* pszOld = std::getenv(pszName)) m_strOld = pszOld;
        Set(pszValue);
    }
    ~CScopedEnv() { Set(m_strOld ? m_strOld->c_str() : nullptr); }

    void Set(const char* pszValue) const {
        pszValue ? setenv(m_strName.c_str(), pszValue, 1) : unsetenv(m_strName.c_str());
        tzset();  // for TZ
    }

private:
    std::string m_strName;
    std::optional<std::string> m_strOld;
};
#endif

}  // namespace zv::test
