// The hints that a user can silence for good. Each has a value in the
// program's key: absent or starting with '1' asks for the hint, "0" means
// never. A key that cannot be opened shows no hint.
#pragma once

#include <functional>
#include <string_view>

namespace zv {

inline constexpr std::u16string_view kHintAdministrator = u"NeverAdministratorHint";
inline constexpr std::u16string_view kHintHelpAbout = u"NeverHelpAbout";
inline constexpr std::u16string_view kHintDupFiles = u"NeverDupFiles";
inline constexpr std::u16string_view kHintDupDirs = u"NeverDupDirs";
inline constexpr std::u16string_view kHintPrintingOptions = u"NeverSetPrintingOptions";
inline constexpr std::u16string_view kHintDiffedFiles = u"NeverDiffedFiles";

// Whether the hint is still wanted.
bool IsHintWanted(std::u16string_view strHint);
// Writes "0": the hint is not shown again.
void NeverShowHint(std::u16string_view strHint);
// Writes "0" the first time it is called in this process for this hint,
// when the user has used the feature the hint explains by himself.
void SuppressHintOnce(std::u16string_view strHint);
// Writes "1", when the user has used the feature through the hint.
void RestoreHint(std::u16string_view strHint);
// The one-time hint before the first file comparison: true, and the value
// written as "0", only while the value is absent.
bool TakeDiffedFilesHint();

// The two hints at start-up. The administrator hint asks "Zorvane can find
// more files if run as an administrator.\nRepeat this message?" and on No
// is silenced. The about box is shown through fnShowAbout, which returns
// whether its "Don't show again on startup" box was checked.
void ShowStartupHints(const std::function<bool()>& fnShowAbout);

}  // namespace zv
