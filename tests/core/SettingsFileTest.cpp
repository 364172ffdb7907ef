// Settings files through LoadSettings and the writer: round trips of the
// defaults and of a document with every section set, the tolerant reader's
// edge cases, conflicts, the filters that read the disk, and start-up.
#include <gtest/gtest.h>

#include <filesystem>

#include "ScriptedHost.h"
#include "core/Document.h"
#include "core/DocumentStartup.h"
#include "core/SettingsDisk.h"
#include "core/SettingsFile.h"
#include "core/SettingsText.h"
#include "core/TextFile.h"
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

Strings Texts(const CFilterSet& filters, EFilterList eList) {
    Strings aTexts;
    for (const CFilterEntry& entry : filters.List(eList)) aTexts.push_back(entry.m_strText);
    return aTexts;
}

// The first line of each block of lines.
Strings Headers(std::u16string_view strText) {
    Strings aHeaders;
    bool bBlockStart = true;
    for (const std::u16string& strLine : SplitSettingsLines(strText)) {
        if (bBlockStart && strLine.starts_with(u'[')) aHeaders.push_back(strLine);
        bBlockStart = strLine.empty();
    }
    return aHeaders;
}

FILETIME Time(uint64_t uSeconds) { return FileTimeFromUInt64(uSeconds * kTicksPerSecond); }

class SettingsFileTest : public ::testing::Test {
protected:
    std::u16string MakeDir(const std::string& strName) {
        fs::create_directories(m_temp.Path() / strName);
        return PathText(m_temp.Path() / strName);
    }

