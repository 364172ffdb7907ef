#include "metadata/OfficeMetadata.h"

namespace zv {

bool ReadInstallerMetadata(std::u16string_view, MetadataValueList&) { return false; }
bool ReadOfficeMetadata(std::u16string_view, MetadataValueList&) { return false; }

}  // namespace zv
