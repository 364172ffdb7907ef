// The file list's commands on its selection beyond selecting all or none:
// Select Matching, Find, Copy to the clipboard, and dragging the selected
// files to other programs.
#pragma once

namespace zv {

class CFileAttributesView;

void SelectMatching(CFileAttributesView& list);
void FindInList(CFileAttributesView& list);
void CopySelectionToClipboard(CFileAttributesView& list);
void DragSelection(CFileAttributesView& list);

}  // namespace zv
