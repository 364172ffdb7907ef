#include "ui/FileAttributesView.h"

#include <wx/menu.h>
#include <wx/utils.h>

#include "core/document/Document.h"
#include "core/document/SortCodes.h"
#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "fileops/NewFolder.h"
#include "fileops/RenameOnDisk.h"
#include "ui/Art.h"
#include "ui/FileListCommands.h"
#include "ui/MainFrame.h"
#include "ui/TreeCtrlView.h"
#include "ui/WxText.h"
#include "ui/ZorvaneFrame.h"
#include "ui/logic/CommandTable.h"
#include "ui/logic/StatusTexts.h"

namespace zv {

CFileAttributesView::CFileAttributesView(wxWindow* pParent, CZorvaneFrame& frame)
    : wxListCtrl(pParent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxLC_EDIT_LABELS),
      m_frame(frame) {
    wxImageList* pImages = CreateFolderImages();
    m_nSortImages = AddSortArrowImages(*pImages);
    AssignImageList(pImages, wxIMAGE_LIST_SMALL);
    Bind(wxEVT_LIST_COL_CLICK, &CFileAttributesView::OnColumnClick, this);
    Bind(wxEVT_LIST_ITEM_SELECTED, &CFileAttributesView::OnSelectionChanged, this);
    Bind(wxEVT_LIST_ITEM_DESELECTED, &CFileAttributesView::OnSelectionChanged, this);
    Bind(wxEVT_LIST_ITEM_ACTIVATED, &CFileAttributesView::OnActivated, this);
    Bind(wxEVT_CONTEXT_MENU, &CFileAttributesView::OnContextMenu, this);
    Bind(wxEVT_LIST_BEGIN_LABEL_EDIT, &CFileAttributesView::OnBeginLabelEdit, this);
    Bind(wxEVT_LIST_END_LABEL_EDIT, &CFileAttributesView::OnEndLabelEdit, this);
    Bind(wxEVT_LIST_BEGIN_DRAG, [this](wxListEvent&) { DragSelection(*this); });
}

void CFileAttributesView::InsertListColumn(EListColumn eColumn, int nWidth) {
    const int nShare = static_cast<int>(nWidth * CFileListColumns::WidthShare(eColumn));
    AppendColumn(
        ToWx(CFileListColumns::Title(eColumn)),
        CFileListColumns::IsRightAligned(eColumn) ? wxLIST_FORMAT_RIGHT : wxLIST_FORMAT_LEFT,
        nShare > 0 ? nShare : 100);
}

void CFileAttributesView::OnInitialUpdate() {
    // Widths come from the client width at creation; the frame is full
    // size by now.
    int nWidth = GetClientSize().x;
    if (nWidth < 400) nWidth = 800;
    for (size_t i = 0; i < m_columns.Count(); ++i) InsertListColumn(m_columns.ColumnAt(i), nWidth);
    ApplyColumnSettings();
    ShowSortArrow();
    UpdateStatusPanes();
}

void CFileAttributesView::ApplyColumnSettings() {
    const CDocumentOptions& options = m_frame.Document().m_options;
    const struct {
        EListColumn m_eColumn;
        bool m_bLive;
    } aOptional[] = {{ColCrc, options.m_bShowCrc != 0},
                     {ColCrcWithSubdirs, options.m_bShowCrc != 0},
                     {ColOwner, options.m_bShowOwners != 0},
                     {ColVersion, options.m_bShowVersions != 0}};
    const int nWidth = GetClientSize().x > 400 ? GetClientSize().x : 800;
    for (const auto& optional : aOptional) {
        const int nIndex = m_columns.IndexOf(optional.m_eColumn);
        if (optional.m_bLive && nIndex < 0) {
            m_columns.Show(optional.m_eColumn);
            InsertListColumn(optional.m_eColumn, nWidth);
        } else if (!optional.m_bLive && nIndex >= 0) {
            m_columns.Hide(optional.m_eColumn);
            DeleteColumn(nIndex);
        }
    }
    Refresh();
}

CListRow CFileAttributesView::RowAt(long nItem) const {
    return nItem < 0 ? CListRow{} : RowOf(m_pDir, static_cast<size_t>(nItem));
}

std::vector<CListRow> CFileAttributesView::SelectedRows() const {
    std::vector<CListRow> aRows;
    for (long nItem = GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED); nItem >= 0;
         nItem = GetNextItem(nItem, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED))
        aRows.push_back(RowAt(nItem));
    return aRows;
}

wxString CFileAttributesView::OnGetItemText(long nItem, long nColumn) const {
    if (nColumn < 0 || static_cast<size_t>(nColumn) >= m_columns.Count()) return {};
    return ToWx(CellText(m_frame.Document(), m_columns.ColumnAt(nColumn), RowAt(nItem)));
}

int CFileAttributesView::OnGetItemImage(long nItem) const {
    const CListRow row = RowAt(nItem);
    if (row.m_pDir) return FolderImageIndex(row.m_pDir->m_uAttributes, row.m_pDir->m_uFlags, false);
    return row.m_pFile ? kFileImage : -1;
}

