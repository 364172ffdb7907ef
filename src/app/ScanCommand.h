#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileTime.h"

namespace zv {

struct CScanCommandOptions {
    std::string m_strSettingsFile;      // UTF-8; loaded first when given
    std::vector<std::string> m_aRoots;  // UTF-8, as given; added to the settings file's
    std::optional<int> m_nMaxDepth;     // the settings file's, or -1, when not given
    bool m_bNoSubdirs = false;
    bool m_bJson = false;
    bool m_bList = false;

    // Filters, each list as given (UTF-8).
    std::vector<std::string> m_aNames, m_aExcludeNames, m_aExcludePaths;
    std::vector<std::string> m_aDirs, m_aExcludeDirs, m_aOwners, m_aExcludeOwners;
    std::optional<double> m_dMinSize, m_dMaxSize;
    std::optional<FILETIME> m_ftModifiedAfter, m_ftModifiedBefore;
};

// `zorvane-cli scan`, and `zorvane-cli SETTINGS_FILE`: loads the settings
// file if one is given, adds the roots and filters of the options, scans
// and prints a summary, as text or as one JSON object. Returns the process
// exit status: 2 for a settings file that cannot be read, a root that is not
// a directory, or nothing to scan.
int RunScanCommand(const CScanCommandOptions& options);

}  // namespace zv
