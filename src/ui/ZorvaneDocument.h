// The main document as the toolkit's document/view framework sees it. It
// wraps the core's main document, which the application object owns from
// start to exit so that no window left for deletion can outlive it.
#pragma once

#include <wx/docview.h>

namespace zv {

class CWZorvaneDoc;

class CZorvaneDocument : public wxDocument {
public:
    CZorvaneDocument();

    // The child frame with its splitter and the two views.
    bool OnCreate(const wxString& strPath, long nFlags) override;
    // Titled "Zorvane", opened with the settings file of the command line.
    bool OnNewDocument() override;

    // The view commands reach every view as an update hint; during a scan
    // none does.
    void ForwardCommand(int nCommand);

    CWZorvaneDoc& Core() const { return *m_pCore; }

private:
    CWZorvaneDoc* m_pCore;

    wxDECLARE_DYNAMIC_CLASS(CZorvaneDocument);
};

}  // namespace zv
