// The reports of the result lists: duplicate files and directories, the
// largest files and directories, the largest owner and type tables. They
// are the main report's row writers with their own openings and the marks
// between duplicate groups. There are two sets that differ in a few lines:
// the document's set, which Auto Print writes from the document's lists in
// the order they stand (the caller sorts them first), and the screens' set,
// which writes a result screen's rows as the screen shows them.
#pragma once

#include "core/document/PrintSettings.h"
#include "reports/ResultViewRows.h"

namespace zv {

class CWZorvaneDoc;
class CReportStream;

enum EResultReport {
    ResultDuplicateFiles,
    ResultDuplicateDirs,
    ResultLargestFiles,
    ResultLargestDirs,
    ResultLargestOwner,
    ResultLargestType,
};

// The document's set.
void WriteResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                       EResultReport eReport);

// The screens' set: the rows that are not removed, in displayed order, with
// the report's progress on the host's status line. The rows are of the
// report's kind: files for the duplicate and largest files, directories for
// the duplicate and largest directories, totals for owner and type. False
// when the user stopped it midway.
bool WriteViewResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                           EResultReport eReport, const CFileViewRows& rows);
bool WriteViewResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                           EResultReport eReport, const CDirViewRows& rows);
bool WriteViewResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                           EResultReport eReport, const CTotalViewRows& rows);

}  // namespace zv
