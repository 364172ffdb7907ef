// Settings files through LoadSettings and the writer: round trips of the
// defaults and of a document with every section set, the tolerant reader's
// edge cases, conflicts, the filters that read the disk, and start-up.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/document/Document.h"
#include "core/host/ScriptedHost.h"
#include "core/settings/DocumentStartup.h"
#include "core/settings/SettingsDisk.h"
#include "core/settings/SettingsFile.h"
#include "core/settings/SettingsText.h"
#include "core/settings/TextFile.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

namespace fs = std::filesystem;
using platform::U16;
using Strings = std::vector<std::u16string>;

std::u16string PathText(const fs::path& path) { return path.u16string(); }

void Load(CWZorvaneDoc& doc, std::u16string_view strText, bool bReport = false) {
    LoadSettingsText(doc, platform::Utf16ToUtf8(strText), bReport, RealSettingsDisk());
}

std::u16string Saved(CWZorvaneDoc& doc) { return DecodeTextFile(FormatSettingsText(doc)); }

::testing::AssertionResult Contains(std::u16string_view strText, std::u16string_view strPart) {
    if (strText.find(strPart) != strText.npos) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "no \"" << platform::Utf16ToUtf8(strPart) << '"';
}

Strings Texts(const CFilterSet& filters, EFilterList eList) {
    Strings aTexts;
    for (const CFilterEntry& entry : filters.List(eList)) aTexts.push_back(entry.m_strText);
    return aTexts;
}

class SettingsFileTest : public ::testing::Test {
protected:
    std::u16string MakeDir(const std::string& strName) {
        fs::create_directories(m_temp.Path() / strName);
        return PathText(m_temp.Path() / strName);
    }

    // Every section written, with values away from their defaults, and
    // every kind of key among them.
    void MakeBusy(CWZorvaneDoc& doc) {
        for (const char* pszRoot : {"root one", "root-2"}) {
            auto* pRoot = new CRootDirectoryData(MakeDir(pszRoot));
            pRoot->Prepare(doc.m_scan.m_aDrives);
            doc.m_scan.m_aRoots.Add(pRoot);
        }
        CDocumentOptions& o = doc.m_options;
        o.m_nFileSort = 2;
        o.m_nDirSort = 21;
        o.m_nMaxDepth = 3;
        o.m_nSizeUnit = 2;
        o.m_strSizeUnit = u"MB";
        o.m_bLargestOwner = 1;
        o.m_dupFiles = {1, 1, 1, 1, 0};
        o.m_bFindDupDirsAfterScan = 1;
        o.m_bCrcHex = 1;
        o.m_bCrcDecimal = 0;
        o.m_nDefaultCompareMode = 1;
        o.m_diff = {0, u"C:\\diff.exe", u"-x", u"-a", u"-b"};

        CFilterSet& f = doc.m_filters;
        for (int nList = 0; nList < FilterDupFiles; ++nList) {
            f.AddEntry(EFilterList(nList), u"*.list" + U16(std::to_string(nList)));
            f.AddEntry(EFilterList(nList), u"[second = entry]");
        }
        f.AddEntry(FilterDupFiles, PathText(m_temp.WriteFile("dup.bin", "duplicate content")));
        for (int nTest = 0; nTest < DateFilterCount; ++nTest) {
            // January, whole milliseconds: clear of summer time. Every other
            // test has both forms.
            const FILETIME ftWhen = FileTimeFromUInt64(
                (13330000000ULL + 86400 * nTest) * kTicksPerSecond + 1230000 * nTest);
            f.m_aDates[nTest] = {1, ftWhen, nTest % 2, -30 - nTest, 5, -6, 7, {}};
        }
        f.m_bCreatedLater = f.m_bAnyDateLow = f.m_bHasStreams = f.m_bMinSize = f.m_bMaxSize = 1;
        f.m_dMinSize = 10.5;
        f.m_dMaxSize = 1e6;
        f.m_aAttributes[AttrFilterSystem] = {1, 1};  // not resolved
        for (int n = AttrFilterCompressed; n <= AttrFilterLinked; ++n)
            f.m_aAttributes[n] = {n % 2, 1 - n % 2};
        f.m_nPathLength = 12;

        CPrintSettings& p = doc.m_print;
        for (uint8_t& b : p.m_aFlags) b = !b;
        for (auto& aFlags : p.m_aMetadataFlags)
            for (size_t i = 0; i < aFlags.size(); i += 2) aFlags[i] = 0;
        p.m_aTypeWidths[1] = 0.2;
        p.m_nMarginBottom = -14;
        p.m_bPrintFontDefault = 0;
        p.m_nPrintFontSize = 14;
        p.m_printFont = {-16, 7, 1, 2, 0, 1, 1, 1, 2, 3, 4, 5, 49, u"Courier New"};
        CAutoPrintSettings& a = p.m_autoPrint;
        uint8_t n = 1;  // types 2, 3, 4, 1, ...; valid sort codes where a block has them
        for (CAutoPrintBlock* pBlock : {&a.m_main, &a.m_dupDirs, &a.m_dupFiles, &a.m_largestFiles,
                                        &a.m_largestDirs, &a.m_largestOwner, &a.m_largestType}) {
            ++n;
            *pBlock = {1,
                       n % 4 + 1,
                       u"C:\\report" + U16(std::to_string(n)),
                       uint8_t(n % 2),
                       uint8_t(24 - n),
                       uint8_t(20 - n),
                       1};
        }
        a.m_bExit = a.m_bSeparateColumn = 1;
    }

