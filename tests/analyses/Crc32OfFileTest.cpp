#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "AnalysesTestSupport.h"
#include "analyses/Crc32OfFile.h"
#include "analyses/CrcProgress.h"
#include "core/Crc32.h"
#include "core/Document.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using test::RandomBytes;
using test::ToU16;

uint32_t CrcOf(std::string_view bytes) { return Crc32Buffer(bytes.data(), bytes.size()); }

class Crc32OfFileTest : public ::testing::Test {
protected:
    std::u16string Write(const char* pszName, const std::string& strContent) {
        return ToU16(m_dir.WriteFile(pszName, strContent));
    }
    uint32_t Whole(const std::u16string& strPath, bool& bFailed) {
        bFailed = false;
        return Crc32OfFile(strPath, bFailed, 0);
    }
    uint32_t WithoutTags(const std::u16string& strPath, bool& bFailed) {
        bFailed = false;
        return Crc32OfFileWithoutTags(strPath, bFailed);
    }
    test::CTempDir m_dir;
};

// Sizes around the nominal 8192-byte read, the larger block actually read,
// and the sample block of the quick checksum.
TEST_F(Crc32OfFileTest, WholeFileEqualsTheBufferChecksum) {
    for (size_t nSize : {size_t(1), size_t(9), size_t(4095), size_t(4096), size_t(4097),
                         size_t(8191), size_t(8192), size_t(8193), size_t(16384), size_t(131071),
                         size_t(131072), size_t(131073), size_t(600001)}) {
        const std::string strContent = RandomBytes(nSize, unsigned(nSize));
        const std::u16string strPath = Write("f.bin", strContent);
        bool bFailed = true;
        EXPECT_EQ(Whole(strPath, bFailed), CrcOf(strContent)) << nSize;
        EXPECT_FALSE(bFailed);
    }
    bool bFailed = true;
    EXPECT_EQ(Whole(Write("123", "123456789"), bFailed), 0xCBF43926u);
}

TEST_F(Crc32OfFileTest, EmptyFileIsZeroWithoutFailure) {
    bool bFailed = true;
    EXPECT_EQ(Whole(Write("empty", ""), bFailed), 0u);
    EXPECT_FALSE(bFailed);
    EXPECT_EQ(WithoutTags(Write("empty.mp3", ""), bFailed), 0u);
    EXPECT_FALSE(bFailed);
}

TEST_F(Crc32OfFileTest, FileThatCannotBeOpenedFails) {
    const std::u16string strMissing = ToU16(m_dir.Path() / "missing.mp3");
    bool bFailed = false;
    EXPECT_EQ(Whole(strMissing, bFailed), 0u);
    EXPECT_TRUE(bFailed);
    EXPECT_EQ(WithoutTags(strMissing, bFailed), 0u);
    EXPECT_TRUE(bFailed);
}

#ifdef __linux__
// A read error keeps what was read before it and is no failure. The memory
// file of the process opens as a regular file, and its first read fails
// because address 0 is not mapped, so nothing was read. (A read error in the
// middle of an ordinary file cannot be provoked from a test.)
TEST_F(Crc32OfFileTest, ReadErrorIsNoFailure) {
    bool bFailed = true;
    EXPECT_EQ(Whole(u"/proc/self/mem", bFailed), 0u);
    EXPECT_FALSE(bFailed);
}
#endif

// An ID3v2 header declaring a tag of nDeclared bytes after its 10 header
// bytes; the tag is filled up to its declared end.
std::string Id3v2(uint32_t nDeclared) {
    std::string strTag = "ID3";
    strTag += '\x03';
    strTag += '\0';
    strTag += '\0';
    for (int nShift : {21, 14, 7, 0}) strTag += char((nDeclared >> nShift) & 0x7F);
    strTag += std::string(nDeclared, 't');
    return strTag;
}

std::string Id3v1() { return "TAG" + std::string(125, 'v'); }

