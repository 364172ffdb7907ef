// The selection's texts in the status bar panes 2 to 4.
#pragma once

#include <string>
#include <vector>

#include "ui/logic/FileListColumns.h"

namespace zv {

class CWZorvaneDoc;

struct CSelectionTexts {
    std::u16string m_strObjects;
    std::u16string m_strSize;
    std::u16string m_strActual;
};

// No directory: "0 object(s)" and empty sizes. With nothing selected the
// directory's count and its sizes with subdirectories; with a selection
// "%d object(s) selected" and the sums over it, a directory counting with
// its subdirectories.
CSelectionTexts SelectionTexts(const CWZorvaneDoc& doc, CDirectoryData* pDir,
                               const std::vector<CListRow>& aSelected);

}  // namespace zv
