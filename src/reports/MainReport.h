// The main report: the scanned tree, or the current directory with or
// without its subdirectories, in one of the four file forms.
#pragma once

#include "core/document/PrintSettings.h"

namespace zv {

class CWZorvaneDoc;
class CDirectoryData;
class CReportStream;

enum EReportScope {
    ReportAllDirectories,
    ReportCurrentDirectory,
    ReportCurrentAndSubdirectories,
};

// Writes the whole report in one pass over the tree, with the report's
// progress on the host's status line. pCurrent is the current directory of
// the two current scopes. False when the user stopped it midway.
bool WriteMainReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm, EReportScope eScope,
                     CDirectoryData* pCurrent, bool bFullPath);

}  // namespace zv
