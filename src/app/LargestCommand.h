// `zorvane-cli largest files|dirs|owners|types`: scans, keeping only the
// list or table asked for, and prints it largest first as the result report
// of its kind, or as JSON.
#pragma once

#include <optional>
#include <string>

#include "app/ScanOptions.h"

namespace CLI {
class App;
}

namespace zv {

struct CLargestCommandOptions {
    std::string m_strKind;        // files, dirs, owners or types
    std::optional<int> m_nCount;  // -1 no limit; the settings file's when not given
    // A result report form, or json.
    std::string m_strFormat = "text";
    std::string m_strOutput;  // -o FILE; standard output when empty
    bool m_bAnsi = false;
    CScanCommandOptions m_scan;
};

// Adds the `largest` command with its options to the program.
CLI::App* AddLargestCommand(CLI::App& app, CLargestCommandOptions& options);

// Exit status: 0, 1 when a directory could not be read or standard output
// could not be written, 2 for bad usage, 130 when interrupted.
int RunLargestCommand(const CLargestCommandOptions& options);

}  // namespace zv
