#include "app/ResultReportOutput.h"

#include <cstdio>

#include "app/CheckedFileSink.h"
#include "app/ExitStatus.h"
#include "core/document/Document.h"
#include "platform/Console.h"
#include "platform/FileContents.h"
#include "platform/Text.h"
#include "reports/ReportStream.h"

namespace zv {
namespace {

EPrintType FormOf(const std::string& strFormat) {
    if (strFormat == "csv") return PrintTypeExcel;
    if (strFormat == "html") return PrintTypeHtml;
    if (strFormat == "xml") return PrintTypeXml;
    return PrintTypeText;
}

}  // namespace

bool IsResultReportForm(const std::string& strFormat) {
    for (const char* pszForm : kResultReportForms)
        if (strFormat == pszForm) return true;
    return false;
}

int WriteResultReportOutput(CWZorvaneDoc& doc, const std::string& strFormat, EResultReport eReport,
                            const std::string& strOutput, const char* pszCommand) {
    std::FILE* pFile = stdout;
    if (!strOutput.empty()) {
        std::string strError;
        pFile = platform::OpenFileForWriting(platform::Utf8ToUtf16(strOutput), strError);
        if (!pFile) {
            std::fprintf(stderr, "%s: cannot open %s: %s\n", pszCommand, strOutput.c_str(),
                         strError.c_str());
            return kExitIncomplete;
        }
    } else {
        platform::SetStdoutBinary();
    }
    CCheckedFileSink sink(pFile, strOutput.empty() ? "standard output" : strOutput,
                          pFile != stdout);
    bool bWritten;
    {
        CReportStream out(sink, doc.m_print.Flag(SaveAsUnicode));
        WriteResultReport(doc, out, FormOf(strFormat), eReport);
        bWritten = out.Finish();
    }
    bWritten = sink.Close() && bWritten;
    if (!bWritten) {
        std::fprintf(stderr, "%s: %s\n", pszCommand, sink.Error().c_str());
        return kExitIncomplete;
    }
    return kExitOk;
}

}  // namespace zv
