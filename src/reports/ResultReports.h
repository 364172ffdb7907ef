// The reports of the result lists: duplicate files and directories, the
// largest files and directories, the largest owner and type tables. They
// are the main report's row writers with their own openings and the marks
// between duplicate groups. This is the set Auto Print writes: the rows
// come from the document's lists in the order they stand, so the caller
// sorts them first.
#pragma once

#include "core/document/PrintSettings.h"

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

void WriteResultReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                       EResultReport eReport);

}  // namespace zv
