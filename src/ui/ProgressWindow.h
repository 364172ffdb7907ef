// The screen side of CProgressDialog: a modeless dialog titled "Zorvane"
// with a centred top line, the bar, three lines, a pair of half lines and
// Cancel when the operation can be stopped.
#pragma once

#include <wx/dialog.h>

#include "core/host/Host.h"

class wxGauge;
class wxStaticText;

namespace zv {

class CProgressWindow : public wxDialog {
public:
    explicit CProgressWindow(CProgressDialog& dialog);

    void SetText(std::u16string_view strText);
    void SetLine(int nLine, std::u16string_view strText);
    void SetPercent(int nPercent);

private:
    void OnCancel(wxCommandEvent& event);
    void OnClose(wxCloseEvent& event);

    CProgressDialog& m_dialog;
    wxStaticText* m_pText;
    wxGauge* m_pBar;
    wxStaticText* m_apLines[3];
};

// What the core's progress dialog keeps: the window, destroyed with it.
class CProgressWindowView : public IProgressView {
public:
    explicit CProgressWindowView(CProgressDialog& dialog)
        : m_pWindow(new CProgressWindow(dialog)) {}
    ~CProgressWindowView() override { m_pWindow->Destroy(); }
    void SetText(std::u16string_view strText) override { m_pWindow->SetText(strText); }
    void SetLine(int nLine, std::u16string_view strText) override {
        m_pWindow->SetLine(nLine, strText);
    }
    void SetPercent(int nPercent) override { m_pWindow->SetPercent(nPercent); }

private:
    CProgressWindow* m_pWindow;
};

}  // namespace zv
