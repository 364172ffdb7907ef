// The order in which duplicate groups are first shown: each group sorted by
// the first key its criteria suggest, the groups by their first members,
// and the group numbers set from 0 in that order.
#pragma once

#include <vector>

#include "core/document/ResultLists.h"

namespace zv {

struct CDuplicateFileCriteria;
struct CDuplicateDirCriteria;

// Size descending when a content or size criterion is ticked, else name
// ascending; ties by full path.
void SortDuplicateGroups(std::vector<CDuplicateGroup>& aGroups,
                         const CDuplicateFileCriteria& criteria);

// Own size descending when CRC, CRC with subdirectories or Size is ticked;
// else name ascending with Name; else size with subdirectories, file count
// or file count with subdirectories, descending. Ties by full path.
void SortDuplicateDirGroups(std::vector<CDuplicateDirGroup>& aGroups,
                            const CDuplicateDirCriteria& criteria);

}  // namespace zv
