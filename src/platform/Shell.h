// What the desktop shell offers for opening a file with its program: the
// shell's own open, and the file-class registry behind it. POSIX has no
// such registry; there the desktop's opener stands for the shell.
#pragma once

#include <string>
#include <string_view>

namespace zv::platform {

// The shell's code for a file with no associated program.
inline constexpr int kShellNoAssociation = 31;

// Opens a file as the shell would; above 32 is success (ShellExecuteW's
// convention). POSIX starts xdg-open, and gives kShellNoAssociation when
// it cannot be started.
int ShellOpen(std::u16string_view path);
// The default value of a key under HKEY_CLASSES_ROOT; false when the key
// or the value is missing, and always on POSIX.
bool ReadClassesRootDefault(std::u16string_view strKey, std::u16string& strValue);
// The Windows directory; empty on POSIX.
std::u16string GetWindowsFolder();
// An environment variable's value; empty when it is not set.
std::u16string GetEnvironmentText(std::u16string_view strName);

}  // namespace zv::platform