    test::CTempDir m_temp;
    test::CScriptedHost m_host;
};

TEST_F(SettingsFileTest, DefaultsSurviveASaveAndALoad) {
    CWZorvaneDoc doc, loaded;
    OpenMainDocument(doc, u"");
    const std::u16string strSaved = Saved(doc);
    EXPECT_TRUE(strSaved.starts_with(u"#Zorvane settings\n\n[OTHER]\n"));
    Load(loaded, strSaved);
    EXPECT_EQ(Saved(loaded), strSaved);
    EXPECT_TRUE(m_host.m_aMessages.empty());
}

TEST_F(SettingsFileTest, EverySectionSurvivesASaveAndALoadInItsOrder) {
    CWZorvaneDoc doc, loaded;
    MakeBusy(doc);
    const std::u16string strSaved = Saved(doc);
    Load(loaded, strSaved, true);
    EXPECT_TRUE(m_host.m_aMessages.empty());
    EXPECT_EQ(Saved(loaded), strSaved);
    ASSERT_EQ(loaded.m_scan.m_aRoots.GetSize(), 2u);
    EXPECT_EQ(loaded.m_scan.m_aRoots[1]->m_bNewRoot, 0);  // prepared
    ASSERT_EQ(loaded.m_filters.m_aDupFileRecords.GetSize(), 1u);
    EXPECT_TRUE(loaded.m_filters.m_aDupFileRecords[0]->m_uFlags & FILE_CRC_VALID);
    EXPECT_EQ(loaded.m_filters.List(FilterFileNames)[0].m_strUpper, u"*.LIST0");
    EXPECT_EQ(loaded.m_filters.List(FilterFileNames)[0].m_bAdded, 1);
    EXPECT_EQ(loaded.m_options.m_strSizeUnit, u"MB");

    // The first line of each block, with a duplicate directories entry too.
    doc.m_filters.AddEntry(FilterDupDirs, u"*C:\\music");
    std::u16string strHeaders;
    bool bBlockStart = true;
    for (const std::u16string& strLine : SplitSettingsLines(Saved(doc))) {
        if (bBlockStart && strLine.starts_with(u'[')) strHeaders += strLine;
        bBlockStart = strLine.empty();
    }
    EXPECT_EQ(strHeaders,
              u"[SCAN DIRECTORIES][OTHER][FILTER FILE NAMES][FILTER FILE NAMES EXCLUDE]"
              u"[FILTER FILE NAMES FULL PATH EXCLUDE][FILTER OWNERS][FILTER OWNERS EXCLUDE]"
              u"[FILTER FILE NAME VERSION][FILTER OFFICE EXTENSIONS][FILTER DIR EXCLUDE]"
              u"[FILTER DIR][FILTER DUP FILES][FILTER DUP DIRS][FILTER CREATED BEFORE]"
              u"[FILTER CREATED AFTER][FILTER CREATED AFTER RELATIVE][FILTER ACCESSED BEFORE]"
              u"[FILTER ACCESSED AFTER][FILTER ACCESSED AFTER RELATIVE][FILTER MODIFIED BEFORE]"
              u"[FILTER MODIFIED AFTER][FILTER MODIFIED AFTER RELATIVE][FILTER MIN SIZE]"
              u"[FILTER MAX SIZE][FILTER OTHER][COMPUTE][AUTOPRINT_MAIN][AUTOPRINT_DUP_DIRS]"
              u"[AUTOPRINT_DUP_FILES][AUTOPRINT_LARGEST_FILES][AUTOPRINT_LARGEST_DIRS]"
              u"[AUTOPRINT_LARGEST_OWNER][AUTOPRINT_LARGEST_TYPE][DUPLICATE OPTIONS]"
              u"[AUTOFIND DUPLICATES][CRC][DEFAULT FILE COMPARE MODE][DIFF PROGRAM][FONTS]"
              u"[PRINTING WIDTHS][LARGEST OWNER WIDTHS][LARGEST TYPE WIDTHS][MARGINS]"
              u"[GENERAL PRINT FLAGS][MSI PRINT FLAGS][OFFICE PRINT FLAGS][MP3 PRINT FLAGS]"
              u"[WAV PRINT FLAGS][AVI PRINT FLAGS][VERSION PRINT FLAGS][HTML PRINT FLAGS]");
}

