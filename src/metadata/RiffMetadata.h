// The readers of RIFF files: WAV (chunk walk with the INFO list) and AVI
// (a fixed opening sequence and a hunt for the audio stream).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "metadata/ByteStream.h"
#include "metadata/MetadataFields.h"

namespace zv {

// Both clear the list first. A WAV file whose "fmt " chunk is good has
// values even when the rest is damaged; an AVI without audio has the video
// values only.
bool ReadWavMetadata(std::u16string_view strPath, MetadataValueList& aValues);
bool ReadWavStream(IByteStream& file, MetadataValueList& aValues);
bool ReadAviMetadata(std::u16string_view strPath, MetadataValueList& aValues);
bool ReadAviStream(IByteStream& file, MetadataValueList& aValues);

// The name of a wave format tag; "Unknown" for a tag without one.
std::u16string WaveFormatName(uint16_t uTag);

}  // namespace zv