    // Every field a settings file carries, away from its default.
    void MakeBusy(CWZorvaneDoc& doc) {
        for (const char* pszRoot : {"root one", "root-2"}) {
            auto* pRoot = new CRootDirectoryData(MakeDir(pszRoot));
            pRoot->Prepare(doc.m_scan.m_aDrives);
            doc.m_scan.m_aRoots.Add(pRoot);
        }
        CDocumentOptions& o = doc.m_options;
        o.m_nFileSort = 2;
        o.m_nDirSort = 21;
        o.m_bShowCrc = 1;
        o.m_bCrcHex = 1;
        o.m_bCrcDecimal = 0;
        o.m_bCheckStreams = 1;
        o.m_bScanSubdirs = 0;
        o.m_nMaxDepth = 3;
        o.m_nSizeUnit = 2;
        o.m_strSizeUnit = u"MB";
        o.m_diff = {0, u"C:\\diff.exe", u"-x", u"-a", u"-b"};
        o.m_bFindDupFilesAfterScan = 1;
        o.m_bFindDupDirsAfterScan = 1;
        o.m_nDefaultCompareMode = 1;
        o.m_dupFiles = {1, 1, 1, 1, 0};
        for (int32_t& b : o.m_dupDirs.m_aCriteria) b = 1;
        o.m_bShowDupColor = 0;
        o.m_bDisableSaver = 1;
        o.m_bPlaySound = 1;
        o.m_strSoundFile = u"C:\\ding.wav";
        o.m_bLargestFiles = 0;
        o.m_nLargestFilesCount = 50;
        o.m_bLargestDirs = 0;
        o.m_nLargestDirsCount = 60;
        o.m_bLargestOwner = 1;
        o.m_bLargestType = 1;
        o.m_strCrcFromFile = u"C:\\list.txt";

        CFilterSet& f = doc.m_filters;
        for (const EFilterList eList :
             {FilterFileNames, FilterFileNamesExclude, FilterFullPathExclude, FilterVersionFiles,
              FilterOfficeExtensions, FilterOwners, FilterOwnersExclude, FilterDirExclude,
              FilterDir}) {
            f.AddEntry(eList, u"*.list" + U16(std::to_string(eList)));
            f.AddEntry(eList, u"[second = entry]");
        }
        const fs::path dupFile = m_temp.WriteFile("dup.bin", "duplicate content");
        f.AddEntry(FilterDupFiles, PathText(dupFile));
        for (int nTest = 0; nTest < DateFilterCount; ++nTest) {
            CDateFilter& date = f.m_aDates[nTest];
            date.m_bAbsolute = 1;
            date.m_ftAbsolute =  // January, whole milliseconds: clear of summer time
                FileTimeFromUInt64(FileTimeToUInt64(Time(13330000000ULL + 86400 * nTest)) +
                                   1230000 * nTest);
            date.m_bRelative = nTest % 2;
            date.m_nDays = -30 - nTest;
            date.m_nHours = 5;
            date.m_nMinutes = -6;
            date.m_nSeconds = 7;
        }
        f.m_bCreatedLater = 1;
        f.m_bAnyDateLow = 1;
        f.m_bMinSize = 1;
        f.m_dMinSize = 10.5;
        f.m_bMaxSize = 1;
        f.m_dMaxSize = 1e6;
        f.m_bHasStreams = 1;
        f.m_aAttributes[AttrFilterSystem] = {1, 1};  // not resolved
        f.m_aAttributes[AttrFilterCompressed] = {1, 0};
        f.m_aAttributes[AttrFilterEncrypted] = {0, 1};
        f.m_aAttributes[AttrFilterArchive] = {1, 0};
        f.m_aAttributes[AttrFilterReadOnly] = {0, 1};
        f.m_aAttributes[AttrFilterHidden] = {1, 0};
        f.m_aAttributes[AttrFilterLinked] = {0, 1};
        f.m_nPathLength = 12;

        CPrintSettings& p = doc.m_print;
        for (uint8_t& b : p.m_aFlags) b = !b;
        for (auto& aFlags : p.m_aMetadataFlags)
            for (size_t i = 0; i < aFlags.size(); i += 2) aFlags[i] = 0;
        p.m_bPrintHyperlinks = 1;
        p.m_dWidthName = 0.3;
        p.m_dWidthSize = 0.11;
        p.m_dWidthDate = 0.12;
        p.m_dWidthCrc = 0.13;
        p.m_dWidthOwner = 0.14;
        p.m_aOwnerWidths[0] = 0.6;
        p.m_aOwnerWidths[2] = 0.15;
        p.m_aTypeWidths[1] = 0.2;
        p.m_bMarginSpread = 0;
        p.m_nMarginLeft = 11;
        p.m_nMarginTop = 12;
        p.m_nMarginRight = 13;
        p.m_nMarginBottom = -14;
        p.m_bPrintFontDefault = 0;
        p.m_nPrintFontSize = 14;
        p.m_printFont = {-16, 7, 1, 2, 0, 1, 1, 1, 2, 3, 4, 5, 49, u"Courier New"};
        CAutoPrintSettings& a = p.m_autoPrint;
        int nType = 1;
        for (CAutoPrintBlock* pBlock : {&a.m_main, &a.m_dupDirs, &a.m_dupFiles, &a.m_largestFiles,
                                        &a.m_largestDirs, &a.m_largestOwner, &a.m_largestType}) {
            pBlock->m_bEnabled = 1;
            pBlock->m_nType = nType % 4 + 1;
            pBlock->m_strFile = u"C:\\out\\report" + U16(std::to_string(nType++)) + u".txt";
            pBlock->m_bAppendDate = nType % 2;
        }
        a.m_main.m_nFileSort = 24;
        a.m_main.m_nDirSort = 20;
        a.m_main.m_bFullPath = 1;
        a.m_dupDirs.m_nDirSort = 18;
        a.m_dupFiles.m_nFileSort = 12;
        a.m_largestFiles.m_nFileSort = 1;
        a.m_largestDirs.m_nDirSort = 4;
        a.m_bExit = 1;
        a.m_bSeparateColumn = 1;
    }

    test::CTempDir m_temp;
    test::CScriptedHost m_host;
};

TEST_F(SettingsFileTest, DefaultsSurviveASaveAndALoad) {
    CWZorvaneDoc doc;
    OpenMainDocument(doc, u"");
    const std::u16string strSaved = Saved(doc);
    EXPECT_TRUE(strSaved.starts_with(u"#Zorvane settings\n\n[OTHER]\n"));
    CWZorvaneDoc loaded;
    Load(loaded, strSaved);
    EXPECT_EQ(Saved(loaded), strSaved);
    EXPECT_TRUE(m_host.m_aMessages.empty());
}

