// Sections of the document's options: scan, display, analyses, checksums
// and the diff program.
#include "core/document/DocumentOptions.h"
#include "core/settings/SettingsSections.h"
#include "core/settings/SettingsValues.h"
#include "core/settings/SettingsWords.h"

namespace zv {
namespace {

// Sets the unit and its text together; another word changes nothing.
CSettingsKey DisplaySizeKey(CDocumentOptions& options) {
    return {u"Display size",
            [&options](std::u16string_view v) {
                if (SizeUnitFromWord(v, options.m_nSizeUnit))
                    options.m_strSizeUnit = SizeUnitText(options.m_nSizeUnit);
            },
            [&options] { return std::u16string(SizeUnitWord(options.m_nSizeUnit)); }};
}

// "Show CRC HEX" and "Show CRC Decimal" are written only when on; reading
// either one sets the other to the opposite.
CSettingsKey CrcFormKey(std::u16string_view strKey, int32_t& bThis, int32_t& bOther) {
    return {strKey,
            [&bThis, &bOther](std::u16string_view v) {
                bThis = ParseSettingsInteger(v) != 0;
                bOther = !bThis;
            },
            [&bThis]() -> std::optional<std::u16string> {
                if (!bThis) return std::nullopt;
                return FormatSettingsInteger(bThis);
            }};
}

}  // namespace

std::unique_ptr<ISettingsSection> MakeOtherSection(CDocumentOptions& options) {
    return std::make_unique<CKeySection>(
        u"[OTHER]", std::vector<CSettingsKey>{
                        FlagKey(u"Scan Subdirectories", options.m_bScanSubdirs),
                        IntegerKey(u"Maximum dir depth", options.m_nMaxDepth),
                        DisplaySizeKey(options),
                        FileSortKey(u"Files sort by", options.m_nFileSort),
                        DirSortKey(u"Directories sort by", options.m_nDirSort),
                    });
}

// The last three are integers kept as read.
std::unique_ptr<ISettingsSection> MakeComputeSection(CDocumentOptions& options) {
    auto pSection = std::make_unique<CKeySection>(
        u"[COMPUTE]", std::vector<CSettingsKey>{
                          FlagKey(u"Largest files flag", options.m_bLargestFiles),
                          IntegerKey(u"Largest files count", options.m_nLargestFilesCount),
                          FlagKey(u"Largest directories flag", options.m_bLargestDirs),
                          IntegerKey(u"Largest directories count", options.m_nLargestDirsCount),
                          IntegerKey(u"Largest owner flag", options.m_bLargestOwner),
                          IntegerKey(u"Largest type flag", options.m_bLargestType),
                          IntegerKey(u"Check for NTFS streams", options.m_bCheckStreams),
                      });
    pSection->m_strComment = u"# a size of -1 denotes no limit";
    return pSection;
}

// The criterion without MP3 tags and "only duplicates" are not kept here.
std::unique_ptr<ISettingsSection> MakeDuplicateOptionsSection(CDocumentOptions& options) {
    CDuplicateFileCriteria& files = options.m_dupFiles;
    int32_t* aDirs = options.m_dupDirs.m_aCriteria;
    return std::make_unique<CKeySection>(
        u"[DUPLICATE OPTIONS]",
        std::vector<CSettingsKey>{
            FlagKey(u"Duplicate files by name", files.m_bByName),
            FlagKey(u"Duplicate files by size", files.m_bBySize),
            FlagKey(u"Duplicate files by comparing byte by byte", files.m_bByteByByte),
            FlagKey(u"Duplicate files by CRC", files.m_bByCrc),
            FlagKey(u"Duplicate dirs by name", aDirs[DupDirByName]),
            FlagKey(u"Duplicate dirs by size", aDirs[DupDirBySize]),
            FlagKey(u"Duplicate dirs by size wsub", aDirs[DupDirBySizeWithSubdirs]),
            FlagKey(u"Duplicate dirs by CRC", aDirs[DupDirByCrc]),
            FlagKey(u"Duplicate dirs by CRC wsub", aDirs[DupDirByCrcWithSubdirs]),
            FlagKey(u"Duplicate dirs by total files", aDirs[DupDirByTotalFiles]),
            FlagKey(u"Duplicate dirs by total files wsub", aDirs[DupDirByTotalFilesWithSubdirs]),
            FlagKey(u"Duplicates show color", options.m_bShowDupColor),
            FlagKey(u"Duplicates play sound when finished", options.m_bPlaySound),
            TextKey(u"Duplicates play sound file name", options.m_strSoundFile),
            FlagKey(u"Duplicates disable screen saver", options.m_bDisableSaver),
        });
}

std::unique_ptr<ISettingsSection> MakeAutofindSection(CDocumentOptions& options) {
    return std::make_unique<CKeySection>(
        u"[AUTOFIND DUPLICATES]",
        std::vector<CSettingsKey>{FlagKey(u"FindFiles", options.m_bFindDupFilesAfterScan),
                                  FlagKey(u"FindDirs", options.m_bFindDupDirsAfterScan)});
}

std::unique_ptr<ISettingsSection> MakeCrcSection(CDocumentOptions& options) {
    return std::make_unique<CKeySection>(
        u"[CRC]", std::vector<CSettingsKey>{
                      FlagKey(u"Show CRC", options.m_bShowCrc),
                      CrcFormKey(u"Show CRC HEX", options.m_bCrcHex, options.m_bCrcDecimal),
                      CrcFormKey(u"Show CRC Decimal", options.m_bCrcDecimal, options.m_bCrcHex),
                      TextKey(u"CRC from file", options.m_strCrcFromFile),
                  });
}

std::unique_ptr<ISettingsSection> MakeDiffProgramSection(CDocumentOptions& options) {
    CDiffProgramSettings& diff = options.m_diff;
    return std::make_unique<CKeySection>(
        u"[DIFF PROGRAM]", std::vector<CSettingsKey>{
                               FlagKey(u"use default program", diff.m_bUseDefaultDiff),
                               TextKey(u"program", diff.m_strDiffProgram),
                               TextKey(u"options string", diff.m_strDiffOptions),
                               TextKey(u"file1 string", diff.m_strDiffFile1Options),
                               TextKey(u"file2 string", diff.m_strDiffFile2Options),
                           });
}

}  // namespace zv
