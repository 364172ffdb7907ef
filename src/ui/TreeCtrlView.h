// The directory tree. Items are created when their parent first opens, so
// a tree of any size fills at once; each item points at its record and the
// record's m_hTreeItem points back. Icons follow the record's state, open
// when the item is expanded or selected.
#pragma once

#include <wx/treectrl.h>

namespace zv {

class CZorvaneFrame;
class CDirectoryData;

class CTreeCtrlView : public wxTreeCtrl {
public:
    CTreeCtrlView(wxWindow* pParent, CZorvaneFrame& frame);
    ~CTreeCtrlView() override;

    // Removes every item before the records go.
    void Clear();
    // After a scan: one item per root, their children on demand.
    void FillTree();
    // Selects the directory kept over the rescan, else the first root.
    void RestoreSelection();
    // Makes the directory's item exist, shows and selects it.
    bool SelectDirectory(CDirectoryData* pDir);
    bool HasItems() const;
    // A directory got a new child or a new name outside the tree.
    void OnDirectoryAdded(CDirectoryData& parent, CDirectoryData& child);
    void OnDirectoryRenamed(CDirectoryData& dir);
    void OnUpdate(int nHint);

    // The record of an item; null for the hidden top.
    CDirectoryData* DirectoryOf(const wxTreeItemId& item) const;

    bool m_bBuilding = false;

private:
    wxTreeItemId AddItem(const wxTreeItemId& parent, CDirectoryData& dir);
    wxTreeItemId EnsureItem(CDirectoryData* pDir);
    void AddChildren(const wxTreeItemId& item);
    void OnExpanding(wxTreeEvent& event);
    void OnSelectionChanged(wxTreeEvent& event);
    void OnBeginLabelEdit(wxTreeEvent& event);
    void OnEndLabelEdit(wxTreeEvent& event);
    void OnItemMenu(wxTreeEvent& event);

    CZorvaneFrame& m_frame;
    wxTreeItemId m_top;
};

}  // namespace zv
