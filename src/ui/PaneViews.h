// The main document's two views, one per pane of its frame's splitter: the
// directory tree and the file list. The panes' controls do the work; these
// connect them with the document's hints and the toolbar.
#pragma once

#include "ui/DocView.h"

namespace zv {

class CZorvaneFrame;

class CMainPaneView : public CDocView {
public:
    ~CMainPaneView() override;
    // The frame that holds the pane; set once the frame has its controls,
    // cleared when it goes.
    void Attach(CZorvaneFrame* pFrame) { m_pFrame = pFrame; }
    std::span<const int> ToolbarCommands() const override;

protected:
    CZorvaneFrame* m_pFrame = nullptr;
};

class CTreePaneView : public CMainPaneView {
public:
    void OnCommandHint(int nCommand) override;
};

// The frame's active view: its first update starts the scan a settings
// file on the command line asks for.
class CListPaneView : public CMainPaneView {
public:
    void OnInitialUpdate() override;
    void OnCommandHint(int nCommand) override;
};

}  // namespace zv
