// Version resources: the language and the twelve standard strings of a
// file's version block, read from the resources of a PE file on every OS.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "metadata/ByteStream.h"
#include "metadata/MetadataFields.h"

namespace zv {

// Larger version blocks count as none.
inline constexpr uint32_t kMaxVersionBlock = 50000;

// The version block (RT_VERSION resource) of a PE file; false when the file
// has none or it is larger than kMaxVersionBlock.
bool ReadPeVersionBlock(IByteStream& file, std::string& strBlock);

// The value of a path in a version block, as VerQueryValueW finds it:
// components split at '\', keys compared without case. bHasValue is false
// for a node without a value. False when the path does not exist.
bool QueryVersionValue(std::string_view block, std::u16string_view strPath, std::string_view& value,
                       bool& bText);

// The fields of a version block, in table order; false when it has neither
// a translation nor a string table.
bool ReadVersionBlockFields(std::string_view block, MetadataValueList& aValues);

// ReadVersionBlock, and the section fallback for ".dll" names.
bool ReadVersionResource(std::u16string_view strPath, MetadataValueList& aValues);

// The smallest file ReadPeVersionBlock can find a block in. The "PE\0\0"
// signature cannot start before offset 2, behind "MZ"; its 24-byte header,
// a PE32 optional header of at least 120 bytes (up to the resource table's
// entry) and at least one 40-byte section entry are read in one run behind
// it. A shorter file fails one of those reads whatever it holds.
inline constexpr double kMinVersionFileSize = 2 + 24 + 120 + 40;

// The same for the file of a record, opened relative to its directory. A
// file the record knows to be shorter than kMinVersionFileSize is not
// opened at all; a link is, since its record does not give the size of
// what it leads to.
bool ReadVersionResource(const CFileData& file, MetadataValueList& aValues);

// The English name of a language id, as VerLanguageNameW gives it; empty
// for one it does not know.
std::u16string LanguageName(uint16_t uLanguage);

}  // namespace zv
