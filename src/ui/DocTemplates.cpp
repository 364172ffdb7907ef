#include "ui/DocTemplates.h"

#include <wx/docview.h>
#include <wx/mdi.h>

#include "ui/DocView.h"
#include "ui/ZorvaneDocument.h"

namespace zv {

void RegisterDocTemplates(wxDocManager& manager) {
    // The manager owns its templates. The document creates its own views
    // (two for the main document), so no view class is given. Invisible:
    // the framework's file commands never offer them.
    new wxDocTemplate(&manager, "Zorvane", "", "", "", "ZORVANE", "ZORVANE",
                      wxCLASSINFO(CZorvaneDocument), nullptr, wxTEMPLATE_INVISIBLE);
    // The result screens' templates follow here in this order:
    // "LARGEST_FILES", "LARGEST_DIR", "DUPLICATE_FILES", "DIRECTORY_COMPARE",
    // "LARGEST_OWNER", "LARGEST_TYPE", "DUPLICATE_DIRS".
}

wxDocTemplate* FindDocTemplate(wxDocManager& manager, const wxString& strName) {
    for (wxObject* pObject : manager.GetTemplates()) {
        auto* pTemplate = static_cast<wxDocTemplate*>(pObject);
        if (pTemplate->GetDocumentName() == strName) return pTemplate;
    }
    return nullptr;
}

wxDocument* FindOpenDocument(wxDocManager& manager, const wxString& strName) {
    wxDocTemplate* pTemplate = FindDocTemplate(manager, strName);
    if (!pTemplate) return nullptr;
    for (wxObject* pObject : manager.GetDocuments()) {
        auto* pDoc = static_cast<wxDocument*>(pObject);
        if (pDoc->GetDocumentTemplate() == pTemplate) return pDoc;
    }
    return nullptr;
}

wxDocument* ShowDocument(wxDocManager& manager, const wxString& strName) {
    if (wxDocument* pOpen = FindOpenDocument(manager, strName)) {
        wxView* pView = pOpen->GetFirstView();
        if (auto* pFrame = dynamic_cast<wxMDIChildFrame*>(pView ? pView->GetFrame() : nullptr))
            pFrame->Activate();
        return pOpen;
    }
    wxDocTemplate* pTemplate = FindDocTemplate(manager, strName);
    if (!pTemplate) return nullptr;
    wxDocument* pDoc = pTemplate->CreateDocument(wxString(), wxDOC_NEW);
    if (!pDoc) return nullptr;
    if (!pDoc->OnNewDocument()) {
        manager.CloseDocument(pDoc, true);
        return nullptr;
    }
    for (wxObject* pObject : pDoc->GetViews())
        if (auto* pView = dynamic_cast<CDocView*>(pObject)) pView->OnInitialUpdate();
    return pDoc;
}

}  // namespace zv
