#include "app/ScanOptions.h"

#include <CLI/CLI.hpp>
#include <cmath>

#include "app/DateArgument.h"

namespace zv {

namespace {

// A byte count: a finite number, not negative ("nan", "inf" and "-5" are
// refused with the option's name).
const CLI::Validator kByteCount(
    [](std::string& strValue) -> std::string {
        double d = 0;
        if (!CLI::detail::lexical_cast(strValue, d) || !std::isfinite(d) || d < 0)
            return "not a number of bytes (0 or more): " + strValue;
        return std::string();
    },
    "");

// Options that fill the filter lists: repeatable, patterns with '*' and '?'
// compared without regard to case.
void AddFilterOptions(CLI::App& command, CScanCommandOptions& scan) {
    struct CListOption {
        const char* pszName;
        std::vector<std::string>& aValues;
        const char* pszType;
        const char* pszHelp;
    };
    const CListOption aListOptions[] = {
        {"--name", scan.m_aNames, "PATTERN", "Keep only files whose name matches PATTERN"},
        {"--exclude-name", scan.m_aExcludeNames, "PATTERN",
         "Leave out files whose name matches PATTERN"},
        {"--exclude-path", scan.m_aExcludePaths, "PATH", "Leave out the file with this full path"},
        {"--dir", scan.m_aDirs, "PATTERN",
         "Keep files only in directories whose own name matches PATTERN (others are still "
         "walked)"},
        {"--exclude-dir", scan.m_aExcludeDirs, "PATTERN",
         "Skip directories whose full path matches PATTERN, with all below them"},
        {"--owner", scan.m_aOwners, "PATTERN", "Keep only files whose owner matches PATTERN"},
        {"--exclude-owner", scan.m_aExcludeOwners, "PATTERN",
         "Leave out files whose owner matches PATTERN"},
    };
    for (const CListOption& option : aListOptions) {
        command.add_option(option.pszName, option.aValues, option.pszHelp)
            ->type_name(option.pszType)
            ->allow_extra_args(false);
    }
    command
        .add_option_function<double>(
            "--min-size", [&scan](double d) { scan.m_dMinSize = d; },
            "Keep only files of at least BYTES")
        ->type_name("BYTES")
        ->check(kByteCount);
    command
        .add_option_function<double>(
            "--max-size", [&scan](double d) { scan.m_dMaxSize = d; },
            "Keep only files of at most BYTES")
        ->type_name("BYTES")
        ->check(kByteCount);
    auto DateOption = [&command](const char* pszName, std::optional<FILETIME>& ftValue,
                                 const char* pszHelp) {
        command
            .add_option_function<std::string>(
                pszName,
                [&ftValue, pszName](const std::string& strText) {
                    FILETIME ft;
                    if (!ParseLocalDateArgument(strText, ft))
                        throw CLI::ValidationError(
                            pszName, "not a date (YYYY-MM-DD[THH:MM[:SS]]): " + strText);
                    ftValue = ft;
                },
                pszHelp)
            ->type_name("DATE");
    };
    DateOption("--modified-after", scan.m_ftModifiedAfter,
               "Keep only files modified at or after DATE (YYYY-MM-DD or YYYY-MM-DDTHH:MM[:SS], "
               "local time)");
    DateOption("--modified-before", scan.m_ftModifiedBefore,
               "Keep only files modified at or before DATE (same forms)");
}

}  // namespace

void AddScanOptions(CLI::App& command, CScanCommandOptions& options) {
    command.add_option("ROOT", options.m_aRoots,
                       "Directory to scan (one or more; added to those of --settings)");
    command
        .add_option("--settings", options.m_strSettingsFile,
                    "Load this settings file first: its directories, filters and options; "
                    "the other options then add to them or override them")
        ->type_name("FILE");
    command
        .add_option("--max-depth", options.m_nMaxDepth,
                    "Levels to read, roots being level 1; deeper directories are listed by "
                    "name only (-1: no limit)")
        ->check(CLI::Range(-1, 1 << 30));
    command.add_flag("--no-subdirs", options.m_bNoSubdirs, "List only the files of the roots");
    command
        .add_option("--threads", options.m_nThreads,
                    "Threads that read directories; 1 reads them one after another on the "
                    "scanning thread (default: a number that suits this machine)")
        ->check(CLI::Range(1, 64));
    AddFilterOptions(command, options);
}

}  // namespace zv
