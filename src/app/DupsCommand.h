// zorvane-cli dups and dupdirs: scan, search for duplicate files or
// directories, and print the groups in their sorted order.
#pragma once

#include <string>
#include <vector>

#include "app/ScanOptions.h"

namespace CLI {
class App;
}

namespace zv {

struct CDupsOptions {
    CScanCommandOptions m_scan;
    std::vector<std::string> m_aBy;  // criteria words; empty: the settings file's
    bool m_bDirectories = false;
    // Empty: the plain group listing; text, csv, html or xml: the report.
    std::string m_strFormat;
    std::string m_strOutput;  // -o FILE; standard output when empty
    bool m_bAnsi = false;
};

// Registers both commands on the program's parser.
class CDupsCommands {
public:
    explicit CDupsCommands(CLI::App& app);
    bool Parsed() const;
    // Exit status: 0 all read, 1 something unreadable or output failed,
    // 2 bad usage, 130 interrupted.
    int Run();

private:
    CDupsOptions m_files, m_dirs;
    CLI::App* m_pFiles;
    CLI::App* m_pDirs;
};

// The command itself, for the parsed options.
int RunDupsCommand(CDupsOptions& options);

}  // namespace zv
