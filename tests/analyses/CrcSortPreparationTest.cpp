#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "AnalysesTestSupport.h"
#include "analyses/CrcSortPreparation.h"
#include "core/records/RecordTestSupport.h"

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
    std::vector<CFileData*> MakeRows(size_t nCount, CDirectoryData* pDir = nullptr) {
        std::vector<CFileData*> aRows;
        while (aRows.size() < nCount)
            aRows.push_back(test::AddFile(pDir ? *pDir : *m_pRoot, u"f", 1));
        return aRows;
    }
    static size_t CountKnown(const std::vector<CFileData*>& aRows) {
        size_t n = 0;
        for (CFileData* p : aRows) n += (p->m_uFlags & FILE_CRC_VALID) ? 1 : 0;
        return n;
    }

    test::CRecordingHost m_host;
    CBatchServices m_services;
    std::unique_ptr<CRootDirectoryData> m_pRoot = test::MakeRoot(u"R");
};

// Batches of max(1% of the rows, 20); the last, smaller batch is left to
// the sort. The progress counts files done, one text per percentage.
TEST_F(CrcSortTest, FileRowsGoToThePoolInBatchesOfOnePercentOrTwenty) {
    const std::pair<size_t, std::vector<size_t>> aCases[] = {
        {19, {}},
        {3000, std::vector<size_t>(100, 30)},
        {3050, std::vector<size_t>(101, 30)},
        {45, {20, 20}},
    };
    for (const auto& [nRows, aBatches] : aCases) {
        m_services.m_aBatchSizes.clear();
        m_host.m_aProgressTexts.clear();
        const std::vector<CFileData*> aRows = MakeRows(nRows);
        EXPECT_TRUE(PrepareFileCrcSort(aRows));
        EXPECT_EQ(m_services.m_aBatchSizes, aBatches) << nRows;
        size_t nInBatches = 0;
        for (size_t n : aBatches) nInBatches += n;
        EXPECT_EQ(CountKnown(aRows), nInBatches) << nRows;
    }
    ASSERT_EQ(m_host.m_aProgressTexts.size(), 46u);
    EXPECT_EQ(m_host.m_aProgressTexts[0], u"Computing CRC 0% 0/45 files");
    EXPECT_EQ(m_host.m_aProgressTexts[1], u"Computing CRC 2% 1/45 files");
    EXPECT_EQ(m_host.m_aProgressTexts.back(), u"Computing CRC 100% 45/45 files");
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

// As soon as a batch would be full, the whole list goes in one batch.
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
    std::vector<CDirectoryData*> aRows = {test::AddDir(*m_pRoot, u"a"),
                                          test::AddDir(*m_pRoot, u"b")};
    for (CDirectoryData* pDir : aRows) MakeRows(15, pDir);
    EXPECT_TRUE(PrepareDirCrcSort(aRows));
    ASSERT_GE(m_services.m_aBatchSizes.size(), 1u);
    EXPECT_EQ(m_services.m_aBatchSizes[0], 20u);
    EXPECT_EQ(m_host.m_aProgressTexts[0], u"Computing CRC 0% 0/30 files");
    for (CDirectoryData* pDir : aRows) EXPECT_TRUE(pDir->m_uFlags & DIR_CRC_VALID);

    EXPECT_TRUE(PrepareDirCrcSort(aRows));  // all known now
    EXPECT_EQ(m_host.m_nProgressOpened, 1);
}

// With subdirectories, rows are done one by one.
TEST_F(CrcSortTest, WithSubdirectoriesRowsAreDoneOneByOne) {
    std::vector<CDirectoryData*> aRows;
    for (const char16_t* pszName : {u"a", u"b", u"c"})
        aRows.push_back(test::AddDir(*m_pRoot, pszName));
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
