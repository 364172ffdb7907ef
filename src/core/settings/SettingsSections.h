// The sections of a settings file, each bound to its part of a document.
// SettingsFile.cpp puts them in the order of writing.
#pragma once

#include "core/document/FilterSet.h"
#include "core/settings/SettingsSection.h"

namespace zv {

class CWZorvaneDoc;
class ISettingsDisk;
struct CDocumentOptions;
struct CPrintSettings;

// Lists: one entry a line, no keys (SettingsListSections.cpp).
std::unique_ptr<ISettingsSection> MakeRootsSection(CWZorvaneDoc& doc, ISettingsDisk& disk);
std::unique_ptr<ISettingsSection> MakeFilterListSection(CFilterSet& filters, EFilterList eList);
std::unique_ptr<ISettingsSection> MakeDupFilesSection(CWZorvaneDoc& doc, ISettingsDisk& disk);
std::unique_ptr<ISettingsSection> MakeDupDirsSection(CWZorvaneDoc& doc, ISettingsDisk& disk);
std::unique_ptr<ISettingsSection> MakeCompareModeSection(CDocumentOptions& options);

// The date tests, each absolute section followed by its relative one, and
// the two size limits (SettingsFilterSections.cpp).
void AddDateSections(CFilterSet& filters, CSettingsSections& aSections);
void AddSizeSections(CFilterSet& filters, CSettingsSections& aSections);
std::unique_ptr<ISettingsSection> MakeFilterOtherSection(CFilterSet& filters);

// Options (SettingsOptionSections.cpp).
std::unique_ptr<ISettingsSection> MakeOtherSection(CDocumentOptions& options);
std::unique_ptr<ISettingsSection> MakeComputeSection(CDocumentOptions& options);
std::unique_ptr<ISettingsSection> MakeDuplicateOptionsSection(CDocumentOptions& options);
std::unique_ptr<ISettingsSection> MakeAutofindSection(CDocumentOptions& options);
std::unique_ptr<ISettingsSection> MakeCrcSection(CDocumentOptions& options);
std::unique_ptr<ISettingsSection> MakeDiffProgramSection(CDocumentOptions& options);

// Reports: Auto Print blocks, font, widths, margins and print flags
// (SettingsPrintSections.cpp).
void AddAutoPrintSections(CPrintSettings& print, CSettingsSections& aSections);
std::unique_ptr<ISettingsSection> MakeFontSection(CPrintSettings& print);
void AddLayoutSections(CPrintSettings& print, CSettingsSections& aSections);
void AddPrintFlagSections(CPrintSettings& print, CSettingsSections& aSections);

}  // namespace zv
