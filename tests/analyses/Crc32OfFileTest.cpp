#include <gtest/gtest.h>

#include <string>

#include "AnalysesTestSupport.h"
#include "analyses/Crc32OfFile.h"
#include "analyses/CrcProgress.h"
#include "core/document/Document.h"
#include "core/records/Crc32.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using test::RandomBytes;

uint32_t CrcOf(std::string_view bytes) { return Crc32Buffer(bytes.data(), bytes.size()); }

class Crc32OfFileTest : public ::testing::Test {
protected:
    std::u16string Write(const char* pszName, const std::string& strContent) {
        return m_dir.WriteFile(pszName, strContent).u16string();
    }
    test::CTempDir m_dir;
};

// Sizes around the nominal 8192-byte read, the larger block actually read,
// and the sample block of the quick checksum.
TEST_F(Crc32OfFileTest, WholeFileEqualsTheBufferChecksum) {
    bool bFailed = false;
    EXPECT_EQ(Crc32OfFile(Write("123", "123456789"), bFailed, 0), 0xCBF43926u);
    for (size_t nSize :
         {0, 1, 4095, 4096, 4097, 8191, 8192, 8193, 16384, 131071, 131072, 131073, 600001}) {
        const std::string strContent = RandomBytes(nSize, unsigned(nSize));
        EXPECT_EQ(Crc32OfFile(Write("f.bin", strContent), bFailed, 0), CrcOf(strContent)) << nSize;
    }
    EXPECT_FALSE(bFailed);

    // Progress follows the size the record gives: a file said to be 1 GiB
    // reports its first percentage with the first block read.
    test::CRecordingHost host;
    const std::string strContent = RandomBytes(100000, 9);
    const std::u16string strPath = Write("big.bin", strContent);
    EXPECT_EQ(Crc32OfFile(strPath, bFailed, CCrcProgress::kThreshold), CrcOf(strContent));
    EXPECT_EQ(host.m_aStatusTexts,
              std::vector<std::u16string>{u"calculating crc 0% for " + strPath + u"\n"});
    EXPECT_EQ(host.m_nUiPumps, 1);
}

// A file that cannot be opened fails. A read error keeps what was read
// before it and is no failure: the memory file of the process opens as a
// regular file, and its first read fails because address 0 is not mapped.
// (A read error in the middle of an ordinary file cannot be provoked.)
TEST_F(Crc32OfFileTest, OpenFailureAndReadError) {
    const std::u16string strMissing = (m_dir.Path() / "missing.mp3").u16string();
    bool bWholeFailed = false, bStretchFailed = false;
    EXPECT_EQ(Crc32OfFile(strMissing, bWholeFailed, 0), 0u);
    EXPECT_EQ(Crc32OfFileWithoutTags(strMissing, bStretchFailed), 0u);
    EXPECT_TRUE(bWholeFailed && bStretchFailed);
#ifdef __linux__
    bool bFailed = false;
    EXPECT_EQ(Crc32OfFile(u"/proc/self/mem", bFailed, 0), 0u);
    EXPECT_FALSE(bFailed);
#endif
}

// An ID3v2 header declaring a tag of nDeclared bytes after its 10 header
// bytes, and the tag up to its declared end.
std::string Id3v2(uint32_t nDeclared) {
    std::string strTag("ID3\x03\0\0", 6);
    for (int nShift : {21, 14, 7, 0}) strTag += char((nDeclared >> nShift) & 0x7F);
    return strTag + std::string(nDeclared, 't');
}

TEST_F(Crc32OfFileTest, TagsAreLeftOutOfMp3Files) {
    const std::string strAudio = RandomBytes(300000, 1), strShort(127, 'a');
    const std::string strV2 = Id3v2(40), strV1 = "TAG" + std::string(125, 'v');
    // The stretch starts at the declared size, that is 10 bytes before the
    // true end of the ID3v2 tag; a stretch that cannot be read gives 0.
    const std::tuple<const char*, std::string, std::string> aCases[] = {
        {"plain.mp3", strAudio, strAudio},
        {"both.mp3", strV2 + strAudio + strV1, strV2.substr(40) + strAudio},
        {"v2.mp3", strV2 + strAudio, strV2.substr(40) + strAudio},
        {"v1.MP3", strAudio + strV1, strAudio},
        {"v1.mp2", "x" + strV1, "x"},
        {"both.mp1", strV2 + strV1, strV2.substr(40)},
        {"both.wav", strV2 + strAudio + strV1, strV2 + strAudio + strV1},
        {"empty.mp3", "", ""},
        {"short.mp3", strShort, ""},  // no room for a trailer
        {"short.txt", strShort, strShort},
        {"only-trailer.mp3", strV1, ""},
        {"tag-beyond-end.mp3", Id3v2(5000).substr(0, 300), ""},
        {"only-tags.mp3", strV2.substr(0, 40) + strV1, ""},
    };
    for (const auto& [pszName, strContent, strStretch] : aCases) {
        bool bFailed = false;
        EXPECT_EQ(Crc32OfFileWithoutTags(Write(pszName, strContent), bFailed), CrcOf(strStretch))
            << pszName;
        EXPECT_FALSE(bFailed) << pszName;
    }
}

// A text at every change of the percentage, pumping while the pool is idle,
// and the current directory's path at 100.
TEST(CrcProgress, TextAtEachPercentAndTheCurrentDirectoryAtTheEnd) {
    test::CRecordingHost host;
    CWZorvaneDoc doc;
    SetMainDocument(&doc);
    CDirectoryData current(nullptr, u"shown-dir", {}, {}, {}, 0);
    doc.m_pCurrentDir = &current;

    const double dSize = 2.0 * CCrcProgress::kThreshold;
    CCrcProgress progress(u"big.iso", dSize);
    ASSERT_TRUE(progress.IsOn());
    for (int i = 0; i < 256; ++i) progress.Add(dSize / 256);
    SetMainDocument(nullptr);

    ASSERT_EQ(host.m_aStatusTexts.size(), 101u);
    EXPECT_EQ(host.m_aStatusTexts[0], u"calculating crc 0% for big.iso\n");
    EXPECT_EQ(host.m_aStatusTexts[57], u"calculating crc 57% for big.iso\n");
    EXPECT_EQ(host.m_aStatusTexts[100], u"shown-dir");
    EXPECT_EQ(host.m_nUiPumps, 101);

    CCrcProgress small(u"small", CCrcProgress::kThreshold - 1);
    EXPECT_FALSE(small.IsOn());
    small.Add(CCrcProgress::kThreshold);
    EXPECT_EQ(host.m_aStatusTexts.size(), 101u);
}

}  // namespace
}  // namespace zv
