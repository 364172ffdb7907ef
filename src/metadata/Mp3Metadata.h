// The MP3 reader: stream properties of the first MPEG audio frame, the
// "Xing" marker, and the text fields of the ID3v2 and ID3v1 tags.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "metadata/ByteStream.h"
#include "metadata/MetadataFields.h"

namespace zv {

// False for a name that is not an MP3 name, a file that cannot be opened or
// one without a valid frame header; else true, whatever the tags held.
bool ReadMp3Metadata(std::u16string_view strPath, MetadataValueList& aValues);
bool ReadMp3Stream(IByteStream& file, MetadataValueList& aValues);

// The tag readers add only fields the list does not hold yet, so an ID3v2
// value read first wins over the ID3v1 one.
bool ReadId3v2(IByteStream& file, MetadataValueList& aValues);
bool ReadId3v1(IByteStream& file, MetadataValueList& aValues);

// Whether "TAG" stands 128 bytes before the end of the file.
bool HasId3v1Tag(std::u16string_view strPath);

// The ID3v1 genre of an index, with the customary extension up to 125;
// empty from 126 on.
std::u16string Mp3GenreText(unsigned nIndex);

}  // namespace zv
