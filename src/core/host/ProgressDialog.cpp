#include "core/host/ProgressDialog.h"

namespace zv {

CProgressDialog::CProgressDialog(bool bShowStop) : m_bShowStop(bShowStop ? 1 : 0) {}

CProgressDialog::~CProgressDialog() = default;

void CProgressDialog::Open() { m_pView = Host().OpenProgress(*this); }

void CProgressDialog::SetLine(int nLine, const char16_t* pszText) {
    if (pszText && m_pView) {
        if (nLine == 0)
            m_pView->SetText(pszText);
        else
            m_pView->SetLine(nLine, pszText);
    }
    PumpMessages();
}

void CProgressDialog::SetText(const char16_t* pszText) { SetLine(0, pszText); }
void CProgressDialog::SetLine1(const char16_t* pszText) { SetLine(1, pszText); }
void CProgressDialog::SetLine2(const char16_t* pszText) { SetLine(2, pszText); }
void CProgressDialog::SetLine3(const char16_t* pszText) { SetLine(3, pszText); }

void CProgressDialog::SetPercent(int nPercent) {
    if (nPercent >= 0 && m_pView) m_pView->SetPercent(nPercent);
    PumpMessages();
}

void CProgressDialog::SetTextAndPercent(const char16_t* pszText, int nPercent) {
    if (pszText && m_pView) m_pView->SetText(pszText);
    if (nPercent >= 0 && m_pView) m_pView->SetPercent(nPercent);
    PumpMessages();
}

void CProgressDialog::OnCancel() {
    if (m_bShowStop) m_bStopped = 1;
}

bool CPercentTracker::Update(double dDone, double dTotal) {
    const int nPercent = dTotal > 0 ? static_cast<int>(dDone / dTotal * 100) : 100;
    if (nPercent == m_nPercent) return false;
    m_nPercent = nPercent;
    return true;
}

}  // namespace zv
