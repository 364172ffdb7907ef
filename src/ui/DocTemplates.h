// The document templates, looked up by name, and ShowDocument: one open
// document of each kind at most.
#pragma once

#include <wx/string.h>

class wxDocManager;
class wxDocTemplate;
class wxDocument;

namespace zv {

// The main document's template "ZORVANE"; the result screens add theirs
// after it, in the table's order, when they come.
void RegisterDocTemplates(wxDocManager& manager);

wxDocTemplate* FindDocTemplate(wxDocManager& manager, const wxString& strName);
// The open document of the template, or null.
wxDocument* FindOpenDocument(wxDocManager& manager, const wxString& strName);

// Activates the frame of the template's open document, or creates the
// document with its frame and views, opens it and gives each view its
// first update. Null when the name is unknown or the creation failed.
wxDocument* ShowDocument(wxDocManager& manager, const wxString& strName);

}  // namespace zv
