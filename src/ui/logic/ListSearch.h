// Which rows of the file list Select Matching and Find pick, and what the
// clipboard and a drag take from the selection.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/logic/FileListColumns.h"

namespace zv {

// The rows whose name matches the pattern, without regard to case; an
// empty pattern matches nothing.
std::vector<size_t> MatchingRows(CDirectoryData* pDir, std::u16string_view strPattern);

enum EFindWhat { FindAFile, FindADirectory };
enum EFindFrom { FindNext, FindPrev, FindFromBeginning, FindFromEnd };

struct CFindRequest {
    EFindWhat m_eWhat = FindAFile;
    std::u16string m_strText;
    bool m_bCaseSensitive = false;
};

// The message for a request that cannot run, or an empty text.
std::u16string_view FindRequestProblem(const CFindRequest& request);
// The first row that holds the text, going forward from after nCurrent or
// backward from before it, or from the first or the last row; -1 when none
// does. A file is searched by its name, a directory by its full path; the
// other kind of row is passed over.
long FindRow(CDirectoryData* pDir, const CFindRequest& request, EFindFrom eFrom, long nCurrent);

// The full paths of the rows, in their order: what Copy puts on the
// clipboard and what a drag carries.
std::vector<std::u16string> FullPathsOf(const std::vector<CListRow>& aRows);

}  // namespace zv
