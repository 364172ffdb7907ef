#include <gtest/gtest.h>

#include <string>

#include "core/Crc32.h"
#include "core/DirectoryData.h"
#include "core/FileData.h"
#include "core/RecordTestSupport.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using test::AddDir;
using test::AddFile;
using test::MakeRoot;

const std::u16string kSep(1, platform::kPathSeparator);

CFileData MakeLoose(std::u16string_view strName, double dSize = 0) {
    return CFileData(strName, dSize, {}, {}, {}, 0, nullptr, false, nullptr);
}

TEST(FileData, ConstructorsSetTheRecordBits) {
    CFileData plain = MakeLoose(u"f");
    EXPECT_EQ(plain.m_uFlags, FILE_RECORD);
    EXPECT_EQ(plain.m_nDuplicateGroup, 0);
    EXPECT_EQ(plain.m_pStreams, nullptr);

    CFileData stream(u"f:s", 1, {}, {}, {}, 0, nullptr, true, &plain);
    EXPECT_EQ(stream.m_uFlags, 9u);
    EXPECT_EQ(stream.m_pStreamOwner, &plain);

    CFileData owned(u"g", 1, {}, {}, {}, 0, nullptr, false, nullptr, u"HOST\\alice");
    EXPECT_EQ(owned.m_uFlags, FILE_RECORD | FILE_OWNER_VALID);
    EXPECT_EQ(owned.GetOwner(), u"HOST\\alice");
}

TEST(FileData, ExtensionIsTheTextAfterTheLastDot) {
    const std::pair<std::u16string, std::u16string> aCases[] = {
        {u"report.txt", u"txt"},
        {u"archive.tar.gz", u"gz"},
        {u"archive.", u""},
        {u".profile", u"profile"},
        {u"Makefile", u""},
        {u"a.b.", u""},
        {u".", u""},
        {u"x.\u00c9T\u00c9", u"\u00c9T\u00c9"},
    };
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

    auto pNoCluster = MakeRoot(u"Z", 0);
    EXPECT_EQ(AddFile(*pNoCluster, u"g", 12345)->GetActualSize(), 0);

    // A stream's name is "file:stream" and its path follows the file's.
    CFileData* pStream = new CFileData(u"f.txt:meta", 7, {}, {}, {}, 0, pDir, true, pFile);
    pDir->AddFile(pStream, 4096);
    pFile->AddStream(pStream);
    EXPECT_EQ(pStream->GetFullPath(), u"R" + kSep + u"d" + kSep + u"f.txt:meta");
    ASSERT_NE(pFile->m_pStreams, nullptr);
    EXPECT_EQ(pFile->m_pStreams->size(), 1u);
    EXPECT_EQ(pDir->m_uCumulativeCount, 2u);
    EXPECT_EQ(pRoot->m_dSubdirsActual, 12288);
}

class FileCrc : public ::testing::Test {
protected:
    test::CTableServices m_services;
    std::unique_ptr<CRootDirectoryData> m_pRoot = MakeRoot(u"R");
};

TEST_F(FileCrc, EmptyFileIsZeroWithoutBeingRead) {
    CFileData* pEmpty = AddFile(*m_pRoot, u"empty", 0);
    EXPECT_EQ(pEmpty->GetCrc(), 0u);
    EXPECT_TRUE(pEmpty->m_uFlags & FILE_CRC_VALID);
    EXPECT_FALSE(pEmpty->m_uFlags & FILE_CRC_FAILED);
    EXPECT_EQ(pEmpty->GetMp3Crc(), 0u);
    EXPECT_EQ(m_services.m_nReads, 0);
    EXPECT_EQ(pEmpty->GetCrcText(true), u"0x0");
}

