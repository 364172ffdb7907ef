// The multi-document main window: the main menu built from the command
// table, the standard toolbar with the directory fields, and the status bar
// with its five panes.
#pragma once

#include <wx/mdi.h>

#include <string_view>

class wxTextCtrl;

namespace zv {

class CZorvaneFrame;
class CWZorvaneDoc;
class IScanSteps;

enum EStatusPane { PaneMessages, PaneFreeSpace, PaneObjects, PaneSize, PaneActual, PaneCount };

class CMainFrame : public wxMDIParentFrame {
public:
    CMainFrame();

    // The directory toolbar's fields.
    void SetStatusField(std::u16string_view strText);
    void SetFileCount(size_t nFiles);
    void ShowFileCount(bool bShow);
    void SetPane(EStatusPane ePane, std::u16string_view strText);

    // ShowDocument("ZORVANE"): activates the main document's frame, or
    // creates it with its views.
    CZorvaneFrame* ShowMainDocument(CWZorvaneDoc& doc, IScanSteps& programSteps);
    CZorvaneFrame* GetMainChild() const { return m_pMain; }
    void OnMainChildClosed() { m_pMain = nullptr; }

    wxTextCtrl* StatusField() const { return m_pStatusField; }

private:
    void BuildMenus();
    void BuildToolbar();
    void OnCommand(wxCommandEvent& event);
    void OnUpdateCommand(wxUpdateUIEvent& event);

    CZorvaneFrame* m_pMain = nullptr;
    wxTextCtrl* m_pFileCountLabel = nullptr;
    wxTextCtrl* m_pFileCount = nullptr;
    wxTextCtrl* m_pStatusField = nullptr;
};

}  // namespace zv