TEST_F(SettingsFileTest, EverySectionSurvivesASaveAndALoad) {
    CWZorvaneDoc doc;
    MakeBusy(doc);
    const std::u16string strSaved = Saved(doc);
    CWZorvaneDoc loaded;
    Load(loaded, strSaved, true);
    EXPECT_TRUE(m_host.m_aMessages.empty());
    // Every value differs from its default, so a key the reader missed shows.
    EXPECT_EQ(Saved(loaded), strSaved);
    ASSERT_EQ(loaded.m_scan.m_aRoots.GetSize(), 2u);
    EXPECT_EQ(loaded.m_scan.m_aRoots[1]->m_strName.Str(), PathText(m_temp.Path() / "root-2"));
    EXPECT_EQ(loaded.m_scan.m_aRoots[1]->m_bNewRoot, 0);  // prepared
    ASSERT_EQ(loaded.m_filters.m_aDupFileRecords.GetSize(), 1u);
    EXPECT_TRUE(loaded.m_filters.m_aDupFileRecords[0]->m_uFlags & FILE_CRC_VALID);
    EXPECT_EQ(loaded.m_filters.List(FilterFileNames)[0].m_strUpper, u"*.LIST0");
    EXPECT_EQ(loaded.m_filters.List(FilterFileNames)[0].m_bAdded, 1);
    EXPECT_EQ(loaded.m_filters.m_aDates[ModifiedAfter].m_ftAbsolute,
              doc.m_filters.m_aDates[ModifiedAfter].m_ftAbsolute);
    EXPECT_EQ(loaded.m_options.m_strSizeUnit, u"MB");
}

TEST_F(SettingsFileTest, SectionsAreWrittenInTheirOrder) {
    CWZorvaneDoc doc;
    MakeBusy(doc);
    doc.m_filters.AddEntry(FilterDupDirs, u"*C:\\music");
    Strings aExpected{u"[SCAN DIRECTORIES]",
                      u"[OTHER]",
                      u"[FILTER FILE NAMES]",
                      u"[FILTER FILE NAMES EXCLUDE]",
                      u"[FILTER FILE NAMES FULL PATH EXCLUDE]",
                      u"[FILTER OWNERS]",
                      u"[FILTER OWNERS EXCLUDE]",
                      u"[FILTER FILE NAME VERSION]",
                      u"[FILTER OFFICE EXTENSIONS]",
                      u"[FILTER DIR EXCLUDE]",
                      u"[FILTER DIR]",
                      u"[FILTER DUP FILES]",
                      u"[FILTER DUP DIRS]"};
    const std::u16string aTests[] = {u"CREATED BEFORE", u"CREATED AFTER",   u"ACCESSED BEFORE",
                                     u"ACCESSED AFTER", u"MODIFIED BEFORE", u"MODIFIED AFTER"};
    for (int nTest = 0; nTest < DateFilterCount; ++nTest) {
        aExpected.push_back(u"[FILTER " + aTests[nTest] + u"]");
        if (nTest % 2)  // the busy document's relative form is on for every other test
            aExpected.push_back(u"[FILTER " + aTests[nTest] + u" RELATIVE]");
    }
    for (const char16_t* psz : {u"[FILTER MIN SIZE]",
                                u"[FILTER MAX SIZE]",
                                u"[FILTER OTHER]",
                                u"[COMPUTE]",
                                u"[AUTOPRINT_MAIN]",
                                u"[AUTOPRINT_DUP_DIRS]",
                                u"[AUTOPRINT_DUP_FILES]",
                                u"[AUTOPRINT_LARGEST_FILES]",
                                u"[AUTOPRINT_LARGEST_DIRS]",
                                u"[AUTOPRINT_LARGEST_OWNER]",
                                u"[AUTOPRINT_LARGEST_TYPE]",
                                u"[DUPLICATE OPTIONS]",
                                u"[AUTOFIND DUPLICATES]",
                                u"[CRC]",
                                u"[DEFAULT FILE COMPARE MODE]",
                                u"[DIFF PROGRAM]",
                                u"[FONTS]",
                                u"[PRINTING WIDTHS]",
                                u"[LARGEST OWNER WIDTHS]",
                                u"[LARGEST TYPE WIDTHS]",
                                u"[MARGINS]",
                                u"[GENERAL PRINT FLAGS]",
                                u"[MSI PRINT FLAGS]",
                                u"[OFFICE PRINT FLAGS]",
                                u"[MP3 PRINT FLAGS]",
                                u"[WAV PRINT FLAGS]",
                                u"[AVI PRINT FLAGS]",
                                u"[VERSION PRINT FLAGS]",
                                u"[HTML PRINT FLAGS]"})
        aExpected.push_back(psz);
    EXPECT_EQ(Headers(Saved(doc)), aExpected);
}

