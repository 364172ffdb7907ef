// The main document's child frame: a splitter with the directory tree on
// the left (a fifth of the width) and the file list on the right, the file
// list's view the frame's active one. It runs the document's commands,
// refusing them while a scan runs, and has the document forward the view
// commands to both views.
#pragma once

#include <wx/docmdi.h>

#include "core/scan/ScanHooks.h"
#include "ui/logic/CommandTable.h"

class wxSplitterWindow;

namespace zv {

class CMainFrame;
class CWZorvaneDoc;
class CTreeCtrlView;
class CFileAttributesView;
class CZorvaneDocument;
class CTreePaneView;
class CListPaneView;
class CMainPaneView;

// The scan steps of the desktop: the program's own steps, then the tree
// control is filled and the selection restored.
class CWindowScanSteps : public IScanSteps {
public:
    CWindowScanSteps(IScanSteps& program, CTreeCtrlView& tree);
    void CloseResultScreens() override { m_program.CloseResultScreens(); }
    void ClearTables() override { m_program.ClearTables(); }
    void SaveRemembered() override { m_program.SaveRemembered(); }
    // "Duplicate File Options", over the main window.
    bool ChooseDuplicateCriteria() override;
    void SortTypeTable() override { m_program.SortTypeTable(); }
    void ApplyCrcList() override { m_program.ApplyCrcList(); }
    void RunAutoPrint() override { m_program.RunAutoPrint(); }
    void ExitAfterPrinting() override { m_program.ExitAfterPrinting(); }
    void FindDuplicates() override { m_program.FindDuplicates(); }
    void BuildTree() override;
    void RestoreSelection() override;

private:
    IScanSteps& m_program;
    CTreeCtrlView& m_tree;
};

class CZorvaneFrame : public wxDocMDIChildFrame {
public:
    CZorvaneFrame(CZorvaneDocument& document, CTreePaneView& treeView, CListPaneView& listView,
                  CMainFrame* pParent, IScanSteps& programSteps);
    ~CZorvaneFrame() override;

    // The file list view's first update: a settings file from the command
    // line starts the first scan.
    void OnInitialUpdate();
    void OnCommand(int nId);
    CCommandState CommandState() const;

    void Rescan();
    void UpdateFreeSpace();

    CWZorvaneDoc& Document() const { return m_doc; }
    CTreeCtrlView& Tree() const { return *m_pTree; }
    CFileAttributesView& List() const { return *m_pList; }
    CMainFrame& MainFrame() const { return *m_pMainFrame; }
    // A view going before its frame does (or the other way round) leaves no
    // pointer behind.
    void DetachView(CMainPaneView& view);

private:
    void SelectRoots();
    void EditFilterList(int nList);
    void LoadSettingsCommand();
    void SaveSettingsCommand();
    void SetSizeUnit(int nUnit);

    CMainFrame* m_pMainFrame;
    CZorvaneDocument& m_document;
    CWZorvaneDoc& m_doc;
    IScanSteps& m_programSteps;
    CMainPaneView* m_pTreeView;
    CMainPaneView* m_pListView;
    wxSplitterWindow* m_pSplitter;
    CTreeCtrlView* m_pTree;
    CFileAttributesView* m_pList;
    bool m_bSashPlaced = false;
};

}  // namespace zv
