// What the dialogs of the two duplicate filters do to the filter set,
// without windows. Unlike the plain pattern lists, each entry has a record
// beside it: a file record for the duplicate files list, a scanned tree for
// the duplicate directories list. An entry's record is made when the entry
// is added and goes when the entry goes (removed and OK, or added and
// Cancel).
#pragma once

#include <string>
#include <string_view>

#include "core/document/FilterSet.h"

namespace zv {

// A duplicate directories entry: the path, with a "*" in front when the
// directory's subdirectories count too.
std::u16string DupDirEntryText(std::u16string_view strPath, bool bWithSubdirs);
// The path of an entry, and whether it has the "*".
std::u16string_view DupDirEntryPath(std::u16string_view strEntry, bool& bWithSubdirs);

// The tree an entry of the duplicate directories list stands for: the last
// tree of the entry's path that has subdirectories when the entry has the
// "*" and none when it has not; failing that, the last tree of the path.
// (Trees a settings file loaded stand in the forest without an entry; where
// one of them is taken, it holds the same files.) -1 when there is none.
ptrdiff_t FindDupDirTree(const CFilterSet& filters, std::u16string_view strEntry);

// Add in the duplicate files filter's dialog: the text without blanks at
// either end; an empty text does nothing. A text already in the list is
// refused with the message; otherwise the file is measured and its
// checksum read (a file that cannot be says so through the host). True
// when the entry was added.
bool AddDupFilesEntry(CFilterSet& filters, std::u16string_view strText);
// Add in the duplicate directories filter's dialog: the text without blanks
// at either end and without a trailing separator, a "*" in front with
// bWithSubdirs. A refused text says so; otherwise the directory is scanned
// into the filter's forest at once.
bool AddDupDirsEntry(CFilterSet& filters, std::u16string_view strText, bool bWithSubdirs);

// OK and Cancel of either dialog (eList is FilterDupFiles or FilterDupDirs):
// the list is settled as a plain list's is, and the records of the entries
// that leave it are deleted.
void CommitDupFilterEdit(CFilterSet& filters, EFilterList eList);
void CancelDupFilterEdit(CFilterSet& filters, EFilterList eList);

}  // namespace zv
