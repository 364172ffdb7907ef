// The main report of a fixed tree in every form, scope and encoding against
// the expected files in golden/. ZORVANE_UPDATE_GOLDENS=1 rewrites them
// from the current output instead (read the diff before committing it).
#include <gtest/gtest.h>

#include "platform/Text.h"
#include "reports/ReportTestSupport.h"

namespace zv {
namespace {

using test::GoldenPath;
using test::ReadGolden;

// UTF-16 little-endian after the byte order mark, as UTF-16 text.
std::u16string DecodeUnicode(const std::string& strBytes) {
    std::u16string strText;
    for (size_t i = 2; i + 1 < strBytes.size(); i += 2)
        strText += static_cast<char16_t>(static_cast<unsigned char>(strBytes[i]) |
                                         static_cast<unsigned char>(strBytes[i + 1]) << 8);
    return strText;
}

TEST(MainReportGolden, EveryFormScopeAndEncoding) {
    const struct {
        EPrintType eForm;
        const char* pszForm;
    } kForms[] = {{PrintTypeText, "text"},
                  {PrintTypeExcel, "csv"},
                  {PrintTypeHtml, "html"},
                  {PrintTypeXml, "xml"}};
    const struct {
        EReportScope eScope;
        const char* pszScope;
    } kScopes[] = {{ReportAllDirectories, "all"},
                   {ReportCurrentDirectory, "current"},
                   {ReportCurrentAndSubdirectories, "subdirs"}};
    const bool bUpdate = std::getenv("ZORVANE_UPDATE_GOLDENS") != nullptr;
    for (const auto& form : kForms) {
        for (const auto& scope : kScopes) {
            const std::string strName = std::string(form.pszForm) + "-" + scope.pszScope + ".txt";
            SCOPED_TRACE(strName);
            test::CReportTree tree;
            const std::string strNarrow =
                test::PortablePaths(tree.Narrow(form.eForm, scope.eScope));
            if (bUpdate) {
                std::ofstream(GoldenPath(strName), std::ios::binary) << strNarrow;
                continue;
            }
            const std::string strGolden = ReadGolden(strName);
            ASSERT_FALSE(strGolden.empty()) << "missing " << GoldenPath(strName);
            EXPECT_EQ(strNarrow, strGolden);

            // The Unicode form: the same text, as UTF-16 with a byte order mark.
            tree.m_doc.m_print.m_aFlags[SaveAsUnicode] = 1;
            const std::string strUnicode = tree.Report(form.eForm, scope.eScope);
            ASSERT_GE(strUnicode.size(), 2u);
            EXPECT_EQ(strUnicode.substr(0, 2), "\xFF\xFE");
            std::string strExpected = platform::Utf16ToUtf8(DecodeUnicode(strUnicode));
            if (form.eForm == PrintTypeXml)  // the declaration names the encoding
                strExpected.replace(strExpected.find("utf-16"), 6, "utf-8");
            EXPECT_EQ(test::PortablePaths(strExpected), strGolden);
        }
    }
}

// Full paths, the separate name column and hyperlinks change the name
// fields only; each form in one expected file.
TEST(MainReportGolden, FullPathsNameColumnAndHyperlinks) {
    const bool bUpdate = std::getenv("ZORVANE_UPDATE_GOLDENS") != nullptr;
    test::CReportTree tree;
    auto& flags = tree.m_doc.m_print.m_aFlags;
    flags.fill(0);  // names only
    std::string strAll;
    for (int nVariant = 0; nVariant < 3; ++nVariant) {
        flags[PrintNameSeparateColumn] = nVariant >= 1;
        tree.m_doc.m_print.m_bPrintHyperlinks = nVariant == 2;
        for (EPrintType eForm : {PrintTypeText, PrintTypeExcel, PrintTypeHtml, PrintTypeXml})
            strAll += test::PortablePaths(tree.Narrow(eForm, ReportCurrentDirectory, true));
    }
    if (bUpdate) {
        std::ofstream(GoldenPath("full-paths.txt"), std::ios::binary) << strAll;
        return;
    }
    EXPECT_EQ(strAll, ReadGolden("full-paths.txt"));
}

}  // namespace
}  // namespace zv
