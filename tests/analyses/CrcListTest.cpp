#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>

#include "AnalysesTestSupport.h"
#include "analyses/CrcList.h"
#include "analyses/CrcListFormats.h"
#include "core/document/Document.h"
#include "core/records/RecordTestSupport.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using platform::Utf16ToUtf8;

// "UNKNOWN" only, as it stands, means no checksum; the rest reads as a C
// runtime reads an unsigned 32-bit number: hexadecimal after "0x" only,
// leading blanks and a sign taken, stopping at the first invalid character,
// saturating on overflow.
TEST(CrcListValue, ReadsAsTheListsWriteIt) {
    // clang-format off
    const std::tuple<const char16_t*, bool, uint32_t> aCases[] = {
        {u"UNKNOWN", false, 0},              {u"unknown", true, 0},      {u"UNKNOWN ", true, 0},
        {u"3421780262", true, 3421780262u},  {u"0xCBF43926", true, 0xCBF43926u},
        {u"0xcbf43926", true, 0xCBF43926u},  {u"0X1F", true, 0},         {u"CBF43926", true, 0},
        {u"123abc", true, 123},              {u"0x1Fg", true, 0x1F},     {u"  42", true, 42},
        {u"+7", true, 7},                    {u"-1", true, 0xFFFFFFFFu}, {u"", true, 0},
        {u"4294967296", true, 0xFFFFFFFFu},  {u"0x1FFFFFFFF", true, 0xFFFFFFFFu}, {u"0x", true, 0},
    };
    // clang-format on
    for (auto [pszText, bHasCrc, uExpected] : aCases) {
        uint32_t uValue = 12345;
        EXPECT_EQ(ParseCrcListValue(pszText, uValue), bHasCrc) << Utf16ToUtf8(pszText);
        EXPECT_EQ(uValue, uExpected) << Utf16ToUtf8(pszText);
    }
}

// The entries as "path=checksum;", "?" for no checksum.
std::string Describe(const std::vector<CCrcListEntry>& aEntries) {
    std::string strText;
    for (const CCrcListEntry& entry : aEntries)
        strText += Utf16ToUtf8(entry.m_strPath) + "=" +
                   (entry.m_bHasCrc ? std::to_string(entry.m_uCrc) : "?") + ";";
    return strText;
}

TEST(CrcListText, BlocksOfAPathLineAndItsCrcLines) {
    const std::string strH269(269, 'h');
    const std::pair<std::string, std::string> aCases[] = {
        {"C:\\a\\b.txt\nSize: 10\nCRC: 0x1A\n\nC:\\c.txt\nCRC: 26\n",
         "C:\\a\\b.txt=26;C:\\c.txt=26;"},
        {"a\r\nCRC: 5\r\n\r\nb\r\nCRC: 6\r\n", "a=5;b=6;"},
        {"x\nCRC: UNKNOWN\n", "x=?;"},
        {"Directory: C:\\d\nCRC: 0x10\n\nC:\\d\\f\nCRC: 1\n", "C:\\d\\f=1;"},
        {"x\nCRC:3\ncrc: 4\n CRC: 5\nMP3 CRC: 6\n", ""},
        // Without a blank line every CRC line belongs to the block's path.
        {"x\nCRC: 1\ny\nCRC: 2\n", "x=1;x=2;"},
        // A blank header line takes the next path line as one of its own
        // lines, and its CRC line for an entry with an empty path.
        {"x\nCRC: 1\n\n\ny\nCRC: 2\n", "x=1;=2;"},
        {"x\nCRC: 9", "x=9;"},
        // A header of 270 characters leaves its line feed to be read as a
        // blank line, which ends the block; other lines are read in pieces
        // of 259, so the second piece here is a CRC line.
        {strH269 + "h\nCRC: 1\n\nz\nCRC: 2\n", "z=2;"},
        {strH269 + "\nCRC: 1\n", strH269 + "=1;"},
        {"x\n" + std::string(259, 'a') + "CRC: 4\n", "x=4;"},
        {std::string("\xFF\xFEx\0\n\0C\0R\0C\0:\0 \0\x37\0\n\0", 20), "x=7;"},  // UTF-16
    };
    for (size_t i = 0; i < std::size(aCases); ++i) {
        std::vector<CCrcListEntry> aEntries(1);  // emptied first
        ReadCrcListText(aCases[i].first, aEntries);
        EXPECT_EQ(Describe(aEntries), aCases[i].second) << "case " << i;
    }
}

