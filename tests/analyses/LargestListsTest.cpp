// The largest files and directories lists against an independent ranking:
// every record by size, largest first, equal sizes in the order found.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <random>

#include "analyses/LargestLists.h"
#include "analyses/LargestScanSteps.h"
#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/scan/Scanner.h"
#include "support/TempDir.h"

namespace zv {
namespace {

namespace fs = std::filesystem;

// The first n indexes of the sizes ranked largest first, ties in order; a
// limit of 0 keeps one, as the first record is always taken.
std::vector<size_t> Ranked(const std::vector<double>& aSizes, int nLimit) {
    std::vector<size_t> aIndexes(aSizes.size());
    for (size_t i = 0; i < aIndexes.size(); ++i) aIndexes[i] = i;
    std::stable_sort(aIndexes.begin(), aIndexes.end(),
                     [&](size_t a, size_t b) { return aSizes[a] > aSizes[b]; });
    if (nLimit >= 0) aIndexes.resize(std::min(aIndexes.size(), size_t(std::max(nLimit, 1))));
    return aIndexes;
}

struct COfferCase {
    const char* pszName;
    int nLimit;
    std::vector<double> aSizes;

    friend void PrintTo(const COfferCase& test, std::ostream* pOut) { *pOut << test.pszName; }
};

class LargestOfferTest : public ::testing::TestWithParam<COfferCase> {};

TEST_P(LargestOfferTest, FileAndDirectoryListsMatchTheRanking) {
    const COfferCase& test = GetParam();
    CWZorvaneDoc doc;
    doc.m_options.m_nLargestFilesCount = doc.m_options.m_nLargestDirsCount = test.nLimit;
    std::vector<std::unique_ptr<CFileData>> aFiles;
    std::vector<std::unique_ptr<CDirectoryData>> aDirs;
    for (double dSize : test.aSizes) {
        aFiles.push_back(std::make_unique<CFileData>(u"f", dSize, FILETIME{}, FILETIME{},
                                                     FILETIME{}, 0, nullptr, false, nullptr));
        OfferLargestFile(doc, *aFiles.back());
        aDirs.push_back(std::make_unique<CDirectoryData>(nullptr, u"d", FILETIME{}, FILETIME{},
                                                         FILETIME{}, ATTR_DIRECTORY));
        aDirs.back()->m_dFilesSize = dSize;
        OfferLargestDirectory(doc, *aDirs.back());
    }
    SortLargestLists(doc);
    std::vector<CFileData*> aWantFiles;
    std::vector<CDirectoryData*> aWantDirs;
    for (size_t i : Ranked(test.aSizes, test.nLimit)) {
        aWantFiles.push_back(aFiles[i].get());
        aWantDirs.push_back(aDirs[i].get());
    }
    EXPECT_EQ(doc.m_results.m_aLargestFiles, aWantFiles);
    EXPECT_EQ(doc.m_results.m_aLargestDirs, aWantDirs);
}

std::vector<double> RandomSizes(unsigned uSeed, size_t nCount) {
    std::mt19937 rng(uSeed);
    std::vector<double> aSizes(nCount);
    for (double& d : aSizes) d = double(rng() % 8) * 1000;  // many ties
    return aSizes;
}

INSTANTIATE_TEST_SUITE_P(Cases, LargestOfferTest,
                         ::testing::Values(COfferCase{"Empty", 3, {}},
                                           COfferCase{
                                               "OneKeepsTheFirstOfTheLargest", 1, {5, 9, 2, 9, 9}},
                                           COfferCase{"ZeroStillKeepsOne", 0, {5, 3, 9, 9, 1}},
                                           COfferCase{"EqualSizesAtTheCut", 3, {4, 7, 4, 4, 7, 4}},
                                           COfferCase{"LimitAboveTheCount", 10, {3, 1, 3, 2}},
                                           COfferCase{"NoLimit", -1, {3, 1, 3, 2, 8, 0, 3}},
                                           COfferCase{"RandomLimited", 17, RandomSizes(1, 400)},
                                           COfferCase{"RandomUnlimited", -1, RandomSizes(2, 400)}),
                         [](const auto& info) { return info.param.pszName; });

TEST(LargestOffer, FullListRefusesAnEqualNewcomerAndOffSwitchRefusesAll) {
    CWZorvaneDoc doc;
    doc.m_options.m_nLargestFilesCount = 2;
    CFileData a(u"a", 5, {}, {}, {}, 0, nullptr, false, nullptr);
    CFileData b(u"b", 3, {}, {}, {}, 0, nullptr, false, nullptr);
    CFileData c(u"c", 3, {}, {}, {}, 0, nullptr, false, nullptr);
    CFileData d(u"d", 4, {}, {}, {}, 0, nullptr, false, nullptr);
    EXPECT_TRUE(OfferLargestFile(doc, a));
    EXPECT_TRUE(OfferLargestFile(doc, b));
    EXPECT_FALSE(OfferLargestFile(doc, c));
    EXPECT_TRUE(OfferLargestFile(doc, d));
    EXPECT_EQ(doc.m_results.m_dLargestFilesFloor, 4);
    RemoveLargestFile(doc, a);  // nothing moves up in its place
    EXPECT_EQ(doc.m_results.m_aLargestFiles, (std::vector<CFileData*>{&d}));

    doc.m_options.m_bLargestFiles = 0;
    EXPECT_FALSE(OfferLargestFile(doc, a));
    EXPECT_EQ(doc.m_results.m_aLargestFiles.size(), 1u);
}

std::string Named(char chFirst, int n) {
    std::string strName(1, chFirst);
    strName += std::to_string(n);
    return strName;
}

// A generated tree, scanned: the lists against a walk of the disk.
class LargestScanTest : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        SetHost(&m_host);
        std::mt19937 rng(7);
        std::vector<fs::path> aDirs{m_temp.Path()};
        for (int i = 0; i < 12; ++i) {
            const fs::path parent = aDirs[rng() % aDirs.size()];
            aDirs.push_back(parent / Named('d', i));
            fs::create_directory(aDirs.back());
        }
        for (int i = 0; i < 60; ++i)
            m_temp.WriteFile(aDirs[rng() % aDirs.size()] / Named('f', i),
                             std::string(rng() % 6 * 100, 'x'));
    }
    void TearDown() override { SetHost(nullptr); }

