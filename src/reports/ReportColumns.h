// Which metadata columns a report has: the selected fields of each group in
// report order, and the derived "any" booleans of the print flags.
#pragma once

#include <array>
#include <vector>

#include "core/document/MetadataPrintFields.h"

namespace zv {

class CWZorvaneDoc;
struct MetadataFieldDef;

struct CReportColumns {
    // The selected fields of each group, ascending field id.
    std::array<std::vector<const MetadataFieldDef*>, MetadataGroupCount> m_aSelected;

    bool Any(EMetadataGroup eGroup) const { return !m_aSelected[eGroup].empty(); }
    bool AnyVersion() const { return Any(MetaVersion); }
    // Any field of any of the six groups.
    bool AnyMetadata() const;
    size_t MetadataColumnCount() const;
    bool IsSelected(EMetadataGroup eGroup, const MetadataFieldDef* pDef) const;
};

// The columns of the document's print flags as the field tables stand.
CReportColumns SelectedColumns(const CWZorvaneDoc& doc);
// Rewrites the field tables' print flags from the document's and returns
// the columns they give: after the document is created, the printing
// options change or a settings file loads.
CReportColumns ApplyPrintFlags(CWZorvaneDoc& doc);

}  // namespace zv
