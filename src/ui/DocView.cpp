#include "ui/DocView.h"

#include <wx/app.h>

#include "ui/MainFrame.h"

namespace zv {

void CDocView::OnUpdate(wxView*, wxObject* pHint) {
    if (auto* pCommand = dynamic_cast<CCommandHint*>(pHint)) OnCommandHint(pCommand->m_nCommand);
}

void CDocView::OnActivateView(bool bActivate, wxView*, wxView*) {
    if (!bActivate) return;
    if (auto* pFrame = dynamic_cast<CMainFrame*>(wxTheApp->GetTopWindow()))
        pFrame->SetToolbar(ToolbarCommands());
}

}  // namespace zv
