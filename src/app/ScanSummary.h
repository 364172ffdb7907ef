// What `zorvane-cli scan` tells about a finished scan.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zv {

class CWZorvaneDoc;

struct CScanSummary {
    std::vector<std::u16string> m_aRoots;
    size_t m_nDirectories = 0;
    size_t m_nFiles = 0;  // streams counted
    double m_dBytes = 0;
    double m_dActualBytes = 0;
    std::vector<std::u16string> m_aProtected;
    double m_dSeconds = 0;
    bool m_bStopped = false;
    bool m_bListed = false;
    std::vector<std::u16string> m_aFiles;  // full paths, when listed
};

CScanSummary SummarizeScan(const CWZorvaneDoc& doc, double dSeconds, bool bListFiles);
// The listed paths end with a line feed, or with bNullEnds a NUL, for names
// that hold a line break.
std::string FormatSummaryText(const CScanSummary& summary, bool bNullEnds = false);
// Names that are not valid UTF-8 are written losslessly (see JsonWriter.h).
std::string FormatSummaryJson(const CScanSummary& summary);

}  // namespace zv
