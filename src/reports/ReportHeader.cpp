#include "reports/ReportHeader.h"

#include <vector>

#include "platform/Text.h"
#include "reports/FiltersBlock.h"
#include "reports/ReportContext.h"
#include "reports/ReportStream.h"
#include "reports/ValueText.h"

namespace zv {
namespace {

struct CVolumeLines {
    size_t nRootNumber;  // 1-based position of the root that first names the volume
    const CRootDirectoryData* pRoot;
};

// Each volume once, in the order the roots first use it.
std::vector<CVolumeLines> Volumes(const CWZorvaneDoc& doc) {
    std::vector<CVolumeLines> aVolumes;
    const auto& aRoots = doc.m_scan.m_aRoots;
    for (size_t i = 0; i < aRoots.GetSize(); ++i) {
        bool bPrinted = false;
        for (const CVolumeLines& volume : aVolumes)
            bPrinted |= platform::EqualsNoCase(volume.pRoot->m_strDrive, aRoots[i]->m_strDrive);
        if (!bPrinted) aVolumes.push_back({i + 1, aRoots[i]});
    }
    return aVolumes;
}

std::u16string BlockSize(const CRootDirectoryData& root) {
    return DecimalText(static_cast<int>(root.m_dClusterSize));
}

}  // namespace

void ReportHeaderText(CReportContext& ctx, std::u16string_view strTitle) {
    CReportStream& out = ctx.m_out;
    const CWZorvaneDoc& doc = ctx.m_doc;
    out << "Zorvane: " << strTitle << "\n";
    if (!doc.m_print.m_strPrintTitle.empty()) out << doc.m_print.m_strPrintTitle << "\n";
    out << FormatScanTime(doc.m_tScanTime) << "\n\n";
    if (ctx.Flag(PrintFileSystemInfo)) {
        for (const CVolumeLines& volume : Volumes(doc)) {
            out << "Disk " << volume.pRoot->m_strDrive << "\n";
            out << "File system type: " << volume.pRoot->m_strFileSystem << "\n";
            out << "Allocation Block Size = " << BlockSize(*volume.pRoot) << " bytes\n";
        }
        out << FormatFreeSpace(doc) << "\n\n";
    }
    FiltersBlockText(ctx);
}

void ReportHeaderCsv(CReportContext& ctx, std::u16string_view strTitle) {
    CReportStream& out = ctx.m_out;
    const CWZorvaneDoc& doc = ctx.m_doc;
    out << "\"Zorvane: " << strTitle << "\"\n";
    if (!doc.m_print.m_strPrintTitle.empty()) out << "\"" << doc.m_print.m_strPrintTitle << "\"\n";
    out << "\"" << FormatScanTime(doc.m_tScanTime) << "\"\n\n";
    if (ctx.Flag(PrintFileSystemInfo)) {
        for (const CVolumeLines& volume : Volumes(doc)) {
            out << "\"Disk " << volume.pRoot->m_strDrive << "\"\n";
            out << "\"File system type: " << volume.pRoot->m_strFileSystem << "\"\n";
            out << "\"Allocation Block Size = " << BlockSize(*volume.pRoot) << " bytes\"\n";
        }
        out << "\"" << FormatFreeSpace(doc) << "\"\n\n";
    }
    FiltersBlockCsv(ctx);
}

void ReportHeaderHtml(CReportContext& ctx, std::u16string_view strTitle) {
    CReportStream& out = ctx.m_out;
    const CWZorvaneDoc& doc = ctx.m_doc;
    out << "<p>Zorvane: " << strTitle << "<br>\n";
    if (!doc.m_print.m_strPrintTitle.empty())
        out << HtmlEscape(doc.m_print.m_strPrintTitle) << "<br>\n";
    out << FormatScanTime(doc.m_tScanTime) << "</p><p></p>\n";
    if (ctx.Flag(PrintFileSystemInfo)) {
        for (const CVolumeLines& volume : Volumes(doc)) {
            out << "<p>Disk " << HtmlEscape(volume.pRoot->m_strDrive) << "<br>\n";
            out << "File system type: " << HtmlEscape(volume.pRoot->m_strFileSystem) << "<br>\n";
            out << "Allocation Block Size = " << BlockSize(*volume.pRoot) << " bytes<br>\n";
        }
        out << FormatFreeSpace(doc) << "</p><p></p>\n";
    }
    FiltersBlockHtml(ctx);
}

void ReportHeaderXml(CReportContext& ctx, std::u16string_view strTitle) {
    CReportStream& out = ctx.m_out;
    const CWZorvaneDoc& doc = ctx.m_doc;
    out << "<ReportHeader \n";
    if (!strTitle.empty()) out << "    Title='" << strTitle << "' \n";
    if (!doc.m_print.m_strPrintTitle.empty())
        out << "    header = '" << doc.m_print.m_strPrintTitle << "' \n";
    out << "    Time='" << FormatScanTime(doc.m_tScanTime) << "' \n";
    for (const CVolumeLines& volume : Volumes(doc)) {
        const std::u16string strNumber = DecimalText(static_cast<int64_t>(volume.nRootNumber));
        out << "    Disk" << strNumber << "='" << XmlEscape(volume.pRoot->m_strDrive) << "' \n";
        out << "    FileSystemType" << strNumber << "='" << volume.pRoot->m_strFileSystem << "' \n";
        out << "    AllocationBlockSize" << strNumber << "='" << BlockSize(*volume.pRoot) << "' \n";
    }
    out << "    FreeSpace='" << FormatFreeSpace(doc) << "' \n";
    out << "/>\n";
    FiltersBlockXml(ctx);
}

}  // namespace zv