void CFileAttributesView::ShowDirectory(CDirectoryData* pDir) {
    CWZorvaneDoc& doc = m_frame.Document();
    m_pDir = pDir;
    doc.m_pCurrentDir = pDir;
    SetItemCount(0);
    if (pDir) {
        doc.m_strCurrentDir = pDir->GetFullPath();
        m_frame.MainFrame().SetStatusField(doc.m_strCurrentDir);
        SortChildren(*pDir, doc.m_options.m_nDirSort);
        SortFiles(*pDir, doc.m_options.m_nFileSort);
        SetItemCount(static_cast<long>(pDir->m_aChildren.GetSize() + pDir->m_aFiles.GetSize()));
    }
    Refresh();
    UpdateStatusPanes();
}

void CFileAttributesView::SetSort(uint8_t nFileSort, uint8_t nDirSort) {
    CDocumentOptions& options = m_frame.Document().m_options;
    options.m_nFileSort = nFileSort;
    options.m_nDirSort = nDirSort;
    if (m_pDir) {
        if (m_pDir->m_aFiles.GetSize() + m_pDir->m_aChildren.GetSize() > 32) {
            wxBusyCursor wait;
            SortChildren(*m_pDir, nDirSort);
            SortFiles(*m_pDir, nFileSort);
        } else {
            SortChildren(*m_pDir, nDirSort);
            SortFiles(*m_pDir, nFileSort);
        }
        // The selection belonged to rows that have moved.
        SelectAll(false, false);
    }
    ShowSortArrow();
    Refresh();
}

void CFileAttributesView::ShowSortArrow() {
    const CDocumentOptions& options = m_frame.Document().m_options;
    const CSortArrow arrow = SortArrowFor({options.m_nFileSort, options.m_nDirSort});
    const int nIndex = arrow.m_bFound ? m_columns.IndexOf(arrow.m_eColumn) : -1;
#ifdef __WXMSW__
    // The native header draws its arrow beside the label, whatever the
    // alignment.
    if (nIndex >= 0)
        ShowSortIndicator(nIndex, arrow.m_bAscending);
    else
        RemoveSortIndicator();
#else
    // The generic header draws the toolkit's sort arrow at the right edge,
    // under the label of a right-aligned column such as "Size wSub": the
    // arrow is a header image instead.
    for (int i = 0; i < GetColumnCount(); ++i) {
        wxListItem column;
        column.SetMask(wxLIST_MASK_IMAGE);
        column.SetImage(i == nIndex ? SortImage(arrow.m_bAscending) : -1);
        SetColumn(i, column);
    }
#endif
}

int CFileAttributesView::SortArrowColumn(bool& bAscending) const {
#ifdef __WXMSW__
    bAscending = IsAscendingSortIndicator();
    return GetSortIndicator();
#else
    for (int i = 0; i < GetColumnCount(); ++i) {
        wxListItem column;
        column.SetMask(wxLIST_MASK_IMAGE);
        GetColumn(i, column);
        if (column.GetImage() == SortImage(true) || column.GetImage() == SortImage(false)) {
            bAscending = column.GetImage() == SortImage(true);
            return i;
        }
    }
    return -1;
#endif
}

void CFileAttributesView::OnColumnClick(wxListEvent& event) {
    CWZorvaneDoc& doc = m_frame.Document();
    if (doc.m_bScanning || event.GetColumn() < 0) return;
    const CSortCodes codes =
        SortForHeaderClick(m_columns.ColumnAt(static_cast<size_t>(event.GetColumn())),
                           {doc.m_options.m_nFileSort, doc.m_options.m_nDirSort});
    SetSort(codes.m_nFileSort, codes.m_nDirSort);
}

void CFileAttributesView::OnSelectionChanged(wxListEvent&) {
    // A range selection sends one event per row: the panes are summed once.
    if (m_bStatusPending) return;
    m_bStatusPending = true;
    CallAfter([this] {
        m_bStatusPending = false;
        UpdateStatusPanes();
    });
}

void CFileAttributesView::UpdateStatusPanes() {
    const CSelectionTexts texts = SelectionTexts(m_frame.Document(), m_pDir, SelectedRows());
    CMainFrame& frame = m_frame.MainFrame();
    frame.SetPane(PaneObjects, texts.m_strObjects);
    frame.SetPane(PaneSize, texts.m_strSize);
    frame.SetPane(PaneActual, texts.m_strActual);
}

void CFileAttributesView::OnActivated(wxListEvent& event) {
    if (m_frame.Document().m_bScanning) return;
    const CListRow row = RowAt(event.GetIndex());
    if (row.m_pDir)
        m_frame.Tree().SelectDirectory(row.m_pDir);
    else if (row.m_pFile)
        wxLaunchDefaultApplication(ToWx(row.m_pFile->GetFullPath()));
}

void CFileAttributesView::OpenSelected() {
    for (const CListRow& row : SelectedRows())
        if (row.m_pFile) wxLaunchDefaultApplication(ToWx(row.m_pFile->GetFullPath()));
}

