// The largest owner and largest type tables: per owner and per file type,
// how many files and how many bytes. Filled during the scan when their
// flags are on, or on request after it.
#pragma once

#include "core/document/TotalTables.h"

namespace zv {

class CWZorvaneDoc;
class CFileData;

// Add one file to the owner table (looking its owner up through the owner
// caches once) or to the type table. Both tables are kept sorted by key,
// case-sensitively, while they are filled.
void AddOwnerTotals(CWZorvaneDoc& doc, CFileData& file);
void AddTypeTotals(CWZorvaneDoc& doc, CFileData& file);

// Sorts a table by one of the six codes of ETotalSort; equal keys keep
// their order.
void SortTotals(CTotalTable& aTable, int nSortCode);
// The type table's own final order: size descending, equal sizes by type
// descending. The view's sort column becomes size.
void SortTypeTable(CWZorvaneDoc& doc);

// "Display Largest Owner": an empty table is computed now, over every file
// of the scan, if the user agrees; false when refused. Then the table is
// sorted by size descending. A cancelled computation keeps what it added.
bool PrepareLargestOwner(CWZorvaneDoc& doc);
// "Display Largest Type": the same without the question.
void PrepareLargestType(CWZorvaneDoc& doc);

// A file leaves the model: its type loses it, and a type with no file left
// leaves the table; its owner loses it too, but stays at 0 files.
void SubtractTotals(CWZorvaneDoc& doc, CFileData& file);

}  // namespace zv
