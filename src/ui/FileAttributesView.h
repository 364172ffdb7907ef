// The file list: a virtual report list of the current directory's
// subdirectories and then its files. Rows are never copied: row i is the
// directory's child i, or its file i less the number of children, and each
// cell's text comes from the record when the list draws it.
#pragma once

#include <wx/listctrl.h>

#include <vector>

#include "ui/logic/FileListColumns.h"

namespace zv {

class CZorvaneFrame;

class CFileAttributesView : public wxListCtrl {
public:
    CFileAttributesView(wxWindow* pParent, CZorvaneFrame& frame);

    void OnInitialUpdate();
    // The optional columns for the settings in force.
    void ApplyColumnSettings();
    void ShowDirectory(CDirectoryData* pDir);
    CDirectoryData* CurrentDirectory() const { return m_pDir; }
    // Makes these the document's codes and shows the list in their order.
    void SetSort(uint8_t nFileSort, uint8_t nDirSort);
    void OnUpdate(int nHint);
    void UpdateStatusPanes();

    CListRow RowAt(long nItem) const;
    std::vector<CListRow> SelectedRows() const;
    const CFileListColumns& Columns() const { return m_columns; }
    // The column that shows the sort arrow, or -1.
    int SortArrowColumn(bool& bAscending) const;

protected:
    wxString OnGetItemText(long nItem, long nColumn) const override;
    int OnGetItemImage(long nItem) const override;

private:
    void InsertListColumn(EListColumn eColumn, int nWidth);
    void ShowSortArrow();
    int SortImage(bool bAscending) const { return m_nSortImages + (bAscending ? 0 : 1); }
    void OnColumnClick(wxListEvent& event);
    void OnSelectionChanged(wxListEvent& event);
    void OnActivated(wxListEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void OnPopupCommand(wxCommandEvent& event);
    void OpenSelected();
    void NewFolder();
    void OnBeginLabelEdit(wxListEvent& event);
    void OnEndLabelEdit(wxListEvent& event);
    void SelectAll(bool bSelect, bool bInvert);

    CZorvaneFrame& m_frame;
    CFileListColumns m_columns;
    CDirectoryData* m_pDir = nullptr;
    bool m_bStatusPending = false;
    int m_nSortImages = -1;
};

}  // namespace zv