// The keys of an Auto Print block beyond "autoprint" are written only while
// it is on; the font only when one was chosen.
TEST_F(SettingsFileTest, ConditionalLinesAreWrittenOnlyWhenOn) {
    CWZorvaneDoc doc;
    CAutoPrintSettings& run = doc.m_print.m_autoPrint;
    run.m_dupFiles.m_strFile = u"kept.txt";
    run.m_main.m_bEnabled = 1;
    run.m_main.m_nType = PrintTypeXml;
    run.m_main.m_strFile = u"out.xml";
    const std::u16string strSaved = Saved(doc);
    EXPECT_TRUE(Contains(strSaved, u"[AUTOPRINT_DUP_FILES]\nautoprint=0\n\n"));
    EXPECT_TRUE(Contains(strSaved,
                         u"[AUTOPRINT_MAIN]\nautoprint=1\nprint_type=xml\nfname=out.xml\n"
                         u"Append date to file name=0\nFiles sort by=Size des\n"
                         u"Directories sort by=size wsubdir des\nPrint Full Path=0\n"
                         u"Exit program after printing=0\n"
                         u"file name in a separate column=0\n\n"));
    EXPECT_FALSE(Contains(strSaved, u"[FONTS]"));
}

TEST_F(SettingsFileTest, AFileWithOnlyOtherChangesThoseKeysAndEmptiesTheLists) {
    CWZorvaneDoc doc;
    MakeBusy(doc);
    doc.m_filters.AddEntry(FilterDupDirs, u"*dirs");
    doc.m_filters.m_aDupDirTrees.Add(new CDirectoryData(nullptr, u"tree", {}, {}, {}, 0));
    Load(doc, u"[OTHER]\nMaximum dir depth=7\n");
    EXPECT_EQ(doc.m_options.m_nMaxDepth, 7);
    for (int nList = 0; nList < FilterDupDirs; ++nList)
        EXPECT_TRUE(doc.m_filters.List(EFilterList(nList)).empty()) << nList;
    EXPECT_TRUE(doc.m_filters.m_aDupFileRecords.IsEmpty());
    for (const CDateFilter& date : doc.m_filters.m_aDates)
        EXPECT_EQ(date.m_bAbsolute + date.m_bRelative, 0);
    for (int n = AttrFilterSystem; n < AttrFilterLinked; ++n)
        EXPECT_EQ(doc.m_filters.m_aAttributes[n].m_bYes + doc.m_filters.m_aAttributes[n].m_bNo, 0);
    EXPECT_EQ(doc.m_filters.m_bMinSize + doc.m_filters.m_bMaxSize + doc.m_filters.m_bHasStreams +
                  doc.m_filters.m_bCreatedLater + doc.m_filters.m_bAnyDateLow,
              0);
    EXPECT_EQ(doc.m_print.m_bPrintFontDefault, 1);  // marked as not chosen
    // What the file does not name keeps its value.
    EXPECT_EQ(doc.m_scan.m_aRoots.GetSize(), 2u);
    EXPECT_EQ(doc.m_filters.m_aAttributes[AttrFilterLinked].m_bNo, 1);
    EXPECT_EQ(doc.m_filters.m_nPathLength, 12);
    EXPECT_EQ(Texts(doc.m_filters, FilterDupDirs), Strings{u"*dirs"});
    EXPECT_EQ(doc.m_filters.m_aDupDirTrees.GetSize(), 1u);
    EXPECT_EQ(doc.m_print.m_aFlags[PrintNoFiles], 1);
    EXPECT_EQ(doc.m_options.m_nFileSort, 2);
    EXPECT_TRUE(m_host.m_aMessages.empty());
}