    void Scan(int nLimit) {
        m_doc.m_options.m_nLargestFilesCount = m_doc.m_options.m_nLargestDirsCount = nLimit;
        auto* pRoot = new CRootDirectoryData(m_temp.Path().u16string());
        pRoot->Prepare(m_doc.m_scan.m_aDrives);
        m_doc.m_scan.m_aRoots.Add(pRoot);
        CLargestScanSteps steps;
        CScanner(m_doc, nullptr, &steps).Rescan();
        SortLargestLists(m_doc);
    }

    // Directories in the order of the walk: each before its subdirectories,
    // which follow in name order.
    void WalkDirs(const fs::path& dir, std::vector<fs::path>& aDirs,
                  std::vector<double>& aSizes) const {
        aDirs.push_back(dir);
        double dOwn = 0;
        std::vector<fs::path> aChildren;
        for (const auto& entry : fs::directory_iterator(dir)) {
            if (entry.is_directory())
                aChildren.push_back(entry.path());
            else
                dOwn += double(entry.file_size());
        }
        aSizes.push_back(dOwn);
        std::sort(aChildren.begin(), aChildren.end());
        for (const fs::path& child : aChildren) WalkDirs(child, aDirs, aSizes);
    }

    CQuietHost m_host;
    test::CTempDir m_temp;
    CWZorvaneDoc m_doc;
};

TEST_P(LargestScanTest, ListsMatchAnIndependentRankingOfTheTree) {
    const int nLimit = GetParam();
    Scan(nLimit);

    // The files, in the order the scan kept them, are those on the disk;
    // ties rank in that order.
    std::map<fs::path, double> disk;
    for (const auto& entry : fs::recursive_directory_iterator(m_temp.Path()))
        if (entry.is_regular_file()) disk[entry.path()] = double(entry.file_size());
    std::map<fs::path, double> scanned;
    std::vector<double> aSizes;
    for (const CFileData* pFile : m_doc.m_scan.m_aAllFiles) {
        scanned[fs::path(pFile->GetFullPath())] = pFile->m_dSize;
        aSizes.push_back(pFile->m_dSize);
    }
    ASSERT_EQ(scanned, disk);
    std::vector<const CFileData*> aWant;
    for (size_t i : Ranked(aSizes, nLimit)) aWant.push_back(m_doc.m_scan.m_aAllFiles[i]);
    EXPECT_EQ(std::vector<const CFileData*>(m_doc.m_results.m_aLargestFiles.begin(),
                                            m_doc.m_results.m_aLargestFiles.end()),
              aWant);

    std::vector<fs::path> aDirs;
    std::vector<double> aDirSizes;
    WalkDirs(m_temp.Path(), aDirs, aDirSizes);
    std::vector<std::pair<fs::path, double>> aWantDirs, aGotDirs;
    for (size_t i : Ranked(aDirSizes, nLimit)) aWantDirs.emplace_back(aDirs[i], aDirSizes[i]);
    for (const CDirectoryData* pDir : m_doc.m_results.m_aLargestDirs)
        aGotDirs.emplace_back(fs::path(pDir->GetFullPath()), pDir->m_dFilesSize);
    EXPECT_EQ(aGotDirs, aWantDirs);
}

INSTANTIATE_TEST_SUITE_P(Limits, LargestScanTest, ::testing::Values(1, 5, 1000, -1));

}  // namespace
}  // namespace zv
