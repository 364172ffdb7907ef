// The two roots of a compare walked at the same time leave the records,
// their order and their totals that a scan of one root after the other
// leaves.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/CommandScan.h"
#include "app/TwoRootScan.h"
#include "core/document/Document.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

namespace fs = std::filesystem;

void MakeTree(const test::CTempDir& temp, const std::string& strRoot, int nVariant) {
    for (int nDir = 0; nDir < 6; ++nDir) {
        const std::string strDir =
            strRoot + "/d" + std::to_string(nDir) + "/sub" + std::to_string(nDir % 3);
        fs::create_directories(temp.Path() / strDir);
        for (int nFile = 0; nFile < 5 + nVariant; ++nFile)
            temp.WriteFile(strDir + "/f" + std::to_string(nFile),
                           std::string(static_cast<size_t>(nFile * 7 + nDir + nVariant), 'x'));
    }
    temp.WriteFile(strRoot + "/top", "top");
    fs::create_directories(temp.Path() / strRoot / "empty");
}

// The scan's records as text, in the order the document holds them.
std::vector<std::string> ScanFacts(const test::CTempDir& temp, bool bAtOnce) {
    CScanCommandOptions options;
    options.m_aRoots = {(temp.Path() / "left").string(), (temp.Path() / "right").string()};
    CCommandScan command(options);
    EXPECT_EQ(command.Prepare(), 0);
    CWZorvaneDoc& doc = command.Doc();
    EXPECT_TRUE(CanScanRootsAtOnce(doc));
    if (bAtOnce)
        ScanRootsAtOnce(doc);
    else
        command.Scan();
    std::vector<std::string> aFacts;
    for (CRootDirectoryData* pRoot : doc.m_scan.m_aRoots)
        aFacts.push_back("root " + platform::Utf16ToUtf8(pRoot->GetFullPath()));
    for (CDirectoryData* pDir : doc.m_scan.m_aAllDirs)
        aFacts.push_back("dir " + platform::Utf16ToUtf8(pDir->GetFullPath()) + " " +
                         std::to_string(pDir->GetTotalFiles()) + " " +
                         std::to_string(pDir->GetTotalDirs()) + " " +
                         std::to_string(pDir->GetSizeWithSubdirs()));
    for (CFileData* pFile : doc.m_scan.m_aAllFiles)
        aFacts.push_back("file " + platform::Utf16ToUtf8(pFile->GetFullPath()) + " " +
                         std::to_string(pFile->m_dSize));
    EXPECT_FALSE(doc.m_bStopRequested);
    return aFacts;
}

TEST(TwoRootScan, LeavesTheRecordsOfOneScanAfterTheOther) {
    test::CTempDir temp;
    MakeTree(temp, "left", 0);
    MakeTree(temp, "right", 1);
    const std::vector<std::string> aSequential = ScanFacts(temp, false);
    EXPECT_EQ(aSequential.size(), 2u + 2 * 14u + 31u + 37u);  // roots, directories, files
    EXPECT_EQ(ScanFacts(temp, true), aSequential);
}

}  // namespace
}  // namespace zv
