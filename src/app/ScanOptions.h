// The options every scanning command takes: the roots, a settings file, the
// depth and the filters. `scan`, and the commands that scan before they
// report or search, share them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileTime.h"

namespace CLI {
class App;
}

namespace zv {

struct CScanCommandOptions {
    std::string m_strSettingsFile;      // UTF-8; loaded first when given
    std::vector<std::string> m_aRoots;  // UTF-8, as given; added to the settings file's
    std::optional<int> m_nMaxDepth;     // the settings file's, or -1, when not given
    bool m_bNoSubdirs = false;
    std::optional<int> m_nThreads;  // the scanner's default when not given
    bool m_bJson = false;
    bool m_bList = false;
    bool m_bNullEnds = false;  // listed paths end with NUL
    // The run stands for the desktop program (a settings file given as the
    // program's argument): its roots and filters are remembered.
    bool m_bRemember = false;

    // Filters, each list as given (UTF-8).
    std::vector<std::string> m_aNames, m_aExcludeNames, m_aExcludePaths;
    std::vector<std::string> m_aDirs, m_aExcludeDirs, m_aOwners, m_aExcludeOwners;
    std::optional<double> m_dMinSize, m_dMaxSize;
    std::optional<FILETIME> m_ftModifiedAfter, m_ftModifiedBefore;
};

// Adds ROOT..., --settings, --max-depth, --no-subdirs, --threads and the filter
// options.
void AddScanOptions(CLI::App& command, CScanCommandOptions& options);

}  // namespace zv
