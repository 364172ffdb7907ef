#include "app/CheckedOutput.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace zv {

void CCheckedOutput::Write(std::string_view text) {
    if (text.empty() || m_nError != 0) return;
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size())
        m_nError = errno ? errno : EIO;
}

bool CCheckedOutput::Finish() {
    errno = 0;
    if (std::fflush(stdout) != 0 && m_nError == 0) m_nError = errno ? errno : EIO;
    if (m_nError == 0 && std::ferror(stdout)) m_nError = EIO;
    if (m_nError == 0) return true;
    if (!m_bReported) {
        std::fprintf(stderr, "zorvane-cli: cannot write standard output: %s\n",
                     std::strerror(m_nError));
        m_bReported = true;
    }
    return false;
}

}  // namespace zv
