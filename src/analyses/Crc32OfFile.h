// Checksums of whole files, as the records read them lazily.
#pragma once

#include <cstdint>
#include <string>

namespace zv {

// CRC-32 of the whole file. bFailed is set only when the file cannot be
// opened. A read error midway gives the checksum of what was read before
// it; a file of which no byte could be read gives 0. Files of 1 GiB or more
// report their progress on the status line (CCrcProgress).
uint32_t Crc32OfFile(const std::u16string& strPath, bool& bFailed, double dSize);

// The same with the ID3 tags of an MP3 file left out: for an MP3 name the
// stretch starts at the declared ID3v2 tag size (the 10-byte header is not
// counted) and stops before a 128-byte "TAG" trailer. The size is taken
// modulo 2^32 for every file. bFailed is set only when the file cannot be
// opened; any later failure gives 0 with bFailed clear.
uint32_t Crc32OfFileWithoutTags(const std::u16string& strPath, bool& bFailed);

}  // namespace zv
