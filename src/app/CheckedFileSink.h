// A report's sink: standard output or a report file, with every write, the
// flush and the close checked, so that a full disk cannot leave a cut report
// that looks whole.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "app/CheckedOutput.h"
#include "reports/ReportStream.h"

namespace zv {

class CCheckedFileSink : public IReportSink {
public:
    CCheckedFileSink(std::FILE* pFile, std::string strName, bool bOwned)
        : m_out(pFile, std::move(strName), bOwned) {}

    bool Write(const char* pData, size_t nSize) override {
        return m_out.Write(std::string_view(pData, nSize));
    }
    bool Flush() override { return m_out.Flush(); }
    bool Close() { return m_out.Close(); }
    // "cannot write NAME: REASON" after the first failure.
    std::string Error() const { return m_out.Error(); }

private:
    CCheckedOutput m_out;
};

}  // namespace zv
