#include "reports/DirTotals.h"

#include "core/records/DirectoryData.h"
#include "reports/ReportContext.h"
#include "reports/ReportStream.h"
#include "reports/ValueText.h"

namespace zv {

void WriteDirTotals(CReportContext& ctx, CDirectoryData& dir, const CTotalsLineForm& form) {
    CReportStream& out = ctx.m_out;
    out << form.m_pszOpen << DecimalText(int64_t(dir.m_aFiles.GetSize())) << " files"
        << form.m_pszBetween << DecimalText(int64_t(dir.m_aChildren.GetSize())) << " directories"
        << form.m_pszClose;
    out << form.m_pszOpen << DecimalText(dir.GetTotalFiles()) << " files in all subdirectories"
        << form.m_pszBetween << DecimalText(dir.GetTotalDirs())
        << " directories in all subdirectories" << form.m_pszClose;
    out << form.m_pszOpen << ctx.SizeWithUnits(dir.m_dFilesSize) << form.m_pszClose;
    out << form.m_pszOpen << ctx.SizeWithUnits(dir.m_dFilesActual, u" actual") << form.m_pszClose;
    out << form.m_pszOpen << ctx.SizeWithUnits(dir.GetSizeWithSubdirs())
        << " including all subdirectories" << form.m_pszClose;
    out << form.m_pszOpen << ctx.SizeWithUnits(dir.GetActualWithSubdirs(), u" actual")
        << " including all subdirectories" << form.m_pszClose;
}

void WriteDirCrcTotals(CReportContext& ctx, CDirectoryData& dir, const CTotalsLineForm& form) {
    CReportStream& out = ctx.m_out;
    if (ctx.Flag(PrintCrc)) {
        if (ctx.Hex())
            out << form.m_pszOpen << "CRC 0x" << HexDigits(dir.GetCrc()) << form.m_pszClose;
        else
            out << form.m_pszOpen << "CRC " << DecimalText(dir.GetCrc()) << form.m_pszClose;
    }
    if (ctx.Flag(PrintCrcSubdirs)) {
        // "subdirectrories" is the word the decimal line has always had.
        if (ctx.Hex())
            out << form.m_pszOpen << "CRC including all subdirectories 0x"
                << HexDigits(dir.GetCrcWithSubdirs()) << form.m_pszClose;
        else
            out << form.m_pszOpen << "CRC including all subdirectrories "
                << DecimalText(dir.GetCrcWithSubdirs()) << form.m_pszClose;
    }
}

}  // namespace zv
