#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileTime.h"

namespace zv {

struct CScanCommandOptions {
    std::vector<std::string> m_aRoots;  // UTF-8, as given
    int m_nMaxDepth = -1;
    bool m_bNoSubdirs = false;
    bool m_bJson = false;
    bool m_bList = false;

    // Filters, each list as given (UTF-8).
    std::vector<std::string> m_aNames, m_aExcludeNames, m_aExcludePaths;
    std::vector<std::string> m_aDirs, m_aExcludeDirs, m_aOwners, m_aExcludeOwners;
    std::optional<double> m_dMinSize, m_dMaxSize;
    std::optional<FILETIME> m_ftModifiedAfter, m_ftModifiedBefore;
};

// `zorvane-cli scan`: scans the roots and prints a summary, as text or as
// one JSON object. Returns the process exit status.
int RunScanCommand(const CScanCommandOptions& options);

}  // namespace zv
