// The parts of the MP3 reader that the checksum engine shares: which names
// count as MP3 files, and how long an ID3v2 tag at the start says it is.
#pragma once

#include <cstdint>
#include <string_view>

namespace zv {

namespace platform {
class CFileReader;
}

// True when the name has at least 4 characters and its last 4, lower-cased,
// are ".mp1", ".mp2" or ".mp3". A name of ".mp3" alone passes.
bool IsMp3Extension(std::u16string_view strName);

// The synchsafe size of an ID3v2 header: 0 when any of the four bytes has
// its top bit set, else 7 bits from each, first byte most significant.
// uRaw holds the four file bytes in memory order, first byte lowest.
uint32_t DecodeSynchsafe(uint32_t uRaw);

// Reads the 10 header bytes at offset 0 and returns the declared tag size,
// without the header itself; 0 when there is no "ID3" header, a version byte
// is 255, or the read fails. The file position afterwards is unspecified.
uint32_t Id3v2TagSize(platform::CFileReader& file);

}  // namespace zv
