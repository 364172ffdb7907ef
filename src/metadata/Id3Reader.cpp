// The text fields of ID3v2 and ID3v1 tags, read the way this program always
// has: 8-bit text without regard to the encoding byte, version 4 frame sizes
// taken as plain integers, and a few deliberate shortcuts kept below.
#include <cstring>
#include <vector>

#include "metadata/MetadataText.h"
#include "metadata/Mp3Metadata.h"
#include "metadata/Mp3Tags.h"

namespace zv {
namespace {

constexpr int32_t kTitle = 32941, kArtist = 32942, kAlbum = 32943, kYear = 32944, kComment = 32945,
                  kGenre = 32946, kTrack = 33024;

void AddIfNew(MetadataValueList& aValues, int32_t nFieldId, std::u16string strValue) {
    if (!HasField(aValues, nFieldId)) AddValue(aValues, MetaMp3, nFieldId, std::move(strValue));
}

// A frame value in a zero-filled buffer one byte longer than the value, so
// it always ends in a zero. False on a short read, and for a value longer
// than what is left of the file, which no read could fill.
bool ReadValue(IByteStream& file, uint32_t uSize, std::vector<unsigned char>& aBuffer) {
    if (uSize > file.Remaining()) return false;
    aBuffer.assign(size_t(uSize) + 1, 0);
    return file.ReadExact(aBuffer.data(), uSize);
}

// The text from the first byte, or from the second when the first is zero.
std::u16string FrameText(const std::vector<unsigned char>& aBuffer, size_t uSize) {
    const size_t uStart = aBuffer[0] == 0 && uSize > 0 ? 1 : 0;
    return NarrowText(aBuffer.data() + uStart, aBuffer.size() - uStart);
}

// The decimal digits that stand before the first '/'.
std::u16string TrackDigits(const std::u16string& strValue) {
    std::u16string strDigits;
    for (char16_t c : strValue) {
        if (c == u'/') break;
        if (c >= u'0' && c <= u'9') strDigits += c;
    }
    return strDigits;
}

bool ReadId3v22(IByteStream& file, int64_t nRemaining, MetadataValueList& aValues) {
    std::vector<unsigned char> aBuffer;
    while (nRemaining >= 8) {
        unsigned char aHeader[7];
        if (!file.ReadExact(aHeader, sizeof aHeader)) return false;
        nRemaining -= 7;
        // Only the last byte of the three size bytes counts.
        const uint32_t uSize = aHeader[5];
        if (uSize > nRemaining) return false;
        const bool bTitle = std::memcmp(aHeader, "TT2", 3) == 0,
                   bArtist = std::memcmp(aHeader, "TP1", 3) == 0,
                   bAlbum = std::memcmp(aHeader, "TAL", 3) == 0,
                   bGenre = std::memcmp(aHeader, "TCO", 3) == 0,
                   bTrack = std::memcmp(aHeader, "TRK", 3) == 0;
        if (bTitle || bArtist || bAlbum || bGenre || bTrack) {
            if (uSize == 0) continue;
            // The encoding byte went with the header.
            if (!ReadValue(file, uSize - 1, aBuffer)) return false;
            nRemaining -= uSize - 1;
            const std::u16string strText = FrameText(aBuffer, uSize - 1);
            if (bGenre) {
                // "(17)" gives the genre of index 17; no digit gives index 0.
                int64_t nNumber = 0;
                for (char16_t c : strText) {
                    if (c == u')') break;
                    if (c >= u'0' && c <= u'9')
                        nNumber = std::min<int64_t>(nNumber * 10 + (c - u'0'), INT32_MAX);
                }
                AddIfNew(aValues, kGenre, Mp3GenreText(unsigned(nNumber) & 0xFF));
            } else if (bTrack) {
                AddIfNew(aValues, kTrack, TrackDigits(strText));
            } else {
                AddIfNew(aValues, bTitle ? kTitle : bArtist ? kArtist : kAlbum, strText);
            }
            continue;
        }
        static constexpr unsigned char kZero[7] = {};
        if (std::memcmp(aHeader, kZero, sizeof kZero) == 0) return true;  // padding
        nRemaining -= uSize;
        if (!file.Skip(int64_t(uSize) - 1)) return false;
    }
    return true;
}

bool ReadId3v23(IByteStream& file, int64_t nRemaining, bool bExtendedHeader,
                MetadataValueList& aValues) {
    if (bExtendedHeader) {
        // Its own size field is not consulted.
        unsigned char aExtended[10];
        if (!file.ReadExact(aExtended, sizeof aExtended)) return false;
        nRemaining -= 10;
    }
    bool bComment = false, bArtist = false, bAlbum = false, bYear = false, bGenre = false;
    // Title and track share one flag on purpose: the scan may end before
    // the second of them is read.
    bool bTitleOrTrack = false;
    std::vector<unsigned char> aBuffer;
    while (nRemaining >= 11) {
        if (bComment && bArtist && bAlbum && bYear && bGenre && bTitleOrTrack) return true;
        unsigned char aHeader[10];
        if (!file.ReadExact(aHeader, sizeof aHeader)) return false;
        nRemaining -= 10;
        const uint32_t uSize = uint32_t(aHeader[4]) << 24 | uint32_t(aHeader[5]) << 16 |
                               uint32_t(aHeader[6]) << 8 | aHeader[7];
        const auto Is = [&aHeader](const char* pszId) {
            return std::memcmp(aHeader, pszId, 4) == 0;
        };
        if (Is("COMM"))
            bComment = true;
        else if (Is("TPE1"))
            bArtist = true;
        else if (Is("TALB"))
            bAlbum = true;
        else if (Is("TYER"))
            bYear = true;
        else if (Is("TCON"))
            bGenre = true;
        else if (Is("TIT2") || Is("TRCK"))
            bTitleOrTrack = true;
        if (uSize > nRemaining) return false;

        if (Is("TYER")) {
            // Only 6 bytes are read; the rest of a longer frame is not
            // skipped, so the next header is read right behind them.
            unsigned char aYear[7] = {};
            const int64_t nRead = file.Read(aYear, std::min<uint32_t>(uSize, 6));
            if (nRead < 0) return false;
            nRemaining -= nRead;
            AddIfNew(aValues, kYear, NarrowText(aYear + 1, 6));
        } else if (Is("COMM")) {
            if (uSize < 5) continue;
            unsigned char aLanguage[4];
            if (!file.ReadExact(aLanguage, sizeof aLanguage)) return false;
            if (!ReadValue(file, uSize - 4, aBuffer)) return false;
            nRemaining -= uSize;
            // The first zero parts the short description from the text.
            for (size_t n = 0; n < uSize - 4; ++n) {
                if (aBuffer[n] == 0) {
                    aBuffer[n] = ' ';
                    break;
                }
            }
            std::u16string strText = NarrowText(aBuffer.data(), aBuffer.size());
            TrimRight(strText);
            if (!strText.empty()) AddIfNew(aValues, kComment, std::move(strText));
        } else if (Is("TPE1") || Is("TALB") || Is("TIT2") || Is("TCON")) {
            if (uSize == 0) continue;
            if (!ReadValue(file, uSize, aBuffer)) return false;
            nRemaining -= uSize;
            // Genres stay as text: "(17)" is not looked up.
            const int32_t nField = Is("TPE1")   ? kArtist
                                   : Is("TALB") ? kAlbum
                                   : Is("TIT2") ? kTitle
                                                : kGenre;
            AddIfNew(aValues, nField, FrameText(aBuffer, uSize));
        } else if (Is("TRCK")) {
            if (!ReadValue(file, uSize, aBuffer)) return false;
            nRemaining -= uSize;
            AddIfNew(aValues, kTrack, TrackDigits(NarrowText(aBuffer.data(), aBuffer.size())));
        } else {
            static constexpr unsigned char kZero[10] = {};
            if (std::memcmp(aHeader, kZero, sizeof kZero) == 0) return true;  // padding
            nRemaining -= uSize;
            if (!file.Skip(uSize)) return false;
        }
    }
    return true;
}

}  // namespace

bool ReadId3v2(IByteStream& file, MetadataValueList& aValues) {
    unsigned char aHeader[10];
    if (!file.Seek(0) || !file.ReadExact(aHeader, sizeof aHeader)) return false;
    if (std::memcmp(aHeader, "ID3", 3) != 0 || aHeader[3] == 0xFF || aHeader[4] == 0xFF)
        return false;
    const uint32_t uSize = DecodeSynchsafe(uint32_t(aHeader[6]) | uint32_t(aHeader[7]) << 8 |
                                           uint32_t(aHeader[8]) << 16 | uint32_t(aHeader[9]) << 24);
    if (uSize == 0) return false;
    // Every version but 2 takes the version 3 layout, version 4 included.
    if (aHeader[3] == 2) return ReadId3v22(file, uSize, aValues);
    return ReadId3v23(file, uSize, (aHeader[5] & 0x40) != 0, aValues);
}

bool ReadId3v1(IByteStream& file, MetadataValueList& aValues) {
    unsigned char aTag[128];
    if (file.Size() < 128 || !file.Seek(file.Size() - 128) || !file.ReadExact(aTag, sizeof aTag))
        return false;
    if (std::memcmp(aTag, "TAG", 3) != 0) return true;
    // No ID3v1.1 track byte: bytes 125 and 126 belong to the comment.
    const struct {
        int32_t nFieldId;
        size_t uOffset, uSize;
    } aFields[] = {
        {kTitle, 3, 30}, {kArtist, 33, 30}, {kAlbum, 63, 30}, {kYear, 93, 4}, {kComment, 97, 30}};
    for (const auto& field : aFields) {
        std::u16string strText = NarrowText(aTag + field.uOffset, field.uSize);
        TrimRight(strText);
        if (!strText.empty()) AddIfNew(aValues, field.nFieldId, std::move(strText));
    }
    if (!HasField(aValues, kGenre)) {
        std::u16string strGenre = Mp3GenreText(aTag[127]);
        if (!strGenre.empty()) AddValue(aValues, MetaMp3, kGenre, std::move(strGenre));
    }
    return true;
}

bool HasId3v1Tag(std::u16string_view strPath) {
    CFileByteStream file;
    char aTag[3];
    return file.Open(strPath) && file.Size() >= 128 && file.Seek(file.Size() - 128) &&
           file.ReadExact(aTag, 3) && std::memcmp(aTag, "TAG", 3) == 0;
}

}  // namespace zv