// Each file is loaded into a fresh document, which is then saved.
TEST_F(SettingsFileTest, TheReaderIsTolerant) {
    const std::u16string strLong(260, u'x');
    struct {
        std::u16string strFile;
        Strings aWritten, aNotWritten = {};
    } const aCases[] = {
        // Keys and sections in any case, but print_type takes exact words.
        {u"[other]\nscan subdirectories=0\nFILES SORT BY=name DES\n",
         {u"Scan Subdirectories=0\n", u"Files sort by=Name des\n"}},
        {u"[autoprint_main]\nautoprint=1\nprint_type=HTML\n",
         {u"[AUTOPRINT_MAIN]\nautoprint=1\nprint_type=none\n"}},
        // A value keeps all after the first '=', and is read while its block is off.
        {u"[AUTOPRINT_LARGEST_OWNER]\nfname=C:\\a=b.txt  \nautoprint=1\n",
         {u"[AUTOPRINT_LARGEST_OWNER]\nautoprint=1\nprint_type=none\nfname=C:\\a=b.txt\n"}},
        // A missing blank line runs a keyed section on, or makes the next
        // header an entry of a list.
        {u"[OTHER]\nScan Subdirectories=0\n[FILTER OTHER]\nfilter hidden yes=1\n",
         {u"Scan Subdirectories=0\n", u"filter hidden yes=0\n"}},
        {u"[FILTER FILE NAMES]\n*.txt\n[FILTER DIR]\n*x\n\n[FILTER OWNERS]\nbob\n",
         {u"[FILTER FILE NAMES]\n*.txt\n[FILTER DIR]\n*x\n\n",
          u"[FILTER OWNERS]\nbob\n\n[FILTER OTHER]"}},
        // Comments, unknown sections and stray lines are skipped.
        {u"#Zorvane settings\nstray=1\n[UNKNOWN]\n[FILTER OWNERS]\n\n[FILTER DIR]\n#not an entry\n"
         u"  spaced  \n=3\n",
         {u" des\n\n[FILTER DIR]\n  spaced\n=3\n\n[FILTER OTHER]"}},
        // Bad numbers read as 0, flags as on or off, the last compute flags as read.
        {u"[COMPUTE]\nLargest files count=many\nLargest files flag=-5\nLargest owner flag=7\n",
         {u"Largest files flag=1\nLargest files count=0\n", u"Largest owner flag=7\n"}},
        {u"[OTHER]\nDisplay size=gb\n\n[OTHER]\nDisplay size=TB\n", {u"Display size=GB\n"}},
        // Either CRC form sets the other to the opposite.
        {u"[CRC]\nShow CRC Decimal=0\n", {u"Show CRC=0\nShow CRC HEX=1\nCRC from file=\n"}},
        {u"[DEFAULT FILE COMPARE MODE]\nSide By Side Ignore Blanks\n",
         {u"[DEFAULT FILE COMPARE MODE]\nside by side ignore blanks\n"}},
        // A size limit or a relative date is on when one of its keys is read;
        // an absolute date needs a valid time.
        {u"[FILTER MAX SIZE]\nmax size=2.5e3\n",
         {u"[FILTER MAX SIZE]\nmax size=2500.000000\n"},
         {u"[FILTER MIN SIZE]"}},
        {u"[FILTER MODIFIED AFTER RELATIVE]\nDays=-30\n",
         {u"[FILTER MODIFIED AFTER RELATIVE]\nDays=-30\nHours=0\nMinutes=0\nSeconds=0\n"},
         {u"[FILTER MODIFIED AFTER]\n"}},
        {u"[FILTER CREATED AFTER]\nYear=2020\nDay=3\n\n[FILTER CREATED BEFORE]\nDay=1\nMonth=2\n"
         u"Year=2021\nDay of Week=6\n",
         {u"[FILTER CREATED BEFORE]\nYear=2021\nMonth=2\nDay of Week=1\nDay=1\nHour=0\nMinute=0\n"
          u"Second=0\nMillisecond=0\n"},
         {u"[FILTER CREATED AFTER]\n"}},
        // A line longer than the buffer goes on as a further line.
        {u"[AUTOPRINT_MAIN]\nfname=" + strLong + u"\nPrint Full Path=1\nautoprint=1\n",
         {u"fname=" + strLong.substr(0, 249) + u"\n", u"Print Full Path=1\n"}},
    };
    for (const auto& c : aCases) {
        SCOPED_TRACE(platform::Utf16ToUtf8(c.strFile));
        CWZorvaneDoc doc;
        Load(doc, c.strFile);
        const std::u16string strSaved = Saved(doc);
        for (const std::u16string& str : c.aWritten) EXPECT_TRUE(Contains(strSaved, str));
        for (const std::u16string& str : c.aNotWritten) EXPECT_FALSE(Contains(strSaved, str));
    }
    EXPECT_TRUE(m_host.m_aMessages.empty());
}

