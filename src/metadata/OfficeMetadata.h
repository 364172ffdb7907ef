// Document properties: the summary information of installer packages, the
// two property sets of compound-file Office documents, and the core and
// extended property parts of OOXML packages.
#pragma once

#include <string>
#include <string_view>

#include "metadata/ByteStream.h"
#include "metadata/MetadataFields.h"

namespace zv {

bool ReadInstallerMetadata(std::u16string_view strPath, MetadataValueList& aValues);
bool ReadInstallerStream(IByteStream& file, MetadataValueList& aValues);

// The compound-file property sets, and when they fail the OOXML package;
// values the first reader added before failing stay in the list.
bool ReadOfficeMetadata(std::u16string_view strPath, MetadataValueList& aValues);
bool ReadStorageProperties(IByteStream& file, MetadataValueList& aValues);
bool ReadPackageProperties(IByteStream& file, MetadataValueList& aValues);

}  // namespace zv