TEST_F(SettingsFileTest, ConditionalLinesAreWrittenOnlyWhenOn) {
    CWZorvaneDoc doc;
    doc.m_print.m_autoPrint.m_dupFiles.m_strFile = u"kept.txt";
    doc.m_options.m_bCrcHex = 1;
    doc.m_options.m_bCrcDecimal = 0;
    const std::u16string strSaved = Saved(doc);
    EXPECT_NE(strSaved.find(u"[AUTOPRINT_DUP_FILES]\nautoprint=0\n\n"), std::u16string::npos);
    EXPECT_NE(strSaved.find(u"[CRC]\nShow CRC=0\nShow CRC HEX=1\nCRC from file=\n\n"),
              std::u16string::npos);
    EXPECT_EQ(strSaved.find(u"[FONTS]"), std::u16string::npos);
    EXPECT_EQ(strSaved.find(u"[FILTER MIN SIZE]"), std::u16string::npos);

    doc.m_print.m_autoPrint.m_main.m_bEnabled = 1;
    doc.m_print.m_autoPrint.m_main.m_nType = PrintTypeXml;
    doc.m_print.m_autoPrint.m_main.m_strFile = u"out.xml";
    EXPECT_NE(Saved(doc).find(u"[AUTOPRINT_MAIN]\nautoprint=1\nprint_type=xml\nfname=out.xml\n"
                              u"Append date to file name=0\nFiles sort by=Size des\n"
                              u"Directories sort by=size wsubdir des\nPrint Full Path=0\n"
                              u"Exit program after printing=0\n"
                              u"file name in a separate column=0\n\n"),
              std::u16string::npos);
}

TEST_F(SettingsFileTest, AFileWithOnlyOtherChangesThoseKeysAndEmptiesTheLists) {
    CWZorvaneDoc doc;
    MakeBusy(doc);
    doc.m_filters.AddEntry(FilterDupDirs, u"*dirs");
    doc.m_filters.m_aDupDirTrees.Add(new CDirectoryData(nullptr, u"tree", {}, {}, {}, 0));
    Load(doc, u"[OTHER]\nMaximum dir depth=7\n");
    EXPECT_EQ(doc.m_options.m_nMaxDepth, 7);
    for (int nList = 0; nList < FilterDupDirs; ++nList)
        EXPECT_TRUE(doc.m_filters.List(static_cast<EFilterList>(nList)).empty()) << nList;
    EXPECT_TRUE(doc.m_filters.m_aDupFileRecords.IsEmpty());
    for (const CDateFilter& date : doc.m_filters.m_aDates) {
        EXPECT_EQ(date.m_bAbsolute, 0);
        EXPECT_EQ(date.m_bRelative, 0);
    }
    for (int nAttribute = AttrFilterSystem; nAttribute < AttrFilterLinked; ++nAttribute)
        EXPECT_EQ(doc.m_filters.m_aAttributes[nAttribute].m_bYes, 0);
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
    EXPECT_EQ(doc.m_print.m_bPrintHyperlinks, 1);
    EXPECT_EQ(doc.m_print.m_aFlags[PrintNoFiles], 1);
    EXPECT_EQ(doc.m_options.m_nFileSort, 2);
    EXPECT_TRUE(m_host.m_aMessages.empty());
}

