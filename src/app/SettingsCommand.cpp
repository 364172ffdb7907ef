#include "app/SettingsCommand.h"

#include <cstdio>

#include "app/ConsoleHost.h"
#include "core/document/Document.h"
#include "core/settings/DocumentStartup.h"
#include "core/settings/SettingsFile.h"
#include "metadata/MetadataFields.h"
#include "platform/Text.h"

namespace zv {

bool OpenDocumentWithSettings(CWZorvaneDoc& doc, const std::string& strSettingsFile) {
    const std::u16string strPath = platform::Utf8ToUtf16(strSettingsFile);
    OpenMainDocument(doc, strPath);
    // The metadata field tables belong to the new document: built here, once.
    BuildMetadataTables(doc);
    if (strPath.empty() || doc.m_bSettingsLoaded) return true;
    Host().ShowMessage(u"Cannot open file: " + strPath);
    return false;
}

int RunSettingsSaveCommand(const std::string& strOut, const std::string& strIn) {
    CConsoleHost host;
    SetHost(&host);
    CWZorvaneDoc doc;
    SetMainDocument(&doc);
    int nStatus = 0;
    if (!OpenDocumentWithSettings(doc, strIn)) {
        nStatus = 2;
    } else if (!SaveSettingsFile(doc, platform::Utf8ToUtf16(strOut))) {
        std::fprintf(stderr, "zorvane-cli: cannot write %s\n", strOut.c_str());
        nStatus = 1;
    }
    SetMainDocument(nullptr);
    SetHost(nullptr);
    return nStatus;
}

}  // namespace zv
