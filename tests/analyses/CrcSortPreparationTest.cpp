#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "AnalysesTestSupport.h"
#include "analyses/CrcSortPreparation.h"
#include "core/DirectoryData.h"
#include "core/RecordServices.h"
#include "core/RecordTestSupport.h"

namespace zv {
namespace {

// Checksums without files: every file reads 7, and batches are recorded.
class CBatchServices : public IRecordServices {
public:
    CBatchServices() { SetRecordServices(this); }
    ~CBatchServices() override { SetRecordServices(nullptr); }
    uint32_t Crc32OfFile(const std::u16string&, bool&, double) override { return 7; }
    void ComputeCrcs(const std::vector<CFileData*>& aFiles) override {
        m_aBatchSizes.push_back(aFiles.size());
        IRecordServices::ComputeCrcs(aFiles);
    }
    std::vector<size_t> m_aBatchSizes;
};

class CrcSortTest : public ::testing::Test {
protected:
    std::vector<CFileData*> MakeRows(size_t nCount) {
        std::vector<CFileData*> aRows;
        for (size_t i = 0; i < nCount; ++i) {
            m_aFiles.push_back(std::make_unique<CFileData>(
                platform::U16(std::string("f").append(std::to_string(i))), 1.0, FILETIME{},
                FILETIME{}, FILETIME{}, 0, nullptr, false, nullptr));
            aRows.push_back(m_aFiles.back().get());
        }
        return aRows;
    }
    static size_t CountKnown(const std::vector<CFileData*>& aRows) {
        size_t n = 0;
        for (CFileData* p : aRows) n += (p->m_uFlags & FILE_CRC_VALID) ? 1 : 0;
        return n;
    }

