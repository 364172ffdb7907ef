#include "compare/DiffProgram.h"

#include "core/host/Host.h"
#include "core/state/Hints.h"
#include "platform/Process.h"

namespace zv {

namespace {

[[maybe_unused]] constexpr std::u16string_view kDiffHint =
    u"You can use your own diff program\nInstead of Zorvane's diff program\nBy selecting "
    u"menu:\nCompare / Use your own diff program\n\nContinue and use Zorvane's diff program?";

bool EndsInBlank(const std::u16string& strText) {
    return !strText.empty() && (strText.back() == u' ' || strText.back() == u'\t');
}

// A program path typed with quotes around it is the path inside them.
std::u16string ProgramPath(const std::u16string& strProgram) {
    if (strProgram.size() >= 2 && strProgram.front() == u'"' && strProgram.back() == u'"')
        return strProgram.substr(1, strProgram.size() - 2);
    return strProgram;
}

void AppendWords(std::vector<std::u16string>& aArgs, const std::u16string& strText) {
    for (std::u16string& strWord : platform::SplitWindowsCommandLine(strText))
        aArgs.push_back(std::move(strWord));
}

// The file options, then the path: glued to the last option word unless
// the options end in a blank.
void AppendFile(std::vector<std::u16string>& aArgs, const std::u16string& strOptions,
                const std::u16string& strFile) {
    std::vector<std::u16string> aWords = platform::SplitWindowsCommandLine(strOptions);
    if (aWords.empty() || EndsInBlank(strOptions)) {
        for (std::u16string& strWord : aWords) aArgs.push_back(std::move(strWord));
        aArgs.push_back(strFile);
        return;
    }
    aWords.back() += strFile;
    for (std::u16string& strWord : aWords) aArgs.push_back(std::move(strWord));
}

std::vector<std::u16string> OwnProgramArguments(const CDiffProgramSettings& settings,
                                                const std::u16string& strFile1,
                                                const std::u16string& strFile2) {
    std::vector<std::u16string> aArgs{ProgramPath(settings.m_strDiffProgram)};
    AppendWords(aArgs, settings.m_strDiffOptions);
    AppendFile(aArgs, settings.m_strDiffFile1Options, strFile1);
    AppendFile(aArgs, settings.m_strDiffFile2Options, strFile2);
    return aArgs;
}

}  // namespace

std::vector<std::u16string> BuildDiffArguments(const CDiffProgramSettings& settings, int nMode,
                                               const std::u16string& strFile1,
                                               const std::u16string& strFile2) {
    const bool bOwnProgram = !settings.m_strDiffProgram.empty();
    if (!settings.m_bUseDefaultDiff && bOwnProgram)
        return OwnProgramArguments(settings, strFile1, strFile2);
#ifdef _WIN32
    std::vector<std::u16string> aArgs{u"wmerrow.exe"};
    if (nMode == 1) aArgs.push_back(u"-i1");
#else
    if (bOwnProgram) return OwnProgramArguments(settings, strFile1, strFile2);
    std::vector<std::u16string> aArgs{u"diff", u"-u"};
    if (nMode == 1) aArgs.push_back(u"-w");
#endif
    aArgs.push_back(strFile1);
    aArgs.push_back(strFile2);
    return aArgs;
}

bool StartDiffProgram(const CDiffProgramSettings& settings, int nMode,
                      const std::u16string& strFile1, const std::u16string& strFile2,
                      platform::CStartedProcess* pWait) {
#ifdef _WIN32
    // The hint offers the user's own program instead of wmerrow, which only
    // Windows has.
    if (settings.m_bUseDefaultDiff && TakeDiffedFilesHint() && !Host().AskYesNo(kDiffHint, true))
        return false;
#endif
    int nError = 0;
    if (platform::StartProcess(BuildDiffArguments(settings, nMode, strFile1, strFile2), pWait,
                               nError))
        return true;
    Host().ShowMessage(platform::GetSystemErrorText(nError));
    return false;
}

}  // namespace zv
