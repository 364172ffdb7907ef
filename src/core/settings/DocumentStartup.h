// What happens when the main document opens, before any view exists.
#pragma once

#include <string_view>

namespace zv {

class CWZorvaneDoc;

// Loads the settings file named on the command line, if one is named,
// quietly: m_bSettingsLoaded says whether it could be read, and so whether
// the first scan starts by itself. Then an empty Office extensions list gets
// its defaults "*.doc", "*.docx", "*.xls", "*.xlsx", "*.ppt", "*.pptx"; a
// list with any entry stays as it is.
void OpenMainDocument(CWZorvaneDoc& doc, std::u16string_view strSettingsFile);

}  // namespace zv
