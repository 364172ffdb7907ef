#include "reports/ReportContext.h"

#include "core/document/SizeText.h"
#include "core/document/SortCodes.h"
#include "core/records/RecordPath.h"
#include "core/records/RecordServices.h"
#include "reports/ValueText.h"

namespace zv {

CReportContext::CReportContext(CWZorvaneDoc& doc, CReportStream& out, bool bFullPath)
    : m_doc(doc), m_out(out), m_columns(SelectedColumns(doc)), m_bFullPath(bFullPath) {}

std::u16string CReportContext::Size(double dSize) const {
    return FormatSize(m_doc, dSize, u"", false);
}

std::u16string CReportContext::SizeWithUnits(double dSize, std::u16string_view strSuffix) const {
    return FormatSize(m_doc, dSize, strSuffix, true);
}

std::u16string CReportContext::Date(FILETIME ftDate) const {
    return FormatReportDate(ftDate, Flag(PrintTime));
}

const std::u16string& CReportContext::DirPath(const CDirectoryData& dir) {
    if (m_pPathDir != &dir) {
        m_pPathDir = &dir;
        m_strPathDir = dir.GetFullPath();
    }
    return m_strPathDir;
}

std::u16string CReportContext::FilePath(const CFileData& file) {
    if (!file.m_pDirectory) return std::u16string(file.m_strName.View());
    return JoinPath(DirPath(*file.m_pDirectory), file.m_strName);
}

void CReportContext::Sort(CDirectoryData& dir) const {
    SortFiles(dir, m_doc.m_options.m_nFileSort);
    SortChildren(dir, m_doc.m_options.m_nDirSort);
}

void CReportContext::PrepareRows(CDirectoryData& dir) const {
    if (Flag(PrintCrc) && !Flag(PrintNoFiles) && !dir.m_aFiles.IsEmpty())
        RecordServices().ComputeCrcs(dir.m_aFiles.Items());
}

const CRowMetadata& CReportContext::ReadRow(CFileData& file) {
    m_row.Read(file, m_columns);
    return m_row;
}

}  // namespace zv
