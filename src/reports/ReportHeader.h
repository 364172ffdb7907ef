// The report header in each form: the report's title word, the user's
// header text, the scan time, the volumes of the roots, the free space, and
// then the filters block.
#pragma once

#include <string_view>

namespace zv {

class CReportContext;

void ReportHeaderText(CReportContext& ctx, std::u16string_view strTitle);
void ReportHeaderCsv(CReportContext& ctx, std::u16string_view strTitle);
void ReportHeaderHtml(CReportContext& ctx, std::u16string_view strTitle);
void ReportHeaderXml(CReportContext& ctx, std::u16string_view strTitle);

}  // namespace zv
