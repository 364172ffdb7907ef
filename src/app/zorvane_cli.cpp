// zorvane-cli: the headless front end of Zorvane.
#include <CLI/CLI.hpp>
#include <cstdio>

#include "Version.h"
#include "app/CompareCommand.h"
#include "app/CrcCommand.h"
#include "app/DateArgument.h"
#include "app/DupsCommand.h"
#include "app/ExitStatus.h"
#include "app/LargestCommand.h"
#include "app/MetaCommand.h"
#include "app/ProgramServices.h"
#include "app/ReportCommand.h"
#include "app/ScanCommand.h"
#include "app/SettingsCommand.h"
#include "platform/Console.h"
#include "platform/Text.h"

int main(int argc, char** argv) {
    CLI::App app{"Zorvane scans directory trees and reports on what it finds.", "zorvane-cli"};
    app.set_version_flag("--version", std::string("zorvane-cli ") + ZORVANE_VERSION);
    // Either one settings file, the program's own one-argument form, or a command.
    app.require_subcommand(0, 1);
    std::string strSettingsFile;
    app.add_option("SETTINGS_FILE", strSettingsFile,
                   "Load this settings file, scan its directories with its filters and print a "
                   "summary (as 'scan --settings SETTINGS_FILE' does)");
    app.footer(
        "A settings file named like a command is given as ./NAME or after --.\n"
        "Settings files are UTF-16 with a byte order mark, as 'settings save' writes them, or "
        "UTF-8.\n" +
        std::string(zv::kExitStatusHelp));

    zv::CScanCommandOptions scan;
    CLI::App* pScan =
        app.add_subcommand("scan", "Scan directory trees and print a summary of what they hold.");
    zv::AddScanOptions(*pScan, scan);
    pScan->footer(zv::kExitStatusHelp);
    pScan->add_flag("--json", scan.m_bJson, "Print the summary as one JSON object");
    pScan->add_flag("--list", scan.m_bList,
                    "After the summary, print the full path of every file kept, one per line "
                    "(in JSON: the array files_list)");
    pScan->add_flag("-0,--null", scan.m_bNullEnds,
                    "With --list, end each path with a NUL instead of a line feed");

    CLI::App* pSettings = app.add_subcommand("settings", "Work with settings files.");
    pSettings->require_subcommand(1);
    std::string strSaveOut, strSaveIn;
    CLI::App* pSave = pSettings->add_subcommand(
        "save",
        "Write the settings file of the default settings, or of --settings FILE as loaded.");
    pSave->add_option("OUT", strSaveOut, "The settings file to write")->required();
    pSave->add_option("--settings", strSaveIn, "Load this settings file first")->type_name("FILE");

    std::vector<std::string> aCrcPaths;
    bool bCrcHex = false, bCrcNoTags = false, bCrcQuick = false;
    CLI::App* pCrc = app.add_subcommand(
        "crc",
        "Print the CRC-32 of each file, directories recursively in name order: the checksum as "
        "reports write it, two spaces, the full path; UNKNOWN for a file that cannot be read.");
    pCrc->footer(zv::kExitStatusHelp);
    pCrc->add_option("PATH", aCrcPaths, "File or directory (one or more)")->required();
    pCrc->add_flag("--hex", bCrcHex, "Hexadecimal instead of decimal");
    pCrc->add_flag("--no-tags", bCrcNoTags, "Leave MP3 tags (ID3v1, ID3v2) out of .mp3 files");
    pCrc->add_flag("--quick", bCrcQuick,
                   "The checksum of one 4096-byte sample block from the middle of each file");

    zv::CLargestCommandOptions largest;
    CLI::App* pLargest = zv::AddLargestCommand(app, largest);
    std::vector<std::string> aMetaPaths;
    bool bMetaJson = false;
    CLI::App* pMeta = app.add_subcommand(
        "meta", "Print the metadata values of files (version, MP3, WAV, AVI, Office, installer).");
    pMeta->add_option("FILE", aMetaPaths, "File (one or more)")->required();
    pMeta->add_flag("--json", bMetaJson, "An array of {path, fields} objects");
    zv::CDupsCommands dups(app);
    const zv::CCompareCommands compare(app);
    zv::CReportCommandOptions report;
    CLI::App* pReport = zv::AddReportCommand(app, report);

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
        return zv::kExitUsage;
    }

    const bool bCommand = pScan->parsed() || pSettings->parsed() || pCrc->parsed() ||
                          pLargest->parsed() || pMeta->parsed() || dups.Parsed() ||
                          compare.Parsed() || pReport->parsed();
    if (!strSettingsFile.empty() && bCommand) {
        std::fprintf(stderr, "zorvane-cli: give either a settings file or a command\n\n%s",
                     app.help().c_str());
        return zv::kExitUsage;
    }
    if (!strSettingsFile.empty()) {
        scan.m_strSettingsFile = strSettingsFile;
        scan.m_bRemember = true;  // as the desktop program started with the file
        return zv::RunScanCommand(scan);
    }
    if (pScan->parsed()) return zv::RunScanCommand(scan);
    if (pLargest->parsed()) return zv::RunLargestCommand(largest);
    if (dups.Parsed()) return dups.Run();
    if (pReport->parsed()) return zv::RunReportCommand(report);
    if (pSave->parsed()) return zv::RunSettingsSaveCommand(strSaveOut, strSaveIn);
    if (pCrc->parsed()) {
        zv::platform::PrepareConsoleProcess();
        zv::CProgramServices services;
        std::vector<std::u16string> aPaths;
        for (const std::string& strPath : aCrcPaths)
            aPaths.push_back(zv::platform::Utf8ToUtf16(strPath));
        return zv::RunCrcCommand(aPaths, bCrcHex, bCrcNoTags, bCrcQuick);
    }
    if (pMeta->parsed()) return zv::RunMetaCommand(aMetaPaths, bMetaJson);
    if (compare.Parsed()) return compare.Run();
    std::fprintf(stderr, "zorvane-cli: give a settings file or a command\n\n%s",
                 app.help().c_str());
    return zv::kExitUsage;
}
