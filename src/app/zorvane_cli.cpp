// zorvane-cli: the headless front end of Zorvane.
#include <CLI/CLI.hpp>
#include <cstdio>

#include "Version.h"
#include "app/ScanCommand.h"
#include "platform/Console.h"

namespace {

constexpr int kUsageError = 2;

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
