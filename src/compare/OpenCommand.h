// Opening a file with its program when the shell cannot do it by itself:
// the file class's open command, looked up once per extension and kept for
// the process with the programs the user chose.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zv {

// One association: the extension with its dot, lower case; the command
// text; the description of the file class (empty for a program the user
// chose).
struct COpenCommand {
    std::u16string m_strExtension;
    std::u16string m_strCommand;
    std::u16string m_strDescription;
};

// The command text of the file's extension: from the cache, newest entry
// first, else from the file class's open command, which then joins the
// cache. False without an extension or a command.
bool FindOpenCommand(std::u16string_view strPath, std::u16string& strCommand,
                     std::u16string& strDescription);
// Keeps the user's choice of program for an extension.
void RememberOpenCommand(std::u16string_view strExtension, std::u16string_view strProgram);
// A registered command made ready to run: "%SystemRoot%" at its start
// replaced by the Windows directory, everything from the first "%1" or
// "%L" (quoted ones first) dropped, and "%PROGRAMFILES%" in any case
// replaced by the ProgramFiles variable.
std::u16string PrepareOpenCommand(std::u16string strCommand, std::u16string_view strWindowsDir,
                                  std::u16string_view strProgramFiles);

// Asks the shell to open the file; when it knows no program, runs the
// extension's command, asking fnChooseProgram (the file-open dialog "Select
// a program to run files with this extension"; empty on Cancel) for one
// when there is none. Failures are shown through the host.
bool OpenWithAssociatedProgram(const std::u16string& strPath,
                               const std::function<std::u16string()>& fnChooseProgram);

}  // namespace zv
