#include "ui/ClipboardFiles.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include "core/host/Host.h"
#include "ui/WxText.h"

namespace zv {

bool CopyFilesToClipboard(const std::vector<std::u16string>& aPaths) {
    if (aPaths.empty()) return true;
    wxClipboardLocker locker;
    if (!locker) {
        Host().ShowMessage(u"Cannot open clipboard\n");
        return false;
    }
    auto* pData = new wxFileDataObject;
    for (const std::u16string& strPath : aPaths) pData->AddFile(ToWx(strPath));
    // The clipboard owns the data from here on, whatever the outcome.
    if (!wxTheClipboard->SetData(pData)) {
        Host().ShowMessage(u"SetClipboardData failed");
        return false;
    }
    return true;
}

}  // namespace zv
