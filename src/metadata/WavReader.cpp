// WAV files: the format chunk, the length from the data chunk, and the
// INFO list behind it, walked as the multimedia chunk calls walk RIFF files.
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

#include "metadata/MetadataText.h"
#include "metadata/RiffMetadata.h"

namespace zv {
namespace {

constexpr int32_t kFormat = 32955, kSampleRate = 33005, kChannels = 33006, kSampleSize = 33007,
                  kBitRate = 33008, kLength = 32956, kCopyright = 32957;

// The INFO ids and their fields, in the order of the WAV table.
constexpr struct {
    char szId[5];
    int32_t nFieldId;
} kInfoIds[] = {
    {"ICOP", 32957}, {"IARL", 32958}, {"IART", 32959}, {"ICMS", 32960}, {"ICMT", 32961},
    {"ICRD", 32962}, {"ICRP", 32963}, {"IDIM", 32964}, {"IDPI", 32965}, {"IENG", 32966},
    {"IGNR", 32967}, {"IKEY", 32968}, {"ILGT", 32969}, {"IMED", 32970}, {"INAM", 32971},
    {"IPLT", 32972}, {"IPRD", 32973}, {"ISBJ", 32974}, {"ISFT", 32975}, {"ISHP", 32976},
    {"ISRC", 32977}, {"ISRF", 32978}, {"ITCH", 32979}, {"ISMP", 32980}, {"IDIT", 32981},
    {"DISP", 32982},
};

uint32_t Le32(const unsigned char* p) {
    return uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | uint32_t(p[3]) << 24;
}
uint16_t Le16(const unsigned char* p) { return uint16_t(p[0] | p[1] << 8); }

struct CChunk {
    char szId[4] = {};
    uint32_t uSize = 0;
    uint64_t uDataOffset = 0;  // for RIFF and LIST: where the form type stands
};

bool IsListId(const char* pszId) {
    return std::memcmp(pszId, "RIFF", 4) == 0 || std::memcmp(pszId, "LIST", 4) == 0;
}

// Reads a chunk header at the current position; a RIFF or LIST chunk's
// form type is read with it.
bool ReadChunkHeader(IByteStream& file, CChunk& chunk, char* pszType) {
    unsigned char aHeader[8];
    if (!file.ReadExact(aHeader, sizeof aHeader)) return false;
    std::memcpy(chunk.szId, aHeader, 4);
    chunk.uSize = Le32(aHeader + 4);
    chunk.uDataOffset = file.Position();
    if (IsListId(chunk.szId)) return file.ReadExact(pszType, 4);
    return true;
}

// Looks for a chunk of the id from the current position to the end of the
// parent, skipping others (padded to even sizes).
bool FindChunk(IByteStream& file, const CChunk& parent, const char* pszId, CChunk& chunk) {
    const uint64_t uEnd = parent.uDataOffset + parent.uSize;
    char szType[4];
    for (;;) {
        if (file.Position() + 8 > uEnd) return false;
        if (!ReadChunkHeader(file, chunk, szType)) return false;
        if (std::memcmp(chunk.szId, pszId, 4) == 0) return true;
        if (!file.Seek(chunk.uDataOffset + chunk.uSize + (chunk.uSize & 1))) return false;
    }
}

bool Ascend(IByteStream& file, const CChunk& chunk) {
    return file.Seek(chunk.uDataOffset + chunk.uSize + (chunk.uSize & 1));
}

std::u16string SampleRateText(uint32_t uRate) {
    // The two short forms are those reports have always shown.
    if (uRate == 11025) return u"11.25 kHz";
    if (uRate == 22050) return u"22.50 kHz";
    return FormatFixed(uRate * 0.001, 2) + u" kHz";
}

// The INFO sub-chunks from the current position: every value is taken as
// 16-bit text, whatever its bytes are.
void ReadInfoList(IByteStream& file, MetadataValueList& aValues) {
    unsigned char aId[4], aSize[4], aSkip[4];
    if (!file.ReadExact(aId, 4)) return;
    for (;;) {
        int32_t nFieldId = 0;
        for (const auto& info : kInfoIds)
            if (std::memcmp(aId, info.szId, 4) == 0) nFieldId = info.nFieldId;
        if (!nFieldId) return;
        const bool bDisplay = std::memcmp(aId, "DISP", 4) == 0;
        if (!file.ReadExact(aSize, 4)) return;
        uint32_t uSize = Le32(aSize);
        if (bDisplay) {
            if (!file.ReadExact(aSkip, 4)) return;  // the clipboard type
            uSize -= 4;
        }
        // A size beyond the end of the file could never be read.
        if (uSize > file.Remaining()) return;
        std::vector<unsigned char> aBuffer(size_t(uSize) + 2, 0);
        if (!file.ReadExact(aBuffer.data(), uSize)) return;
        AddValue(aValues, MetaWav, nFieldId, WideText(aBuffer.data(), size_t(uSize) + 1));
        if ((uSize & 1) && !file.ReadExact(aSkip, 1)) return;
        if (bDisplay && !file.ReadExact(aSkip, 4)) return;
        if (!file.ReadExact(aId, 4)) return;
    }
}

bool ReadWavChunks(IByteStream& file, MetadataValueList& aValues) {
    CChunk riff;
    char szForm[4];
    if (!ReadChunkHeader(file, riff, szForm) || std::memcmp(riff.szId, "RIFF", 4) != 0 ||
        std::memcmp(szForm, "WAVE", 4) != 0)
        return false;
    CChunk format;
    if (!FindChunk(file, riff, "fmt ", format) || format.uSize < 16) return false;
    unsigned char aFormat[16];
    if (!file.ReadExact(aFormat, sizeof aFormat)) return false;
    const uint16_t uTag = Le16(aFormat), uChannels = Le16(aFormat + 2);
    const uint32_t uRate = Le32(aFormat + 4), uAverage = Le32(aFormat + 8);
    const uint16_t uBits = Le16(aFormat + 14);
    if (uTag != 1) {
        unsigned char aExtraSize[2];
        if (!file.ReadExact(aExtraSize, 2)) return false;
        const uint16_t uExtra = Le16(aExtraSize);
        std::vector<unsigned char> aExtra(uExtra);
        if (!file.ReadExact(aExtra.data(), uExtra)) return false;
    }

    AddValue(aValues, MetaWav, kFormat, WaveFormatName(uTag));
    AddValue(aValues, MetaWav, kSampleRate, SampleRateText(uRate));
    AddValue(aValues, MetaWav, kSampleSize, FormatText("%u bit", unsigned(uBits)));
    std::u16string strChannels = FormatText("%u", unsigned(uChannels));
    if (uChannels == 1)
        strChannels += u" (Mono)";
    else if (uChannels)
        strChannels += u" (Stereo)";
    AddValue(aValues, MetaWav, kChannels, std::move(strChannels));
    AddValue(aValues, MetaWav, kBitRate,
             FormatFixed(std::floor(uAverage * 8.0 * 0.001), 0) + u"kbps");

    if (!Ascend(file, format)) return true;
    if (!file.Seek(riff.uDataOffset + 4)) return true;
    CChunk data;
    if (!FindChunk(file, riff, "data", data) || !Ascend(file, data)) return true;
    if (uAverage != 0) {
        double dSeconds = double(data.uSize) / uAverage;
        if (dSeconds < 1.0) dSeconds *= 10.0;  // short sounds show ten times their length
        AddValue(aValues, MetaWav, kLength, FormatDuration(dSeconds));
    }
    CChunk list;
    if (!FindChunk(file, riff, "LIST", list)) return true;
    ReadInfoList(file, aValues);
    return true;
}

}  // namespace

bool ReadWavMetadata(std::u16string_view strPath, MetadataValueList& aValues) {
    aValues.clear();
    CFileByteStream file;
    if (!file.Open(strPath)) return false;
    return ReadWavStream(file, aValues);
}

bool ReadWavStream(IByteStream& file, MetadataValueList& aValues) {
    aValues.clear();
    const bool bResult = ReadWavChunks(file, aValues);
    // The copyright stands third.
    for (size_t n = 0; n < aValues.size(); ++n) {
        if (aValues[n].m_pDef->m_nFieldId == kCopyright && n != 2 && aValues.size() > 2) {
            std::swap(aValues[n], aValues[2]);
            break;
        }
    }
    return bResult;
}

}  // namespace zv
