// Placeholder dispatch until the readers arrive: no file has metadata yet.
#include "metadata/MetadataFields.h"

namespace zv {

void BuildMetadataTables(const CWZorvaneDoc&) {}

const MetadataFieldTable& MetadataTable(EMetadataGroup eGroup) {
    static MetadataFieldTable aTables[MetadataGroupCount];
    return aTables[eGroup];
}

bool ReadFileMetadata(CFileData&, MetadataValueList& aValues) {
    aValues.clear();
    return false;
}

bool HasFileMetadata(CFileData&) { return false; }

bool ReadVersionMetadata(CFileData&, MetadataValueList& aValues) {
    aValues.clear();
    return false;
}

bool IsOfficeExtension(std::u16string_view) { return false; }
bool IsInstallerExtension(std::u16string_view) { return false; }

}  // namespace zv
