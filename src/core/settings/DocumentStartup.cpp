#include "core/settings/DocumentStartup.h"

#include "core/document/Document.h"
#include "core/settings/SettingsFile.h"

namespace zv {

void OpenMainDocument(CWZorvaneDoc& doc, std::u16string_view strSettingsFile) {
    if (!strSettingsFile.empty()) doc.m_bSettingsLoaded = LoadSettings(doc, strSettingsFile, false);
    if (doc.m_filters.List(FilterOfficeExtensions).empty())
        for (const char16_t* pszExtension :
             {u"*.doc", u"*.docx", u"*.xls", u"*.xlsx", u"*.ppt", u"*.pptx"})
            doc.m_filters.AddEntry(FilterOfficeExtensions, pszExtension, false);
}

}  // namespace zv
