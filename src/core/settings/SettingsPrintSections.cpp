// Sections of the report settings: the Auto Print blocks, the print font,
// widths, margins and print flags.
#include "core/document/PrintSettings.h"
#include "core/settings/SettingsSections.h"
#include "core/settings/SettingsValues.h"
#include "core/settings/SettingsWords.h"

namespace zv {
namespace {

// What an Auto Print block carries beyond the keys all blocks have.
enum EAutoPrintExtra : unsigned {
    ExtraNone = 0,
    ExtraFileSort = 1,
    ExtraDirSort = 2,
    ExtraMain = 4,  // "Print Full Path" and the two keys of the whole run
};

// "print_type" takes its exact words.
CSettingsKey PrintTypeKey(int32_t& nType) {
    return {u"print_type", [&nType](std::u16string_view v) { nType = PrintTypeFromWord(v); },
            [&nType] { return std::u16string(PrintTypeWord(nType)); }};
}

// Keys beyond "autoprint" are written only while the block is on, but are
// read at any time.
std::unique_ptr<ISettingsSection> MakeAutoPrintSection(std::u16string_view strName,
                                                       CAutoPrintBlock& block,
                                                       CAutoPrintSettings& run, unsigned uExtra) {
    auto Enabled = [&block] { return block.m_bEnabled != 0; };
    std::vector<CSettingsKey> aKeys{
        FlagKey(u"autoprint", block.m_bEnabled),
        WrittenIf(PrintTypeKey(block.m_nType), Enabled),
        WrittenIf(TextKey(u"fname", block.m_strFile), Enabled),
        WrittenIf(FlagKey(u"Append date to file name", block.m_bAppendDate), Enabled),
    };
    if (uExtra & ExtraFileSort)
        aKeys.push_back(WrittenIf(FileSortKey(u"Files sort by", block.m_nFileSort), Enabled));
    if (uExtra & ExtraDirSort)
        aKeys.push_back(WrittenIf(DirSortKey(u"Directories sort by", block.m_nDirSort), Enabled));
    if (uExtra & ExtraMain) {
        aKeys.push_back(WrittenIf(FlagKey(u"Print Full Path", block.m_bFullPath), Enabled));
        aKeys.push_back(FlagKey(u"Exit program after printing", run.m_bExit));
        aKeys.push_back(FlagKey(u"file name in a separate column", run.m_bSeparateColumn));
    }
    return std::make_unique<CKeySection>(strName, std::move(aKeys));
}

std::unique_ptr<ISettingsSection> MakeWidthsSection(std::u16string_view strName,
                                                    std::u16string_view strFirstKey,
                                                    double (&aWidths)[3]) {
    return std::make_unique<CKeySection>(
        strName, std::vector<CSettingsKey>{RealKey(strFirstKey, aWidths[0]),
                                           RealKey(u"number of files width", aWidths[1]),
                                           RealKey(u"size width", aWidths[2])});
}

struct CGeneralFlagKey {
    std::u16string_view m_strKey;
    EPrintFlag m_eFlag;
};

constexpr CGeneralFlagKey kGeneralFlagKeys[] = {
    {u"Print accessed date", PrintAccessed},
    {u"Print CRC", PrintCrc},
    {u"Print CRC with SUBDIR", PrintCrcSubdirs},
    {u"Print create date", PrintCreated},
    {u"Print time", PrintTime},
    {u"Print directory totals", PrintDirTotals},
    {u"Print modify date", PrintModified},
    {u"Print attributes", PrintAttributes},
    {u"Print no files", PrintNoFiles},
    {u"Print no dirs", PrintNoDirs},
    {u"Print owner", PrintOwner},
    {u"Print file name in separate column", PrintNameSeparateColumn},
    {u"Print size", PrintSize},
    {u"Print size on disk", PrintSizeOnDisk},
    {u"Print size actual", PrintSizeActual},
    {u"Print size with subdirs", PrintSizeSubdirs},
    {u"Print size with subdirs actual", PrintSizeActualSubdirs},
    {u"Print filters", PrintFilters},
    {u"Print file system information", PrintFileSystemInfo},
    {u"Print duplicate group", PrintDuplicateGroup},
    {u"Link count", PrintLinkCount},
    {u"Unicode", SaveAsUnicode},
};

}  // namespace

void AddAutoPrintSections(CPrintSettings& print, CSettingsSections& aSections) {
    CAutoPrintSettings& run = print.m_autoPrint;
    const struct {
        std::u16string_view m_strName;
        CAutoPrintBlock& m_block;
        unsigned m_uExtra;
    } aBlocks[] = {
        {u"[AUTOPRINT_MAIN]", run.m_main, ExtraFileSort | ExtraDirSort | ExtraMain},
        {u"[AUTOPRINT_DUP_DIRS]", run.m_dupDirs, ExtraDirSort},
        {u"[AUTOPRINT_DUP_FILES]", run.m_dupFiles, ExtraFileSort},
        {u"[AUTOPRINT_LARGEST_FILES]", run.m_largestFiles, ExtraFileSort},
        {u"[AUTOPRINT_LARGEST_DIRS]", run.m_largestDirs, ExtraDirSort},
        {u"[AUTOPRINT_LARGEST_OWNER]", run.m_largestOwner, ExtraNone},
        {u"[AUTOPRINT_LARGEST_TYPE]", run.m_largestType, ExtraNone},
    };
    for (const auto& block : aBlocks)
        aSections.push_back(
            MakeAutoPrintSection(block.m_strName, block.m_block, run, block.m_uExtra));
}

// Written only when a font was chosen. Reading the section marks it chosen
// and first clears the whole record; "font weight" is not read back, so the
// weight stays 0, and "font size" keeps only its low 8 bits.
std::unique_ptr<ISettingsSection> MakeFontSection(CPrintSettings& print) {
    CFontSettings& font = print.m_printFont;
    CSettingsKey weight = IntegerKey(u"font weight", font.m_nWeight);
    weight.m_fnRead = nullptr;
    CSettingsKey size = IntegerKey(u"font size", print.m_nPrintFontSize);
    size.m_fnRead = [&print](std::u16string_view v) {
        print.m_nPrintFontSize = ParseSettingsInteger(v) & 0xFF;
    };
    auto pSection = std::make_unique<CKeySection>(
        u"[FONTS]", std::vector<CSettingsKey>{
                        size,
                        IntegerKey(u"font height", font.m_nHeight),
                        IntegerKey(u"font width", font.m_nWidth),
                        IntegerKey(u"font escapement", font.m_nEscapement),
                        IntegerKey(u"font orientation", font.m_nOrientation),
                        weight,
                        ByteKey(u"font italic", font.m_bItalic),
                        ByteKey(u"font underline", font.m_bUnderline),
                        ByteKey(u"font strikeout", font.m_bStrikeOut),
                        ByteKey(u"font charset", font.m_nCharSet),
                        ByteKey(u"font out precision", font.m_nOutPrecision),
                        ByteKey(u"font clip precision", font.m_nClipPrecision),
                        ByteKey(u"font quality", font.m_nQuality),
                        ByteKey(u"font pitch and family", font.m_nPitchAndFamily),
                        TextKey(u"font fact name", font.m_strFaceName),
                    });
    pSection->m_fnWritten = [&print] { return print.m_bPrintFontDefault == 0; };
    pSection->m_fnBegin = [&print] {
        print.m_printFont = CFontSettings{};
        print.m_bPrintFontDefault = 0;
    };
    return pSection;
}

void AddLayoutSections(CPrintSettings& print, CSettingsSections& aSections) {
    aSections.push_back(std::make_unique<CKeySection>(
        u"[PRINTING WIDTHS]", std::vector<CSettingsKey>{
                                  RealKey(u"name width", print.m_dWidthName),
                                  RealKey(u"size width", print.m_dWidthSize),
                                  RealKey(u"date width", print.m_dWidthDate),
                                  RealKey(u"CRC width", print.m_dWidthCrc),
                                  RealKey(u"Owner width", print.m_dWidthOwner),
                              }));
    aSections.push_back(
        MakeWidthsSection(u"[LARGEST OWNER WIDTHS]", u"owner width", print.m_aOwnerWidths));
    aSections.push_back(
        MakeWidthsSection(u"[LARGEST TYPE WIDTHS]", u"type width", print.m_aTypeWidths));
    aSections.push_back(std::make_unique<CKeySection>(
        u"[MARGINS]", std::vector<CSettingsKey>{
                          FlagKey(u"spread unused space", print.m_bMarginSpread),
                          IntegerKey(u"left margin", print.m_nMarginLeft),
                          IntegerKey(u"top margin", print.m_nMarginTop),
                          IntegerKey(u"right margin", print.m_nMarginRight),
                          IntegerKey(u"bottom margin", print.m_nMarginBottom),
                      }));
}

void AddPrintFlagSections(CPrintSettings& print, CSettingsSections& aSections) {
    std::vector<CSettingsKey> aGeneral;
    for (const CGeneralFlagKey& key : kGeneralFlagKeys)
        aGeneral.push_back(FlagKey(key.m_strKey, print.m_aFlags[key.m_eFlag]));
    aSections.push_back(
        std::make_unique<CKeySection>(u"[GENERAL PRINT FLAGS]", std::move(aGeneral)));

    for (const EMetadataGroup eGroup :
         {MetaMsi, MetaOffice, MetaMp3, MetaWav, MetaAvi, MetaVersion}) {
        const auto aFields = MetadataPrintFields(eGroup);
        std::vector<uint8_t>& aFlags = print.m_aMetadataFlags[eGroup];
        std::vector<CSettingsKey> aKeys;
        for (size_t i = 0; i < aFields.size(); ++i)
            aKeys.push_back(FlagKey(aFields[i].m_strSettingsKey, aFlags[i]));
        aSections.push_back(
            std::make_unique<CKeySection>(MetadataSettingsSection(eGroup), std::move(aKeys)));
    }

    aSections.push_back(std::make_unique<CKeySection>(
        u"[HTML PRINT FLAGS]", std::vector<CSettingsKey>{FlagKey(u"Print files/dirs as hyperlinks",
                                                                 print.m_bPrintHyperlinks)}));
}

}  // namespace zv
