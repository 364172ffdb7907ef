// A result report as a command's output: to standard output or to a file
// given with -o, in the form given with --format, every write checked.
#pragma once

#include <string>

#include "reports/ResultReports.h"

namespace zv {

class CWZorvaneDoc;

// The forms of --format that are result reports.
inline constexpr const char* kResultReportForms[] = {"text", "csv", "html", "xml"};
bool IsResultReportForm(const std::string& strFormat);

// Writes the report; the file, when one is named, is created or emptied.
// Returns kExitOk, or kExitIncomplete after naming the failure on stderr
// (pszCommand begins the message).
int WriteResultReportOutput(CWZorvaneDoc& doc, const std::string& strFormat, EResultReport eReport,
                            const std::string& strOutput, const char* pszCommand);

}  // namespace zv
