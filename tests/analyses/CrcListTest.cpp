#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "AnalysesTestSupport.h"
#include "analyses/CrcList.h"
#include "analyses/CrcListFormats.h"
#include "core/Document.h"
#include "core/RecordTestSupport.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using test::ToU16;

std::string Narrow(const std::u16string& text) { return platform::Utf16ToUtf8(text); }

TEST(CrcListValue, ReadsAsTheListsWriteIt) {
    struct Case {
        const char16_t* pszText;
        bool bHasCrc;
        uint32_t uValue;
    };
    const Case aCases[] = {
        {u"UNKNOWN", false, 0},
        {u"unknown", true, 0},  // only the exact word
        {u"UNKNOWN ", true, 0},
        {u"3421780262", true, 3421780262u},
        {u"0xCBF43926", true, 0xCBF43926u},
        {u"0xcbf43926", true, 0xCBF43926u},
        {u"0x0", true, 0},
        {u"0X1F", true, 0},      // "0X" is not the hexadecimal mark
        {u"CBF43926", true, 0},  // hexadecimal without "0x" reads as decimal
        {u"123abc", true, 123},  // stops at the first invalid character
        {u"0x1Fg", true, 0x1F},
        {u"  42", true, 42},  // leading blanks are skipped
        {u"+7", true, 7},
        {u"-1", true, 0xFFFFFFFFu},
        {u"4294967295", true, 0xFFFFFFFFu},
        {u"4294967296", true, 0xFFFFFFFFu},  // overflow saturates
        {u"0x1FFFFFFFF", true, 0xFFFFFFFFu},
        {u"", true, 0},
        {u"0x", true, 0},
    };
    for (const Case& c : aCases) {
        uint32_t uValue = 12345;
        EXPECT_EQ(ParseCrcListValue(c.pszText, uValue), c.bHasCrc) << Narrow(c.pszText);
        EXPECT_EQ(uValue, c.uValue) << Narrow(c.pszText);
    }
}

struct CExpected {
    std::u16string strPath;
    uint32_t uCrc;
    bool bHasCrc;
};

void ExpectEntries(const std::vector<CCrcListEntry>& aEntries,
                   const std::vector<CExpected>& aExpected, const std::string& strWhat) {
    ASSERT_EQ(aEntries.size(), aExpected.size()) << strWhat;
    for (size_t i = 0; i < aEntries.size(); ++i) {
        EXPECT_EQ(aEntries[i].m_strPath, aExpected[i].strPath) << strWhat << " #" << i;
        EXPECT_EQ(aEntries[i].m_uCrc, aExpected[i].uCrc) << strWhat << " #" << i;
        EXPECT_EQ(aEntries[i].m_bHasCrc, aExpected[i].bHasCrc) << strWhat << " #" << i;
        EXPECT_FALSE(aEntries[i].m_bMatched);
    }
}

