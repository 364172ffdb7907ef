// zorvane-cli compare and compare-files: the directory compare of two
// scanned trees, and the compare of two files or their hand-over to a diff
// program. Exit status as diff and cmp have it: 0 all identical, 1
// something differs, 2 trouble.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zv {

struct CCompareOptions {
    std::string m_strSettingsFile;
    std::string m_strLeft, m_strRight;  // UTF-8, as given
    bool m_bSubdirs = false;
    std::vector<std::string> m_aShow;  // show words; all shown when empty
    std::string m_strFormat = "list";
    std::string m_strOutput;  // standard output when empty
    bool m_bAnsi = false;     // the report in UTF-8 whatever the settings say
};

struct CCompareFilesOptions {
    std::string m_strSettingsFile;
    std::string m_strFile1, m_strFile2;
    bool m_bLines = false;
    bool m_bBlanks = false;
    bool m_bBytes = false;
    bool m_bDiff = false;
};

int RunCompareCommand(const CCompareOptions& options);
int RunCompareFilesCommand(const CCompareFilesOptions& options);

// Both commands on a command-line parser, for the program's main.
class CCompareCommands {
public:
    explicit CCompareCommands(CLI::App& app);
    bool Parsed() const;
    int Run() const;

private:
    CCompareOptions m_compare;
    CCompareFilesOptions m_files;
    CLI::App* m_pCompare;
    CLI::App* m_pFiles;
};

}  // namespace zv
