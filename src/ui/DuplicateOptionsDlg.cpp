#include "ui/DuplicateOptionsDlg.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/filedlg.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "analyses/DuplicateOptionChecks.h"
#include "core/host/Host.h"
#include "ui/WxText.h"

namespace zv {

namespace {

enum { IdBrowse = wxID_HIGHEST + 1 };

struct CDirBox {
    EDuplicateDirCriterion m_eCriterion;
    const char* m_pszText;
};

// In the order the frame shows them.
constexpr CDirBox kDirBoxes[] = {
    {DupDirBySize, "By Size  AND"},
    {DupDirBySizeWithSubdirs, "By Size with subdirectories  AND"},
    {DupDirByName, "By Name  AND"},
    {DupDirByCrc, "By CRC  AND"},
    {DupDirByCrcWithSubdirs, "By CRC with subdirectories  AND"},
    {DupDirByTotalFiles, "By Total files  AND"},
    {DupDirByTotalFilesWithSubdirs, "By Total files with subdirectories  AND"},
};

}  // namespace

CDuplicateOptionsDlg::CDuplicateOptionsDlg(wxWindow* pParent, CDocumentOptions& options,
                                           bool bFilesOnly)
    : wxDialog(pParent, wxID_ANY, bFilesOnly ? "Duplicate File Options" : "Duplicate Options"),
      m_options(options),
      m_bFilesOnly(bFilesOnly) {
    auto* pSizer = new wxBoxSizer(wxVERTICAL);
    auto* pFrames = new wxBoxSizer(wxHORIZONTAL);

    auto* pFiles = new wxStaticBoxSizer(wxVERTICAL, this, "Find Duplicate Files By");
    const CDuplicateFileCriteria& files = options.m_dupFiles;
    m_pBySize = AddBox(pFiles, "By Size  AND", files.m_bBySize);
    m_pByName = AddBox(pFiles, "By Name  AND", files.m_bByName);
    m_pByCrc = AddBox(pFiles, "By CRC  AND", files.m_bByCrc);
    m_pByCrcWithoutTags =
        AddBox(pFiles, "By CRC (Excluding MP3 tags)  AND", files.m_bByCrcWithoutTags);
    m_pByteByByte = AddBox(pFiles, "By comparing byte by byte  AND", files.m_bByteByByte);
    pFrames->Add(pFiles, 1, wxEXPAND | wxALL, 6);
    m_pByCrc->Bind(wxEVT_CHECKBOX, &CDuplicateOptionsDlg::OnCrcBox, this);
    m_pByCrcWithoutTags->Bind(wxEVT_CHECKBOX, &CDuplicateOptionsDlg::OnCrcBox, this);

    if (!bFilesOnly) {
        auto* pDirs = new wxStaticBoxSizer(wxVERTICAL, this, "Find Duplicate Directories By");
        for (const CDirBox& box : kDirBoxes)
            m_aDirBoxes[box.m_eCriterion] =
                AddBox(pDirs, box.m_pszText, options.m_dupDirs.m_aCriteria[box.m_eCriterion]);
        pFrames->Add(pDirs, 1, wxEXPAND | wxALL, 6);
    }
    pSizer->Add(pFrames, 0, wxEXPAND);
    pSizer->Add(new wxStaticText(this, wxID_ANY,
                                 "Comparing byte by byte is the most accurate (but slowest) "
                                 "method of finding duplicates"),
                0, wxLEFT | wxRIGHT, 12);
    pSizer->Add(new wxStaticText(this, wxID_ANY, "CRC is 99.9999999% accurate"), 0,
                wxLEFT | wxRIGHT | wxBOTTOM, 12);

    if (!bFilesOnly) {
        auto* pMore = new wxBoxSizer(wxVERTICAL);
        m_pShowColor = AddBox(pMore, "Show duplicates in color", options.m_bShowDupColor);
        m_pFilesAfterScan =
            AddBox(pMore, "Start searching for duplicate files after scanning directories",
                   options.m_bFindDupFilesAfterScan);
        m_pDirsAfterScan =
            AddBox(pMore, "Start searching for duplicate directories after scanning directories",
                   options.m_bFindDupDirsAfterScan);
        m_pOnlyDupFiles =
            AddBox(pMore, "Only show duplicate files in ALL screens", options.m_bOnlyDupFiles);
        m_pDisableSaver =
            AddBox(pMore, "Disable screen saver while finding duplicates", options.m_bDisableSaver);
        m_pPlaySound =
            AddBox(pMore, "Play the following sound file when finished finding duplicates",
                   options.m_bPlaySound);
        auto* pSound = new wxBoxSizer(wxHORIZONTAL);
        m_pSoundFile = new wxTextCtrl(this, wxID_ANY, ToWx(options.m_strSoundFile),
                                      wxDefaultPosition, wxSize(360, -1));
        pSound->Add(m_pSoundFile, 1, wxRIGHT, 6);
        pSound->Add(new wxButton(this, IdBrowse, "Browse"));
        pMore->Add(pSound, 0, wxEXPAND | wxLEFT, 20);
        pSizer->Add(pMore, 0, wxEXPAND | wxLEFT | wxRIGHT, 6);
        Bind(wxEVT_BUTTON, &CDuplicateOptionsDlg::OnBrowse, this, IdBrowse);
    }
    pSizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, 10);
    SetSizerAndFit(pSizer);
    CentreOnParent();
    Bind(wxEVT_BUTTON, &CDuplicateOptionsDlg::OnOk, this, wxID_OK);
}

