// The multi-document main window: the main menu built from the command
// table, the standard toolbar whose buttons the active view loads, the
// directory toolbar "Current directory" with its three fields under it,
// and the status bar with its five panes.
#pragma once

#include <wx/docmdi.h>

#include <span>
#include <string_view>
#include <vector>

class wxFont;
class wxPanel;
class wxTextCtrl;

namespace zv {

class CZorvaneFrame;

enum EStatusPane { PaneMessages, PaneFreeSpace, PaneObjects, PaneSize, PaneActual, PaneCount };

class CMainFrame : public wxDocMDIParentFrame {
public:
    explicit CMainFrame(wxDocManager* pManager);

    // The bars and the status bar; false, with the failure logged, when one
    // cannot be made.
    bool CreateBars();

    // The standard toolbar's buttons, in this order; a list like the one
    // shown leaves the bar alone.
    void SetToolbar(std::span<const int> anCommands);

    // The directory toolbar's fields.
    void SetStatusField(std::u16string_view strText);
    void SetFileCount(size_t nFiles);
    void ShowFileCount(bool bShow);
    void SetFieldFont(const wxFont& font);
    void SetPane(EStatusPane ePane, std::u16string_view strText);

    CZorvaneFrame* GetMainChild() const { return m_pMain; }
    void OnMainChildCreated(CZorvaneFrame* pMain) { m_pMain = pMain; }
    void OnMainChildClosed() { m_pMain = nullptr; }

    wxTextCtrl* StatusField() const { return m_pStatusField; }
    wxTextCtrl* FileCountField() const { return m_pFileCount; }
    const std::vector<int>& ToolbarCommands() const { return m_anToolbar; }

private:
    void BuildMenus();
    bool BuildDirectoryBar();
    void OnCommand(wxCommandEvent& event);
    void OnUpdateCommand(wxUpdateUIEvent& event);

    CZorvaneFrame* m_pMain = nullptr;
    std::vector<int> m_anToolbar;
    wxPanel* m_pDirectoryBar = nullptr;
    wxTextCtrl* m_pFileCountLabel = nullptr;
    wxTextCtrl* m_pFileCount = nullptr;
    wxTextCtrl* m_pStatusField = nullptr;
};

}  // namespace zv
