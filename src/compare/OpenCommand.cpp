#include "compare/OpenCommand.h"

#include <mutex>
#include <vector>

#include "core/host/Host.h"
#include "platform/Process.h"
#include "platform/Shell.h"
#include "platform/Text.h"

namespace zv {

namespace {

std::mutex g_mutex;
std::vector<COpenCommand> g_aCache;  // lives for the process

std::u16string LowerExtension(std::u16string_view strPath) {
    const size_t nDot = strPath.find_last_of(u'.');
    const size_t nSlash = strPath.find_last_of(u"/\\");
    if (nDot == std::u16string_view::npos || (nSlash != std::u16string_view::npos && nDot < nSlash))
        return {};
    std::u16string strExtension(strPath.substr(nDot));
    for (char16_t& ch : strExtension)
        if (ch >= u'A' && ch <= u'Z') ch = static_cast<char16_t>(ch - u'A' + u'a');
    return strExtension;
}

bool LookUpClassCommand(const std::u16string& strExtension, std::u16string& strCommand,
                        std::u16string& strDescription) {
    std::u16string strClass;
    if (!platform::ReadClassesRootDefault(strExtension, strClass) || strClass.empty()) return false;
    bool bFound = false;
    for (const char16_t* pszVerb :
         {u"\\shell\\open\\command", u"\\shell\\&Open with MSDev\\command",
          u"\\shell\\&Open with VStudio\\command"}) {
        if (platform::ReadClassesRootDefault(strClass + pszVerb, strCommand)) {
            bFound = true;
            break;
        }
    }
    return bFound && platform::ReadClassesRootDefault(strClass, strDescription);
}

}  // namespace

std::u16string PrepareOpenCommand(std::u16string strCommand, std::u16string_view strWindowsDir,
                                  std::u16string_view strProgramFiles) {
    constexpr std::u16string_view kSystemRoot = u"%SystemRoot%";
    if (strCommand.starts_with(kSystemRoot))
        strCommand.replace(0, kSystemRoot.size(), strWindowsDir);
    for (std::u16string_view strCut : {u"\"%1\"", u"%1", u"\"%L\"", u"%L"}) {
        const size_t nAt = strCommand.find(strCut);
        if (nAt != std::u16string::npos) {
            strCommand.resize(nAt);
            break;
        }
    }
    constexpr std::u16string_view kProgramFiles = u"%PROGRAMFILES%";
    const size_t nAt = platform::ToUpperCopy(strCommand).find(kProgramFiles);
    if (nAt != std::u16string::npos) strCommand.replace(nAt, kProgramFiles.size(), strProgramFiles);
    return strCommand;
}

bool FindOpenCommand(std::u16string_view strPath, std::u16string& strCommand,
                     std::u16string& strDescription) {
    const std::u16string strExtension = LowerExtension(strPath);
    if (strExtension.empty()) return false;
    {
        std::lock_guard<std::mutex> lock(g_mutex);
        for (auto it = g_aCache.rbegin(); it != g_aCache.rend(); ++it) {
            if (it->m_strExtension != strExtension) continue;
            strCommand = it->m_strCommand;
            strDescription = it->m_strDescription;
            return true;
        }
    }
    if (!LookUpClassCommand(strExtension, strCommand, strDescription)) return false;
    strCommand = PrepareOpenCommand(strCommand, platform::GetWindowsFolder(),
                                    platform::GetEnvironmentText(u"ProgramFiles"));
    std::lock_guard<std::mutex> lock(g_mutex);
    g_aCache.push_back({strExtension, strCommand, strDescription});
    return true;
}

void RememberOpenCommand(std::u16string_view strExtension, std::u16string_view strProgram) {
    std::u16string strLower = LowerExtension(strExtension);
    std::lock_guard<std::mutex> lock(g_mutex);
    g_aCache.push_back({strLower, std::u16string(strProgram), {}});
}

bool OpenWithAssociatedProgram(const std::u16string& strPath,
                               const std::function<std::u16string()>& fnChooseProgram) {
    const int nResult = platform::ShellOpen(strPath);
    if (nResult > 32) return true;
    if (nResult != platform::kShellNoAssociation) {
        Host().ShowMessage(platform::GetSystemErrorText(nResult));
        return false;
    }
    std::u16string strCommand, strDescription;
    if (!FindOpenCommand(strPath, strCommand, strDescription)) {
        strCommand = fnChooseProgram ? fnChooseProgram() : std::u16string();
        if (strCommand.empty()) return false;
        // Kept, so that the user is not asked again for this extension.
        RememberOpenCommand(strPath, platform::QuoteWindowsArgument(strCommand));
        strCommand = platform::QuoteWindowsArgument(strCommand);
    }
    // The command's own words, then the path as one argument.
    std::vector<std::u16string> aArgs = platform::SplitWindowsCommandLine(strCommand);
    aArgs.push_back(strPath);
    int nError = 0;
    if (platform::StartProcess(aArgs, nullptr, nError)) return true;
    Host().ShowMessage(platform::GetSystemErrorText(nError) + u"\nCreateProcess");
    return false;
}

}  // namespace zv
