// The base of this program's views. The document forwards a view command
// to all its views as an update hint that carries the command number; a
// view gets its first update once its document is open; an activated view
// loads its own buttons into the main frame's standard toolbar.
#pragma once

#include <wx/docview.h>

#include <span>

namespace zv {

class CCommandHint : public wxObject {
public:
    explicit CCommandHint(int nCommand) : m_nCommand(nCommand) {}
    int m_nCommand;
};

class CDocView : public wxView {
public:
    void OnDraw(wxDC*) override {}
    void OnUpdate(wxView* pSender, wxObject* pHint) override;
    void OnActivateView(bool bActivate, wxView* pActiveView, wxView* pDeactiveView) override;

    // After the document was created and opened.
    virtual void OnInitialUpdate() {}
    virtual void OnCommandHint(int nCommand) = 0;
    virtual std::span<const int> ToolbarCommands() const = 0;
};

}  // namespace zv