    test::CRecordingHost m_host;
    CBatchServices m_services;
    std::vector<std::unique_ptr<CFileData>> m_aFiles;
};

TEST_F(CrcSortTest, FileRowsGoToThePoolInBatchesOfOnePercentOrTwenty) {
    struct Case {
        size_t nRows;
        std::vector<size_t> aBatches;
    };
    const Case aCases[] = {
        {19, {}},
        {45, {20, 20}},
        {3000, std::vector<size_t>(100, 30)},
        {3050, std::vector<size_t>(101, 30)},
    };
    for (const Case& c : aCases) {
        m_services.m_aBatchSizes.clear();
        const std::vector<CFileData*> aRows = MakeRows(c.nRows);
        EXPECT_TRUE(PrepareFileCrcSort(aRows));
        EXPECT_EQ(m_services.m_aBatchSizes, c.aBatches) << c.nRows;
        // The last, smaller batch is left to the sort.
        size_t nInBatches = 0;
        for (size_t n : c.aBatches) nInBatches += n;
        EXPECT_EQ(CountKnown(aRows), nInBatches) << c.nRows;
    }
}

TEST_F(CrcSortTest, ProgressCountsFilesDone) {
    EXPECT_TRUE(PrepareFileCrcSort(MakeRows(45)));
    EXPECT_EQ(m_host.m_nProgressOpened, 1);
    ASSERT_GE(m_host.m_aProgressTexts.size(), 3u);
    EXPECT_EQ(m_host.m_aProgressTexts[0], u"Computing CRC 0% 0/45 files");
    EXPECT_EQ(m_host.m_aProgressTexts[1], u"Computing CRC 2% 1/45 files");
    EXPECT_EQ(m_host.m_aProgressTexts.back(), u"Computing CRC 100% 45/45 files");
    // One text per percentage: 0, then one for each of the 45 steps.
    EXPECT_EQ(m_host.m_aProgressTexts.size(), 46u);
    EXPECT_EQ(m_host.m_aPercents.back(), 100);
}

TEST_F(CrcSortTest, NothingToDoWhenEveryRowIsKnownOrFailed) {
    std::vector<CFileData*> aRows = MakeRows(30);
    for (size_t i = 0; i < aRows.size(); ++i)
        aRows[i]->m_uFlags |= i % 2 ? FILE_CRC_VALID : FILE_CRC_FAILED;
    EXPECT_TRUE(PrepareFileCrcSort(aRows));
    EXPECT_TRUE(PrepareDuplicateFileCrcSort(aRows));
    EXPECT_EQ(m_host.m_nProgressOpened, 0);
    EXPECT_TRUE(m_services.m_aBatchSizes.empty());
}

TEST_F(CrcSortTest, CancelGivesTheSortUp) {
    m_host.m_onPump = [this] {
        if (m_host.m_pDialog) m_host.m_pDialog->OnCancel();
    };
    EXPECT_FALSE(PrepareFileCrcSort(MakeRows(45)));
    EXPECT_FALSE(PrepareDuplicateFileCrcSort(MakeRows(45)));
    EXPECT_TRUE(m_services.m_aBatchSizes.empty());
}

TEST_F(CrcSortTest, DuplicateViewHandsTheWholeListOverAtTheThreshold) {
    std::vector<CFileData*> aRows = MakeRows(45);
    EXPECT_TRUE(PrepareDuplicateFileCrcSort(aRows));
    EXPECT_EQ(m_services.m_aBatchSizes, std::vector<size_t>{45});
    EXPECT_EQ(CountKnown(aRows), 45u);
    EXPECT_EQ(m_host.m_aProgressTexts, std::vector<std::u16string>{u"Computing CRC 0% 0/45 files"});
    EXPECT_EQ(m_host.m_aPercents, std::vector<int>{0});

    m_services.m_aBatchSizes.clear();
    aRows = MakeRows(19);
    EXPECT_TRUE(PrepareDuplicateFileCrcSort(aRows));
    EXPECT_TRUE(m_services.m_aBatchSizes.empty());
    EXPECT_EQ(CountKnown(aRows), 0u);
}

TEST_F(CrcSortTest, DirectoryRowsBatchTheirFilesThenTakeTheirOwnChecksum) {
    auto pRoot = test::MakeRoot(u"R");
    std::vector<CDirectoryData*> aRows = {test::AddDir(*pRoot, u"a"), test::AddDir(*pRoot, u"b")};
    for (CDirectoryData* pDir : aRows)
        for (int i = 0; i < 15; ++i) test::AddFile(*pDir, platform::U16(std::to_string(i)), 1);
    EXPECT_TRUE(PrepareDirCrcSort(aRows));
    ASSERT_GE(m_services.m_aBatchSizes.size(), 1u);
    EXPECT_EQ(m_services.m_aBatchSizes[0], 20u);
    EXPECT_EQ(m_host.m_aProgressTexts[0], u"Computing CRC 0% 0/30 files");
    for (CDirectoryData* pDir : aRows) EXPECT_TRUE(pDir->m_uFlags & DIR_CRC_VALID);

    m_host.m_nProgressOpened = 0;
    EXPECT_TRUE(PrepareDirCrcSort(aRows));  // all known now
    EXPECT_EQ(m_host.m_nProgressOpened, 0);
}

TEST_F(CrcSortTest, WithSubdirectoriesRowsAreDoneOneByOne) {
    auto pRoot = test::MakeRoot(u"R");
    std::vector<CDirectoryData*> aRows;
    for (const char16_t* pszName : {u"a", u"b", u"c"})
        aRows.push_back(test::AddDir(*pRoot, pszName));
    test::AddFile(*test::AddDir(*aRows[0], u"deep"), u"f", 1);
    EXPECT_TRUE(PrepareDirCrcWithSubdirsSort(aRows));
    EXPECT_EQ(m_host.m_aProgressTexts,
              (std::vector<std::u16string>{u"Computing CRC wSub 0% 0/3 directories",
                                           u"Computing CRC wSub 33% 1/3 directories",
                                           u"Computing CRC wSub 66% 2/3 directories",
                                           u"Computing CRC wSub 100% 3/3 directories"}));
    for (CDirectoryData* pDir : aRows) EXPECT_TRUE(pDir->m_uFlags & DIR_CRC_SUBDIRS_VALID);
    EXPECT_NE(aRows[0]->m_uCrcWithSubdirs, 0u);
}

}  // namespace
}  // namespace zv
