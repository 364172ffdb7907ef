#include "ui/ErrorListDlg.h"

#include <wx/button.h>
#include <wx/listctrl.h>
#include <wx/sizer.h>

#include "core/host/ErrorList.h"
#include "ui/WxText.h"

namespace zv {

CErrorListDlg::CErrorListDlg(wxWindow* pParent, std::u16string_view strTitle,
                             const CErrorList& errors)
    : wxDialog(pParent, wxID_ANY, ToWx(strTitle), wxDefaultPosition, wxSize(640, 360),
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER) {
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    auto* pList = new wxListCtrl(this, wxID_ANY, wxDefaultPosition, wxSize(620, 280), wxLC_REPORT);
    pSizer->Add(pList, 1, wxEXPAND | wxALL, 6);
    pSizer->Add(new wxButton(this, wxID_OK, "OK"), 0, wxALIGN_CENTRE | wxALL, 6);
    SetSizer(pSizer);
    Layout();

    const int nWidth = pList->GetClientSize().x;
    const bool bFiles = errors.HasFiles();
    pList->Freeze();
    pList->InsertColumn(0, "Directory", wxLIST_FORMAT_LEFT, nWidth * 15 / 100);
    if (bFiles) pList->InsertColumn(1, "File", wxLIST_FORMAT_LEFT, nWidth * 15 / 100);
    pList->InsertColumn(bFiles ? 2 : 1, "Error", wxLIST_FORMAT_LEFT,
                        bFiles ? nWidth : nWidth * 85 / 100);
    for (size_t i = 0; i < errors.GetSize(); ++i) {
        const long nRow = pList->InsertItem(static_cast<long>(i), ToWx(errors.Directory(i)));
        if (bFiles) pList->SetItem(nRow, 1, ToWx(errors.File(i)));
        pList->SetItem(nRow, bFiles ? 2 : 1, ToWx(errors.Error(i)));
    }
    pList->Thaw();
}

}  // namespace zv
