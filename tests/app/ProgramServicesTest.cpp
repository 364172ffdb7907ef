#include <gtest/gtest.h>

#include "app/ProgramServices.h"
#include "core/document/Document.h"
#include "core/records/FileData.h"
#include "metadata/MetadataTestSupport.h"
#include "support/TempDir.h"

namespace zv {
namespace {

// A file outside the version name list is not asked and keeps its bits, so
// the Properties command's forced read still reaches it afterwards.
TEST(ProgramServicesTest, VersionNameListLeavesTheBitsOfAFileItHoldsBack) {
    CProgramServices services;
    CWZorvaneDoc doc;
    SetMainDocument(&doc);
    doc.m_filters.AddEntry(FilterVersionFiles, u"*.exe");
    test::CTempDir dir;
    const std::string strBytes = test::FixtureBytes("version.exe");
    const auto path = dir.WriteFile("version.txt", strBytes);
    CFileData file(path.u16string(), double(strBytes.size()), FILETIME{}, FILETIME{}, FILETIME{}, 0,
                   nullptr, false, nullptr);

    EXPECT_FALSE(file.HasVersionInfo());
    EXPECT_EQ(file.m_uFlags & (FILE_VERSION_READ | FILE_HAS_VERSION), 0u);
    doc.m_options.m_bAllVersionFiles = 1;
    EXPECT_TRUE(file.HasVersionInfo());
    SetMainDocument(nullptr);
}

}  // namespace
}  // namespace zv
