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
    std::FILE* pFile = OpenCommandOutput(strOutput, bBytes);
    if (!pFile) return kExitIncomplete;
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

std::FILE* OpenCommandOutput(const std::string& strOutput, bool bBytes) {
    if (strOutput.empty()) {
        if (bBytes) platform::SetStdoutBinary();
        return stdout;
    }
    std::string strError;
    std::FILE* pFile = platform::OpenFileForWriting(platform::Utf8ToUtf16(strOutput), strError);
    if (!pFile)
        std::fprintf(stderr, "Cannot open the file %s\n%s\n", strOutput.c_str(), strError.c_str());
    return pFile;
}

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