TEST_F(Crc32OfFileTest, TagsAreLeftOutOfMp3Files) {
    const std::string strAudio = RandomBytes(300000, 1);
    const std::string strV2 = Id3v2(40), strV1 = Id3v1();
    struct Case {
        const char* pszName;
        std::string strContent;
        std::string strExpectedStretch;
    };
    // The stretch starts at the declared size, that is 10 bytes before the
    // true end of the ID3v2 tag.
    const Case aCases[] = {
        {"plain.mp3", strAudio, strAudio},
        {"both.mp3", strV2 + strAudio + strV1, strV2.substr(40) + strAudio},
        {"v2.mp3", strV2 + strAudio, strV2.substr(40) + strAudio},
        {"v1.MP3", strAudio + strV1, strAudio},
        {"v1.mp2", "x" + strV1, "x"},
        {"both.mp1", strV2 + strV1, strV2.substr(40)},
        {"both.wav", strV2 + strAudio + strV1, strV2 + strAudio + strV1},
    };
    for (const Case& c : aCases) {
        bool bFailed = true;
        EXPECT_EQ(WithoutTags(Write(c.pszName, c.strContent), bFailed), CrcOf(c.strExpectedStretch))
            << c.pszName;
        EXPECT_FALSE(bFailed);
    }
}

TEST_F(Crc32OfFileTest, Mp3StretchesThatCannotBeReadGiveZeroWithoutFailure) {
    const std::pair<const char*, std::string> aCases[] = {
        {"short.mp3", std::string(127, 'a')},                  // no room for a trailer
        {"only-trailer.mp3", Id3v1()},                         // nothing left
        {"tag-beyond-end.mp3", Id3v2(5000).substr(0, 300)},    // starts past the end
        {"only-tags.mp3", Id3v2(40).substr(0, 40) + Id3v1()},  // nothing between
    };
    for (const auto& [pszName, strContent] : aCases) {
        bool bFailed = true;
        EXPECT_EQ(WithoutTags(Write(pszName, strContent), bFailed), 0u) << pszName;
        EXPECT_FALSE(bFailed) << pszName;
    }
    // The same short content under another name is checksummed whole.
    bool bFailed = true;
    EXPECT_EQ(WithoutTags(Write("short.txt", std::string(127, 'a')), bFailed),
              CrcOf(std::string(127, 'a')));
}

// The progress texts of a large file, fed by hand: a text at every change
// of the percentage, pumping while the pool is idle, and the current
// directory's path at 100.
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

    ASSERT_EQ(host.m_aStatusTexts.size(), 101u);
    EXPECT_EQ(host.m_aStatusTexts[0], u"calculating crc 0% for big.iso\n");
    EXPECT_EQ(host.m_aStatusTexts[57], u"calculating crc 57% for big.iso\n");
    EXPECT_EQ(host.m_aStatusTexts[100], u"shown-dir");
    EXPECT_EQ(host.m_nUiPumps, 101);
    SetMainDocument(nullptr);

    CCrcProgress small(u"small", CCrcProgress::kThreshold - 1);
    EXPECT_FALSE(small.IsOn());
    small.Add(CCrcProgress::kThreshold);
    EXPECT_EQ(host.m_aStatusTexts.size(), 101u);
}

// Progress follows the size the record gives: a file said to be 1 GiB
// reports its first percentage with the first block read.
TEST_F(Crc32OfFileTest, LargeFileReportsProgressWhileRead) {
    test::CRecordingHost host;
    const std::string strContent = RandomBytes(100000, 9);
    const std::u16string strPath = Write("big.bin", strContent);
    bool bFailed = false;
    EXPECT_EQ(Crc32OfFile(strPath, bFailed, CCrcProgress::kThreshold), CrcOf(strContent));
    EXPECT_FALSE(bFailed);
    ASSERT_EQ(host.m_aStatusTexts.size(), 1u);
    EXPECT_EQ(host.m_aStatusTexts[0], u"calculating crc 0% for " + strPath + u"\n");
    EXPECT_EQ(host.m_nUiPumps, 1);

    EXPECT_EQ(Crc32OfFile(strPath, bFailed, CCrcProgress::kThreshold - 1), CrcOf(strContent));
    EXPECT_EQ(host.m_aStatusTexts.size(), 1u);
}

}  // namespace
}  // namespace zv
