// `zorvane-cli report`: scans, then writes the main report (all
// directories, or the current directory with or without its
// subdirectories) as text, CSV, HTML or XML, to a file or standard output.
#pragma once

#include <string>

#include "app/ScanOptions.h"

namespace CLI {
class App;
}

namespace zv {

struct CReportCommandOptions {
    CScanCommandOptions m_scan;
    std::string m_strFormat = "text";
    std::string m_strOutput;   // UTF-8; standard output when empty
    std::string m_strCurrent;  // UTF-8; the current directory, when given
    bool m_bWithSubdirs = false;
    bool m_bFullPath = false;
    bool m_bAnsi = false;
};

// Adds the command and its options to the program.
CLI::App* AddReportCommand(CLI::App& app, CReportCommandOptions& options);
// 0 when written, 1 when the output cannot be opened or written, 2 for bad
// usage, 130 when interrupted.
int RunReportCommand(const CReportCommandOptions& options);

}  // namespace zv