TEST_F(FileCrc, IsReadOnceAndFormattedAsText) {
    CFileData* pFile = AddFile(*m_pRoot, u"f", 10);
    m_services.m_mapCrc[pFile->GetFullPath()] = 0x00ABCDEF;
    EXPECT_EQ(pFile->GetCrc(), 0x00ABCDEFu);
    EXPECT_EQ(pFile->GetCrc(), 0x00ABCDEFu);
    EXPECT_EQ(m_services.m_nReads, 1);
    EXPECT_EQ(pFile->GetCrcText(true), u"0xABCDEF");  // no leading zeros
    EXPECT_EQ(pFile->GetCrcText(false), u"11259375");
    // The MP3 form has no "0x" in hexadecimal.
    EXPECT_EQ(pFile->GetMp3CrcText(true), u"ABCDEF");
    EXPECT_EQ(pFile->GetMp3CrcText(false), u"11259375");
}

TEST_F(FileCrc, FailureIsRememberedAndShownAsUnknown) {
    CFileData* pFile = AddFile(*m_pRoot, u"unreadable", 10);
    EXPECT_EQ(pFile->GetCrc(), 0u);
    EXPECT_EQ(pFile->m_uFlags & (FILE_CRC_VALID | FILE_CRC_FAILED),
              FILE_CRC_VALID | FILE_CRC_FAILED);
    EXPECT_EQ(pFile->GetCrcText(true), u"UNKNOWN");
    EXPECT_EQ(pFile->GetCrcText(false), u"UNKNOWN");
    EXPECT_EQ(pFile->GetMp3CrcText(false), u"UNKNOWN");
    const int nReads = m_services.m_nReads;
    pFile->GetCrc();
    EXPECT_EQ(m_services.m_nReads, nReads);  // not retried
}

TEST_F(FileCrc, SetCrcResetDerivedAndCopyFrom) {
    CFileData* pFile = AddFile(*m_pRoot, u"f", 10);
    pFile->SetCrc(42);
    EXPECT_EQ(pFile->GetCrc(), 42u);
    EXPECT_EQ(m_services.m_nReads, 0);
    pFile->GetNameCrc();
    pFile->ResetDerived();
    EXPECT_EQ(pFile->m_uFlags & (FILE_CRC_VALID | FILE_NAME_CRC_VALID), 0u);

    CFileData* pStream =
        new CFileData(u"s:x", 3, {}, {5, 0}, {}, ATTR_HIDDEN, m_pRoot.get(), true, pFile);
    m_pRoot->AddFile(pStream, 4096);
    pFile->m_uFlags |= FILE_IN_DUPLICATE_GROUP;
    pFile->CopyFrom(*pStream);
    EXPECT_EQ(pFile->m_strName.View(), u"s:x");
    EXPECT_EQ(pFile->m_dSize, 3);
    EXPECT_EQ(pFile->m_ftAccessed.dwLowDateTime, 5u);
    EXPECT_EQ(pFile->m_uAttributes, ATTR_HIDDEN);
    EXPECT_TRUE(pFile->IsStream());
    EXPECT_TRUE(pFile->m_uFlags & FILE_IN_DUPLICATE_GROUP);  // not a derived value
    EXPECT_EQ(pFile->m_pStreamOwner, nullptr);
}

TEST(FileOwner, StreamsReadAsEmptyAndOwnersArePooled) {
    CFileData a(u"a", 1, {}, {}, {}, 0, nullptr, false, nullptr, u"owner-x");
    CFileData b(u"b", 1, {}, {}, {}, 0, nullptr, false, nullptr, u"owner-x");
    EXPECT_EQ(a.m_pOwner, b.m_pOwner);
    CFileData stream(u"a:s", 1, {}, {}, {}, 0, nullptr, true, &a);
    EXPECT_EQ(stream.GetOwner(), u"");
    EXPECT_TRUE(stream.m_uFlags & FILE_OWNER_VALID);
}

// Real files through the default services and the platform layer.
class FileOnDisk : public ::testing::Test {
protected:
    test::CTempDir m_temp;
    std::unique_ptr<CRootDirectoryData> m_pRoot =
        MakeRoot(platform::Utf8ToUtf16(m_temp.Path().string()), 4096);

    CFileData* Add(const std::string& strName, const std::string& strContent) {
        m_temp.WriteFile(strName, strContent);
        return AddFile(*m_pRoot, platform::Utf8ToUtf16(strName), double(strContent.size()));
    }
};

