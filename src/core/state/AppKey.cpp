#include "core/state/AppKey.h"

#include <string_view>

#include "core/host/Host.h"
#include "core/state/Hints.h"
#include "core/state/RememberedLists.h"

namespace zv {
namespace {

CAppKeyOpener& Opener() {
    static CAppKeyOpener s_fnOpener;
    return s_fnOpener;
}

}  // namespace

std::unique_ptr<platform::IUserStore> OpenAppKey() {
    if (Opener()) return Opener()();
    return platform::OpenUserStore(platform::DefaultUserStorePlace());
}

void SetAppKeyOpener(CAppKeyOpener fnOpener) { Opener() = std::move(fnOpener); }

bool RemoveAllRegistryEntries() {
    if (!Host().AskYesNo(
            u"This will remove from the registry all entries for Zorvane\nAre You Sure?", false))
        return false;
    const auto pStore = OpenAppKey();
    if (!pStore) return true;
    for (const std::u16string_view strBase :
         {u"Dir", u"DirExclude", u"DupFilesFilter", u"DupDirsFilter", u"FileName",
          u"FileNameExclude", u"FileNameFullPathExclude", u"OfficeExtensions", u"Owner",
          u"OwnerExclude", u"RootDir"})
        DeleteList(*pStore, strBase);
    for (const std::u16string_view strHint : {kHintAdministrator, kHintDiffedFiles, kHintDupDirs,
                                              kHintDupFiles, kHintPrintingOptions, kHintHelpAbout})
        pStore->DeleteValue(strHint);
    return true;
}

}  // namespace zv