TEST_F(SettingsFileTest, TheReaderIsTolerant) {
    struct {
        const char* m_pszName;
        std::u16string m_strFile;
        std::function<void(const CWZorvaneDoc&)> m_fnCheck;
    } const kCases[] = {
        {"keys and sections in any case",
         u"[other]\nscan subdirectories=0\nFILES SORT BY=name DES\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_options.m_bScanSubdirs, 0);
             EXPECT_EQ(d.m_options.m_nFileSort, 2);
         }},
        {"print_type takes exact words", u"[autoprint_main]\nautoprint=1\nprint_type=HTML\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_print.m_autoPrint.m_main.m_bEnabled, 1);
             EXPECT_EQ(d.m_print.m_autoPrint.m_main.m_nType, 0);
         }},
        {"a value keeps everything after the first =",
         u"[AUTOPRINT_LARGEST_OWNER]\nfname=C:\\a=b.txt  \n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_print.m_autoPrint.m_largestOwner.m_strFile, u"C:\\a=b.txt");
             EXPECT_EQ(d.m_print.m_autoPrint.m_largestOwner.m_bEnabled, 0);  // read while off
         }},
        {"a missing blank line runs a keyed section on",
         u"[OTHER]\nScan Subdirectories=0\n[FILTER OTHER]\nfilter hidden yes=1\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_options.m_bScanSubdirs, 0);
             EXPECT_EQ(d.m_filters.m_aAttributes[AttrFilterHidden].m_bYes, 0);
         }},
        {"a missing blank line makes the next header an entry",
         u"[FILTER FILE NAMES]\n*.txt\n[FILTER DIR]\n*x\n\n[FILTER OWNERS]\nbob\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(Texts(d.m_filters, FilterFileNames),
                       (Strings{u"*.txt", u"[FILTER DIR]", u"*x"}));
             EXPECT_TRUE(d.m_filters.List(FilterDir).empty());
             EXPECT_EQ(Texts(d.m_filters, FilterOwners), Strings{u"bob"});
         }},
        {"comments, unknown sections and stray lines are skipped",
         u"#Zorvane settings\nstray=1\n[UNKNOWN]\n[FILTER OWNERS]\n\n[FILTER DIR]\n#not an entry\n"
         u"  spaced  \n=3\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_TRUE(d.m_filters.List(FilterOwners).empty());
             EXPECT_EQ(Texts(d.m_filters, FilterDir), (Strings{u"  spaced", u"=3"}));
         }},
        {"bad numbers read as 0 and flags as on or off",
         u"[COMPUTE]\nLargest files count=many\nLargest files flag=-5\nLargest owner flag=7\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_options.m_nLargestFilesCount, 0);
             EXPECT_EQ(d.m_options.m_bLargestFiles, 1);
             EXPECT_EQ(d.m_options.m_bLargestOwner, 7);  // kept as read
         }},
        {"display size sets unit and text, another word nothing",
         u"[OTHER]\nDisplay size=gb\n\n[OTHER]\nDisplay size=TB\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_options.m_nSizeUnit, 3);
             EXPECT_EQ(d.m_options.m_strSizeUnit, u"GB");
         }},
        {"each CRC form sets the other to the opposite", u"[CRC]\nShow CRC Decimal=0\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_options.m_bCrcDecimal, 0);
             EXPECT_EQ(d.m_options.m_bCrcHex, 1);
         }},
        {"the compare mode is a line without a key",
         u"[DEFAULT FILE COMPARE MODE]\nSide By Side Ignore Blanks\n",
         [](const CWZorvaneDoc& d) { EXPECT_EQ(d.m_options.m_nDefaultCompareMode, 1); }},
        {"a size limit is on when its key is read", u"[FILTER MAX SIZE]\nmax size=2.5e3\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_filters.m_bMaxSize, 1);
             EXPECT_EQ(d.m_filters.m_dMaxSize, 2500.0);
             EXPECT_EQ(d.m_filters.m_bMinSize, 0);
         }},
        {"a relative date is on when one key is read",
         u"[FILTER MODIFIED AFTER RELATIVE]\nDays=-30\n",
         [](const CWZorvaneDoc& d) {
             const CDateFilter& date = d.m_filters.m_aDates[ModifiedAfter];
             EXPECT_EQ(date.m_bRelative, 1);
             EXPECT_EQ(date.m_nDays, -30);
             EXPECT_EQ(date.m_bAbsolute, 0);
         }},
        {"an absolute date needs a valid time",
         u"[FILTER CREATED AFTER]\nYear=2020\nDay=3\n\n[FILTER CREATED BEFORE]\nDay=1\nMonth=2\n"
         u"Year=2021\nDay of Week=6\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_filters.m_aDates[CreatedAfter].m_bAbsolute, 0);  // month 0
             EXPECT_EQ(d.m_filters.m_aDates[CreatedBefore].m_bAbsolute, 1);
             FILETIME ftLocal;
             SYSTEMTIME time;
             ASSERT_TRUE(platform::FileTimeToLocalFileTime(
                 d.m_filters.m_aDates[CreatedBefore].m_ftAbsolute, ftLocal));
             ASSERT_TRUE(platform::FileTimeToSystemTime(ftLocal, time));
             EXPECT_EQ(time.wYear * 10000 + time.wMonth * 100 + time.wDay, 20210201);
             EXPECT_EQ(time.wHour + time.wMinute + time.wSecond, 0);
         }},
        {"a line longer than the buffer goes on as a further line",
         u"[AUTOPRINT_MAIN]\nfname=" + std::u16string(260, u'x') + u"\nPrint Full Path=1\n",
         [](const CWZorvaneDoc& d) {
             EXPECT_EQ(d.m_print.m_autoPrint.m_main.m_strFile, std::u16string(249, u'x'));
             EXPECT_EQ(d.m_print.m_autoPrint.m_main.m_bFullPath, 1);
         }},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.m_pszName);
        CWZorvaneDoc doc;
        Load(doc, c.m_strFile);
        c.m_fnCheck(doc);
    }
    EXPECT_TRUE(m_host.m_aMessages.empty());
}

