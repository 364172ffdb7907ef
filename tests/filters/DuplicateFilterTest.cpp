// The duplicate files and directories filters in a scan: the files kept
// are exactly those identical, by the ticked criteria, to a filter file.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

#include "core/document/Document.h"
#include "core/document/DupFilterRecords.h"
#include "core/scan/Scanner.h"
#include "filters/ScanFilter.h"
#include "support/TempDir.h"

namespace zv {
namespace {

namespace fs = std::filesystem;

std::string Random(size_t nSize, unsigned uSeed) {
    std::mt19937 rng(uSeed);
    std::string s(nSize, '\0');
    for (char& ch : s) ch = static_cast<char>(rng());
    return s;
}

std::string Utf(const std::u16string& s) { return fs::path(s).string(); }

struct CCase {
    const char* pszName;
    bool bSize, bName, bCrc, bBytes;
};

class DuplicateFilterTest : public ::testing::TestWithParam<CCase> {
protected:
    void Write(std::map<std::string, std::string>& files, const std::string& strName,
               const std::string& strContent) {
        fs::create_directories((m_temp.Path() / strName).parent_path());
        m_temp.WriteFile(strName, strContent);
        files[strName] = strContent;
    }
    std::map<std::string, std::string> m_filterFiles, m_scanned;
    test::CTempDir m_temp;
};

TEST_P(DuplicateFilterTest, KeepsExactlyTheDuplicatesOfTheFilterFiles) {
    const CCase& c = GetParam();
    const std::string strA = Random(9000, 1), strB = Random(300, 2), strC = Random(5000, 3);
    // One filter file on its own, and a directory with a subdirectory.
    Write(m_filterFiles, "filter/A", strA);
    Write(m_filterFiles, "tree/B", strB);
    Write(m_filterFiles, "tree/sub/C", strC);
    std::string strLast = strA, strFirst = strA;
    strLast.back() ^= 1;
    strFirst.front() ^= 1;
    Write(m_scanned, "root/a1", strA);
    Write(m_scanned, "root/d/A", strA);
    Write(m_scanned, "root/b1", strB);
    Write(m_scanned, "root/d/c1", strC);
    Write(m_scanned, "root/last", strLast);
    Write(m_scanned, "root/first", strFirst);
    Write(m_scanned, "root/B", Random(300, 4));
    Write(m_scanned, "root/C", Random(77, 5));
    Write(m_scanned, "root/empty", "");

    CWZorvaneDoc doc;
    CDuplicateFileCriteria& criteria = doc.m_options.m_dupFiles;
    criteria.m_bBySize = c.bSize;
    criteria.m_bByName = c.bName;
    criteria.m_bByCrc = c.bCrc;
    criteria.m_bByteByByte = c.bBytes;
    ASSERT_TRUE(AddDupFileFilter(doc.m_filters, (m_temp.Path() / "filter/A").u16string()));
    AddDupDirFilterTree(doc.m_filters, (m_temp.Path() / "tree").u16string(), true);
    std::u16string strTreeEntry = u"*";
    strTreeEntry += (m_temp.Path() / "tree").u16string();
    doc.m_filters.AddEntry(FilterDupDirs, strTreeEntry);
    auto* pRoot = new CRootDirectoryData((m_temp.Path() / "root").u16string());
    pRoot->Prepare(doc.m_scan.m_aDrives);
    doc.m_scan.m_aRoots.Add(pRoot);
    CScanFilter filter(doc);
    CScanner(doc, &filter).Rescan();

    std::set<std::string> kept, expected;
    for (const CFileData* pFile : doc.m_scan.m_aAllFiles)
        kept.insert(
            fs::path(pFile->GetFullPath()).lexically_relative(m_temp.Path()).generic_string());
    for (const auto& [strPath, strContent] : m_scanned) {
        for (const auto& [strFilter, strFilterContent] : m_filterFiles) {
            if (c.bName && fs::path(strPath).filename() != fs::path(strFilter).filename()) continue;
            if ((c.bSize || c.bCrc || c.bBytes) && strContent.size() != strFilterContent.size())
                continue;
            if ((c.bCrc || c.bBytes) && strContent != strFilterContent) continue;
            expected.insert(strPath);
        }
    }
    EXPECT_EQ(kept, expected);
    // A kept file whose checksum the filter computed starts with it.
    if (c.bCrc) {
        for (CFileData* pFile : doc.m_scan.m_aAllFiles)
            EXPECT_TRUE(pFile->m_uFlags & FILE_CRC_VALID) << Utf(pFile->GetFullPath());
    }
}

INSTANTIATE_TEST_SUITE_P(Criteria, DuplicateFilterTest,
                         ::testing::Values(CCase{"SizeCrc", true, false, true, false},
                                           CCase{"Bytes", false, false, false, true},
                                           CCase{"Size", true, false, false, false},
                                           CCase{"Name", false, true, false, false},
                                           CCase{"NameCrcBytes", false, true, true, true}),
                         [](const auto& info) { return std::string(info.param.pszName); });

}  // namespace
}  // namespace zv
