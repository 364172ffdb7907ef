#include <gtest/gtest.h>

#include "analyses/ReportCrcWarning.h"
#include "core/PrintSettings.h"
#include "platform/Text.h"

namespace zv {
namespace {

TEST(ReportCrcWarning, PanesFollowWhatIsSelectedAndNotShown) {
    struct Case {
        bool bCrc, bCrcSubdirs, bOwner, bCrcShown, bOwnerShown, bSave;
        std::vector<std::u16string> aTexts;  // text, button per pane
        const char16_t* pszCancel;
    };
    const std::u16string kCrcPrint = u"You have chosen to print: CRC\nThis may take a long time";
    const std::u16string kCrcSave = u"You have chosen to save: CRC\nThis may take a long time";
    const std::u16string kOwnerPrint =
        u"You have chosen to print: Owner\nThis may take a long time";
    const std::u16string kOwnerSave = u"You have chosen to save: Owner\nThis may take a long time";
    const Case aCases[] = {
        {false, false, false, false, false, false, {}, u"Cancel Printing"},
        {true, false, false, true, false, false, {}, u"Cancel Printing"},  // column shown
        {false, false, true, false, true, true, {}, u"Cancel Printing"},   // column shown
        {true,
         false,
         false,
         false,
         false,
         false,
         {kCrcPrint, u"Don't print CRC"},
         u"Cancel Printing"},
        {false,
         true,
         false,
         false,
         false,
         false,
         {kCrcPrint, u"Don't print CRC"},
         u"Cancel Printing"},
        {true, false, false, false, false, true, {kCrcSave, u"Don't save CRC"}, u"Cancel Printing"},
        {false,
         false,
         true,
         false,
         false,
         false,
         {kOwnerPrint, u"Don't print owner"},
         u"Cancel Printing"},
        {false, false, true, false, false, true, {kOwnerSave, u"Don't save owner"}, u"Cancel save"},
        {true,
         true,
         true,
         false,
         false,
         false,
         {kCrcPrint, u"Don't print CRC", kOwnerPrint, u"Don't print owner"},
         u"Cancel Printing"},
        {true,
         false,
         true,
         false,
         false,
         true,
         {kCrcSave, u"Don't save CRC", kOwnerSave, u"Don't save owner"},
         u"Cancel save"},
    };
    int nCase = 0;
    for (const Case& c : aCases) {
        CPrintSettings print;
        print.m_aFlags[PrintCrc] = c.bCrc;
        print.m_aFlags[PrintCrcSubdirs] = c.bCrcSubdirs;
        print.m_aFlags[PrintOwner] = c.bOwner;
        const CReportWarning warning =
            DecideReportWarning(print, c.bCrcShown, c.bOwnerShown, c.bSave);
        std::vector<std::u16string> aTexts;
        for (const CReportWarningPane& pane : warning.aPanes) {
            aTexts.push_back(pane.strText);
            aTexts.push_back(pane.strButton);
        }
        EXPECT_EQ(aTexts, c.aTexts) << "case " << nCase;
        EXPECT_EQ(warning.IsNeeded(), !c.aTexts.empty()) << "case " << nCase;
        EXPECT_EQ(warning.strCancel, c.pszCancel) << "case " << nCase;
        EXPECT_EQ(warning.strOk, u"OK");
        ++nCase;
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
