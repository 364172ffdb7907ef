#include "ui/logic/PrintFlagsPages.h"

#include "core/document/PrintSettings.h"

namespace zv {
namespace {

constexpr CPrintCheckBox kGeneral[] = {
    {u"Size", PrintSize},
    {u"Size on disk (compressed)", PrintSizeOnDisk},
    {u"Size with subdirectories", PrintSizeSubdirs},
    {u"Size (actual)", PrintSizeActual},
    {u"Size with subdirectories (actual)", PrintSizeActualSubdirs},
    {u"Creation date", PrintCreated},
    {u"Accessed date", PrintAccessed},
    {u"Modified date", PrintModified},
    {u"Attributes (read only, hidden, archive)", PrintAttributes},
    {u"CRC", PrintCrc},
    {u"CRC with subdirectories", PrintCrcSubdirs},
    {u"Time", PrintTime},
    {u"Directory totals", PrintDirTotals},
    {u"Filters", PrintFilters},
    {u"No files just directories", PrintNoFiles},
    {u"No directories just files", PrintNoDirs},
    {u"Owner", PrintOwner},
    {u"Link Count", PrintLinkCount},
    {u"File system information", PrintFileSystemInfo},
    {u"For full paths, print the file name in a separate column", PrintNameSeparateColumn},
    {u"Duplicate group", PrintDuplicateGroup},
    {u"Save as Unicode", SaveAsUnicode},
};

constexpr CPrintCheckBox kMp3[] = {
    {u"Title", 32941},   {u"Artist", 32942},    {u"Album", 32943},       {u"Year", 32944},
    {u"Comment", 32945}, {u"Genre", 32946},     {u"MP3 Version", 32947}, {u"Bitrate", 32948},
    {u"Length", 32949},  {u"Frequency", 32950}, {u"Frames", 32951},      {u"Mode", 32952},
    {u"Track", 33024},
};

constexpr CPrintCheckBox kWav[] = {
    {u"Audio format", 32955},
    {u"Media length", 32956},
    {u"Copyright", 32957},
    {u"Archival location", 32958},
    {u"Artist", 32959},
    {u"Commissioned", 32960},
    {u"Comments", 32961},
    {u"Creation date", 32962},
    {u"Cropped", 32963},
    {u"Dimensions", 32964},
    {u"Dots per inch", 32965},
    {u"Engineer", 32966},
    {u"Genre", 32967},
    {u"Keywords", 32968},
    {u"Lightness", 32969},
    {u"Medium", 32970},
    {u"Name", 32971},
    {u"Pallette", 32972},
    {u"Product", 32973},
    {u"Subject", 32974},
    {u"Software", 32975},
    {u"Sharpness", 32976},
    {u"Source", 32977},
    {u"Source form", 32978},
    {u"Technician", 32979},
    {u"SMPTE", 32980},
    {u"Digization time", 32981},
    {u"Display name", 32982},
    {u"Audio sample rate", 33005},
    {u"Channels", 33006},
    {u"Audio sample size", 33007},
    {u"Bit rate", 33008},
};

constexpr CPrintCheckBox kAvi[] = {
    {u"Frame width", 32941, u"Video Properties"},
    {u"Frame height", 32942},
    {u"Play length", 32943},
    {u"Frame count", 32944},
    {u"Frame rate", 32945},
    {u"Data Rate", 32946},
    {u"Sample size", 32947},
    {u"Compression", 32948},
    {u"Audio format", 32949, u"Audio properties"},
    {u"Average data rate", 32950},
    {u"Sample rate", 32951},
    {u"Channels", 32952},
    {u"Sample size", 32953},
};

constexpr CPrintCheckBox kMsi[] = {
    {u"Title", 32954},        {u"Subject", 32955},
    {u"Keywords", 32957},     {u"Template", 32958},
    {u"Page Count", 32959},   {u"Word Count", 32960},
    {u"Comments", 32961},     {u"Author", 32963},
    {u"Revision", 32964},     {u"Application name", 32965},
    {u"Create date", 32966},  {u"Save date", 32967},
    {u"Printed date", 32968}, {u"Edit time", 32969},
    {u"Last Author", 32970},
};

constexpr CPrintCheckBox kOffice[] = {
    {u"Title", 1702, u"Core"},
    {u"Subject", 1703},
    {u"Author", 1704},
    {u"Category", 1707},
    {u"Keywords", 1708},
    {u"Last Author", 1712},
    {u"Rev Number", 1713},
    {u"Create Date Time", 1716},
    {u"Last Save Date Time", 1717},
    {u"Content Status", 1800},
    {u"Version", 1802},
    {u"Description", 1804},
    {u"Manager", 1705, u"Extended"},
    {u"Company", 1706},
    {u"Comments", 1709},
    {u"Template", 1711},
    {u"Edit Time", 1714},
    {u"Last Printed", 1715},
    {u"Page Count", 1718},
    {u"Word Count", 1719},
    {u"Char Count", 1720},
    {u"App Name", 1721},
    {u"Doc Security", 1722},
    {u"Presentation Format", 1723},
    {u"Byte Count", 1724},
    {u"Line Count", 1725},
    {u"Paragraph Count", 1726},
    {u"Slide Count", 1727},
    {u"Note Count", 1728},
    {u"Hidden Count", 1729},
    {u"MM Clip Count", 1730},
    {u"Scale", 1731},
    {u"Doc Parts", 1732},
    {u"Links Dirty", 1733},
    {u"Total Time", 1794},
    {u"Shared Doc", 1797},
    {u"Hyperlinks Changed", 1798},
    {u"Application Version", 1799},
};

constexpr CPrintCheckBox kVersion[] = {
    {u"Language", 32985},          {u"Company name", 32986},     {u"Description", 32987},
    {u"Version", 32988},           {u"Internal name", 32989},    {u"Copyright", 32990},
    {u"Original filename", 32991}, {u"Product name", 32992},     {u"Product version", 32993},
    {u"Comments", 32994},          {u"Legal trademarks", 32995}, {u"Private build", 32996},
    {u"Special build", 32997},
};

constexpr CPrintCheckBox kHtml[] = {
    {u"Files and Directories are hyperlinks", 0},
};

EMetadataGroup GroupOfPage(EPrintPage ePage) {
    switch (ePage) {
        case PageAvi:
            return MetaAvi;
        case PageMp3:
            return MetaMp3;
        case PageMsi:
            return MetaMsi;
        case PageOffice:
            return MetaOffice;
        case PageVersion:
            return MetaVersion;
        default:
            return MetaWav;
    }
}

}  // namespace

std::u16string_view PrintPageTitle(EPrintPage ePage) {
    static constexpr std::u16string_view aTitles[] = {u"General",   u"AVI",     u"MP3", u"MSI",
                                                      u"MS-Office", u"Version", u"WAV", u"HTML"};
    return aTitles[ePage];
}

std::span<const CPrintCheckBox> PrintPageBoxes(EPrintPage ePage) {
    switch (ePage) {
        case PageGeneral:
            return kGeneral;
        case PageAvi:
            return kAvi;
        case PageMp3:
            return kMp3;
        case PageMsi:
            return kMsi;
        case PageOffice:
            return kOffice;
        case PageVersion:
            return kVersion;
        case PageWav:
            return kWav;
        case PageHtml:
            return kHtml;
        default:
            return {};
    }
}

CPrintFlagsSheetData::CPrintFlagsSheetData(const CPrintSettings& print)
    : m_strPrintTitle(print.m_strPrintTitle) {
    for (int nPage = 0; nPage < PrintPageCount; ++nPage) {
        const auto ePage = static_cast<EPrintPage>(nPage);
        for (const CPrintCheckBox& box : PrintPageBoxes(ePage)) {
            bool bChecked;
            if (ePage == PageGeneral)
                bChecked = print.Flag(static_cast<EPrintFlag>(box.m_nKey));
            else if (ePage == PageHtml)
                bChecked = print.m_bPrintHyperlinks != 0;
            else
                bChecked = print.MetadataFlag(GroupOfPage(ePage), box.m_nKey);
            m_aChecked[ePage].push_back(bChecked);
        }
    }
}

void CPrintFlagsSheetData::SetPage(EPrintPage ePage, bool bAll) {
    const auto aBoxes = PrintPageBoxes(ePage);
    for (size_t i = 0; i < aBoxes.size(); ++i) {
        if (ePage == PageGeneral) {
            if (aBoxes[i].m_nKey == PrintNoDirs || aBoxes[i].m_nKey == SaveAsUnicode) continue;
            if (aBoxes[i].m_nKey == PrintNoFiles) {
                m_aChecked[ePage][i] = 0;
                continue;
            }
        }
        m_aChecked[ePage][i] = bAll;
    }
}

void CPrintFlagsSheetData::SetAllPages(bool bAll) {
    for (int nPage = 0; nPage < PrintPageCount; ++nPage)
        SetPage(static_cast<EPrintPage>(nPage), bAll);
}

std::u16string_view CPrintFlagsSheetData::Problem() const {
    bool bNoFiles = false;
    bool bNoDirs = false;
    const auto aBoxes = PrintPageBoxes(PageGeneral);
    for (size_t i = 0; i < aBoxes.size(); ++i) {
        if (aBoxes[i].m_nKey == PrintNoFiles) bNoFiles = m_aChecked[PageGeneral][i];
        if (aBoxes[i].m_nKey == PrintNoDirs) bNoDirs = m_aChecked[PageGeneral][i];
    }
    if (bNoFiles && bNoDirs)
        return u"You have selected to print\nNo files just directories\nand\nNo directories just "
               u"files";
    return {};
}

void CPrintFlagsSheetData::StoreInto(CPrintSettings& print) const {
    print.m_strPrintTitle = m_strPrintTitle;
    for (int nPage = 0; nPage < PrintPageCount; ++nPage) {
        const auto ePage = static_cast<EPrintPage>(nPage);
        const auto aBoxes = PrintPageBoxes(ePage);
        for (size_t i = 0; i < aBoxes.size(); ++i) {
            const uint8_t bChecked = m_aChecked[ePage][i];
            if (ePage == PageGeneral) {
                print.m_aFlags[static_cast<size_t>(aBoxes[i].m_nKey)] = bChecked;
            } else if (ePage == PageHtml) {
                print.m_bPrintHyperlinks = bChecked;
            } else {
                const EMetadataGroup eGroup = GroupOfPage(ePage);
                const int nIndex = MetadataFieldIndex(eGroup, aBoxes[i].m_nKey);
                if (nIndex >= 0)
                    print.m_aMetadataFlags[eGroup][static_cast<size_t>(nIndex)] = bChecked;
            }
        }
    }
}

}  // namespace zv
