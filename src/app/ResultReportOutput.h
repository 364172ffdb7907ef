// A command's output: standard output, or the file given with -o, every
// write checked. Either a result report in the form given with --format,
// or text the command made itself (a listing, JSON).
#pragma once

#include <cstdio>
#include <string>

#include "reports/ResultReports.h"

namespace zv {

class CWZorvaneDoc;

// The file named with -o (created or emptied), or standard output when none
// is named (switched to bytes when bBytes: reports have their own line ends).
// Null after "Cannot open the file NAME" and the reason on stderr.
std::FILE* OpenCommandOutput(const std::string& strOutput, bool bBytes);

// The forms of --format that are result reports.
inline constexpr const char* kResultReportForms[] = {"text", "csv", "html", "xml"};
bool IsResultReportForm(const std::string& strFormat);

// Each writes to the file when one is named (created or emptied), else to
// standard output. Returns kExitOk, or kExitIncomplete after naming the
// failure on stderr (pszCommand begins the message).
int WriteResultReportOutput(CWZorvaneDoc& doc, const std::string& strFormat, EResultReport eReport,
                            const std::string& strOutput, const char* pszCommand);
int WriteTextOutput(const std::string& strText, const std::string& strOutput,
                    const char* pszCommand);

}  // namespace zv
