#include <gtest/gtest.h>

#include "core/host/ProgressDialog.h"
#include "core/records/OwnerNameCache.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

using platform::U16;

// Logs what reaches the dialog's view and counts the message pumps.
class CRecordingHost : public CQuietHost {
public:
    struct CView : IProgressView {
        explicit CView(std::vector<std::u16string>& aLog) : m_aLog(aLog) {}
        void SetText(std::u16string_view s) override {
            m_aLog.push_back(u"text " + std::u16string(s));
        }
        void SetLine(int n, std::u16string_view s) override {
            m_aLog.push_back(u"line" + U16(std::to_string(n)) + u" " + std::u16string(s));
        }
        void SetPercent(int n) override { m_aLog.push_back(u"percent " + U16(std::to_string(n))); }
        std::vector<std::u16string>& m_aLog;
    };
    void PumpMessages() override { ++m_nPumps; }
    std::unique_ptr<IProgressView> OpenProgress(CProgressDialog&) override {
        return std::make_unique<CView>(m_aLog);
    }
    int m_nPumps = 0;
    std::vector<std::u16string> m_aLog;
};

TEST(ProgressDialog, SettersSkipNullAndNegativeButAlwaysPump) {
    CRecordingHost host;
    SetHost(&host);
    CProgressDialog dialog(true);
    dialog.Open();
    dialog.SetText(u"top");
    dialog.SetText(nullptr);
    dialog.SetLine2(u"second");
    dialog.SetLine3(nullptr);
    dialog.SetPercent(-1);
    dialog.SetPercent(40);
    dialog.SetTextAndPercent(nullptr, 50);
    dialog.SetTextAndPercent(u"both", -5);
    SetHost(nullptr);
    EXPECT_EQ(host.m_nPumps, 8);
    EXPECT_EQ(host.m_aLog, (std::vector<std::u16string>{u"text top", u"line2 second", u"percent 40",
                                                        u"percent 50", u"text both"}));
}

TEST(ProgressDialog, OnlyADialogWithStopCanBeStopped) {
    for (const bool bShowStop : {true, false}) {
        CProgressDialog dialog(bShowStop);
        dialog.OnCancel();
        EXPECT_EQ(dialog.IsStopped(), bShowStop);
    }
}

TEST(ProgressDialog, PercentChangesOnlyWhenTheTruncatedValueDoes) {
    CPercentTracker tracker;
    EXPECT_TRUE(tracker.Update(0, 3));
    EXPECT_FALSE(tracker.Update(0.02, 3));  // 0.66 % is still 0
    EXPECT_TRUE(tracker.Update(1, 3));
    EXPECT_EQ(tracker.GetPercent(), 33);
    EXPECT_FALSE(tracker.Update(1.01, 3));
    EXPECT_TRUE(tracker.Update(3, 3));
    EXPECT_EQ(tracker.GetPercent(), 100);
}

TEST(OwnerNameCache, NamesTheOwnerAsThePlatformDoes) {
    test::CTempDir temp;
    const std::u16string strA = platform::Utf8ToUtf16(temp.WriteFile("a", "1").string());
    const std::u16string strB = platform::Utf8ToUtf16(temp.WriteFile("b", "2").string());
    std::u16string strExpected, strOwner;
    ASSERT_TRUE(platform::LookupOwnerName(strA, strExpected));
    COwnerNameCache cache;
    ASSERT_TRUE(cache.GetOwnerName(strA, strOwner));
    EXPECT_EQ(strOwner, strExpected);
    ASSERT_TRUE(cache.GetOwnerName(strB, strOwner));  // from the cache
    EXPECT_EQ(strOwner, strExpected);
    EXPECT_FALSE(cache.GetOwnerName(strA + u"-missing", strOwner));
}

}  // namespace
}  // namespace zv
