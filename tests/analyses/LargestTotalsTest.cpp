// The largest owner and type tables against an independent count of a
// generated tree, their sort codes, the on-request computation and removal.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "analyses/LargestScanSteps.h"
#include "analyses/LargestTotals.h"
#include "core/document/Document.h"
#include "core/host/ScriptedHost.h"
#include "core/scan/Scanner.h"
#include "support/TempDir.h"

#ifndef _WIN32
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zv {
namespace {

namespace fs = std::filesystem;

struct CCount {
    uint32_t m_nFiles = 0;
    double m_dSize = 0;
    bool operator==(const CCount&) const = default;
};
using CCounts = std::map<std::u16string, CCount>;

CCounts Counts(const CTotalTable& aTable) {
    CCounts counts;
    for (const auto& pEntry : aTable)
        counts[pEntry->m_strKey] = {pEntry->m_nFiles, pEntry->m_dSize};
    return counts;
}

std::vector<std::u16string> Keys(const CTotalTable& aTable) {
    std::vector<std::u16string> aKeys;
    for (const auto& pEntry : aTable) aKeys.push_back(pEntry->m_strKey);
    return aKeys;
}

class LargestTotalsTest : public ::testing::Test {
protected:
    void SetUp() override {
        // Extensions that differ in case are two types; none and a final
        // dot are both the empty type.
        const char* aszNames[] = {"a.txt", "b.TXT", "c.txt", "noext", "d.", "e.tar.gz",
                                  "f.gz",  "g.c",   "h.c",   "i.h",   "j"};
        int i = 0;
        for (const char* pszName : aszNames) {
            const fs::path dir = m_temp.Path() / (i % 2 ? "one" : "two");
            fs::create_directories(dir);
            m_aFiles.push_back(m_temp.WriteFile(dir / pszName, std::string(size_t(i) * 37, 'z')));
            ++i;
        }
    }

    void Scan() {
        auto* pRoot = new CRootDirectoryData(m_temp.Path().u16string());
        pRoot->Prepare(m_doc.m_scan.m_aDrives);
        m_doc.m_scan.m_aRoots.Add(pRoot);
        CLargestScanSteps steps;
        CScanner(m_doc, nullptr, &steps).Rescan();
    }

    // The type of each file from its name alone.
    CCounts CountTypes() const {
        CCounts counts;
        for (const fs::path& path : m_aFiles) {
            const std::u16string strName = path.filename().u16string();
            const size_t nDot = strName.rfind(u'.');
            const std::u16string strType =
                nDot == std::u16string::npos ? u"" : strName.substr(nDot + 1);
            CCount& count = counts[strType];
            ++count.m_nFiles;
            count.m_dSize += double(fs::file_size(path));
        }
        return counts;
    }

    test::CScriptedHost m_host;
    test::CTempDir m_temp;
    std::vector<fs::path> m_aFiles;
    CWZorvaneDoc m_doc;
};

TEST_F(LargestTotalsTest, TypeTableCountsEveryTypeAndEndsBySizeThenTypeDescending) {
    m_doc.m_options.m_bLargestType = 1;
    Scan();
    const CTotalTable& aTypes = m_doc.m_results.m_totals.m_aTypes;
    EXPECT_EQ(Counts(aTypes), CountTypes());
    for (size_t i = 1; i < aTypes.size(); ++i) {
        const CTotalEntry &a = *aTypes[i - 1], &b = *aTypes[i];
        EXPECT_TRUE(a.m_dSize > b.m_dSize || (a.m_dSize == b.m_dSize && a.m_strKey > b.m_strKey));
    }
    EXPECT_EQ(m_doc.m_results.m_totals.m_nTypeSort, TotalSortSizeDesc);
}

TEST_F(LargestTotalsTest, OwnerTableCountsEachOwnersFilesAndBytes) {
    CCounts want;
#ifndef _WIN32
    // Root can give files to other owners; anyone else has them all.
    const bool bRoot = geteuid() == 0;
    for (size_t i = 0; i < m_aFiles.size(); ++i) {
        if (bRoot) {
            ASSERT_EQ(chown(m_aFiles[i].c_str(), uid_t(i % 3), gid_t(0)), 0);
        }
        struct stat st;
        ASSERT_EQ(stat(m_aFiles[i].c_str(), &st), 0);
        const passwd* pUser = getpwuid(st.st_uid);
        ASSERT_NE(pUser, nullptr);
        CCount& count = want[fs::path(pUser->pw_name).u16string()];
        ++count.m_nFiles;
        count.m_dSize += double(st.st_size);
    }
    if (bRoot) {
        EXPECT_EQ(want.size(), 3u);
    }
#endif
    m_doc.m_options.m_bLargestOwner = 1;
    Scan();
    const CCounts got = Counts(m_doc.m_results.m_totals.m_aOwners);
#ifdef _WIN32
    // One user owns the whole tree.
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got.begin()->second.m_nFiles, m_aFiles.size());
#else
    EXPECT_EQ(got, want);
#endif
    // Kept sorted by name while filled.
    std::vector<std::u16string> aKeys = Keys(m_doc.m_results.m_totals.m_aOwners);
    EXPECT_TRUE(std::is_sorted(aKeys.begin(), aKeys.end()));
}

TEST_F(LargestTotalsTest, OnRequestAsksForOwnersComputesOnceAndMatchesTheScan) {
    Scan();
    ASSERT_TRUE(m_doc.m_results.m_totals.m_aOwners.empty());
    m_host.m_aAnswers = {false, true};
    EXPECT_FALSE(PrepareLargestOwner(m_doc));
    EXPECT_TRUE(m_doc.m_results.m_totals.m_aOwners.empty());
    EXPECT_TRUE(PrepareLargestOwner(m_doc));
    EXPECT_TRUE(PrepareLargestOwner(m_doc));  // not empty: no question, no second count
    EXPECT_EQ(m_host.m_aQuestions.size(), 2u);
    uint32_t nFiles = 0;
    for (const auto& pEntry : m_doc.m_results.m_totals.m_aOwners) nFiles += pEntry->m_nFiles;
    EXPECT_EQ(nFiles, m_aFiles.size());

    PrepareLargestType(m_doc);
    EXPECT_EQ(Counts(m_doc.m_results.m_totals.m_aTypes), CountTypes());
}

TEST(LargestTotals, SortCodesAndRemoval) {
    test::CScriptedHost host;
    CWZorvaneDoc doc;
    const struct {
        const char16_t* pszName;
        double dSize;
    } aFiles[] = {{u"x.b", 10}, {u"y.a", 30}, {u"z.b", 5}, {u"w.c", 1}, {u"v.c", 2}, {u"u.c", 3}};
    std::vector<std::unique_ptr<CFileData>> aRecords;
    for (const auto& file : aFiles) {
        aRecords.push_back(std::make_unique<CFileData>(file.pszName, file.dSize, FILETIME{},
                                                       FILETIME{}, FILETIME{}, 0, nullptr, false,
                                                       nullptr, u"owner"));
        AddTypeTotals(doc, *aRecords.back());
        AddOwnerTotals(doc, *aRecords.back());
    }
    CTotalTable& aTypes = doc.m_results.m_totals.m_aTypes;  // a: 1/30, b: 2/15, c: 3/6
    const struct {
        int nCode;
        std::vector<std::u16string> aKeys;
    } aCases[] = {
        {TotalSortNameAsc, {u"a", u"b", u"c"}},  {TotalSortNameDesc, {u"c", u"b", u"a"}},
        {TotalSortFilesAsc, {u"a", u"b", u"c"}}, {TotalSortFilesDesc, {u"c", u"b", u"a"}},
        {TotalSortSizeAsc, {u"c", u"b", u"a"}},  {TotalSortSizeDesc, {u"a", u"b", u"c"}},
    };
    for (const auto& test : aCases) {
        SortTotals(aTypes, test.nCode);
        EXPECT_EQ(Keys(aTypes), test.aKeys) << "sort code " << test.nCode;
    }

    // A type with no file left leaves the table; an owner stays at 0.
    SubtractTotals(doc, *aRecords[1]);
    EXPECT_EQ(Keys(aTypes), (std::vector<std::u16string>{u"b", u"c"}));
    for (auto& pRecord : aRecords)
        if (pRecord != aRecords[1]) SubtractTotals(doc, *pRecord);
    EXPECT_TRUE(aTypes.empty());
    EXPECT_EQ(Counts(doc.m_results.m_totals.m_aOwners), (CCounts{{u"owner", {0, 0}}}));
}

}  // namespace
}  // namespace zv
