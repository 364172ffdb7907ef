#include "app/ResultReportOutput.h"

#include <cstdio>
#include <functional>

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

// Opens the output and has write fill it; bBytes: standard output without
// line-end translation, as the reports have their own line ends.
int WriteOutput(const std::string& strOutput, const char* pszCommand, bool bBytes,
                const std::function<bool(CCheckedFileSink&)>& write) {
    std::FILE* pFile = stdout;
    if (!strOutput.empty()) {
        std::string strError;
        pFile = platform::OpenFileForWriting(platform::Utf8ToUtf16(strOutput), strError);
        if (!pFile) {
            std::fprintf(stderr, "%s: cannot open %s: %s\n", pszCommand, strOutput.c_str(),
                         strError.c_str());
            return kExitIncomplete;
        }
    } else if (bBytes) {
        platform::SetStdoutBinary();
    }
    CCheckedFileSink sink(pFile, strOutput.empty() ? "standard output" : strOutput,
                          pFile != stdout);
    bool bWritten = write(sink);
    bWritten = sink.Close() && bWritten;
    if (!bWritten) {
        std::fprintf(stderr, "%s: %s\n", pszCommand, sink.Error().c_str());
        return kExitIncomplete;
    }
    return kExitOk;
}

}  // namespace

bool IsResultReportForm(const std::string& strFormat) {
    for (const char* pszForm : kResultReportForms)
        if (strFormat == pszForm) return true;
    return false;
}

int WriteResultReportOutput(CWZorvaneDoc& doc, const std::string& strFormat, EResultReport eReport,
                            const std::string& strOutput, const char* pszCommand) {
    return WriteOutput(strOutput, pszCommand, true, [&](CCheckedFileSink& sink) {
        CReportStream out(sink, doc.m_print.Flag(SaveAsUnicode));
        WriteResultReport(doc, out, FormOf(strFormat), eReport);
        return out.Finish();
    });
}

int WriteTextOutput(const std::string& strText, const std::string& strOutput,
                    const char* pszCommand) {
    return WriteOutput(strOutput, pszCommand, false, [&](CCheckedFileSink& sink) {
        return sink.Write(strText.data(), strText.size()) && sink.Flush();
    });
}

}  // namespace zv
