#include "app/ResultReportOutput.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "app/ExitStatus.h"
#include "core/document/Document.h"
#include "platform/Console.h"
#include "platform/FileContents.h"
#include "platform/Text.h"
#include "reports/ReportStream.h"

namespace zv {
namespace {

// Remembers the first failed write with its reason.
class CCheckedSink : public IReportSink {
public:
    explicit CCheckedSink(std::FILE* pFile) : m_pFile(pFile) {}
    bool Write(const char* pData, size_t nSize) override {
        return Check(std::fwrite(pData, 1, nSize, m_pFile) == nSize);
    }
    bool Flush() override { return Check(std::fflush(m_pFile) == 0); }
    const std::string& Error() const { return m_strError; }
    bool Check(bool bOk) {
        if (!bOk && m_strError.empty()) m_strError = std::strerror(errno);
        return bOk;
    }

private:
    std::FILE* m_pFile;
    std::string m_strError;
};

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
    CCheckedSink sink(pFile);
    bool bWritten;
    {
        CReportStream out(sink, doc.m_print.Flag(SaveAsUnicode));
        WriteResultReport(doc, out, FormOf(strFormat), eReport);
        bWritten = out.Finish();
    }
    if (pFile != stdout) bWritten = sink.Check(std::fclose(pFile) == 0) && bWritten;
    if (!bWritten) {
        std::fprintf(stderr, "%s: cannot write %s: %s\n", pszCommand,
                     strOutput.empty() ? "standard output" : strOutput.c_str(),
                     sink.Error().c_str());
        return kExitIncomplete;
    }
    return kExitOk;
}

}  // namespace zv