// Every node visited empties the list: only what the last visited nodes
// added remains.
TEST(CrcListXml, OnlyWhatTheLastVisitedNodesAddRemains) {
    const std::pair<std::string, std::string> aCases[] = {
        {"<Zorvane><file name='C:\\a' crc='0x1F'/></Zorvane>", "C:\\a=31;"},
        {"<Z><file name='a' crc='1'/><file name='b' crc='2'/></Z>", "b=2;"},
        {"<Z><file name='a' crc='1'/><other/></Z>", ""},
        {"<Z><file name='a' crc='1'/><!-- end --></Z>", ""},
        {"<Z><file name='a' crc='1'>text</file></Z>", ""},
        {"<Z>\n  <file name='a' crc='1'/>\n</Z>\n", "a=1;"},  // whitespace is no node
        {"<Z><dir><file name='a' crc='1'/></dir><dir><file name='b' crc='2'/></dir></Z>", "b=2;"},
        {"<Z><FILE NAME='a' CRC='UNKNOWN'/></Z>", "a=?;"},
        {"<file name='r' crc='3'/>", "r=3;"},
        {"<Z><file name='a'/></Z>", ""},
        {"<Z><file name='' crc='1'/></Z>", ""},
        {"<Z><file name='' crc='1' Name='b'/></Z>", "b=1;"},
        {"<Z><file name='a' crc='1' NAME='b'/></Z>", "a=1;"},
        {"<Z><file name='a&amp;\xc3\xa9' crc='1'/></Z>", "a&\xc3\xa9=1;"},
    };
    for (const auto& [strXml, strExpected] : aCases) {
        std::vector<CCrcListEntry> aEntries;
        EXPECT_EQ(ReadCrcListXml(strXml, aEntries), u"") << strXml;
        EXPECT_EQ(Describe(aEntries), strExpected) << strXml;
    }
}

TEST(CrcListXml, ErrorsLeaveTheEntriesAlone) {
    std::vector<CCrcListEntry> aEntries(2);
    const std::u16string strError = ReadCrcListXml("<Z>\n<file name='a' crc='1'\n</Z>", aEntries);
    EXPECT_TRUE(strError.starts_with(u"XML Parse Error ")) << Utf16ToUtf8(strError);
    EXPECT_NE(strError.find(u"\nLine "), std::u16string::npos) << Utf16ToUtf8(strError);
    EXPECT_EQ(ReadCrcListXml("", aEntries), u"XML file has no file data");
    EXPECT_EQ(ReadCrcListXml("<?xml version='1.0'?>\n<!-- nothing -->", aEntries),
              u"XML file has no file data");
    EXPECT_EQ(aEntries.size(), 2u);
}

// Loading and applying through the document.
class CrcListDocTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char16_t* pszName : {u"a.txt", u"B.txt", u"c.txt", u"dup", u"dup", u"dup"})
            m_doc.m_scan.m_aAllFiles.Add(test::AddFile(*m_pRoot, pszName, 5));
    }
    CFileData* File(size_t i) { return m_doc.m_scan.m_aAllFiles[i]; }
    std::string PathOf(size_t i) { return Utf16ToUtf8(File(i)->GetFullPath()); }
    std::u16string Write(const char* pszName, const std::string& strContent) {
        return m_dir.WriteFile(pszName, strContent).u16string();
    }

    test::CTempDir m_dir;
    test::CRecordingHost m_host;
    test::CTableServices m_services;  // counts file reads
    CWZorvaneDoc m_doc;
    std::unique_ptr<CRootDirectoryData> m_pRoot = test::MakeRoot(m_dir.Path().u16string());
};

