// The warning before a report that will have to compute checksums or look
// owners up because their column is not shown: which panes the dialog
// "Dialog" shows, and what each pane's button drops from the report.
#pragma once

#include <string>
#include <vector>

namespace zv {

struct CPrintSettings;

enum class EReportWarningCause { Crc, Owner };

struct CReportWarningPane {
    EReportWarningCause eCause;
    std::u16string strText;    // "You have chosen to print: CRC\nThis may take a long time"
    std::u16string strButton;  // "Don't print CRC"
};

struct CReportWarning {
    // CRC first, then owner; empty when no warning is due.
    std::vector<CReportWarningPane> aPanes;
    std::u16string strOk = u"OK";
    std::u16string strCancel;  // "Cancel Printing", or "Cancel save" when saving with the owner

    bool IsNeeded() const { return !aPanes.empty(); }
};

// bSave: the report is saved to a file rather than printed.
CReportWarning DecideReportWarning(const CPrintSettings& print, bool bCrcColumnShown,
                                   bool bOwnerColumnShown, bool bSave);

// The pane's button: clears "Print CRC" (not "Print CRC with SUBDIR") or
// the owner flag.
void DropReportColumn(CPrintSettings& print, EReportWarningCause eCause);

}  // namespace zv