TEST_F(SettingsFileTest, AFontLoadsBackWithWeightZeroAndItsSizeInOneByte) {
    CWZorvaneDoc doc, loaded;
    doc.m_print.m_bPrintFontDefault = 0;
    doc.m_print.m_nPrintFontSize = 300;
    doc.m_print.m_printFont = {-16, 7, 0, 0, 700, 1, 0, 1, 0, 3, 2, 1, 34, u"Courier New"};
    loaded.m_print.m_printFont.m_nWeight = 400;  // the section clears the whole record first
    Load(loaded, Saved(doc));
    EXPECT_EQ(loaded.m_print.m_printFont.m_nWeight, 0);
    doc.m_print.m_printFont.m_nWeight = 0;
    doc.m_print.m_nPrintFontSize = 300 & 0xFF;
    EXPECT_EQ(Saved(loaded), Saved(doc));
}

// Each pair set on both sides is turned off and said when reporting,
// except the system pair; resolving the encrypted pair also turns off
// "filter compressed no".
TEST_F(SettingsFileTest, ConflictingFlagsAreTurnedOffInAFixedWay) {
    std::u16string strAll = u"[FILTER OTHER]\n";
    Strings aMessages;
    for (const std::u16string strName : {u"system file", u"compressed", u"encrypted", u"archive",
                                         u"read only", u"hidden", u"linked"}) {
        strAll += u"filter " + strName + u" yes=1\nfilter " + strName + u" no=1\n";
        if (strName != u"system file")
            aMessages.push_back(u"Both 'filter " + strName + u" yes' and 'filter " + strName +
                                u" no' are set, setting both to off");
    }
    const std::u16string strCompressedNo =
        u"[FILTER OTHER]\nfilter compressed no=1\nfilter encrypted yes=1\nfilter encrypted no=1\n";
    CWZorvaneDoc all, quiet;
    Load(all, strAll, true);
    EXPECT_EQ(m_host.m_aMessages, aMessages);
    Load(quiet, strCompressedNo);
    EXPECT_EQ(m_host.m_aMessages, aMessages);  // a quiet load says nothing
    const std::pair<int32_t, int32_t> aAll[] = {{1, 1}, {0, 0}, {1, 0}, {0, 0},
                                                {0, 0}, {0, 0}, {0, 0}};  // yes and no
    for (int n = AttrFilterSystem; n <= AttrFilterLinked; ++n) {
        const CYesNoFilter& filter = all.m_filters.m_aAttributes[n];
        EXPECT_EQ(std::pair(filter.m_bYes, filter.m_bNo), aAll[n]) << n;
    }
    EXPECT_EQ(quiet.m_filters.m_aAttributes[AttrFilterCompressed].m_bNo, 0);
    EXPECT_EQ(quiet.m_filters.m_aAttributes[AttrFilterEncrypted].m_bYes, 1);
}

