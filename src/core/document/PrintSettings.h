// Report settings of the main document: print flags, title, page layout,
// fonts and the Auto Print blocks, with their defaults.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/document/MetadataPrintFields.h"

namespace zv {

enum EPrintFlag {
    PrintSize,
    PrintSizeOnDisk,
    PrintSizeSubdirs,
    PrintSizeActual,
    PrintSizeActualSubdirs,
    PrintCreated,
    PrintAccessed,
    PrintModified,
    PrintAttributes,
    PrintCrc,
    PrintCrcSubdirs,
    PrintTime,
    PrintDirTotals,
    PrintFilters,
    PrintNoFiles,
    PrintNoDirs,
    PrintOwner,
    PrintLinkCount,
    PrintFileSystemInfo,
    PrintNameSeparateColumn,
    PrintDuplicateGroup,
    SaveAsUnicode,
    PrintFlagCount
};

// Report forms of Auto Print and the print flags dialog.
enum EPrintType {
    PrintTypeNone = 0,
    PrintTypeText = 1,
    PrintTypeExcel = 2,
    PrintTypeHtml = 3,
    PrintTypeXml = 4
};

// A font as the settings file keeps it, laid out like LOGFONT.
struct CFontSettings {
    int32_t m_nHeight = 0;
    int32_t m_nWidth = 0;
    int32_t m_nEscapement = 0;
    int32_t m_nOrientation = 0;
    int32_t m_nWeight = 0;
    uint8_t m_bItalic = 0;
    uint8_t m_bUnderline = 0;
    uint8_t m_bStrikeOut = 0;
    uint8_t m_nCharSet = 0;
    uint8_t m_nOutPrecision = 0;
    uint8_t m_nClipPrecision = 0;
    uint8_t m_nQuality = 0;
    uint8_t m_nPitchAndFamily = 0;
    std::u16string m_strFaceName;
};

struct CAutoPrintBlock {
    uint8_t m_bEnabled = 0;
    int32_t m_nType = PrintTypeNone;
    std::u16string m_strFile;
    uint8_t m_bAppendDate = 0;
    uint8_t m_nFileSort = 0;  // where the block has one
    uint8_t m_nDirSort = 0;   // where the block has one
    uint8_t m_bFullPath = 0;  // main report only
};

struct CAutoPrintSettings {
    CAutoPrintBlock m_main{0, PrintTypeNone, {}, 0, 5, 9, 0};
    CAutoPrintBlock m_dupFiles{0, PrintTypeNone, {}, 0, 5, 0, 0};
    CAutoPrintBlock m_dupDirs{0, PrintTypeNone, {}, 0, 0, 9, 0};
    CAutoPrintBlock m_largestFiles{0, PrintTypeNone, {}, 0, 5, 0, 0};
    CAutoPrintBlock m_largestDirs{0, PrintTypeNone, {}, 0, 0, 7, 0};
    CAutoPrintBlock m_largestOwner;
    CAutoPrintBlock m_largestType;
    uint8_t m_bExit = 0;            // "Exit program after printing"
    uint8_t m_bSeparateColumn = 0;  // "file name in a separate column"

    bool AnyEnabled() const {
        return m_main.m_bEnabled || m_dupFiles.m_bEnabled || m_dupDirs.m_bEnabled ||
               m_largestFiles.m_bEnabled || m_largestDirs.m_bEnabled || m_largestOwner.m_bEnabled ||
               m_largestType.m_bEnabled;
    }
};

struct CPrintSettings {
    CPrintSettings();

    std::array<uint8_t, PrintFlagCount> m_aFlags{};
    int32_t m_bPrintHyperlinks = 0;
    std::u16string m_strPrintTitle;

    // One flag per metadata field, in the order of MetadataPrintFields();
    // all on by default.
    std::array<std::vector<uint8_t>, MetadataGroupCount> m_aMetadataFlags;

    // Column widths of printed pages as fractions of the printable width.
    double m_dWidthName = 0.4;
    double m_dWidthSize = 0.09;
    double m_dWidthDate = 0.09;
    double m_dWidthCrc = 0.09;
    double m_dWidthOwner = 0.09;
    double m_dWidthLinkCount = 0.045;
    double m_dWidthAttributes = 0.045;
    // Largest owner and largest type reports.
    double m_aOwnerWidths[3] = {0.5, 0.25, 0.25};
    double m_aTypeWidths[3] = {0.5, 0.25, 0.25};

    int32_t m_bMarginSpread = 1;
    int32_t m_nMarginLeft = 40;
    int32_t m_nMarginTop = 40;
    int32_t m_nMarginRight = 0;
    int32_t m_nMarginBottom = 0;

    // The print font; "[FONTS]" of a settings file. A font counts as chosen
    // while the use-default flag is clear.
    CFontSettings m_printFont;
    int32_t m_nPrintFontSize = 0;
    int32_t m_bPrintFontDefault = 1;
    CFontSettings m_listFont;
    int32_t m_nListFontSize = 0;
    int32_t m_bListFontDefault = 1;

    CAutoPrintSettings m_autoPrint;

    bool Flag(EPrintFlag eFlag) const { return m_aFlags[eFlag] != 0; }
    // False for a field id the group does not have.
    bool MetadataFlag(EMetadataGroup eGroup, int32_t nFieldId) const;
};

}  // namespace zv
