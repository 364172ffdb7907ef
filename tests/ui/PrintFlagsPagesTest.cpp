#include <gtest/gtest.h>

#include "core/document/PrintSettings.h"
#include "ui/logic/PrintFlagsPages.h"

namespace zv {
namespace {

size_t BoxOf(EPrintPage ePage, int nKey) {
    const auto aBoxes = PrintPageBoxes(ePage);
    for (size_t i = 0; i < aBoxes.size(); ++i)
        if (aBoxes[i].m_nKey == nKey) return i;
    ADD_FAILURE() << "no box " << nKey << " on page " << ePage;
    return 0;
}

// Every metadata field the document keeps has exactly one box on its page,
// so the sheet can reach each flag a settings file saves.
TEST(PrintFlagsPages, MetadataPagesCoverTheirGroups) {
    const struct {
        EPrintPage m_ePage;
        EMetadataGroup m_eGroup;
    } aPages[] = {{PageAvi, MetaAvi},       {PageMp3, MetaMp3},         {PageMsi, MetaMsi},
                  {PageOffice, MetaOffice}, {PageVersion, MetaVersion}, {PageWav, MetaWav}};
    for (const auto& page : aPages) {
        const auto aBoxes = PrintPageBoxes(page.m_ePage);
        EXPECT_EQ(aBoxes.size(), MetadataPrintFields(page.m_eGroup).size()) << page.m_ePage;
        std::vector<int> aSeen(aBoxes.size(), 0);
        for (const CPrintCheckBox& box : aBoxes) {
            const int nIndex = MetadataFieldIndex(page.m_eGroup, box.m_nKey);
            ASSERT_GE(nIndex, 0) << box.m_nKey;
            EXPECT_EQ(++aSeen[static_cast<size_t>(nIndex)], 1) << box.m_nKey;
        }
    }
    EXPECT_EQ(PrintPageBoxes(PageGeneral).size(), static_cast<size_t>(PrintFlagCount));
}

TEST(PrintFlagsPages, OkWritesBackWhatTheBoxesShow) {
    CPrintSettings print;
    CPrintFlagsSheetData data(print);
    EXPECT_TRUE(data.IsChecked(PageGeneral, BoxOf(PageGeneral, PrintSize)));
    EXPECT_FALSE(data.IsChecked(PageGeneral, BoxOf(PageGeneral, PrintNoFiles)));
    EXPECT_FALSE(data.IsChecked(PageHtml, 0));

    data.SetChecked(PageGeneral, BoxOf(PageGeneral, PrintCrc), false);
    data.SetChecked(PageOffice, BoxOf(PageOffice, 1707), false);
    data.SetChecked(PageAvi, BoxOf(PageAvi, 32951), false);
    data.SetChecked(PageHtml, 0, true);
    data.m_strPrintTitle = u"Weekly";
    data.StoreInto(print);

    EXPECT_FALSE(print.Flag(PrintCrc));
    EXPECT_TRUE(print.Flag(PrintCrcSubdirs));
    EXPECT_FALSE(print.MetadataFlag(MetaOffice, 1707));
    EXPECT_TRUE(print.MetadataFlag(MetaOffice, 1708));
    EXPECT_FALSE(print.MetadataFlag(MetaAvi, 32951));
    EXPECT_TRUE(print.MetadataFlag(MetaMp3, 32951));  // the same id in another group
    EXPECT_EQ(print.m_bPrintHyperlinks, 1);
    EXPECT_EQ(print.m_strPrintTitle, u"Weekly");

    // Reopened, the sheet shows what was stored.
    const CPrintFlagsSheetData reopened(print);
    EXPECT_FALSE(reopened.IsChecked(PageOffice, BoxOf(PageOffice, 1707)));
    EXPECT_TRUE(reopened.IsChecked(PageHtml, 0));
    EXPECT_EQ(reopened.m_strPrintTitle, u"Weekly");
}

TEST(PrintFlagsPages, AllAndNoneSpareThreeGeneralFlags) {
    CPrintSettings print;
    print.m_aFlags[PrintNoFiles] = 1;
    print.m_aFlags[PrintNoDirs] = 1;
    CPrintFlagsSheetData data(print);
    EXPECT_EQ(data.Problem(),
              u"You have selected to print\nNo files just directories\nand\nNo directories just "
              u"files");

    data.SetAllPages(false);
    data.StoreInto(print);
    EXPECT_TRUE(data.Problem().empty());
    EXPECT_FALSE(print.Flag(PrintNoFiles));
    EXPECT_TRUE(print.Flag(PrintNoDirs));
    EXPECT_TRUE(print.Flag(SaveAsUnicode));
    EXPECT_FALSE(print.Flag(PrintSize));
    EXPECT_FALSE(print.MetadataFlag(MetaWav, 33008));
    EXPECT_EQ(print.m_bPrintHyperlinks, 0);

    data.SetPage(PageWav, true);
    data.SetPage(PageGeneral, true);
    data.StoreInto(print);
    EXPECT_TRUE(print.Flag(PrintSize));
    EXPECT_FALSE(print.Flag(PrintNoFiles));
    EXPECT_TRUE(print.MetadataFlag(MetaWav, 33008));
    EXPECT_FALSE(print.MetadataFlag(MetaMp3, 32941));  // other pages stay
}

}  // namespace
}  // namespace zv