// A file without known sections is said in either mode, an unreadable
// one only when reporting.
TEST_F(SettingsFileTest, LoadingSaysWhatWentWrong) {
    const std::u16string strMissing = PathText(m_temp.Path() / "missing.txt");
    const std::u16string strNoSections =
        u"No valid sections found\nPlease make sure you opened a saved settings file";
    CWZorvaneDoc doc;
    Load(doc, u"[NOTHING]\nScan Subdirectories=0\n");
    EXPECT_FALSE(LoadSettings(doc, strMissing, false));
    Load(doc, u"[NOTHING]\n", true);
    EXPECT_FALSE(LoadSettings(doc, strMissing, true));
    EXPECT_EQ(m_host.m_aMessages,
              (Strings{strNoSections, strNoSections, u"Cannot open file: " + strMissing}));
    EXPECT_EQ(doc.m_options.m_bScanSubdirs, 1);
}

TEST_F(SettingsFileTest, HandWrittenUtf8AndSavedUtf16LoadAlikeAndAddRoots) {
    const std::u16string strRoot = MakeDir("r\u00f6\u00f6t \u65e5");
    const std::u16string strText =
        u"[SCAN DIRECTORIES]\r\n" + strRoot + u"\r\n\r\n[FILTER FILE NAMES]\r\n*.m\u00e4\r\n";
    const fs::path utf8 = m_temp.WriteFile("utf8.txt", platform::Utf16ToUtf8(strText));
    const fs::path utf16 =
        m_temp.WriteFile("utf16.txt", EncodeSettingsText(SplitSettingsLines(strText)));
    CWZorvaneDoc a, b, c;
    for (CWZorvaneDoc* pDoc : {&a, &b})  // loaded roots are added to those present
        pDoc->m_scan.m_aRoots.Add(new CRootDirectoryData(MakeDir("present")));
    ASSERT_TRUE(LoadSettings(a, PathText(utf8), true));
    ASSERT_TRUE(LoadSettings(b, PathText(utf16), true));
    EXPECT_EQ(Saved(a), Saved(b));
    ASSERT_EQ(a.m_scan.m_aRoots.GetSize(), 2u);
    EXPECT_EQ(a.m_scan.m_aRoots[1]->m_strName.Str(), strRoot);
    EXPECT_TRUE(a.m_scan.m_aRoots[1]->m_uAttributes & ATTR_DIRECTORY);
    EXPECT_EQ(Texts(a.m_filters, FilterFileNames), Strings{u"*.m\u00e4"});

    ASSERT_TRUE(SaveSettingsFile(a, PathText(m_temp.Path() / "saved.txt")));
    ASSERT_TRUE(LoadSettings(c, PathText(m_temp.Path() / "saved.txt"), true));
    EXPECT_EQ(Saved(c), Saved(a));
    EXPECT_TRUE(m_host.m_aMessages.empty());
    EXPECT_FALSE(SaveSettingsFile(a, PathText(m_temp.Path() / "no dir" / "x.txt")));
}

