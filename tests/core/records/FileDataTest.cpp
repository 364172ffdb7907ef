// File records: names, paths and sizes, checksums through the record
// services and on disk, owners, and the rounding to clusters.
#include <gtest/gtest.h>

#include <optional>

#include "core/records/ClusterRounding.h"
#include "core/records/Crc32.h"
#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "core/records/OwnerPool.h"
#include "core/records/RecordTestSupport.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using test::AddDir;
using test::AddFile;
using test::MakeRoot;

const std::u16string kSep(1, platform::kPathSeparator);

CFileData MakeLoose(std::u16string_view strName) {
    return CFileData(strName, 1, {}, {}, {}, 0, nullptr, false, nullptr);
}

TEST(ClusterRounding, RoundsUpToWholeClusters) {
    struct Case {
        double dSize, dCluster, dExpected;
    };
    // clang-format off
    const Case aCases[] = {
        {0, 4096, 0}, {1, 4096, 4096}, {4096, 4096, 4096}, {4097, 4096, 8192}, {100, 0, 0},
        {1, 512, 512}, {5e9 + 1, 4096, 5000003584.0}, {4294967296.0, 65536, 4294967296.0}};
    // clang-format on
    for (const Case& c : aCases)
        EXPECT_EQ(RoundToCluster(c.dSize, c.dCluster), c.dExpected)
            << c.dSize << " / " << c.dCluster;
}

TEST(OwnerPool, RecordsShareOneCopyOfEachOwnerName) {
    const size_t nBefore = OwnerPoolSize();
    CFileData a(u"a", 1, {}, {}, {}, 0, nullptr, false, nullptr, u"pool-test\\bob");
    CFileData b(u"b", 1, {}, {}, {}, 0, nullptr, false, nullptr, u"pool-test\\bob");
    EXPECT_EQ(a.GetOwner(), u"pool-test\\bob");
    EXPECT_EQ(a.m_pOwner, b.m_pOwner);
    EXPECT_EQ(InternOwner(u"pool-test\\aaron"), InternOwner(u"pool-test\\aaron"));  // sorts first
    EXPECT_EQ(InternOwner(u"pool-test\\bob"), a.m_pOwner);
    EXPECT_NE(InternOwner(u"POOL-TEST\\BOB"), a.m_pOwner);  // compared ordinally
    EXPECT_EQ(OwnerPoolSize(), nBefore + 3);
    EXPECT_TRUE(NoOwner().empty());
    CFileData stream(u"a:s", 1, {}, {}, {}, 0, nullptr, true, &a);
    EXPECT_EQ(stream.GetOwner(), u"");  // a stream has no owner of its own
}

TEST(FileData, ExtensionIsTheTextAfterTheLastDot) {
    // clang-format off
    const std::pair<std::u16string, std::u16string> aCases[] = {
        {u"report.txt", u"txt"}, {u"archive.tar.gz", u"gz"}, {u"archive.", u""},
        {u".profile", u"profile"}, {u"Makefile", u""}, {u"a.b.", u""}, {u".", u""},
        {u"x.\u00c9T\u00c9", u"\u00c9T\u00c9"}};
    // clang-format on
    for (const auto& [strName, strExtension] : aCases)
        EXPECT_EQ(MakeLoose(strName).GetExtension(), strExtension)
            << platform::Utf16ToUtf8(strName);
}

TEST(FileData, FullPathAndActualSizeComeFromTheTree) {
    auto pRoot = MakeRoot(u"R", 4096);
    CDirectoryData* pDir = AddDir(*pRoot, u"d");
    CFileData* pFile = AddFile(*pDir, u"f.txt", 4097);
    EXPECT_EQ(pFile->GetFullPath(), u"R" + kSep + u"d" + kSep + u"f.txt");
    EXPECT_EQ(pFile->GetActualSize(), 8192);
    EXPECT_EQ(MakeLoose(u"C:\\list\\entry.bin").GetFullPath(), u"C:\\list\\entry.bin");
    EXPECT_EQ(AddFile(*MakeRoot(u"Z", 0), u"g", 12345)->GetActualSize(), 0);

    // A stream's name is "file:stream" and its path follows the file's.
    auto* pStream = new CFileData(u"f.txt:meta", 7, {}, {}, {}, 0, pDir, true, pFile);
    pDir->AddFile(pStream, 4096);
    pFile->AddStream(pStream);
    EXPECT_EQ(pStream->GetFullPath(), pFile->GetFullPath() + u":meta");
    EXPECT_EQ(*pFile->m_pStreams, std::vector<CFileData*>{pStream});
    EXPECT_EQ(pRoot->m_dSubdirsActual, 12288);
}

class FileCrc : public ::testing::Test {
protected:
    test::CTableServices m_services;
    std::unique_ptr<CRootDirectoryData> m_pRoot = MakeRoot(u"R");
};

