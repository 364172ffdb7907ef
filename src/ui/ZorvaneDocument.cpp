#include "ui/ZorvaneDocument.h"

#include "core/document/Document.h"
#include "core/settings/DocumentStartup.h"
#include "ui/PaneViews.h"
#include "ui/ZorvaneApp.h"
#include "ui/ZorvaneFrame.h"

namespace zv {

wxIMPLEMENT_DYNAMIC_CLASS(CZorvaneDocument, wxDocument);

namespace {

CZorvaneApp& App() { return static_cast<CZorvaneApp&>(*wxTheApp); }

}  // namespace

CZorvaneDocument::CZorvaneDocument() : m_pCore(&App().CoreDocument()) {}

bool CZorvaneDocument::OnCreate(const wxString&, long) {
    auto* pTree = new CTreePaneView;
    pTree->SetDocument(this);
    auto* pList = new CListPaneView;
    pList->SetDocument(this);
    auto* pFrame =
        new CZorvaneFrame(*this, *pTree, *pList, App().MainFrame(), *CZorvaneApp::s_pProgramSteps);
    pFrame->Show();
    pFrame->Maximize();
    return true;
}

bool CZorvaneDocument::OnNewDocument() {
    SetTitle("Zorvane");
    OpenMainDocument(Core(), App().m_strSettingsFile);
    return true;
}

void CZorvaneDocument::ForwardCommand(int nCommand) {
    if (Core().m_bScanning) return;
    CCommandHint hint(nCommand);
    UpdateAllViews(nullptr, &hint);
}

}  // namespace zv
