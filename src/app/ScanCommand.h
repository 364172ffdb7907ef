#pragma once

#include "app/ScanOptions.h"

namespace zv {

// `zorvane-cli scan`, and `zorvane-cli SETTINGS_FILE`: loads the settings
// file if one is given, adds the roots and filters of the options, scans
// and prints a summary, as text or as one JSON object. Returns the process
// exit status (ExitStatus.h): 2 for a settings file that cannot be read, a
// root that is not a directory, or nothing to scan; 1 when a directory could
// not be read or the summary could not be written; 130 when stopped.
int RunScanCommand(const CScanCommandOptions& options);

}  // namespace zv