wxCheckBox* CDuplicateOptionsDlg::AddBox(wxSizer* pSizer, const wxString& strText, int32_t bValue) {
    auto* pBox = new wxCheckBox(this, wxID_ANY, strText);
    pBox->SetValue(bValue != 0);
    pSizer->Add(pBox, 0, wxALL, 3);
    return pBox;
}

void CDuplicateOptionsDlg::OnCrcBox(wxCommandEvent& event) {
    // A checksum with the tags and one without exclude each other.
    if (!event.IsChecked()) return;
    (event.GetEventObject() == m_pByCrc ? m_pByCrcWithoutTags : m_pByCrc)->SetValue(false);
}

void CDuplicateOptionsDlg::OnBrowse(wxCommandEvent&) {
    wxFileDialog dialog(this, "Sound file", "", m_pSoundFile->GetValue(),
                        "Sound files (*.wav)|*.wav|All files|*", wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK) m_pSoundFile->ChangeValue(dialog.GetPath());
}

CDocumentOptions CDuplicateOptionsDlg::Edited() const {
    CDocumentOptions options = m_options;
    CDuplicateFileCriteria& files = options.m_dupFiles;
    files.m_bBySize = m_pBySize->GetValue();
    files.m_bByName = m_pByName->GetValue();
    files.m_bByCrc = m_pByCrc->GetValue();
    files.m_bByCrcWithoutTags = m_pByCrcWithoutTags->GetValue();
    files.m_bByteByByte = m_pByteByByte->GetValue();
    if (m_bFilesOnly) return options;
    for (int i = 0; i < DupDirCriterionCount; ++i)
        options.m_dupDirs.m_aCriteria[i] = m_aDirBoxes[static_cast<size_t>(i)]->GetValue();
    options.m_bShowDupColor = m_pShowColor->GetValue();
    options.m_bFindDupFilesAfterScan = m_pFilesAfterScan->GetValue();
    options.m_bFindDupDirsAfterScan = m_pDirsAfterScan->GetValue();
    options.m_bOnlyDupFiles = m_pOnlyDupFiles->GetValue();
    options.m_bDisableSaver = m_pDisableSaver->GetValue();
    options.m_bPlaySound = m_pPlaySound->GetValue();
    options.m_strSoundFile = FromWx(m_pSoundFile->GetValue().Strip(wxString::both));
    return options;
}

void CDuplicateOptionsDlg::OnOk(wxCommandEvent&) {
    const CDocumentOptions options = Edited();
    const std::u16string strRefusal =
        m_bFilesOnly
            ? CheckDuplicateFileOptions(options.m_dupFiles, options.m_bFindDupFilesAfterScan != 0)
            : CheckDuplicateOptions(options);
    if (!strRefusal.empty()) {
        Host().ShowMessage(strRefusal);
        return;
    }
    m_options = options;
    EndModal(wxID_OK);
}

}  // namespace zv