TEST_F(SettingsFileTest, AFontLoadsBackWithWeightZero) {
    CWZorvaneDoc doc;
    doc.m_print.m_bPrintFontDefault = 0;
    doc.m_print.m_nPrintFontSize = 300;
    doc.m_print.m_printFont = {-16, 7, 0, 0, 700, 1, 0, 1, 0, 3, 2, 1, 34, u"Courier New"};
    CWZorvaneDoc loaded;
    loaded.m_print.m_printFont.m_nWidth = 99;  // the section clears the whole record first
    Load(loaded, Saved(doc));
    const CFontSettings& font = loaded.m_print.m_printFont;
    EXPECT_EQ(loaded.m_print.m_bPrintFontDefault, 0);
    EXPECT_EQ(font.m_nWeight, 0);
    EXPECT_EQ(loaded.m_print.m_nPrintFontSize, 300 & 0xFF);
    CFontSettings expected = doc.m_print.m_printFont;
    expected.m_nWeight = 0;
    EXPECT_EQ(
        std::tie(font.m_nHeight, font.m_nWidth, font.m_bItalic, font.m_bStrikeOut,
                 font.m_nOutPrecision, font.m_nQuality, font.m_nPitchAndFamily, font.m_strFaceName),
        std::tie(expected.m_nHeight, expected.m_nWidth, expected.m_bItalic, expected.m_bStrikeOut,
                 expected.m_nOutPrecision, expected.m_nQuality, expected.m_nPitchAndFamily,
                 expected.m_strFaceName));
}

TEST_F(SettingsFileTest, RelativeAndAbsoluteDatesAreBothWrittenAndRead) {
    CWZorvaneDoc doc;
    CDateFilter& date = doc.m_filters.m_aDates[AccessedBefore];
    date.m_bAbsolute = 1;
    date.m_ftAbsolute = Time(13000000000ULL);
    date.m_bRelative = 1;
    date.m_nHours = -12;
    const std::u16string strSaved = Saved(doc);
    EXPECT_NE(strSaved.find(u"[FILTER ACCESSED BEFORE]\nYear="), std::u16string::npos);
    EXPECT_NE(strSaved.find(u"[FILTER ACCESSED BEFORE RELATIVE]\nDays=0\nHours=-12\nMinutes=0\n"
                            u"Seconds=0\n\n"),
              std::u16string::npos);
    CWZorvaneDoc loaded;
    Load(loaded, strSaved);
    const CDateFilter& read = loaded.m_filters.m_aDates[AccessedBefore];
    EXPECT_EQ(read.m_bAbsolute, 1);
    EXPECT_EQ(read.m_ftAbsolute, date.m_ftAbsolute);
    EXPECT_EQ(read.m_bRelative, 1);
    EXPECT_EQ(read.m_nHours, -12);
}

TEST_F(SettingsFileTest, ConflictingFlagsAreTurnedOffInAFixedWay) {
    const std::u16string strAll =
        u"[FILTER OTHER]\nfilter system file yes=1\nfilter system file no=1\n"
        u"filter compressed yes=1\nfilter compressed no=1\nfilter encrypted yes=1\n"
        u"filter encrypted no=1\nfilter archive yes=1\nfilter archive no=1\n"
        u"filter read only yes=1\nfilter read only no=1\nfilter hidden yes=1\n"
        u"filter hidden no=1\nfilter linked yes=1\nfilter linked no=1\n";
    CWZorvaneDoc doc;
    Load(doc, strAll, true);
    struct {
        EAttributeFilter m_eAttribute;
        int32_t m_bYes, m_bNo;
    } const kExpected[] = {
        {AttrFilterSystem, 1, 1},  {AttrFilterCompressed, 0, 0}, {AttrFilterEncrypted, 1, 0},
        {AttrFilterArchive, 0, 0}, {AttrFilterReadOnly, 0, 0},   {AttrFilterHidden, 0, 0},
        {AttrFilterLinked, 0, 0},
    };
    for (const auto& e : kExpected) {
        EXPECT_EQ(doc.m_filters.m_aAttributes[e.m_eAttribute].m_bYes, e.m_bYes) << e.m_eAttribute;
        EXPECT_EQ(doc.m_filters.m_aAttributes[e.m_eAttribute].m_bNo, e.m_bNo) << e.m_eAttribute;
    }
    const Strings aMessages{
        u"Both 'filter compressed yes' and 'filter compressed no' are set, setting both to off",
        u"Both 'filter encrypted yes' and 'filter encrypted no' are set, setting both to off",
        u"Both 'filter archive yes' and 'filter archive no' are set, setting both to off",
        u"Both 'filter read only yes' and 'filter read only no' are set, setting both to off",
        u"Both 'filter hidden yes' and 'filter hidden no' are set, setting both to off",
        u"Both 'filter linked yes' and 'filter linked no' are set, setting both to off"};
    EXPECT_EQ(m_host.m_aMessages, aMessages);

    // Only the encrypted pair is set: its resolution also turns off
    // "filter compressed no", which was on alone.
    m_host.m_aMessages.clear();
    CWZorvaneDoc quiet;
    Load(
        quiet,
        u"[FILTER OTHER]\nfilter compressed no=1\nfilter encrypted yes=1\nfilter encrypted no=1\n");
    EXPECT_EQ(quiet.m_filters.m_aAttributes[AttrFilterCompressed].m_bNo, 0);
    EXPECT_EQ(quiet.m_filters.m_aAttributes[AttrFilterEncrypted].m_bYes, 1);
    EXPECT_TRUE(m_host.m_aMessages.empty());  // quiet load
}

