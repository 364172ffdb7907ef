#include "ui/TreeCtrlView.h"

#include <wx/menu.h>
#include <wx/utils.h>

#include "core/document/Document.h"
#include "core/document/SortCodes.h"
#include "core/records/DirectoryData.h"
#include "fileops/RenameOnDisk.h"
#include "ui/Art.h"
#include "ui/ClipboardFiles.h"
#include "ui/FileAttributesView.h"
#include "ui/MainFrame.h"
#include "ui/WxText.h"
#include "ui/ZorvaneFrame.h"
#include "ui/logic/CommandTable.h"

namespace zv {

namespace {

struct CDirItemData : wxTreeItemData {
    explicit CDirItemData(CDirectoryData* pDir) : m_pDir(pDir) {}
    CDirectoryData* m_pDir;
};

}  // namespace

CTreeCtrlView::CTreeCtrlView(wxWindow* pParent, CZorvaneFrame& frame)
    : wxTreeCtrl(
          pParent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
          wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_HIDE_ROOT | wxTR_SINGLE | wxTR_EDIT_LABELS),
      m_frame(frame) {
    AssignImageList(CreateFolderImages());
    m_top = AddRoot("");
    Bind(wxEVT_TREE_ITEM_EXPANDING, &CTreeCtrlView::OnExpanding, this);
    Bind(wxEVT_TREE_SEL_CHANGED, &CTreeCtrlView::OnSelectionChanged, this);
    Bind(wxEVT_TREE_BEGIN_LABEL_EDIT, &CTreeCtrlView::OnBeginLabelEdit, this);
    Bind(wxEVT_TREE_END_LABEL_EDIT, &CTreeCtrlView::OnEndLabelEdit, this);
    Bind(wxEVT_TREE_ITEM_MENU, &CTreeCtrlView::OnItemMenu, this);
}

CTreeCtrlView::~CTreeCtrlView() = default;

CDirectoryData* CTreeCtrlView::DirectoryOf(const wxTreeItemId& item) const {
    if (!item.IsOk()) return nullptr;
    auto* pData = static_cast<CDirItemData*>(GetItemData(item));
    return pData ? pData->m_pDir : nullptr;
}

bool CTreeCtrlView::HasItems() const { return GetChildrenCount(m_top, false) > 0; }

void CTreeCtrlView::Clear() {
    m_bBuilding = true;
    DeleteChildren(m_top);
    m_bBuilding = false;
}

wxTreeItemId CTreeCtrlView::AddItem(const wxTreeItemId& parent, CDirectoryData& dir) {
    const wxString strText = ToWx(dir.IsRoot() ? dir.GetFullPath() : dir.m_strName.Str());
    const wxTreeItemId item = AppendItem(parent, strText, -1, -1, new CDirItemData(&dir));
    const int nClosed = FolderImageIndex(dir.m_uAttributes, dir.m_uFlags, false);
    const int nOpen = FolderImageIndex(dir.m_uAttributes, dir.m_uFlags, true);
    SetItemImage(item, nClosed, wxTreeItemIcon_Normal);
    SetItemImage(item, nOpen, wxTreeItemIcon_Expanded);
    SetItemImage(item, nOpen, wxTreeItemIcon_Selected);
    SetItemImage(item, nOpen, wxTreeItemIcon_SelectedExpanded);
    SetItemHasChildren(item, !dir.m_aChildren.IsEmpty());
    dir.m_hTreeItem = item.GetID();
    return item;
}

void CTreeCtrlView::FillTree() {
    CWZorvaneDoc& doc = m_frame.Document();
    m_bBuilding = true;
    Freeze();
    DeleteChildren(m_top);
    for (CDirectoryData* pDir : doc.m_scan.m_aAllDirs) pDir->m_hTreeItem = nullptr;
    for (CRootDirectoryData* pRoot : doc.m_scan.m_aRoots) Expand(AddItem(m_top, *pRoot));
    Thaw();
    m_bBuilding = false;
}

void CTreeCtrlView::AddChildren(const wxTreeItemId& item) {
    CDirectoryData* pDir = DirectoryOf(item);
    if (!pDir || GetChildrenCount(item, false) > 0) return;
    zv::SortChildren(*pDir, m_frame.Document().m_options.m_nDirSort);
    for (CDirectoryData* pChild : pDir->m_aChildren) AddItem(item, *pChild);
}

void CTreeCtrlView::OnExpanding(wxTreeEvent& event) { AddChildren(event.GetItem()); }

wxTreeItemId CTreeCtrlView::EnsureItem(CDirectoryData* pDir) {
    if (!pDir) return {};
    if (pDir->m_hTreeItem) return wxTreeItemId(pDir->m_hTreeItem);
    const wxTreeItemId parent = EnsureItem(pDir->m_pParent);
    if (!parent.IsOk()) return {};
    AddChildren(parent);
    return pDir->m_hTreeItem ? wxTreeItemId(pDir->m_hTreeItem) : wxTreeItemId();
}

bool CTreeCtrlView::SelectDirectory(CDirectoryData* pDir) {
    const wxTreeItemId item = EnsureItem(pDir);
    if (!item.IsOk()) return false;
    EnsureVisible(item);
    SelectItem(item);
    return true;
}

void CTreeCtrlView::RestoreSelection() {
    CWZorvaneDoc& doc = m_frame.Document();
    CDirectoryData* pFound = nullptr;
    if (!doc.m_strCurrentDir.empty()) {
        for (CDirectoryData* pDir : doc.m_scan.m_aAllDirs) {
            if (pDir->GetFullPath() == doc.m_strCurrentDir) {
                pFound = pDir;
                break;
            }
        }
    }
    if (!pFound && !doc.m_scan.m_aRoots.IsEmpty()) pFound = doc.m_scan.m_aRoots[0];
    if (!pFound) return;
    SelectDirectory(pFound);
    // The selection event does not come when the item was selected already.
    if (m_frame.List().CurrentDirectory() != pFound) m_frame.List().ShowDirectory(pFound);
}

void CTreeCtrlView::OnDirectoryAdded(CDirectoryData& parent, CDirectoryData& child) {
    if (!parent.m_hTreeItem) return;
    const wxTreeItemId item(parent.m_hTreeItem);
    // Children not shown yet come with the others when the item opens.
    if (GetChildrenCount(item, false) > 0)
        AddItem(item, child);
    else
        SetItemHasChildren(item, true);
}

void CTreeCtrlView::OnDirectoryRenamed(CDirectoryData& dir) {
    if (dir.m_hTreeItem)
        SetItemText(wxTreeItemId(dir.m_hTreeItem),
                    ToWx(dir.IsRoot() ? dir.GetFullPath() : dir.m_strName.Str()));
}

void CTreeCtrlView::OnSelectionChanged(wxTreeEvent& event) {
    if (m_bBuilding) return;
    CDirectoryData* pDir = DirectoryOf(event.GetItem());
    if (!pDir) return;
    m_frame.List().ShowDirectory(pDir);
}

void CTreeCtrlView::OnBeginLabelEdit(wxTreeEvent& event) {
    if (m_frame.Document().m_bScanning) event.Veto();
}

void CTreeCtrlView::OnEndLabelEdit(wxTreeEvent& event) {
    CDirectoryData* pDir = DirectoryOf(event.GetItem());
    if (event.IsEditCancelled() || !pDir) return;
    // The item's text is set from the record, renamed or not.
    event.Veto();
    const std::u16string strText = FromWx(event.GetLabel());
    const std::u16string strOld = pDir->IsRoot() ? pDir->GetFullPath() : pDir->m_strName.Str();
    if (strText.empty() || strText == strOld) return;
    if (!RenameDirectoryOnDisk(*pDir, strText)) return;
    OnDirectoryRenamed(*pDir);
    CFileAttributesView& list = m_frame.List();
    if (list.CurrentDirectory()) list.Refresh();
}

void CTreeCtrlView::OnItemMenu(wxTreeEvent& event) {
    // The tree's popup on the selected directory; what the program cannot
    // do yet stands there disabled.
    const wxTreeItemId item = event.GetItem();
    const bool bUsable = item.IsOk() && DirectoryOf(item) && !m_frame.Document().m_bScanning;
    enum { IdUnbuilt, IdRename, IdCopy };
    static const struct {
        int m_nId;
        const char* m_pszText;
    } aItems[] = {
        {IdUnbuilt, "Properties"},
        {IdRename, "Rename"},
        {IdUnbuilt, "Send to MS Explorer"},
        {IdUnbuilt, "CMD window here"},
        {IdUnbuilt, "Delete (to recycle bin)"},
        {IdUnbuilt, "Delete (NO recycle bin)"},
        {IdUnbuilt, "Cut"},
        {IdCopy, "Copy"},
        {IdUnbuilt, "Paste"},
        {IdUnbuilt, "Move To..."},
        {IdUnbuilt, "Copy To..."},
    };
    wxMenu menu;
    int nUnbuilt = 100;
    for (const auto& entry : aItems) {
        const int nId = entry.m_nId == IdUnbuilt ? nUnbuilt++ : entry.m_nId;
        menu.Append(nId, entry.m_pszText);
        menu.Enable(nId, entry.m_nId != IdUnbuilt && bUsable);
    }
    switch (GetPopupMenuSelectionFromUser(menu)) {
        case IdRename:
            EditLabel(item);
            break;
        case IdCopy:
            CopyFilesToClipboard({DirectoryOf(item)->GetFullPath()});
            break;
        default:
            break;
    }
}

void CTreeCtrlView::OnUpdate(int nHint) {
    switch (nHint) {
        case CmdOpenAllFolders:
        case CmdCloseAllFolders: {
            wxBusyCursor wait;
            Freeze();
            wxTreeItemIdValue cookie;
            for (wxTreeItemId item = GetFirstChild(m_top, cookie); item.IsOk();
                 item = GetNextChild(m_top, cookie)) {
                if (nHint == CmdOpenAllFolders)
                    ExpandAllChildren(item);
                else
                    CollapseAllChildren(item);
            }
            Thaw();
            break;
        }
        case CmdDisplayParent: {
            const wxTreeItemId item = GetSelection();
            CDirectoryData* pDir = DirectoryOf(item);
            if (pDir) SelectDirectory(pDir->m_pParent ? pDir->m_pParent : pDir);
            break;
        }
        case CmdShowDirectory:
            break;
        default:
            break;
    }
}

}  // namespace zv
