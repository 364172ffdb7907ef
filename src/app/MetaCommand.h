// zorvane-cli meta: the metadata values of files on standard output.
#pragma once

#include <string>
#include <vector>

namespace zv {

// For each file its version values, then those of the reader its name
// chooses, as "label: value" lines with a blank line between files; with
// bJson an array of {"path", "fields"} objects. Returns 0, or 1 when a file
// could not be opened (each is named on standard error).
// The paths come as UTF-8, as the command line gives them.
int RunMetaCommand(const std::vector<std::string>& aUtf8Paths, bool bJson);

}  // namespace zv
