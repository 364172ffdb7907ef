// The totals lines under a directory's heading, the same words in every
// report form; each form puts its own marks around a line and between its
// two halves.
#pragma once

namespace zv {

class CReportContext;
class CDirectoryData;

struct CTotalsLineForm {
    const char* m_pszOpen;     // before each line
    const char* m_pszBetween;  // between the files and the directories count
    const char* m_pszClose;    // after each line, with its line end
};

// The counts and the four sizes.
void WriteDirTotals(CReportContext& ctx, CDirectoryData& dir, const CTotalsLineForm& form);
// The directory's checksums, as "Print CRC" and "Print CRC including
// subdirectories" ask, in the words of the CSV and HTML forms.
void WriteDirCrcTotals(CReportContext& ctx, CDirectoryData& dir, const CTotalsLineForm& form);

}  // namespace zv
