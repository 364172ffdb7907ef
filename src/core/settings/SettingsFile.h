// Reading and writing settings files: everything needed to repeat a scan and
// its reports. The reader is tolerant, since people edit these files by
// hand: keys match without regard to case, unknown sections and keys are
// skipped, and any section may be left out.
#pragma once

#include <string>
#include <string_view>

namespace zv {

class CWZorvaneDoc;
class ISettingsDisk;

// Loads a settings file into the document. False when the file cannot be
// opened; with bReport set that says "Cannot open file: " and the path.
// bReport is set for the user's own load and clear for the file named on
// the command line; it also decides whether conflicting filter flags are
// reported. Loading changes settings only; it does not scan.
bool LoadSettings(CWZorvaneDoc& doc, std::u16string_view strPath, bool bReport);

// The same from the bytes of a file, with the disk access given.
void LoadSettingsText(CWZorvaneDoc& doc, std::string_view bytes, bool bReport, ISettingsDisk& disk);

// The settings form of the document, as the bytes of a file.
std::string FormatSettingsText(CWZorvaneDoc& doc);

// Writes the settings form of the document. False when the file cannot be
// written.
bool SaveSettingsFile(CWZorvaneDoc& doc, std::u16string_view strPath);

}  // namespace zv
