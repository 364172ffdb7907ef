#include "platform/FileContents.h"

#include <errno.h>
#include <fcntl.h>
#include <unistd.h>

#include "platform/Text.h"

namespace zv::platform {

bool WriteFileContents(std::u16string_view path, std::string_view bytes) {
    const int nFd = open(Utf16ToUtf8(path).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (nFd < 0) return false;
    bool bOk = true;
    while (bOk && !bytes.empty()) {
        const ssize_t nWritten = write(nFd, bytes.data(), bytes.size());
        if (nWritten < 0 && errno == EINTR) continue;
        bOk = nWritten > 0;
        if (bOk) bytes.remove_prefix(static_cast<size_t>(nWritten));
    }
    return close(nFd) == 0 && bOk;
}

}  // namespace zv::platform

#include <cstring>

namespace zv::platform {

std::FILE* OpenFileForWriting(std::u16string_view path, std::string& strError) {
    std::FILE* pFile = std::fopen(Utf16ToUtf8(path).c_str(), "wbe");
    if (!pFile) strError = std::strerror(errno);
    return pFile;
}

}  // namespace zv::platform