TEST(CrcListText, BlocksOfAPathLineAndItsCrcLines) {
    const std::string strHeader270(270, 'h');
    struct Case {
        const char* pszWhat;
        std::string strText;
        std::vector<CExpected> aExpected;
    };
    const Case aCases[] = {
        {"report block",
         "C:\\a\\b.txt\nSize: 10\nCRC: 0x1A\n\nC:\\c.txt\nCRC: 26\n",
         {{u"C:\\a\\b.txt", 0x1A, true}, {u"C:\\c.txt", 26, true}}},
        {"CR LF",
         "C:\\a.txt\r\nCRC: 5\r\n\r\nC:\\b.txt\r\nCRC: 6\r\n",
         {{u"C:\\a.txt", 5, true}, {u"C:\\b.txt", 6, true}}},
        {"unknown", "x\nCRC: UNKNOWN\n", {{u"x", 0, false}}},
        {"directory block",
         "Directory: C:\\d\nCRC: 0x10\n\nC:\\d\\f\nCRC: 1\n",
         {{u"C:\\d\\f", 1, true}}},
        {"every CRC line counts", "x\nCRC: 1\nCRC: 2\n", {{u"x", 1, true}, {u"x", 2, true}}},
        {"other lines", "x\nCRC:3\ncrc: 4\n CRC: 5\nMP3 CRC: 6\n", {}},
        {"no blank line ends a block before the end",
         "x\nCRC: 1\ny\nCRC: 2\n",
         {{u"x", 1, true}, {u"x", 2, true}}},
        // A blank header line takes the next path line as one of its own
        // lines, and its CRC line for an entry with an empty path.
        {"double blank line", "x\nCRC: 1\n\n\ny\nCRC: 2\n", {{u"x", 1, true}, {u"", 2, true}}},
        {"no final line feed", "x\nCRC: 9", {{u"x", 9, true}}},
        // A header of 270 characters leaves its line feed to be read as a
        // blank line, which ends the block.
        {"long header", strHeader270 + "\nCRC: 1\n\nz\nCRC: 2\n", {{u"z", 2, true}}},
        {"header of 269",
         std::string(269, 'h') + "\nCRC: 1\n",
         {{platform::U16(std::string(269, 'h')), 1, true}}},
        {"UTF-8 path", "C:\\\xc3\xa9t\xc3\xa9\nCRC: 1\n", {{u"C:\\\u00e9t\u00e9", 1, true}}},
        {"UTF-8 byte order mark", "\xEF\xBB\xBFx\nCRC: 1\n", {{u"x", 1, true}}},
        {"UTF-16",
         std::string("\xFF\xFEx\0\n\0C\0R\0C\0:\0 \0"
                     "7\0\n\0",
                     20),
         {{u"x", 7, true}}},
        {"empty", "", {}},
    };
    for (const Case& c : aCases) {
        std::vector<CCrcListEntry> aEntries(1);  // emptied first
        ReadCrcListText(c.strText, aEntries);
        ExpectEntries(aEntries, c.aExpected, c.pszWhat);
    }
}

TEST(CrcListText, AttributeLinesAreReadInPiecesOf259) {
    // The piece after the first 259 characters begins "CRC: ".
    const std::string strText = "x\n" + std::string(259, 'a') + "CRC: 4\n";
    std::vector<CCrcListEntry> aEntries;
    ReadCrcListText(strText, aEntries);
    ExpectEntries(aEntries, {{u"x", 4, true}}, "split line");
}

TEST(CrcListXml, OnlyWhatTheLastVisitedNodesAddRemains) {
    struct Case {
        const char* pszWhat;
        std::string strXml;
        std::vector<CExpected> aExpected;
    };
    const Case aCases[] = {
        {"one file",
         "<Zorvane><file name='C:\\a' crc='0x1F'/></Zorvane>",
         {{u"C:\\a", 0x1F, true}}},
        {"two files: the last one",
         "<Z><file name='a' crc='1'/><file name='b' crc='2'/></Z>",
         {{u"b", 2, true}}},
        {"an element after the file", "<Z><file name='a' crc='1'/><other/></Z>", {}},
        {"a comment after the file", "<Z><file name='a' crc='1'/><!-- end --></Z>", {}},
        {"text inside the file", "<Z><file name='a' crc='1'>text</file></Z>", {}},
        {"whitespace is no node", "<Z>\n  <file name='a' crc='1'/>\n</Z>\n", {{u"a", 1, true}}},
        {"nested",
         "<Z><dir><file name='a' crc='1'/></dir><dir><file name='b' crc='2'/></dir></Z>",
         {{u"b", 2, true}}},
        {"names without case", "<Z><FILE NAME='a' CRC='UNKNOWN'/></Z>", {{u"a", 0, false}}},
        {"the root itself", "<file name='r' crc='3'/>", {{u"r", 3, true}}},
        {"missing crc", "<Z><file name='a'/></Z>", {}},
        {"empty name", "<Z><file name='' crc='1'/></Z>", {}},
        {"later attribute fills an empty one",
         "<Z><file name='' crc='1' Name='b'/></Z>",
         {{u"b", 1, true}}},
        {"entities", "<Z><file name='a&amp;b' crc='1'/></Z>", {{u"a&b", 1, true}}},
        {"UTF-8", "<Z><file name='\xc3\xa9' crc='1'/></Z>", {{u"\u00e9", 1, true}}},
    };
    for (const Case& c : aCases) {
        std::vector<CCrcListEntry> aEntries;
        EXPECT_EQ(ReadCrcListXml(c.strXml, aEntries), u"") << c.pszWhat;
        ExpectEntries(aEntries, c.aExpected, c.pszWhat);
    }
}

