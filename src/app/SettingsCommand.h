// The settings file on the command line: loading it into the document that
// a command works on, and `zorvane-cli settings save`.
#pragma once

#include <string>

namespace zv {

class CWZorvaneDoc;

// Opens the main document as the program does, with the settings file when
// one is named (UTF-8), and builds the metadata field tables from it. Unlike the desktop program,
// which ignores a missing file in silence, this says "Cannot open file: " and the path and returns
// false.
bool OpenDocumentWithSettings(CWZorvaneDoc& doc, const std::string& strSettingsFile);

// `zorvane-cli settings save OUT [--settings IN]`: writes the settings form
// of the document, the defaults or IN after loading. Returns the exit
// status: 0, 2 when IN cannot be read, 1 when OUT cannot be written.
int RunSettingsSaveCommand(const std::string& strOut, const std::string& strIn);

}  // namespace zv
