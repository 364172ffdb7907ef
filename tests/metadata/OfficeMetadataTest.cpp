#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "MetadataTestSupport.h"
#include "metadata/OfficeMetadata.h"

namespace zv {
namespace {

using test::LabelValues;

// Document dates are shown in local time: these expectations are in UTC.
class OfficeMetadata : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
#ifndef _WIN32
        setenv("TZ", "UTC", 1);
        tzset();
#endif
    }
};

LabelValues Read(bool (*pRead)(std::u16string_view, MetadataValueList&), const char* pszFixture,
                 bool bExpected = true) {
    MetadataValueList aValues;
    EXPECT_EQ(pRead(test::FixturePath(pszFixture), aValues), bExpected) << pszFixture;
    return test::Listed(aValues);
}

TEST_F(OfficeMetadata, InstallerSummaryFromWixl) {
    // Rows in the reader's order; missing ones (last author, edit time,
    // last printed) are skipped; dates without their time of day.
    const LabelValues aFields = Read(ReadInstallerMetadata, "setup.msi");
    ASSERT_EQ(aFields.size(), 12u);
    EXPECT_EQ(aFields[0],
              (std::pair<std::string, std::u16string>("MSI Title", u"Installation Database")));
    EXPECT_EQ(aFields[3].second, u"Intel;1033");
    EXPECT_EQ(aFields[4], (std::pair<std::string, std::u16string>("MSI Page Count", u"200")));
    EXPECT_EQ(aFields[7], (std::pair<std::string, std::u16string>("MSI Author", u"Halvorn Test")));
    EXPECT_EQ(aFields[10],
              (std::pair<std::string, std::u16string>("MSI Date of Creation", u"11/22/2026")));
    // No compound file: nothing.
    Read(ReadInstallerMetadata, "document.docx", false);
}

TEST_F(OfficeMetadata, CompoundFileDocumentsFromLibreOffice) {
    for (const char* pszFixture : {"document.doc", "sheet.xls"}) {
        const LabelValues aFields = Read(ReadOfficeMetadata, pszFixture);
        // Every property of both sets, found or not.
        ASSERT_EQ(aFields.size(), 31u) << pszFixture;
        const LabelValues aFirst(aFields.begin(), aFields.begin() + 13);
        EXPECT_EQ(aFirst, (LabelValues{{"Office Title", u"Office Fixture Title"},
                                       {"Office Subject", u"Fixture Subject"},
                                       {"Office Author", u"Fixture Author"},
                                       {"Office Keywords", u"fixture"},
                                       {"Office Comments", u"Fixture comments"},
                                       {"Office Template", u""},
                                       {"Office Last Author", u"Fixture Editor"},
                                       {"Office Rev Number", u"3"},
                                       {"Office Edit Time", u"02:00:00"},
                                       {"Office Last Printed", u"01/01/1601 12:00:00: AM"},
                                       {"Office Create Date Time", u"03/05/2024 10:20:30: AM"},
                                       {"Office Last Save Date Time", u"04/06/2024 11:21:31: AM"},
                                       {"Office Page Count", u""}}))
            << pszFixture;
        EXPECT_EQ(aFields[17].first, "Office Category");
        EXPECT_EQ(aFields.back().first, "Office Links Dirty");
    }
}

TEST_F(OfficeMetadata, PackagesFromLibreOffice) {
    const LabelValues aExtended = {
        {"Office Template", u""},
        {"Office Total Time", u"120"},
        {"Office App Name", u"LibreOffice/7.4.7.2$Linux_X86_64 LibreOffice_project/40$Build-2"},
        {"Office Application Version", u"15.0000"}};
    LabelValues aDocx = {{"Office Create Date Time", u"03/05/2024 10:20:30: AM"},
                         {"Office Author", u"Fixture Author"},
                         {"Office Description", u"Fixture comments"},
                         {"Office Keywords", u"fixture"},
                         {"Office Last Author", u"Fixture Editor"},
                         {"Office Last Save Date Time", u"04/06/2024 11:21:31: AM"},
                         {"Office Rev Number", u"3"},
                         {"Office Subject", u"Fixture Subject"},
                         {"Office Title", u"Office Fixture Title"}};
    aDocx.insert(aDocx.end(), aExtended.begin(), aExtended.end());
    EXPECT_EQ(Read(ReadOfficeMetadata, "document.docx"), aDocx);
    // LibreOffice Calc spells the core relationship type with a small "d"
    // ("officedocument"): that is another type, so only the extended part is read.
    EXPECT_EQ(Read(ReadOfficeMetadata, "sheet.xlsx"), aExtended);
    // Neither a compound file nor a package.
    Read(ReadOfficeMetadata, "id3v1.mp3", false);
}

}  // namespace
}  // namespace zv