TEST_F(FileOnDisk, ChecksumsOfRealFiles) {
    EXPECT_EQ(Add("digits", "123456789")->GetCrc(), 0xCBF43926u);

    const std::string strBlock(4096, 'z');
    CFileData* pExact = Add("exact", strBlock);
    EXPECT_EQ(pExact->GetQuickCrc(), Crc32Buffer(strBlock.data(), 4096));
    EXPECT_TRUE(pExact->m_uFlags & FILE_CRC_VALID);  // the block was the whole file
    EXPECT_EQ(pExact->m_uCrc, pExact->m_uQuickCrc);

    std::string strLonger = strBlock + "!";
    CFileData* pLonger = Add("longer", strLonger);
    EXPECT_EQ(pLonger->GetQuickCrc(), Crc32Buffer(strBlock.data(), 4096));  // offset 0
    EXPECT_FALSE(pLonger->m_uFlags & FILE_CRC_VALID);

    std::string strBig(20000, 'a');
    strBig.replace(8192, 4096, std::string(4096, 'b'));  // the middle block
    EXPECT_EQ(Add("big", strBig)->GetQuickCrc(), Crc32Buffer(strBig.data() + 8192, 4096));

    CFileData* pMissing = AddFile(*m_pRoot, u"missing", 5);
    EXPECT_EQ(pMissing->GetQuickCrc(), 0u);
    EXPECT_TRUE(pMissing->m_uFlags & FILE_PARTIAL_CRC_FAILED);
    EXPECT_EQ(pMissing->GetCrcText(false), u"UNKNOWN");
}

TEST_F(FileOnDisk, LinkCountSizeOnDiskAndTimes) {
    CFileData* pFile = Add("data.bin", std::string(10000, 'x'));
    EXPECT_EQ(pFile->GetLinkCount(), 1u);
    EXPECT_GE(pFile->GetSizeOnDisk(), 0);
    EXPECT_EQ(AddFile(*m_pRoot, u"missing", 5)->GetLinkCount(), 0u);

    const FILETIME ftWhen = FileTimeFromUInt64(kUnixEpochTicks + 1234567890ULL * kTicksPerSecond);
    ASSERT_TRUE(pFile->SetTimes(ftWhen, ftWhen, ftWhen));
    EXPECT_EQ(pFile->m_ftModified, ftWhen);
    CDirEntry entry;
    ASSERT_TRUE(platform::GetEntryInfo(pFile->GetFullPath(), entry));
    EXPECT_EQ(entry.ftModified, ftWhen);
    EXPECT_FALSE(AddFile(*m_pRoot, u"missing", 5)->SetTimes(ftWhen, ftWhen, ftWhen));
}

// A name whose bytes are not UTF-8 survives the listing, the record and
// the rebuilt path, and the file opens again by that path.
TEST_F(FileOnDisk, NameFromTheListingRoundTripsToAnOpenablePath) {
#ifdef _WIN32
    const std::string strName = "caf\xc3\xa9 \xe6\x97\xa5\xe6\x9c\xac.txt";
#else
    const std::string strName = "bad\xff\xfe name.txt";
#endif
#ifdef _WIN32
    m_temp.WriteFile(std::filesystem::path(std::u8string(strName.begin(), strName.end())),
                     "123456789");
#else
    m_temp.WriteFile(strName, "123456789");
#endif
    platform::CDirectoryReader reader;
    ASSERT_TRUE(reader.Open(m_pRoot->GetFullPath()));
    CDirEntry entry;
    ASSERT_TRUE(reader.Next(entry));
    auto* pFile = new CFileData(entry.strName, entry.Size(), entry.ftCreated, entry.ftAccessed,
                                entry.ftModified, entry.uAttributes, m_pRoot.get(), false, nullptr);
    m_pRoot->AddFile(pFile, m_pRoot->m_dClusterSize);
    EXPECT_EQ(platform::Utf16ToUtf8(pFile->m_strName.View()), strName);

    platform::CFileReader file;
    ASSERT_TRUE(file.Open(pFile->GetFullPath()));
    EXPECT_EQ(pFile->GetCrc(), 0xCBF43926u);
    EXPECT_FALSE(pFile->m_uFlags & FILE_CRC_FAILED);
}

}  // namespace
}  // namespace zv
