#include <gtest/gtest.h>

#include "core/OwnerNameCache.h"
#include "core/ProgressDialog.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

struct CRecordingView : IProgressView {
    explicit CRecordingView(std::vector<std::u16string>& aLog) : m_aLog(aLog) {}
    void SetText(std::u16string_view s) override { m_aLog.push_back(u"text " + std::u16string(s)); }
    void SetLine(int n, std::u16string_view s) override {
        m_aLog.push_back(u"line" + std::u16string(1, char16_t(u'0' + n)) + u" " +
                         std::u16string(s));
    }
    void SetPercent(int n) override {
        m_aLog.push_back(u"percent " + platform::U16(std::to_string(n)));
    }
    std::vector<std::u16string>& m_aLog;
};

class CRecordingHost : public CQuietHost {
public:
    void PumpMessages() override { ++m_nPumps; }
    std::unique_ptr<IProgressView> OpenProgress(CProgressDialog&) override {
        return std::make_unique<CRecordingView>(m_aLog);
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
    const std::vector<std::u16string> aExpected = {u"text top", u"line2 second", u"percent 40",
                                                   u"percent 50", u"text both"};
    EXPECT_EQ(host.m_aLog, aExpected);
}

TEST(ProgressDialog, OnlyADialogWithStopCanBeStopped) {
    CProgressDialog withStop(true), withoutStop(false);
    withStop.OnCancel();
    withoutStop.OnCancel();
    EXPECT_TRUE(withStop.IsStopped());
    EXPECT_FALSE(withoutStop.IsStopped());
}

TEST(ProgressDialog, PercentChangesOnlyWhenTheTruncatedValueDoes) {
    CPercentTracker tracker;
    EXPECT_TRUE(tracker.Update(0, 3));
    EXPECT_FALSE(tracker.Update(0.02, 3));  // 0.66 % is still 0
    EXPECT_TRUE(tracker.Update(1, 3));      // 33
    EXPECT_EQ(tracker.GetPercent(), 33);
    EXPECT_FALSE(tracker.Update(1.01, 3));
    EXPECT_TRUE(tracker.Update(3, 3));
    EXPECT_EQ(tracker.GetPercent(), 100);
}

TEST(OwnerNameCache, BucketsFollowTheMultiplicativeHash) {
    // 16807 * (key mod 127773) - 2836 * (key div 127773), made positive, mod 257.
    EXPECT_EQ(COwnerNameCache::BucketOf(0), 0u);
    EXPECT_EQ(COwnerNameCache::BucketOf(1), 16807u % 257);
    EXPECT_EQ(COwnerNameCache::BucketOf(127773), (0x7FFFFFFFu - 2836u) % 257);
    EXPECT_EQ(COwnerNameCache::BucketOf(1000), (16807u * 1000u) % 257);
}

TEST(OwnerNameCache, NamesTheOwnerAsThePlatformDoes) {
    test::CTempDir temp;
    const std::u16string strA = platform::Utf8ToUtf16(temp.WriteFile("a", "1").string());
    const std::u16string strB = platform::Utf8ToUtf16(temp.WriteFile("b", "2").string());
    std::u16string strExpected;
    ASSERT_TRUE(platform::LookupOwnerName(strA, strExpected));
    COwnerNameCache cache;
    std::u16string strOwner;
    ASSERT_TRUE(cache.GetOwnerName(strA, strOwner));
    EXPECT_EQ(strOwner, strExpected);
    ASSERT_TRUE(cache.GetOwnerName(strB, strOwner));  // from the cache
    EXPECT_EQ(strOwner, strExpected);
    EXPECT_FALSE(cache.GetOwnerName(strA + u"-missing", strOwner));
}

}  // namespace
}  // namespace zv
