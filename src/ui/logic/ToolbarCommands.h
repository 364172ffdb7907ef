// The commands of the standard toolbar, per view: each view loads its own
// list into the bar when it is activated.
#pragma once

#include <span>

namespace zv {

// The main document's views (the tree and the file list), in button order:
// select starting directory, save, rescan, display parent, open all
// folders, close all folders, find, print, delete, compute CRC, view owner,
// view version, stop.
std::span<const int> MainViewToolbarCommands();

}  // namespace zv
