#include "ui/PaneViews.h"

#include "ui/FileAttributesView.h"
#include "ui/TreeCtrlView.h"
#include "ui/ZorvaneFrame.h"
#include "ui/logic/ToolbarCommands.h"

namespace zv {

CMainPaneView::~CMainPaneView() {
    if (m_pFrame) m_pFrame->DetachView(*this);
}

std::span<const int> CMainPaneView::ToolbarCommands() const { return MainViewToolbarCommands(); }

void CTreePaneView::OnCommandHint(int nCommand) {
    if (m_pFrame) m_pFrame->Tree().OnUpdate(nCommand);
}

void CListPaneView::OnInitialUpdate() {
    if (m_pFrame) m_pFrame->OnInitialUpdate();
}

void CListPaneView::OnCommandHint(int nCommand) {
    if (m_pFrame) m_pFrame->List().OnUpdate(nCommand);
}

}  // namespace zv
