#include "ui/ProgressWindow.h"

#include <wx/button.h>
#include <wx/gauge.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "core/host/ProgressDialog.h"
#include "ui/WxText.h"

namespace zv {

CProgressWindow::CProgressWindow(CProgressDialog& dialog)
    : wxDialog(nullptr, wxID_ANY, "Zorvane", wxDefaultPosition, wxSize(520, 200),
               wxCAPTION | wxRESIZE_BORDER | wxSTAY_ON_TOP),
      m_dialog(dialog) {
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    m_pText = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                               wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE);
    pSizer->Add(m_pText, 0, wxEXPAND | wxALL, 6);
    m_pBar = new wxGauge(this, wxID_ANY, 100);
    pSizer->Add(m_pBar, 0, wxEXPAND | wxLEFT | wxRIGHT, 6);
    for (wxStaticText*& pLine : m_apLines) {
        pLine = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                 wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_MIDDLE);
        pSizer->Add(pLine, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, 6);
    }
    pSizer->AddStretchSpacer();
    auto* pCancel = new wxButton(this, wxID_CANCEL, "Cancel");
    pSizer->Add(pCancel, 0, wxALIGN_CENTRE | wxALL, 6);
    if (!dialog.CanStop()) pCancel->Hide();
    SetSizer(pSizer);
    Bind(wxEVT_BUTTON, &CProgressWindow::OnCancel, this, wxID_CANCEL);
    Bind(wxEVT_CLOSE_WINDOW, &CProgressWindow::OnClose, this);
    CentreOnScreen();
    Show();
    Raise();
}

void CProgressWindow::SetText(std::u16string_view strText) { m_pText->SetLabel(ToWx(strText)); }

void CProgressWindow::SetLine(int nLine, std::u16string_view strText) {
    if (nLine >= 1 && nLine <= 3) m_apLines[nLine - 1]->SetLabel(ToWx(strText));
}

void CProgressWindow::SetPercent(int nPercent) {
    m_pBar->SetValue(nPercent > 100 ? 100 : nPercent);
}

void CProgressWindow::OnCancel(wxCommandEvent&) {
    m_dialog.OnCancel();
    Hide();
}

void CProgressWindow::OnClose(wxCloseEvent& event) {
    if (m_dialog.CanStop()) m_dialog.OnCancel();
    event.Veto();
}

}  // namespace zv
