#include <algorithm>
#include <iterator>

#include "metadata/RiffMetadata.h"

namespace zv {
namespace {

struct CWaveFormat {
    uint16_t uTag;
    const char16_t* pszName;
};

// Sorted by tag. The spellings are the ones reports have always shown.
constexpr CWaveFormat kFormats[] = {
    {0, u"UNKNOWN"},
    {1, u"PCM"},
    {2, u"Microsoft ADPCM"},
    {3, u"IEEE_FLOAT"},
    {5, u"IBM CVSD"},
    {6, u"Microsoft ALAW"},
    {7, u"Microsoft MULAW"},
    {16, u"OKI ADPCM"},
    {17, u"Intel DVI_ADPCM"},
    {18, u"Videologic MEDIASPACE_ADPCM"},
    {19, u"Sierra Semiconductor ADPCM"},
    {20, u"Antex Electronics G723_ADPCM"},
    {21, u"DSP Solutions DIGISTD"},
    {22, u"DSP Solutions DIGIFIX"},
    {23, u"Dialogic ADPCM"},
    {24, u"Media Vision ADPCM"},
    {32, u"Yamaha ADPCM"},
    {33, u"Speech Compression SONARC"},
    {34, u"DSP Group TRUESPEECH"},
    {35, u"Echo Speech ECHOSC1"},
    {36, u"AUSIOFILE_AF36"},
    {37, u"Audio Processing Technology APTX"},
    {38, u"AUDIOFILE_AF10"},
    {48, u"Dolby Laboratories AC2"},
    {49, u"Microsoft GSM610"},
    {50, u"Microsoft MSNAUDIO"},
    {51, u"Antex Electronics ADPCME"},
    {52, u"Control Resources VQLPC"},
    {53, u"DSP Solutions REAL"},
    {54, u"DSP Solutions ADPCM"},
    {55, u"Control Resources CR10"},
    {56, u"Natural MicroSystems VBXADPCM"},
    {57, u"Crystal Semiconductor IMAADPCM"},
    {58, u"Echo Speech C3"},
    {59, u"Rockwell ADPCM"},
    {60, u"Rockwell DIGITALK"},
    {61, u"Xebec Multimedia Solutions"},
    {64, u"Antex Electronics ADPCM"},
    {65, u"Antex Electronics CELP"},
    {80, u"MPEG"},
    {85, u"MPEG Layer-3"},
    {96, u"Cirrus Logic"},
    {97, u"ESS Technology PCM"},
    {98, u"Voxware"},
    {99, u"Canopus ATRAC"},
    {100, u"APICOM G726_ADPCM"},
    {101, u"APICOM G722_ADPCM"},
    {103, u"Microsoft DSAT_DISPLAY"},
    {128, u"Softsound"},
    {256, u"Rhetorex ADPCM"},
    {512, u"Creative ADPCM"},
    {514, u"Creative FASTSPEECH8"},
    {515, u"Creative FASTSPEECH10"},
    {544, u"Quarterdeck"},
    {768, u"Fujitsu FM_TOWNS_SND"},
    {1024, u"Brooktree DIGITAL"},
    {4096, u"Ing C. Olivetti GSM"},
    {4097, u"Ing C. Olivetti ADPCM"},
    {4098, u"Ing C. Olivetti CELP"},
    {4099, u"Ing C. Olivetti SBC"},
    {4100, u"Ing C. Olivetti PR"},
    {4352, u"Lernout & Hauspie CODEC"},
    {5120, u"Norris"},
    {65535, u"Development"},
};

}  // namespace

std::u16string WaveFormatName(uint16_t uTag) {
    const auto* pEnd = std::end(kFormats);
    const auto* p = std::lower_bound(std::begin(kFormats), pEnd, uTag,
                                     [](const CWaveFormat& f, uint16_t u) { return f.uTag < u; });
    return p != pEnd && p->uTag == uTag ? p->pszName : u"Unknown";
}

}  // namespace zv
