// The block after the report header that lists the active filters, in each
// of the four forms. Each writes nothing unless "Print filters" is on.
#pragma once

namespace zv {

class CReportContext;

void FiltersBlockText(CReportContext& ctx);
void FiltersBlockCsv(CReportContext& ctx);
void FiltersBlockHtml(CReportContext& ctx);
void FiltersBlockXml(CReportContext& ctx);

}  // namespace zv