TEST_F(SettingsFileTest, AFileWithoutKnownSectionsSaysSoInEitherMode) {
    for (const bool bReport : {false, true}) {
        CWZorvaneDoc doc;
        m_host.m_aMessages.clear();
        Load(doc, u"[NOTHING]\nScan Subdirectories=0\n", bReport);
        EXPECT_EQ(m_host.m_aMessages,
                  Strings{u"No valid sections found\nPlease make sure you opened a saved "
                          u"settings file"});
        EXPECT_EQ(doc.m_options.m_bScanSubdirs, 1);
    }
}

TEST_F(SettingsFileTest, UnreadableFileIsReportedOnlyWhenAsked) {
    CWZorvaneDoc doc;
    const std::u16string strMissing = PathText(m_temp.Path() / "missing.txt");
    EXPECT_FALSE(LoadSettings(doc, strMissing, false));
    EXPECT_TRUE(m_host.m_aMessages.empty());
    EXPECT_FALSE(LoadSettings(doc, strMissing, true));
    EXPECT_EQ(m_host.m_aMessages, Strings{u"Cannot open file: " + strMissing});
}

TEST_F(SettingsFileTest, HandWrittenUtf8AndSavedUtf16LoadAlike) {
    const std::u16string strRoot = MakeDir("r\u00f6\u00f6t \u65e5");
    const std::u16string strText =
        u"[SCAN DIRECTORIES]\r\n" + strRoot + u"\r\n\r\n[FILTER FILE NAMES]\r\n*.m\u00e4\r\n";
    const fs::path utf8 = m_temp.WriteFile("utf8.txt", platform::Utf16ToUtf8(strText));
    const fs::path utf16 =
        m_temp.WriteFile("utf16.txt", EncodeSettingsText(SplitSettingsLines(strText)));
    CWZorvaneDoc a, b;
    ASSERT_TRUE(LoadSettings(a, PathText(utf8), true));
    ASSERT_TRUE(LoadSettings(b, PathText(utf16), true));
    EXPECT_EQ(Saved(a), Saved(b));
    ASSERT_EQ(a.m_scan.m_aRoots.GetSize(), 1u);
    EXPECT_EQ(a.m_scan.m_aRoots[0]->m_strName.Str(), strRoot);
    EXPECT_EQ(Texts(a.m_filters, FilterFileNames), Strings{u"*.m\u00e4"});

    ASSERT_TRUE(SaveSettingsFile(a, PathText(m_temp.Path() / "saved.txt")));
    CWZorvaneDoc c;
    ASSERT_TRUE(LoadSettings(c, PathText(m_temp.Path() / "saved.txt"), true));
    EXPECT_EQ(Saved(c), Saved(a));
    EXPECT_TRUE(m_host.m_aMessages.empty());
    EXPECT_FALSE(SaveSettingsFile(a, PathText(m_temp.Path() / "no dir" / "x.txt")));
}

TEST_F(SettingsFileTest, LoadedRootsAreAddedToThosePresent) {
    CWZorvaneDoc doc;
    doc.m_scan.m_aRoots.Add(new CRootDirectoryData(MakeDir("present")));
    Load(doc, u"[SCAN DIRECTORIES]\n" + MakeDir("a") + u"\n" + MakeDir("b") + u"\n");
    ASSERT_EQ(doc.m_scan.m_aRoots.GetSize(), 3u);
    EXPECT_EQ(doc.m_scan.m_aRoots[2]->m_strName.Str(), PathText(m_temp.Path() / "b"));
    EXPECT_TRUE(doc.m_scan.m_aRoots[2]->m_uAttributes & ATTR_DIRECTORY);
}

