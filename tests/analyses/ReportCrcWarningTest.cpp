#include <gtest/gtest.h>

#include "analyses/ReportCrcWarning.h"
#include "core/document/PrintSettings.h"
#include "platform/Text.h"

namespace zv {
namespace {

CReportWarning Decide(bool bCrc, bool bCrcSubdirs, bool bOwner, bool bCrcShown, bool bOwnerShown,
                      bool bSave) {
    CPrintSettings print;
    print.m_aFlags[PrintCrc] = bCrc;
    print.m_aFlags[PrintCrcSubdirs] = bCrcSubdirs;
    print.m_aFlags[PrintOwner] = bOwner;
    return DecideReportWarning(print, bCrcShown, bOwnerShown, bSave);
}

// A pane for each column that will be computed without being shown, CRC
// first; only saving with the owner cancels the save.
TEST(ReportCrcWarning, PanesFollowWhatIsSelectedAndNotShown) {
    // Selected: CRC, CRC with subdirectories, owner; shown: CRC, owner; save.
    struct Case {
        int bCrc, bCrcSubdirs, bOwner, bCrcShown, bOwnerShown, bSave;
        const char16_t* pszExpected;  // each pane's cause and button, then Cancel
    };
    const Case aCases[] = {
        {0, 0, 0, 0, 0, 0, u"Cancel Printing"},
        {1, 0, 0, 1, 0, 0, u"Cancel Printing"},
        {0, 0, 1, 0, 1, 1, u"Cancel Printing"},
        {1, 0, 0, 0, 0, 0, u"C Don't print CRC; Cancel Printing"},
        {0, 1, 0, 0, 0, 0, u"C Don't print CRC; Cancel Printing"},
        {1, 0, 0, 0, 0, 1, u"C Don't save CRC; Cancel Printing"},
        {0, 0, 1, 0, 0, 0, u"O Don't print owner; Cancel Printing"},
        {0, 0, 1, 0, 0, 1, u"O Don't save owner; Cancel save"},
        {1, 1, 1, 0, 0, 0, u"C Don't print CRC; O Don't print owner; Cancel Printing"},
        {1, 0, 1, 0, 0, 1, u"C Don't save CRC; O Don't save owner; Cancel save"},
    };
    for (const Case& c : aCases) {
        const CReportWarning warning =
            Decide(c.bCrc, c.bCrcSubdirs, c.bOwner, c.bCrcShown, c.bOwnerShown, c.bSave);
        std::u16string strPanes;
        for (const CReportWarningPane& pane : warning.aPanes)
            strPanes +=
                (pane.eCause == EReportWarningCause::Crc ? u"C " : u"O ") + pane.strButton + u"; ";
        EXPECT_EQ(platform::Utf16ToUtf8(strPanes + warning.strCancel),
                  platform::Utf16ToUtf8(c.pszExpected));
        EXPECT_EQ(warning.IsNeeded(), !strPanes.empty());
        EXPECT_EQ(warning.strOk, u"OK");
    }
    for (bool bSave : {false, true}) {
        const CReportWarning warning = Decide(true, false, true, false, false, bSave);
        ASSERT_EQ(warning.aPanes.size(), 2u);
        const std::u16string strVerb = bSave ? u"save" : u"print";
        EXPECT_EQ(warning.aPanes[0].strText,
                  u"You have chosen to " + strVerb + u": CRC\nThis may take a long time");
        EXPECT_EQ(warning.aPanes[1].strText,
                  u"You have chosen to " + strVerb + u": Owner\nThis may take a long time");
    }
}

TEST(ReportCrcWarning, ButtonsDropTheirColumnOnly) {
    CPrintSettings print;
    print.m_aFlags[PrintCrc] = print.m_aFlags[PrintCrcSubdirs] = print.m_aFlags[PrintOwner] = 1;
    DropReportColumn(print, EReportWarningCause::Crc);
    EXPECT_FALSE(print.Flag(PrintCrc));
    EXPECT_TRUE(print.Flag(PrintCrcSubdirs));
    EXPECT_TRUE(print.Flag(PrintOwner));
    DropReportColumn(print, EReportWarningCause::Owner);
    EXPECT_FALSE(print.Flag(PrintOwner));
    EXPECT_TRUE(print.Flag(PrintCrcSubdirs));
}

}  // namespace
}  // namespace zv
