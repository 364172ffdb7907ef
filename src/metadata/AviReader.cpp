// AVI files: the main header and first stream header from a fixed opening
// sequence, and the first audio stream found by a bounded hunt.
#include <cstring>

#include "metadata/MetadataText.h"
#include "metadata/RiffMetadata.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr int32_t kWidth = 32941, kHeight = 32942, kPlayLength = 32943, kFrameCount = 32944,
                  kFrameRate = 32945, kCompression = 32948, kAudioFormat = 32949,
                  kAudioRate = 32950, kSampleRate = 32951, kChannels = 32952, kSampleSize = 32953;

// Start offsets the audio hunt tries, so a file without audio costs a fixed
// number of reads.
constexpr uint64_t kAudioHuntOffsets = 4608;

uint32_t Le32(const unsigned char* p) {
    return uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | uint32_t(p[3]) << 24;
}
uint16_t Le16(const unsigned char* p) { return uint16_t(p[0] | p[1] << 8); }

bool ReadStarting(IByteStream& file, size_t uSize, const char* pszStart) {
    unsigned char aBytes[16];
    return file.ReadExact(aBytes, uSize) &&
           std::memcmp(aBytes, pszStart, std::strlen(pszStart)) == 0;
}

std::u16string CompressionText(const unsigned char* pHandler) {
    const std::u16string strHandler = NarrowText(pHandler, 4);
    const auto Is = [&strHandler](const char16_t* psz) {
        return platform::EqualsNoCase(strHandler, psz);
    };
    const auto Starts = [&strHandler](const char16_t* psz) {
        return platform::EqualsNoCase(strHandler.substr(0, 3), psz);
    };
    if (Is(u"cvid")) return u"Cinepak codec";
    if (Is(u"div3")) return u"DivX codec";
    if (Is(u"MSVC")) return u"MS-CRAM";
    if (Starts(u"RLE")) return u"MS-RLE";
    if (Is(u"IV50")) return u"Indeo video 5";
    if (Starts(u"DIB")) return u"Uncompressed";
    if (Is(u"mrle")) return u"MS-RLE";
    if (Is(u"mp42")) return u"MS-MPEG4 V2";
    return strHandler;
}

// The audio stream list at one start offset: "LIST", "strlstrh", a stream
// header of type "auds", then "strf" and the wave format.
bool ReadAudioFormatAt(IByteStream& file, uint64_t uOffset, unsigned char* pFormat) {
    unsigned char aSize[4];
    if (!file.Seek(uOffset) || !ReadStarting(file, 8, "LIST") ||
        !ReadStarting(file, 8, "strlstrh") || !file.ReadExact(aSize, 4) ||
        !ReadStarting(file, 4, "auds"))
        return false;
    return file.Skip(int64_t(Le32(aSize)) - 4) && ReadStarting(file, 8, "strf") &&
           file.ReadExact(pFormat, 18);
}

}  // namespace

bool ReadAviMetadata(std::u16string_view strPath, MetadataValueList& aValues) {
    aValues.clear();
    CFileByteStream file;
    if (!file.Open(strPath)) return false;
    return ReadAviStream(file, aValues);
}

bool ReadAviStream(IByteStream& file, MetadataValueList& aValues) {
    aValues.clear();
    unsigned char aMain[56], aStream[56];
    if (!ReadStarting(file, 8, "RIFF") || !ReadStarting(file, 4, "AVI") ||
        !ReadStarting(file, 8, "LIST") || !ReadStarting(file, 12, "hdrlavih") ||
        !file.ReadExact(aMain, sizeof aMain) || !ReadStarting(file, 8, "LIST") ||
        !ReadStarting(file, 12, "strlstrh") || !file.ReadExact(aStream, sizeof aStream))
        return false;
    // The first stream is taken as the video stream without looking at its type.
    unsigned char aAudio[18];
    bool bAudio = false;
    for (uint64_t uOffset = 0; uOffset < kAudioHuntOffsets && !bAudio; ++uOffset)
        bAudio = ReadAudioFormatAt(file, uOffset, aAudio);

    const uint32_t uScale = Le32(aStream + 20), uRate = Le32(aStream + 24),
                   uLength = Le32(aStream + 32);
    // A scale of 0 gives an infinite or undefined rate, shown as such.
    const double dFramesPerSecond = double(uRate) / double(uScale);
    AddValue(aValues, MetaAvi, kWidth, FormatText("%u pixels", unsigned(Le32(aMain + 32))));
    AddValue(aValues, MetaAvi, kHeight, FormatText("%u pixels", unsigned(Le32(aMain + 36))));
    AddValue(aValues, MetaAvi, kPlayLength, FormatDuration(uLength / dFramesPerSecond));
    AddValue(aValues, MetaAvi, kFrameCount, FormatText("%u", unsigned(uLength)));
    AddValue(aValues, MetaAvi, kFrameRate, FormatFixed(dFramesPerSecond, 3) + u" frames/second");
    AddValue(aValues, MetaAvi, kCompression, CompressionText(aStream + 4));
    if (bAudio) {
        const uint16_t uChannels = Le16(aAudio + 2), uBits = Le16(aAudio + 14);
        AddValue(aValues, MetaAvi, kAudioFormat, WaveFormatName(Le16(aAudio)));
        AddValue(aValues, MetaAvi, kAudioRate,
                 FormatFixed(Le32(aAudio + 8) * 0.001, 3) + u" Kb/second");
        AddValue(aValues, MetaAvi, kSampleRate, FormatFixed(Le32(aAudio + 4) * 0.001, 2) + u" kHz");
        AddValue(aValues, MetaAvi, kSampleSize, FormatText("%u bit", unsigned(uBits)));
        AddValue(
            aValues, MetaAvi, kChannels,
            FormatText("%u", unsigned(uChannels)) + (uChannels == 1 ? u"(Mono)" : u"(Stereo)"));
    }
    return true;
}

}  // namespace zv
