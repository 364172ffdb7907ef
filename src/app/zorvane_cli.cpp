// zorvane-cli: the headless front end of Zorvane.
#include <CLI/CLI.hpp>
#include <cstdio>

#include "Version.h"
#include "app/DateArgument.h"
#include "app/ScanCommand.h"
#include "platform/Console.h"

namespace {

constexpr int kUsageError = 2;

// Options that fill the filter lists: repeatable, patterns with '*' and '?'
// compared without regard to case.
void AddFilterOptions(CLI::App& command, zv::CScanCommandOptions& scan) {
    command.add_option("--name", scan.m_aNames, "Keep only files whose name matches PATTERN")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command
        .add_option("--exclude-name", scan.m_aExcludeNames,
                    "Leave out files whose name matches PATTERN")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command
        .add_option("--exclude-path", scan.m_aExcludePaths,
                    "Leave out the file with this full path")
        ->type_name("PATH")
        ->allow_extra_args(false);
    command
        .add_option("--dir", scan.m_aDirs,
                    "Keep files only in directories whose own name matches PATTERN "
                    "(others are still walked)")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command
        .add_option("--exclude-dir", scan.m_aExcludeDirs,
                    "Skip directories whose full path matches PATTERN, with all below them")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command.add_option("--owner", scan.m_aOwners, "Keep only files whose owner matches PATTERN")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command
        .add_option("--exclude-owner", scan.m_aExcludeOwners,
                    "Leave out files whose owner matches PATTERN")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command
        .add_option_function<double>(
            "--min-size", [&scan](double d) { scan.m_dMinSize = d; },
            "Keep only files of at least BYTES")
        ->type_name("BYTES")
        ->check(CLI::NonNegativeNumber);
    command
        .add_option_function<double>(
            "--max-size", [&scan](double d) { scan.m_dMaxSize = d; },
            "Keep only files of at most BYTES")
        ->type_name("BYTES")
        ->check(CLI::NonNegativeNumber);
    auto DateOption = [&command](const char* pszName, std::optional<zv::FILETIME>& ftValue,
                                 const char* pszHelp) {
        command
            .add_option_function<std::string>(
                pszName,
                [&ftValue, pszName](const std::string& strText) {
                    zv::FILETIME ft;
                    if (!zv::ParseLocalDateArgument(strText, ft))
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

int main(int argc, char** argv) {
    CLI::App app{"Zorvane scans directory trees and reports on what it finds.", "zorvane-cli"};
    app.set_version_flag("--version", std::string("zorvane-cli ") + ZORVANE_VERSION);
    app.require_subcommand(1);

    zv::CScanCommandOptions scan;
    CLI::App* pScan =
        app.add_subcommand("scan", "Scan directory trees and print a summary of what they hold.");
    pScan->add_option("ROOT", scan.m_aRoots, "Directory to scan (one or more)")->required();
    pScan
        ->add_option("--max-depth", scan.m_nMaxDepth,
                     "Levels to read, roots being level 1; deeper directories are listed by "
                     "name only (-1: no limit)")
        ->check(CLI::Range(-1, 1 << 30));
    pScan->add_flag("--no-subdirs", scan.m_bNoSubdirs, "List only the files of the roots");
    pScan->add_flag("--json", scan.m_bJson, "Print the summary as one JSON object");
    pScan->add_flag("--list", scan.m_bList,
                    "After the summary, print the full path of every file kept, one per line "
                    "(in JSON: the array files_list)");
    AddFilterOptions(*pScan, scan);

    // Arguments as UTF-8 on every platform, so names beyond ASCII survive.
    const std::vector<std::string> aArgs = zv::platform::GetUtf8Arguments(argc, argv);
    std::vector<const char*> aArgv;
    for (const std::string& strArg : aArgs) aArgv.push_back(strArg.c_str());
    try {
        app.parse(static_cast<int>(aArgv.size()), aArgv.data());
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForVersion& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        std::fprintf(stderr, "zorvane-cli: %s\n\n%s", e.what(), app.help().c_str());
        return kUsageError;
    }

    if (pScan->parsed()) return zv::RunScanCommand(scan);
    return kUsageError;
}
