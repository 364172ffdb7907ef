// The order in which tree reports visit directories: a directory, sorted
// into the document's order, before its subdirectories, which follow in
// that order. The walk keeps its own stack, so a deep tree does not deepen
// the call stack, and ends early when the user asks the report to stop.
#pragma once

#include <functional>

namespace zv {

class CDirectoryData;
class CReportContext;

void WalkTree(CReportContext& ctx, CDirectoryData& root,
              const std::function<void(CDirectoryData&)>& writeBlock);

// One progress step for each file of a directory that writes no rows.
void StepOverFiles(const CDirectoryData& dir);

}  // namespace zv
