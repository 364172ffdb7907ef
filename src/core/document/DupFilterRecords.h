// The records that stand beside the duplicate filters of the filter set: a
// file record per entry of the duplicate files list, and the scanned trees
// of the duplicate directories filter.
#pragma once

#include <string_view>

namespace zv {

struct CFilterSet;

// Measures the file and computes its checksum, then adds the entry with its
// record. A file that cannot be opened, measured or read says so through the
// host ("Cannot open file: ", "Cannot get size for file: ", "Cannot get CRC
// for file: " and the path) and is not added; false then.
bool AddDupFileFilter(CFilterSet& filters, std::u16string_view strPath);

// Scans a directory into a tree of the duplicate directories filter: each
// file with its name, size, times and attributes, and its subdirectories
// too when bWithSubdirs. The status line shows "Scanning Filter " + path.
void AddDupDirFilterTree(CFilterSet& filters, std::u16string_view strPath, bool bWithSubdirs);

}  // namespace zv
