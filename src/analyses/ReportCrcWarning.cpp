#include "analyses/ReportCrcWarning.h"

#include "core/document/PrintSettings.h"

namespace zv {

CReportWarning DecideReportWarning(const CPrintSettings& print, bool bCrcColumnShown,
                                   bool bOwnerColumnShown, bool bSave) {
    CReportWarning warning;
    const std::u16string strVerb = bSave ? u"save" : u"print";
    const bool bCrc = (print.Flag(PrintCrc) || print.Flag(PrintCrcSubdirs)) && !bCrcColumnShown;
    const bool bOwner = print.Flag(PrintOwner) && !bOwnerColumnShown;
    if (bCrc)
        warning.aPanes.push_back(
            {EReportWarningCause::Crc,
             u"You have chosen to " + strVerb + u": CRC\nThis may take a long time",
             u"Don't " + strVerb + u" CRC"});
    if (bOwner)
        warning.aPanes.push_back(
            {EReportWarningCause::Owner,
             u"You have chosen to " + strVerb + u": Owner\nThis may take a long time",
             u"Don't " + strVerb + u" owner"});
    warning.strCancel = bSave && bOwner ? u"Cancel save" : u"Cancel Printing";
    return warning;
}

void DropReportColumn(CPrintSettings& print, EReportWarningCause eCause) {
    print.m_aFlags[eCause == EReportWarningCause::Crc ? PrintCrc : PrintOwner] = 0;
}

}  // namespace zv
