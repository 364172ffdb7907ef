#pragma once

#include <string>
#include <vector>

namespace zv {

struct CScanCommandOptions {
    std::vector<std::string> m_aRoots;  // UTF-8, as given
    int m_nMaxDepth = -1;
    bool m_bNoSubdirs = false;
    bool m_bJson = false;
};

// `zorvane-cli scan`: scans the roots and prints a summary, as text or as
// one JSON object. Returns the process exit status.
int RunScanCommand(const CScanCommandOptions& options);

}  // namespace zv
