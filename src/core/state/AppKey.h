// The program's key in the per-user store (the registry on Windows): where
// the remembered lists and the hint answers live. Failures are silent: an
// operation that cannot open the key does nothing.
#pragma once

#include <functional>
#include <memory>

#include "platform/UserStore.h"

namespace zv {

// Opens the program's key; null when it can be neither opened nor created.
std::unique_ptr<platform::IUserStore> OpenAppKey();

// Installs what OpenAppKey opens from now on; null restores the program's
// own store. Tests use this.
using CAppKeyOpener = std::function<std::unique_ptr<platform::IUserStore>()>;
void SetAppKeyOpener(CAppKeyOpener fnOpener);

// "Remove all registry entries": asks "This will remove from the registry
// all entries for Zorvane\nAre You Sure?" and on Yes deletes every
// remembered list except the version filters, and every hint answer. True
// when the user said Yes.
bool RemoveAllRegistryEntries();

}  // namespace zv