void CFileAttributesView::SelectAll(bool bSelect, bool bInvert) {
    const long nCount = GetItemCount();
    Freeze();
    for (long i = 0; i < nCount; ++i) {
        const bool bSelected = GetItemState(i, wxLIST_STATE_SELECTED) != 0;
        const bool bWanted = bInvert ? !bSelected : bSelect;
        if (bWanted != bSelected)
            SetItemState(i, bWanted ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
    }
    Thaw();
    UpdateStatusPanes();
}

void CFileAttributesView::OnUpdate(int nHint) {
    switch (nHint) {
        case CmdSelectAll:
            SelectAll(true, false);
            break;
        case CmdUnselectAll:
            SelectAll(false, false);
            break;
        case CmdInvertSelection:
            SelectAll(false, true);
            break;
        case CmdSelectMatching:
            SelectMatching(*this);
            break;
        case CmdFind:
            FindInList(*this);
            break;
        case CmdCopy:
            CopySelectionToClipboard(*this);
            break;
        case CmdOpen:
            OpenSelected();
            break;
        case CmdNewFolder:
            NewFolder();
            break;
        case CmdRename: {
            const long nItem = GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
            EditLabel(nItem >= 0 ? nItem : GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED));
            break;
        }
        default:
            break;
    }
}

void CFileAttributesView::NewFolder() {
    if (!m_pDir) return;
    CDirectoryData* pFolder = CreateNewFolder(m_frame.Document(), *m_pDir);
    if (!pFolder) return;
    m_frame.Tree().OnDirectoryAdded(*m_pDir, *pFolder);
    ShowDirectory(m_pDir);
    for (size_t i = 0; i < m_pDir->m_aChildren.GetSize(); ++i) {
        if (m_pDir->m_aChildren[i] != pFolder) continue;
        const long nItem = static_cast<long>(i);
        SetItemState(nItem, wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED,
                     wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED);
        EnsureVisible(nItem);
        EditLabel(nItem);
        break;
    }
}

void CFileAttributesView::OnBeginLabelEdit(wxListEvent& event) {
    if (m_frame.Document().m_bScanning) event.Veto();
}

void CFileAttributesView::OnEndLabelEdit(wxListEvent& event) {
    if (event.IsEditCancelled()) return;
    const std::u16string strText = FromWx(event.GetLabel());
    const CListRow row = RowAt(event.GetIndex());
    bool bRenamed = false;
    if (row.m_pDir) {
        bRenamed = RenameDirectoryOnDisk(*row.m_pDir, strText);
        if (bRenamed) m_frame.Tree().OnDirectoryRenamed(*row.m_pDir);
    } else if (row.m_pFile) {
        bRenamed = RenameFileOnDisk(*row.m_pFile, strText);
    }
    // The row's text comes from the record, which has the new name now or
    // keeps the old one.
    event.Veto();
    if (bRenamed) RefreshItem(event.GetIndex());
}

void CFileAttributesView::OnContextMenu(wxContextMenuEvent&) {
    // Menu 150; the commands whose work is not in the program yet stand
    // there disabled.
    static const struct {
        int m_nId;
        const char* m_pszText;
    } aItems[] = {
        {CmdOpen, "Open"},
        {CmdNewFolder, "New Folder"},
        {CmdMoveTo, "Move To..."},
        {CmdCopyTo, "Copy To..."},
        {0, "SendTo"},
        {0, "SendTo MS-Explorer"},
        {0, "CMD Window Here"},
        {CmdCut, "Cut"},
        {CmdCopy, "Copy"},
        {CmdPaste, "Paste"},
        {CmdLink, "Link"},
        {CmdRename, "Rename"},
        {CmdMultiRename, "Multi Rename..."},
        {CmdMp3Rename, "MP3 Rename..."},
        {CmdBreakupStreams, "Breakup streamed file"},
        {CmdSaveStream, "Save stream to file"},
        {CmdDeleteRecycle, "Delete (to recycle bin)"},
        {CmdDeleteNoRecycle, "Delete (NO recycle bin)"},
        {0, "Remove from all lists"},
        {CmdCompareDirs, "Compare Directories"},
        {CmdCompareDirsSub, "Compare Directories (with subdirectories)"},
        {CmdChangeOwner, "Change owner..."},
        {CmdModifyDates, "Modify Dates..."},
        {CmdProperties, "Properties"},
        {CmdDiffBinary, "Diff"},
    };
    wxMenu menu;
    const CCommandState state = m_frame.CommandState();
    int nUnbuilt = MenuId(CmdLastOwn) + 1;
    for (const auto& item : aItems) {
        const int nId = item.m_nId ? MenuId(item.m_nId) : nUnbuilt++;
        menu.Append(nId, item.m_pszText);
        const CCommandEntry* pEntry = FindCommand(item.m_nId);
        menu.Enable(nId, pEntry && IsCommandEnabled(*pEntry, state));
    }
    menu.Bind(wxEVT_MENU, &CFileAttributesView::OnPopupCommand, this);
    PopupMenu(&menu);
}

void CFileAttributesView::OnPopupCommand(wxCommandEvent& event) {
    m_frame.OnCommand(CommandOfMenuId(event.GetId()));
}

}  // namespace zv