TEST_F(FileCrc, IsReadOnceAndShownAsText) {
    struct {
        double dSize;
        std::optional<uint32_t> uListed;  // none: the read fails
        const char16_t *pszHex, *pszDecimal, *pszMp3Hex;
        int nReads;
    } const aCases[] = {{0, std::nullopt, u"0x0", u"0", u"0", 0},  // empty: zero without a read
                        {10, 0x00ABCDEF, u"0xABCDEF", u"11259375", u"ABCDEF", 1},
                        {10, std::nullopt, u"UNKNOWN", u"UNKNOWN", u"UNKNOWN", 1}};  // not retried
    for (const auto& c : aCases) {
        SCOPED_TRACE(platform::Utf16ToUtf8(c.pszHex));
        m_services.m_nReads = 0;
        m_services.m_mapCrc.clear();
        CFileData* pFile = AddFile(*m_pRoot, u"f", c.dSize);
        if (c.uListed) m_services.m_mapCrc[pFile->GetFullPath()] = *c.uListed;
        EXPECT_EQ(pFile->GetCrc(), c.uListed.value_or(0));
        EXPECT_EQ(pFile->GetCrc(), c.uListed.value_or(0));
        EXPECT_EQ(m_services.m_nReads, c.nReads);
        EXPECT_EQ(pFile->GetCrcText(true), c.pszHex);
        EXPECT_EQ(pFile->GetCrcText(false), c.pszDecimal);
        EXPECT_EQ(pFile->GetMp3CrcText(true), c.pszMp3Hex);
    }
}

TEST_F(FileCrc, SetCrcResetDerivedAndCopyFrom) {
    CFileData* pFile = AddFile(*m_pRoot, u"f", 10);
    pFile->SetCrc(42);
    EXPECT_EQ(pFile->GetCrc(), 42u);
    pFile->GetNameCrc();
    pFile->ResetDerived();
    EXPECT_EQ(pFile->m_uFlags & (FILE_CRC_VALID | FILE_NAME_CRC_VALID), 0u);
    EXPECT_EQ(m_services.m_nReads, 0);

    CFileData stream(u"s:x", 3, {}, {5, 0}, {}, ATTR_HIDDEN, m_pRoot.get(), true, pFile);
    pFile->m_uFlags |= FILE_IN_DUPLICATE_GROUP;
    pFile->CopyFrom(stream);
    EXPECT_EQ(pFile->m_strName.View(), u"s:x");
    EXPECT_EQ(pFile->m_dSize, 3);
    EXPECT_EQ(pFile->m_ftAccessed.dwLowDateTime, 5u);
    EXPECT_EQ(pFile->m_uAttributes, ATTR_HIDDEN);
    EXPECT_TRUE(pFile->IsStream());
    EXPECT_TRUE(pFile->m_uFlags & FILE_IN_DUPLICATE_GROUP);  // not a derived value
    EXPECT_EQ(pFile->m_pStreamOwner, nullptr);
}

// Real files through the default services and the platform layer.
TEST(FileOnDisk, ChecksumsAndTimesOfRealFiles) {
    test::CTempDir temp;
    auto pRoot = MakeRoot(platform::Utf8ToUtf16(temp.Path().string()));
    auto Add = [&](const char* pszName, const std::string& strContent) {
        temp.WriteFile(pszName, strContent);
        return AddFile(*pRoot, platform::U16(pszName), double(strContent.size()));
    };
    EXPECT_EQ(Add("digits", "123456789")->GetCrc(), 0xCBF43926u);

    // The quick checksum reads one block: all of a file that small, the
    // first of a longer one, the middle one of a big one.
    const std::string strBlock(4096, 'z');
    const uint32_t uBlock = Crc32Buffer(strBlock.data(), 4096);
    CFileData* pExact = Add("exact", strBlock);
    EXPECT_EQ(pExact->GetQuickCrc(), uBlock);
    EXPECT_TRUE(pExact->m_uFlags & FILE_CRC_VALID);
    EXPECT_EQ(pExact->m_uCrc, uBlock);
    CFileData* pLonger = Add("longer", strBlock + "!");
    EXPECT_EQ(pLonger->GetQuickCrc(), uBlock);
    EXPECT_FALSE(pLonger->m_uFlags & FILE_CRC_VALID);
    const std::string strPad(8192, 'a');
    EXPECT_EQ(Add("big", strPad + strBlock + strPad)->GetQuickCrc(), uBlock);
    CFileData* pMissing = AddFile(*pRoot, u"missing", 5);
    EXPECT_EQ(pMissing->GetQuickCrc(), 0u);
    EXPECT_TRUE(pMissing->m_uFlags & FILE_PARTIAL_CRC_FAILED);

    const FILETIME ftWhen = FileTimeFromUInt64(kUnixEpochTicks + 1234567890ULL * kTicksPerSecond);
    ASSERT_TRUE(pExact->SetTimes(ftWhen, ftWhen, ftWhen));
    EXPECT_EQ(pExact->m_ftModified, ftWhen);
    CDirEntry entry;
    ASSERT_TRUE(platform::GetEntryInfo(pExact->GetFullPath(), entry));
    EXPECT_EQ(entry.ftModified, ftWhen);
    EXPECT_FALSE(pMissing->SetTimes(ftWhen, ftWhen, ftWhen));
}

}  // namespace
}  // namespace zv
