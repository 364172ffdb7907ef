// The directory compare report: the report header under the title
// "Directory Compare", the show flags that are on, and one row for each
// entry the flags show, in the list's order.
#pragma once

#include "core/document/PrintSettings.h"

namespace zv {

class CWZorvaneDoc;
class CReportStream;
struct CCompareList;
struct CCompareShowFlags;

void WriteCompareReport(CWZorvaneDoc& doc, CReportStream& out, EPrintType eForm,
                        const CCompareList& list, const CCompareShowFlags& show);

}  // namespace zv
