#include "analyses/Crc32OfFile.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>

#include "analyses/Crc32Fast.h"
#include "analyses/CrcProgress.h"
#include "core/records/Crc32.h"
#include "metadata/Mp3Tags.h"
#include "platform/FileSystem.h"

namespace zv {
namespace {

// Reads are of kLargeBlock bytes, which costs fewer calls than the
// checksum's nominal 8192-byte reads and gives the same bytes: a short read
// ends the file either way. Only a failing read differs, and then the
// stretch is read again in 8192-byte steps, so that exactly the bytes before
// the failing 8192-byte read count.
constexpr size_t kLargeBlock = 128 * 1024;
constexpr size_t kSmallBlock = 8192;

unsigned char* ThreadBuffer() {
    thread_local std::unique_ptr<unsigned char[]> s_pBuffer(new unsigned char[kLargeBlock]);
    return s_pBuffer.get();
}

// Runs at most uLimit bytes from offset uOffset (the reader's position)
// through the register; returns how many were fed.
uint64_t FeedFile(platform::CFileReader& reader, uint64_t uOffset, uint64_t uLimit,
                  uint32_t& uRegister, CCrcProgress* pProgress) {
    unsigned char* pBuffer = ThreadBuffer();
    size_t uBlock = kLargeBlock;
    uint64_t uFed = 0;
    while (uFed < uLimit) {
        const size_t uWant = static_cast<size_t>(std::min<uint64_t>(uBlock, uLimit - uFed));
        const int64_t nRead = reader.Read(pBuffer, uWant);
        if (nRead < 0) {
            if (uBlock == kSmallBlock || !reader.Seek(uOffset + uFed)) break;
            uBlock = kSmallBlock;
            continue;
        }
        uRegister = Crc32UpdateFast(uRegister, pBuffer, static_cast<size_t>(nRead));
        uFed += static_cast<uint64_t>(nRead);
        if (pProgress) pProgress->Add(static_cast<double>(nRead));
        if (static_cast<size_t>(nRead) < uWant) break;
    }
    return uFed;
}

bool FileSize(const std::u16string& strPath, uint64_t& uSize) {
    CDirEntry entry;
    if (!platform::GetEntryInfo(strPath, entry)) return false;
    uSize = uint64_t(entry.uSizeHigh) << 32 | entry.uSizeLow;
    return true;
}

}  // namespace

uint32_t Crc32OfFile(const std::u16string& strPath, bool& bFailed, double dSize) {
    CCrcProgress progress(strPath, dSize);
    platform::CFileReader reader;
    if (!reader.Open(strPath)) {
        bFailed = true;
        return 0;
    }
    uint32_t uRegister = Crc32Init();
    const uint64_t uFed = FeedFile(reader, 0, std::numeric_limits<uint64_t>::max(), uRegister,
                                   progress.IsOn() ? &progress : nullptr);
    return uFed ? Crc32Final(uRegister) : 0;
}

uint32_t Crc32OfFileWithoutTags(const std::u16string& strPath, bool& bFailed) {
    platform::CFileReader reader;
    if (!reader.Open(strPath)) {
        bFailed = true;
        return 0;
    }
    uint64_t uFullSize = 0;
    const bool bSizeKnown = FileSize(strPath, uFullSize);

    uint32_t uTag = 0;
    bool bTrailer = false;
    if (IsMp3Extension(strPath)) {
        uTag = Id3v2TagSize(reader);
        char aTrailer[3];
        if (!bSizeKnown || uFullSize < 128 || !reader.Seek(uFullSize - 128) ||
            reader.Read(aTrailer, 3) != 3)
            return 0;
        bTrailer = std::memcmp(aTrailer, "TAG", 3) == 0;
        if (!reader.Seek(0)) return 0;
    }

    // The size as a 32-bit query gives: it wraps at 4 GiB, and its all-ones
    // value means failure.
    if (!bSizeKnown) return 0;
    uint32_t uSize = static_cast<uint32_t>(uFullSize);
    if (uSize == 0xFFFFFFFFu) return 0;
    if (bTrailer) {
        if (uSize < 128) return 0;
        uSize -= 128;
    }
    if (uTag != 0) {
        uSize -= uTag;
        if (!reader.Seek(uTag)) return 0;
    }

    uint32_t uRegister = Crc32Init();
    const uint64_t uFed = FeedFile(reader, uTag, uSize, uRegister, nullptr);
    return uFed ? Crc32Final(uRegister) : 0;
}

}  // namespace zv
