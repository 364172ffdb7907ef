// The metadata of one file row, read as the row is written and dropped
// after it: the version values, the other readers' values, and which groups
// the file's extension gives values to.
#pragma once

#include <array>
#include <functional>
#include <string_view>

#include "metadata/MetadataFields.h"

namespace zv {

class CFileData;
struct CReportColumns;

class CRowMetadata {
public:
    // Reads only what the columns need.
    void Read(CFileData& file, const CReportColumns& columns);

    // The value of a field of the version list or of the others, or null.
    const MetadataValue* Find(EMetadataGroup eGroup, int32_t nFieldId) const;

    bool m_bHasVersion = false;
    bool m_bHasMetadata = false;
    MetadataValueList m_aVersion;
    MetadataValueList m_aValues;
    // The extension test of each group but version.
    std::array<bool, MetadataGroupCount> m_aGroupApplies{};
};

// The metadata cells of a row in column order, each value or an empty text.
// Without any metadata the five reader groups give no cells at all, unless
// bEveryColumn asks for an empty cell per selected field (the HTML form).
void ForEachMetadataCell(const CRowMetadata& row, const CReportColumns& columns, bool bEveryColumn,
                         const std::function<void(std::u16string_view)>& cell);

}  // namespace zv