TEST_F(SettingsFileTest, DuplicateFilesFilterReadsEachFile) {
    const std::u16string strGood = PathText(m_temp.WriteFile("good.bin", "123456789"));
    const std::u16string strMissing = PathText(m_temp.Path() / "missing.bin");
    CWZorvaneDoc doc;
    Load(doc, u"[FILTER DUP FILES]\n" + strMissing + u"\n" + strGood + u"\n");
    EXPECT_EQ(Texts(doc.m_filters, FilterDupFiles), Strings{strGood});
    ASSERT_EQ(doc.m_filters.m_aDupFileRecords.GetSize(), 1u);
    CFileData& record = *doc.m_filters.m_aDupFileRecords[0];
    EXPECT_EQ(record.GetFullPath(), strGood);
    EXPECT_EQ(record.m_dSize, 9.0);
    EXPECT_EQ(record.GetCrc(), 0xCBF43926u);  // the CRC-32 check value of "123456789"
    EXPECT_EQ(m_host.m_aMessages, Strings{u"Cannot open file: " + strMissing});
}

TEST_F(SettingsFileTest, DuplicateDirectoriesFilterScansTreesButKeepsNoText) {
    MakeDir("music/sub");
    m_temp.WriteFile("music/a.mp3", "aa");
    m_temp.WriteFile("music/sub/b.mp3", "bbb");
    const std::u16string strMusic = PathText(m_temp.Path() / "music");
    CWZorvaneDoc doc;
    Load(doc, u"[FILTER DUP DIRS]\n# recursive directory names begin with a *\n*" + strMusic +
                  u"\n" + strMusic + u"\n");
    ASSERT_EQ(doc.m_filters.m_aDupDirTrees.GetSize(), 2u);
    const CDirectoryData& withSubdirs = *doc.m_filters.m_aDupDirTrees[0];
    const CDirectoryData& alone = *doc.m_filters.m_aDupDirTrees[1];
    EXPECT_EQ(withSubdirs.m_strName.Str(), strMusic);
    ASSERT_EQ(withSubdirs.m_aChildren.GetSize(), 1u);
    ASSERT_EQ(withSubdirs.m_aChildren[0]->m_aFiles.GetSize(), 1u);
    EXPECT_EQ(withSubdirs.m_aChildren[0]->m_aFiles[0]->GetFullPath(),
              PathText(m_temp.Path() / "music" / "sub" / "b.mp3"));
    EXPECT_EQ(alone.m_aFiles.GetSize(), 1u);
    EXPECT_TRUE(alone.m_aChildren.IsEmpty());
    EXPECT_TRUE(doc.m_filters.List(FilterDupDirs).empty());
    EXPECT_EQ(Saved(doc).find(u"[FILTER DUP DIRS]"), std::u16string::npos);
}

TEST_F(SettingsFileTest, OpeningTheMainDocumentLoadsQuietlyAndFillsOfficeExtensions) {
    CWZorvaneDoc missing;
    OpenMainDocument(missing, PathText(m_temp.Path() / "missing.txt"));
    EXPECT_EQ(missing.m_bSettingsLoaded, 0);
    EXPECT_TRUE(m_host.m_aMessages.empty());
    EXPECT_EQ(Texts(missing.m_filters, FilterOfficeExtensions),
              (Strings{u"*.doc", u"*.docx", u"*.xls", u"*.xlsx", u"*.ppt", u"*.pptx"}));

    const fs::path empty = m_temp.WriteFile("empty.txt", "[FILTER OFFICE EXTENSIONS]\n\n[OTHER]\n");
    CWZorvaneDoc refilled;
    OpenMainDocument(refilled, PathText(empty));
    EXPECT_EQ(refilled.m_bSettingsLoaded, 1);
    EXPECT_EQ(refilled.m_filters.List(FilterOfficeExtensions).size(), 6u);

    const fs::path one = m_temp.WriteFile("one.txt", "[FILTER OFFICE EXTENSIONS]\n*.odt\n");
    CWZorvaneDoc kept;
    OpenMainDocument(kept, PathText(one));
    EXPECT_EQ(Texts(kept.m_filters, FilterOfficeExtensions), Strings{u"*.odt"});
}

}  // namespace
}  // namespace zv
