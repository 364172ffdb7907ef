#pragma once

namespace zv {

struct CFilterSet;
struct CDocumentOptions;
class CWZorvaneDoc;

// Whether a scan with these settings removes anything: any list but the
// version and Office lists, any date, size, stream, attribute, linked or
// path length test, or "only duplicate files" together with the automatic
// duplicate search.
bool IsFilterActive(const CFilterSet& filters, const CDocumentOptions& options);
// Computes and stores the document's m_bFilterActive.
void UpdateFilterActive(CWZorvaneDoc& doc);

// Turns every enabled relative date into now (read afresh for each test)
// plus its offset.
void ResolveRelativeDates(CFilterSet& filters);

}  // namespace zv
