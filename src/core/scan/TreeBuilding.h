#pragma once

namespace zv {

class CWZorvaneDoc;

// The part of building the directory tree after a scan that is not the tree
// control: with a filter active, totals are recomputed and every directory
// left without files is deleted with its subtree, then all arrays are
// compacted. False when the tree gets no item at all.
bool BuildTreeData(CWZorvaneDoc& doc);

}  // namespace zv