TEST(CrcListXml, ErrorsLeaveTheEntriesAlone) {
    std::vector<CCrcListEntry> aEntries(2);
    const std::u16string strError = ReadCrcListXml("<Z>\n<file name='a' crc='1'\n</Z>", aEntries);
    EXPECT_TRUE(strError.starts_with(u"XML Parse Error ")) << Narrow(strError);
    EXPECT_NE(strError.find(u"\nLine "), std::u16string::npos) << Narrow(strError);
    EXPECT_EQ(aEntries.size(), 2u);
    EXPECT_EQ(ReadCrcListXml("", aEntries), u"XML file has no file data");
    EXPECT_EQ(ReadCrcListXml("<?xml version='1.0'?>\n<!-- nothing -->", aEntries),
              u"XML file has no file data");
    EXPECT_EQ(aEntries.size(), 2u);
}

// Loading and applying through the document.
class CrcListDocTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_pRoot = test::MakeRoot(ToU16(m_dir.Path()));
        for (const char16_t* pszName : {u"a.txt", u"B.txt", u"c.txt", u"dup", u"dup"}) {
            CFileData* pFile = test::AddFile(*m_pRoot, pszName, 5);
            m_doc.m_scan.m_aAllFiles.Add(pFile);
        }
    }
    CFileData* File(size_t i) { return m_doc.m_scan.m_aAllFiles[i]; }
    std::string PathOf(size_t i) { return Narrow(File(i)->GetFullPath()); }
    std::string Upper(std::string text) {
        for (char& ch : text) ch = char(std::toupper(static_cast<unsigned char>(ch)));
        return text;
    }

    test::CTempDir m_dir;
    test::CRecordingHost m_host;
    test::CTableServices m_services;  // counts file reads
    CWZorvaneDoc m_doc;
    std::unique_ptr<CRootDirectoryData> m_pRoot;
};

TEST_F(CrcListDocTest, ApplyMatchesPathsWithoutCaseOneEntryPerFile) {
    m_doc.m_options.m_strCrcFromFile = ToU16(m_dir.WriteFile(
        "list.txt", Upper(PathOf(0)) + "\nCRC: 0x1\n\n" + PathOf(1) + "\nCRC: UNKNOWN\n\n" +
                        PathOf(3) + "\nCRC: 3\n\n" + PathOf(3) + "\nCRC: 4\n\nnowhere\nCRC: 5\n"));
    LoadCrcList(m_doc);
    ASSERT_EQ(m_doc.m_aCrcFromFile.size(), 5u);
    EXPECT_EQ(ApplyCrcList(m_doc), 4u);
    EXPECT_EQ(m_doc.m_nCrcListMatched, 4u);

    EXPECT_EQ(File(0)->m_uFlags & (FILE_CRC_FROM_LIST | FILE_CRC_VALID | FILE_CRC_FAILED),
              FILE_CRC_FROM_LIST | FILE_CRC_VALID);
    EXPECT_EQ(File(0)->GetCrc(), 1u);
    EXPECT_EQ(File(1)->m_uFlags & (FILE_CRC_FROM_LIST | FILE_CRC_VALID | FILE_CRC_FAILED),
              FILE_CRC_FROM_LIST | FILE_CRC_FAILED);
    EXPECT_EQ(File(1)->GetCrcText(false), u"UNKNOWN");
    EXPECT_EQ(File(2)->m_uFlags & FILE_CRC_FROM_LIST, 0u);
    EXPECT_EQ(File(3)->GetCrc(), 3u);  // the two equal paths take the entries in order
    EXPECT_EQ(File(4)->GetCrc(), 4u);
    EXPECT_EQ(m_services.m_nReads, 0);  // nothing was read from the files
    EXPECT_TRUE(m_doc.m_aCrcFromFile[0].m_bMatched);
    EXPECT_FALSE(m_doc.m_aCrcFromFile[4].m_bMatched);

    // Applied again (after the next scan), the marks start afresh.
    EXPECT_EQ(ApplyCrcList(m_doc), 4u);
}