TEST_F(CrcListDocTest, ApplyMatchesPathsWithoutCaseOneEntryPerFile) {
    std::string strUpper = PathOf(0);
    for (char& ch : strUpper) ch = char(std::toupper(static_cast<unsigned char>(ch)));
    m_doc.m_options.m_strCrcFromFile = Write(
        "list.txt", strUpper + "\nCRC: 0x1\n\n" + PathOf(1) + "\nCRC: UNKNOWN\n\n" + PathOf(3) +
                        "\nCRC: 3\n\n" + PathOf(3) + "\nCRC: 4\n\nnowhere\nCRC: 5\n");
    LoadCrcList(m_doc);
    ASSERT_EQ(m_doc.m_aCrcFromFile.size(), 5u);
    EXPECT_EQ(ApplyCrcList(m_doc), 4u);
    EXPECT_EQ(m_doc.m_nCrcListMatched, 4u);

    const uint32_t uFlags = FILE_CRC_FROM_LIST | FILE_CRC_VALID | FILE_CRC_FAILED;
    EXPECT_EQ(File(0)->m_uFlags & uFlags, FILE_CRC_FROM_LIST | FILE_CRC_VALID);
    EXPECT_EQ(File(0)->GetCrc(), 1u);
    EXPECT_EQ(File(1)->m_uFlags & uFlags, FILE_CRC_FROM_LIST | FILE_CRC_FAILED);
    EXPECT_EQ(File(2)->m_uFlags & uFlags, 0u);
    EXPECT_EQ(File(3)->GetCrc(), 3u);  // the two equal paths take the entries in order
    EXPECT_EQ(File(4)->GetCrc(), 4u);
    EXPECT_EQ(File(5)->m_uFlags & uFlags, 0u);  // no entry left for the third
    EXPECT_EQ(m_services.m_nReads, 0);          // nothing was read from the files
    EXPECT_TRUE(m_doc.m_aCrcFromFile[0].m_bMatched);
    EXPECT_FALSE(m_doc.m_aCrcFromFile[4].m_bMatched);

    // Applied again (after the next scan), the marks start afresh.
    EXPECT_EQ(ApplyCrcList(m_doc), 4u);
}

// The form follows the extension: XML text in a ".txt" file yields nothing.
TEST_F(CrcListDocTest, TheCommandLoadsAppliesAndTells) {
    const std::string strXml = "<Z><file name='" + PathOf(2) + "' crc='0x22'/></Z>";
    const std::u16string aLists[] = {Write("l.XML", strXml), Write("l.xml.txt", strXml),
                                     Write("l.txt", PathOf(0) + "\nCRC: 1\n\nelsewhere\nCRC: 2\n")};
    for (const std::u16string& strList : aLists) GetCrcsFromFile(m_doc, strList);
    EXPECT_EQ(File(2)->GetCrc(), 0x22u);
    EXPECT_EQ(m_doc.m_options.m_strCrcFromFile, aLists[2]);
    EXPECT_EQ(m_host.m_aMessages,
              (std::vector<std::u16string>{
                  u"Matched 1 files from " + aLists[0] + u"\nWhich contains 1 entries",
                  u"Matched 0 files from " + aLists[1] + u"\nWhich contains 0 entries",
                  u"Matched 1 files from " + aLists[2] + u"\nWhich contains 2 entries"}));

    GetCrcsFromFile(m_doc, u"");  // the list is no longer used
    EXPECT_TRUE(m_doc.m_options.m_strCrcFromFile.empty());
    EXPECT_TRUE(m_doc.m_aCrcFromFile.empty());
    EXPECT_EQ(m_host.m_aMessages.size(), 3u);
    m_doc.m_bScanning = 1;  // ignored during a scan
    GetCrcsFromFile(m_doc, aLists[2]);
    EXPECT_TRUE(m_doc.m_options.m_strCrcFromFile.empty());
}

TEST_F(CrcListDocTest, UnreadableListsKeepTheEarlierEntries) {
    m_doc.m_aCrcFromFile.resize(3);
    m_doc.m_options.m_strCrcFromFile = (m_dir.Path() / "missing.txt").u16string();
    LoadCrcList(m_doc);
    const std::u16string strBad = Write("bad.xml", "<Z><file></Z>");
    m_doc.m_options.m_strCrcFromFile = strBad;
    LoadCrcList(m_doc);
    EXPECT_EQ(m_doc.m_aCrcFromFile.size(), 3u);
    ASSERT_EQ(m_host.m_aMessages.size(), 2u);
    EXPECT_EQ(m_host.m_aMessages[0], u"The system cannot find the file specified.");
    EXPECT_TRUE(m_host.m_aMessages[1].starts_with(u"XML parsing failed for file: " + strBad +
                                                  u"\nXML Parse Error "))
        << Utf16ToUtf8(m_host.m_aMessages[1]);
}

TEST_F(CrcListDocTest, ThePathIsTrimmedAndMustExist) {
    std::u16string strPath = u"  \t ";
    EXPECT_EQ(CheckCrcListPath(strPath), u"Please enter a file name");
    strPath = std::u16string(u" ").append((m_dir.Path() / "nothing.txt").u16string()).append(u" ");
    EXPECT_EQ(CheckCrcListPath(strPath), u"File does not exist");
    const std::u16string strReal = Write("real.txt", "");
    strPath = std::u16string(u"\t").append(strReal).append(u"  ");
    EXPECT_EQ(CheckCrcListPath(strPath), u"");
    EXPECT_EQ(strPath, strReal);
}

}  // namespace
}  // namespace zv
