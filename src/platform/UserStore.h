// The per-user store of remembered state: named text values kept between
// runs. On Windows it is a registry key under HKEY_CURRENT_USER\Software;
// on POSIX one file in a per-user directory, replaced as a whole (temporary
// file and rename), so that a crash never leaves it half written.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace zv::platform {

class IUserStore {
public:
    virtual ~IUserStore() = default;

    // False when the value is absent or cannot be read.
    virtual bool ReadValue(std::u16string_view strName, std::u16string& strValue) = 0;
    virtual bool WriteValue(std::u16string_view strName, std::u16string_view strValue) = 0;
    // False when there was no such value or it cannot be deleted.
    virtual bool DeleteValue(std::u16string_view strName) = 0;
    // Makes the changes so far durable. Closing the store does this too; the
    // file store writes only then, the registry at once.
    virtual bool Flush() = 0;
};

// Where the program's own store lives: the key "Halvorn\Zorvane" under
// Software on Windows; on POSIX the directory $ZORVANE_CONFIG_DIR, else
// $XDG_CONFIG_HOME/zorvane, else $HOME/.config/zorvane.
std::u16string DefaultUserStorePlace();

// Opens the store at a place, creating the key or directory when it is
// missing. Value names compare without regard to case, as in the registry.
// Null when the place can be neither opened nor created.
std::unique_ptr<IUserStore> OpenUserStore(std::u16string_view strPlace);

}  // namespace zv::platform
