#include "core/state/Hints.h"

#include <set>
#include <string>

#include "core/host/Host.h"
#include "core/state/AppKey.h"

namespace zv {
namespace {

void WriteHint(std::u16string_view strHint, std::u16string_view strValue) {
    if (const auto pStore = OpenAppKey()) pStore->WriteValue(strHint, strValue);
}

}  // namespace

bool IsHintWanted(std::u16string_view strHint) {
    const auto pStore = OpenAppKey();
    if (!pStore) return false;
    std::u16string strValue;
    return !pStore->ReadValue(strHint, strValue) || strValue.starts_with(u'1');
}

void NeverShowHint(std::u16string_view strHint) { WriteHint(strHint, u"0"); }

void SuppressHintOnce(std::u16string_view strHint) {
    static std::set<std::u16string, std::less<>> s_aSuppressed;
    if (!s_aSuppressed.insert(std::u16string(strHint)).second) return;
    NeverShowHint(strHint);
}

void RestoreHint(std::u16string_view strHint) { WriteHint(strHint, u"1"); }

bool TakeDiffedFilesHint() {
    const auto pStore = OpenAppKey();
    std::u16string strValue;
    if (!pStore || pStore->ReadValue(kHintDiffedFiles, strValue)) return false;
    pStore->WriteValue(kHintDiffedFiles, u"0");
    return true;
}

void ShowStartupHints(const std::function<bool()>& fnShowAbout) {
    if (IsHintWanted(kHintAdministrator) &&
        !Host().AskYesNo(u"Zorvane can find more files if run as an administrator.\nRepeat this "
                         u"message?",
                         true))
        NeverShowHint(kHintAdministrator);
    if (IsHintWanted(kHintHelpAbout) && fnShowAbout()) NeverShowHint(kHintHelpAbout);
}

}  // namespace zv
