// What OK and Cancel of a pattern list's dialog do to the list: entries are
// marked while the dialog is open and settled when it closes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/document/FilterSet.h"

namespace zv {

// The entries the dialog shows: those not marked removed, in order, as
// indexes into the list.
std::vector<size_t> ShownFilterEntries(const std::vector<CFilterEntry>& aList);
// OK: entries marked removed go, the others are no longer new.
void CommitFilterListEdit(std::vector<CFilterEntry>& aList);
// Cancel: entries added since the last OK go; removal marks stay.
void CancelFilterListEdit(std::vector<CFilterEntry>& aList);

// The pattern lists a plain list dialog edits, in the Filters menu's order;
// the duplicate lists read files and have their own dialogs.
bool IsPlainFilterList(EFilterList eList);

}  // namespace zv