// Each duplicate file is measured and read, a missing one dropped with a
// message; duplicate directories are scanned, with their subdirectories
// after a '*', but keep no text to save.
TEST_F(SettingsFileTest, DuplicateFiltersReadTheDisk) {
    const std::u16string strGood = PathText(m_temp.WriteFile("good.bin", "123456789"));
    const std::u16string strMissing = PathText(m_temp.Path() / "missing.bin");
    MakeDir("music/sub");
    const std::u16string strMusic = PathText(m_temp.Path() / "music");
    m_temp.WriteFile("music/a.mp3", "aa");
    m_temp.WriteFile("music/sub/b.mp3", "bbb");
    CWZorvaneDoc doc;
    Load(doc, u"[FILTER DUP FILES]\n" + strMissing + u"\n" + strGood + u"\n\n[FILTER DUP DIRS]\n*" +
                  strMusic + u"\n" + strMusic + u"\n");
    EXPECT_EQ(m_host.m_aMessages, Strings{u"Cannot open file: " + strMissing});
    EXPECT_EQ(Texts(doc.m_filters, FilterDupFiles), Strings{strGood});
    ASSERT_EQ(doc.m_filters.m_aDupFileRecords.GetSize(), 1u);
    CFileData& record = *doc.m_filters.m_aDupFileRecords[0];
    EXPECT_EQ(record.GetFullPath(), strGood);
    EXPECT_EQ(record.m_dSize, 9.0);
    EXPECT_EQ(record.GetCrc(), 0xCBF43926u);

    ASSERT_EQ(doc.m_filters.m_aDupDirTrees.GetSize(), 2u);
    const CDirectoryData& withSubdirs = *doc.m_filters.m_aDupDirTrees[0];
    const CDirectoryData& alone = *doc.m_filters.m_aDupDirTrees[1];
    EXPECT_EQ(withSubdirs.m_strName.Str(), strMusic);
    ASSERT_EQ(withSubdirs.m_aChildren.GetSize(), 1u);
    EXPECT_EQ(withSubdirs.m_aChildren[0]->m_aFiles.GetSize(), 1u);
    EXPECT_EQ(alone.m_aFiles.GetSize(), 1u);
    EXPECT_TRUE(alone.m_aChildren.IsEmpty());
    EXPECT_FALSE(Contains(Saved(doc), u"[FILTER DUP DIRS]"));
}

TEST_F(SettingsFileTest, OpeningTheMainDocumentLoadsQuietlyAndFillsOfficeExtensions) {
    const struct {
        const char* pszFile;  // null: no such file
        Strings aExtensions;
    } aCases[] = {{nullptr, {u"*.doc", u"*.docx", u"*.xls", u"*.xlsx", u"*.ppt", u"*.pptx"}},
                  {"[FILTER OFFICE EXTENSIONS]\n\n[OTHER]\n",
                   {u"*.doc", u"*.docx", u"*.xls", u"*.xlsx", u"*.ppt", u"*.pptx"}},
                  {"[FILTER OFFICE EXTENSIONS]\n*.odt\n", {u"*.odt"}}};
    for (const auto& c : aCases) {
        CWZorvaneDoc doc;
        OpenMainDocument(doc, PathText(c.pszFile ? m_temp.WriteFile("main.txt", c.pszFile)
                                                 : m_temp.Path() / "missing.txt"));
        EXPECT_EQ(doc.m_bSettingsLoaded, c.pszFile ? 1 : 0);
        EXPECT_EQ(Texts(doc.m_filters, FilterOfficeExtensions), c.aExtensions);
    }
    EXPECT_TRUE(m_host.m_aMessages.empty());
}

}  // namespace
}  // namespace zv
