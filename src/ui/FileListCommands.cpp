#include "ui/FileListCommands.h"

#include <wx/dataobj.h>
#include <wx/dnd.h>
#include <wx/textdlg.h>

#include <memory>

#include "core/host/Host.h"
#include "ui/ClipboardFiles.h"
#include "ui/FileAttributesView.h"
#include "ui/FindDlg.h"
#include "ui/WxText.h"
#include "ui/logic/ListSearch.h"

namespace zv {
namespace {

std::unique_ptr<wxFileDataObject> FilesOfSelection(const CFileAttributesView& list) {
    auto pData = std::make_unique<wxFileDataObject>();
    for (const std::u16string& strPath : FullPathsOf(list.SelectedRows()))
        pData->AddFile(ToWx(strPath));
    return pData;
}

void SelectOnly(CFileAttributesView& list, long nRow) {
    list.Freeze();
    for (long nItem = list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED); nItem >= 0;
         nItem = list.GetNextItem(nItem, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED))
        list.SetItemState(nItem, 0, wxLIST_STATE_SELECTED);
    list.SetItemState(nRow, wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED,
                      wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED);
    list.Thaw();
    list.EnsureVisible(nRow);
    list.UpdateStatusPanes();
}

}  // namespace

void SelectMatching(CFileAttributesView& list) {
    wxTextEntryDialog dialog(&list, "Enter a string",
                             "All matching files/directories will be selected");
    if (dialog.ShowModal() != wxID_OK) return;
    const std::u16string strPattern = FromWx(dialog.GetValue());
    if (strPattern.empty()) return;
    list.Freeze();
    for (size_t nRow : MatchingRows(list.CurrentDirectory(), strPattern))
        list.SetItemState(static_cast<long>(nRow), wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    list.Thaw();
    list.UpdateStatusPanes();
}

void FindInList(CFileAttributesView& list) {
    // The last search is offered again, as long as the program runs.
    static CFindRequest lastRequest;
    CFindDlg dialog(&list, lastRequest, [&list](const CFindRequest& request, EFindFrom eFrom) {
        long nCurrent = list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
        if (nCurrent < 0) nCurrent = list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED);
        const long nRow = FindRow(list.CurrentDirectory(), request, eFrom, nCurrent);
        if (nRow < 0) return false;
        SelectOnly(list, nRow);
        return true;
    });
    dialog.ShowModal();
    lastRequest = dialog.Request();
}

void CopySelectionToClipboard(CFileAttributesView& list) {
    if (list.GetSelectedItemCount() == 0) {
        Host().ShowMessage(u"No files selected");
        return;
    }
    CopyFilesToClipboard(FullPathsOf(list.SelectedRows()));
}

void DragSelection(CFileAttributesView& list) {
    if (list.GetSelectedItemCount() == 0) return;
    const std::unique_ptr<wxFileDataObject> pData = FilesOfSelection(list);
    wxDropSource source(*pData, &list);
    source.DoDragDrop(wxDrag_CopyOnly);
}

}  // namespace zv
