// The progress dialog every long operation shares: a top line, a bar from 0
// to 100, three lines under it and an optional Cancel button. Every setter
// ends by pumping messages, which is the only moment a Cancel is seen.
#pragma once

#include <memory>
#include <string_view>

#include "core/host/Host.h"

namespace zv {

class CProgressDialog {
public:
    explicit CProgressDialog(bool bShowStop);
    ~CProgressDialog();
    CProgressDialog(const CProgressDialog&) = delete;
    CProgressDialog& operator=(const CProgressDialog&) = delete;

    void Open();
    // A null text leaves its line as it stands; a negative percent leaves
    // the bar as it stands. Both still pump messages.
    void SetText(const char16_t* pszText);
    void SetLine1(const char16_t* pszText);
    void SetLine2(const char16_t* pszText);
    void SetLine3(const char16_t* pszText);
    void SetPercent(int nPercent);
    void SetTextAndPercent(const char16_t* pszText, int nPercent);

    bool IsStopped() const { return m_bStopped != 0; }
    bool CanStop() const { return m_bShowStop != 0; }
    // Called by the screen side when the user presses Cancel.
    void OnCancel();

    const int m_bShowStop;

private:
    void SetLine(int nLine, const char16_t* pszText);

    int m_bStopped = 0;
    std::unique_ptr<IProgressView> m_pView;
};

// The percent rule of long operations: truncate(done / total x 100), and a
// change only when that number changes.
class CPercentTracker {
public:
    // True when the percentage differs from the last one reported.
    bool Update(double dDone, double dTotal);
    int GetPercent() const { return m_nPercent; }

private:
    int m_nPercent = -1;
};

}  // namespace zv
