#include "core/settings/SettingsFile.h"

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/settings/SettingsConflicts.h"
#include "core/settings/SettingsDisk.h"
#include "core/settings/SettingsSections.h"
#include "core/settings/SettingsText.h"
#include "core/settings/TextFile.h"
#include "platform/FileContents.h"
#include "platform/Text.h"

namespace zv {
namespace {

// Every section bound to the document, in the order of writing.
CSettingsSections MakeSections(CWZorvaneDoc& doc, ISettingsDisk& disk) {
    CSettingsSections aSections;
    CFilterSet& filters = doc.m_filters;
    aSections.push_back(MakeRootsSection(doc, disk));
    aSections.push_back(MakeOtherSection(doc.m_options));
    for (const EFilterList eList : {FilterFileNames, FilterFileNamesExclude, FilterFullPathExclude,
                                    FilterOwners, FilterOwnersExclude, FilterVersionFiles,
                                    FilterOfficeExtensions, FilterDirExclude, FilterDir})
        aSections.push_back(MakeFilterListSection(filters, eList));
    aSections.push_back(MakeDupFilesSection(doc, disk));
    aSections.push_back(MakeDupDirsSection(doc, disk));
    AddDateSections(filters, aSections);
    AddSizeSections(filters, aSections);
    aSections.push_back(MakeFilterOtherSection(filters));
    aSections.push_back(MakeComputeSection(doc.m_options));
    AddAutoPrintSections(doc.m_print, aSections);
    aSections.push_back(MakeDuplicateOptionsSection(doc.m_options));
    aSections.push_back(MakeAutofindSection(doc.m_options));
    aSections.push_back(MakeCrcSection(doc.m_options));
    aSections.push_back(MakeCompareModeSection(doc.m_options));
    aSections.push_back(MakeDiffProgramSection(doc.m_options));
    aSections.push_back(MakeFontSection(doc.m_print));
    AddLayoutSections(doc.m_print, aSections);
    AddPrintFlagSections(doc.m_print, aSections);
    return aSections;
}

// What a load starts from: the lists and single filters a file sets are
// emptied. The roots, the linked and path length filters, the duplicate
// directories filter and the print flags keep their values; loaded roots
// are added to those present.
void ClearBeforeLoading(CWZorvaneDoc& doc) {
    CFilterSet& filters = doc.m_filters;
    for (int nList = 0; nList < FilterListCount; ++nList)
        if (nList != FilterDupDirs) filters.m_aLists[nList].clear();
    filters.m_aDupFileRecords.DeleteAll();
    for (CDateFilter& date : filters.m_aDates) date.m_bAbsolute = date.m_bRelative = 0;
    filters.m_bCreatedLater = 0;
    filters.m_bAnyDateLow = 0;
    filters.m_bMinSize = 0;
    filters.m_bMaxSize = 0;
    filters.m_bHasStreams = 0;
    for (const EAttributeFilter eAttribute :
         {AttrFilterSystem, AttrFilterCompressed, AttrFilterEncrypted, AttrFilterArchive,
          AttrFilterReadOnly, AttrFilterHidden})
        filters.m_aAttributes[eAttribute] = CYesNoFilter{};
    doc.m_print.m_bPrintFontDefault = 1;
}

ISettingsSection* FindSection(const CSettingsSections& aSections, std::u16string_view strLine) {
    for (const auto& pSection : aSections)
        if (platform::EqualsNoCase(pSection->Name(), strLine)) return pSection.get();
    return nullptr;
}

}  // namespace

bool LoadSettings(CWZorvaneDoc& doc, std::u16string_view strPath, bool bReport) {
    std::string strBytes;
    if (!platform::ReadFileContents(strPath, strBytes)) {
        if (bReport) Host().ShowMessage(u"Cannot open file: " + std::u16string(strPath));
        return false;
    }
    LoadSettingsText(doc, strBytes, bReport, RealSettingsDisk());
    return true;
}

void LoadSettingsText(CWZorvaneDoc& doc, std::string_view bytes, bool bReport,
                      ISettingsDisk& disk) {
    ClearBeforeLoading(doc);
    const CSettingsSections aSections = MakeSections(doc, disk);
    bool bAnySection = false;
    // A known header starts a section, which runs to its first empty line;
    // everything outside a known section is skipped.
    ISettingsSection* pSection = nullptr;
    for (const std::u16string& strLine : SplitSettingsLines(DecodeTextFile(bytes))) {
        if (pSection) {
            if (strLine.empty()) {
                pSection->End();
                pSection = nullptr;
            } else if (strLine.front() != u'#') {
                pSection->ReadLine(strLine);
            }
        } else if (strLine.starts_with(u'[')) {
            pSection = FindSection(aSections, strLine);
            if (pSection) {
                bAnySection = true;
                pSection->Begin();
            }
        }
    }
    if (pSection) pSection->End();
    if (!bAnySection)
        Host().ShowMessage(
            u"No valid sections found\nPlease make sure you opened a saved settings file");
    ResolveSettingsConflicts(doc.m_filters, bReport);
}

std::string FormatSettingsText(CWZorvaneDoc& doc) {
    std::vector<std::u16string> aLines{u"#Zorvane settings", u""};
    for (const auto& pSection : MakeSections(doc, RealSettingsDisk())) pSection->Write(aLines);
    return EncodeSettingsText(aLines);
}

bool SaveSettingsFile(CWZorvaneDoc& doc, std::u16string_view strPath) {
    return platform::WriteFileContents(strPath, FormatSettingsText(doc));
}

}  // namespace zv