TEST_F(CrcListDocTest, TheFormFollowsTheExtension) {
    const std::string strXml = "<Z><file name='" + PathOf(2) + "' crc='0x22'/></Z>";
    m_doc.m_options.m_strCrcFromFile = ToU16(m_dir.WriteFile("list.XML", strXml));
    LoadCrcList(m_doc);
    ASSERT_EQ(m_doc.m_aCrcFromFile.size(), 1u);
    EXPECT_EQ(m_doc.m_aCrcFromFile[0].m_uCrc, 0x22u);

    // The same text under another name is read as text, and yields nothing.
    m_doc.m_options.m_strCrcFromFile = ToU16(m_dir.WriteFile("list.xml.txt", strXml));
    LoadCrcList(m_doc);
    EXPECT_TRUE(m_doc.m_aCrcFromFile.empty());
    EXPECT_TRUE(m_host.m_aMessages.empty());
}

TEST_F(CrcListDocTest, UnreadableListsKeepTheEarlierEntries) {
    m_doc.m_aCrcFromFile.resize(3);
    m_doc.m_options.m_strCrcFromFile = ToU16(m_dir.Path() / "missing.txt");
    LoadCrcList(m_doc);
    EXPECT_EQ(m_doc.m_aCrcFromFile.size(), 3u);
    ASSERT_EQ(m_host.m_aMessages.size(), 1u);
    EXPECT_EQ(m_host.m_aMessages[0], u"The system cannot find the file specified.");

    const std::u16string strBad = ToU16(m_dir.WriteFile("bad.xml", "<Z><file></Z>"));
    m_doc.m_options.m_strCrcFromFile = strBad;
    LoadCrcList(m_doc);
    EXPECT_EQ(m_doc.m_aCrcFromFile.size(), 3u);
    ASSERT_EQ(m_host.m_aMessages.size(), 2u);
    EXPECT_TRUE(m_host.m_aMessages[1].starts_with(u"XML parsing failed for file: " + strBad +
                                                  u"\nXML Parse Error "))
        << Narrow(m_host.m_aMessages[1]);
}

TEST_F(CrcListDocTest, TheCommandLoadsAppliesAndTells) {
    const std::u16string strList =
        ToU16(m_dir.WriteFile("l.txt", PathOf(0) + "\nCRC: 1\n\nelsewhere\nCRC: 2\n"));
    GetCrcsFromFile(m_doc, strList);
    EXPECT_EQ(m_doc.m_options.m_strCrcFromFile, strList);
    ASSERT_EQ(m_host.m_aMessages.size(), 1u);
    EXPECT_EQ(m_host.m_aMessages[0],
              u"Matched 1 files from " + strList + u"\nWhich contains 2 entries");

    GetCrcsFromFile(m_doc, u"");  // the list is no longer used
    EXPECT_TRUE(m_doc.m_options.m_strCrcFromFile.empty());
    EXPECT_TRUE(m_doc.m_aCrcFromFile.empty());
    EXPECT_EQ(m_host.m_aMessages.size(), 1u);

    m_doc.m_bScanning = 1;  // ignored during a scan
    GetCrcsFromFile(m_doc, strList);
    EXPECT_TRUE(m_doc.m_options.m_strCrcFromFile.empty());
}

TEST_F(CrcListDocTest, ThePathIsTrimmedAndMustExist) {
    std::u16string strPath = u"  \t ";
    EXPECT_EQ(CheckCrcListPath(strPath), u"Please enter a file name");
    strPath = std::u16string(u" ").append(ToU16(m_dir.Path() / "nothing.txt")).append(u" ");
    EXPECT_EQ(CheckCrcListPath(strPath), u"File does not exist");
    const std::u16string strReal = ToU16(m_dir.WriteFile("real.txt", ""));
    strPath = std::u16string(u"\t").append(strReal).append(u"  ");
    EXPECT_EQ(CheckCrcListPath(strPath), u"");
    EXPECT_EQ(strPath, strReal);
}

}  // namespace
}  // namespace zv
