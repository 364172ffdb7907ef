#include "app/CheckedOutput.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace zv {

CCheckedOutput::CCheckedOutput(std::FILE* pFile, std::string strName, bool bOwned)
    : m_pFile(pFile), m_strName(std::move(strName)), m_bOwned(bOwned) {}

CCheckedOutput::~CCheckedOutput() {
    if (m_bOwned && m_pFile) std::fclose(m_pFile);
}

bool CCheckedOutput::Check(bool bOk) {
    if (!bOk && m_nError == 0) m_nError = errno ? errno : EIO;
    return m_nError == 0;
}

bool CCheckedOutput::Write(std::string_view text) {
    if (text.empty() || m_nError != 0 || !m_pFile) return m_nError == 0;
    errno = 0;
    return Check(std::fwrite(text.data(), 1, text.size(), m_pFile) == text.size());
}

bool CCheckedOutput::Flush() {
    if (!m_pFile) return m_nError == 0;
    errno = 0;
    Check(std::fflush(m_pFile) == 0);
    return Check(!std::ferror(m_pFile));
}

bool CCheckedOutput::Close() {
    if (!m_bOwned || !m_pFile) return m_nError == 0;
    std::FILE* pFile = m_pFile;
    m_pFile = nullptr;
    errno = 0;
    return Check(std::fclose(pFile) == 0);
}

bool CCheckedOutput::Finish() {
    Flush();
    if (Close()) return true;
    if (!m_bReported) {
        std::fprintf(stderr, "zorvane-cli: %s\n", Error().c_str());
        m_bReported = true;
    }
    return false;
}

std::string CCheckedOutput::Error() const {
    if (m_nError == 0) return {};
    return "cannot write " + m_strName + ": " + std::strerror(m_nError);
}

}  // namespace zv
