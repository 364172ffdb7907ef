// Stream properties of an MP3 file from its first frame header.
#include <cstring>

#include "metadata/MetadataText.h"
#include "metadata/Mp3Metadata.h"
#include "metadata/Mp3Tags.h"

namespace zv {
namespace {

constexpr int32_t kVersion = 32947, kBitrate = 32948, kLength = 32949, kFrequency = 32950,
                  kFrames = 32951, kMode = 32952;

// kbps by table row (MPEG 1 layers I, II, III; MPEG 2 layer I; MPEG 2
// layers II and III) and bitrate index.
constexpr int kBitrates[5][16] = {
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, 0},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
};

// By version field (0 MPEG 2.5, 2 MPEG 2, 3 MPEG 1) and frequency index.
// The MPEG 2.5 row is this reader's own, not the published one.
constexpr int kFrequencies[4][3] = {
    {32000, 16000, 8000}, {0, 0, 0}, {22050, 24000, 16000}, {44100, 48000, 32000}};

constexpr const char16_t* kModes[4] = {u"Stereo", u"Joint Stereo", u"Dual Channel",
                                       u"Single Channel"};

bool IsFrameHeader(uint32_t h) {
    return (h >> 21) == 0x7FF && ((h >> 19) & 3) != 1 && ((h >> 17) & 3) != 0 &&
           ((h >> 12) & 15) != 0 && ((h >> 12) & 15) != 15 && ((h >> 10) & 3) != 3 && (h & 3) != 2;
}

// Slides a 4-byte window over the file one byte at a time from offset 0,
// reading 1024 bytes at a time; ID3v2 tags are not skipped.
bool FindFrameHeader(IByteStream& file, uint32_t& uHeader) {
    unsigned char aBlock[1024];
    int64_t nRead = file.Read(aBlock, sizeof aBlock);
    if (nRead < 4) return false;
    uint32_t uWord = 0;
    int nHave = 0;
    for (;;) {
        for (int64_t n = 0; n < nRead; ++n) {
            uWord = uWord << 8 | aBlock[n];
            if (++nHave >= 4 && IsFrameHeader(uWord)) {
                uHeader = uWord;
                return true;
            }
        }
        nRead = file.Read(aBlock, sizeof aBlock);
        if (nRead <= 0) return false;
    }
}

}  // namespace

bool ReadMp3Metadata(std::u16string_view strPath, MetadataValueList& aValues) {
    if (!IsMp3Extension(strPath)) return false;
    CFileByteStream file;
    if (!file.Open(strPath)) return false;
    return ReadMp3Stream(file, aValues);
}

bool ReadMp3Stream(IByteStream& file, MetadataValueList& aValues) {
    // All arithmetic uses the low 32 bits of the size.
    const uint32_t uSize = static_cast<uint32_t>(file.Size());
    uint32_t h = 0;
    if (!FindFrameHeader(file, h)) return false;
    const unsigned nVersion = (h >> 19) & 3, nLayer = (h >> 17) & 3, nBitrateIndex = (h >> 12) & 15,
                   nFrequencyIndex = (h >> 10) & 3, nMode = (h >> 6) & 3;

    // The marker is looked for at this offset from the start of the file,
    // not from the frame: only there is it found.
    const unsigned nXingOffset = nVersion == 3 ? (nMode != 3 ? 32 : 17) : (nMode != 3 ? 17 : 9);
    unsigned char aXing[12];
    if (!file.Seek(nXingOffset) || !file.ReadExact(aXing, sizeof aXing)) return false;
    const bool bXing = std::memcmp(aXing, "Xing", 4) == 0;
    int32_t nXingFrames = -1;
    if (bXing && (aXing[7] & 1))
        nXingFrames = int32_t(uint32_t(aXing[8]) << 24 | uint32_t(aXing[9]) << 16 |
                              uint32_t(aXing[10]) << 8 | aXing[11]);

    const int nRow = (h & (1u << 19)) ? 3 - int(nLayer) : (nLayer == 3 ? 3 : 4);
    const int nKbps = kBitrates[nRow][nBitrateIndex];
    const int nFrequency = kFrequencies[nVersion][nFrequencyIndex];

    const char* pszVersion = nVersion == 0 ? "2.5" : nVersion == 2 ? "2" : "1";
    AddValue(aValues, MetaMp3, kVersion,
             FormatText("MPEG %s Layer %.*s", pszVersion, int(4 - nLayer), "III"));
    AddValue(aValues, MetaMp3, kBitrate, FormatText(bXing ? "variable %d kbps" : "%d kbps", nKbps));
    AddValue(aValues, MetaMp3, kFrequency, FormatText("%d Hz", nFrequency));
    std::u16string strFrames;
    if (bXing) {
        strFrames = FormatText("%d", int(nXingFrames));
    } else {
        // Padding is not counted, and the size includes any tags.
        const double dFrameBytes = nKbps * 1000.0 / nFrequency * (nLayer == 3 ? 12 : 144);
        strFrames = FormatText("%lld", static_cast<long long>(uSize / dFrameBytes));
    }
    AddValue(aValues, MetaMp3, kFrames, strFrames);
    // The first frame's rate, even in a variable-rate file.
    AddValue(
        aValues, MetaMp3, kLength,
        FormatDuration(static_cast<double>(static_cast<int64_t>(uSize * 0.001 * 8.0 / nKbps))));
    AddValue(aValues, MetaMp3, kMode, kModes[nMode]);

    ReadId3v2(file, aValues);
    ReadId3v1(file, aValues);
    return true;
}

}  // namespace zv
