// What the records ask of the metadata readers through their service seam,
// and the dispatch by name for callers that have a path but no record.
#pragma once

#include <string>
#include <string_view>

#include "metadata/MetadataFields.h"

namespace zv {

class CFileData;

// The reader the name chooses, on the file at strPath: ".wav", the MP3
// names, ".avi", the installer names, then the Office list. False when none
// applies or the reader failed.
bool ReadMetadataOfPath(std::u16string_view strPath, std::u16string_view strName,
                        MetadataValueList& aValues);

// Whether the dispatch finds values, without touching the status bits
// (CFileData::HasMediaInfo keeps them).
bool ProbeFileMetadata(const CFileData& file);
// Whether the version name list (or the version-force flag) lets the file be asked.
bool PassesVersionFilter(const CFileData& file);
// Whether the file passes the version name list and has a version block.
bool ProbeVersionMetadata(const CFileData& file);
// "VER Version" of the file; empty without one.
std::u16string ReadVersionText(const CFileData& file);

}  // namespace zv
