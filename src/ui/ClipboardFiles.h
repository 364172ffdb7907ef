// Files on the clipboard as the shell's file list, for pasting in a file
// browser.
#pragma once

#include <string>
#include <vector>

namespace zv {

// Replaces the clipboard's content with the paths; an empty list leaves the
// clipboard alone and succeeds. A failure has been told to the user.
bool CopyFilesToClipboard(const std::vector<std::u16string>& aPaths);

}  // namespace zv
