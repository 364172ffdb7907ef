// The metadata fields a report can print, group by group: each field's id
// (the key of the metadata readers' field tables) and the key its print flag
// goes by in a settings file. The document keeps one flag per entry, in this
// order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zv {

// In the order of the groups in a report.
enum EMetadataGroup {
    MetaVersion,
    MetaWav,
    MetaMp3,
    MetaAvi,
    MetaMsi,
    MetaOffice,
    MetadataGroupCount
};

struct CMetadataPrintField {
    int32_t m_nFieldId;
    std::u16string_view m_strSettingsKey;
};

// The group's fields in the order of its settings section.
std::span<const CMetadataPrintField> MetadataPrintFields(EMetadataGroup eGroup);
// "[MP3 PRINT FLAGS]" and so on.
std::u16string_view MetadataSettingsSection(EMetadataGroup eGroup);
// Index of a field id in its group, or -1.
int MetadataFieldIndex(EMetadataGroup eGroup, int32_t nFieldId);

}  // namespace zv
