#include "platform/FileContents.h"

#include <windows.h>

#include "platform/win32/WideString.h"

namespace zv::platform {

bool WriteFileContents(std::u16string_view path, std::string_view bytes) {
    const HANDLE hFile = ::CreateFileW(ToWide(path).c_str(), GENERIC_WRITE, 0, nullptr,
                                       CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) return false;
    bool bOk = true;
    while (bOk && !bytes.empty()) {
        const DWORD dwChunk = bytes.size() > 0x40000000 ? 0x40000000 : DWORD(bytes.size());
        DWORD dwWritten = 0;
        bOk = ::WriteFile(hFile, bytes.data(), dwChunk, &dwWritten, nullptr) && dwWritten > 0;
        if (bOk) bytes.remove_prefix(dwWritten);
    }
    return ::CloseHandle(hFile) && bOk;
}

}  // namespace zv::platform

#include <cerrno>
#include <cstring>

namespace zv::platform {

std::FILE* OpenFileForWriting(std::u16string_view path, std::string& strError) {
    std::FILE* pFile = ::_wfopen(ToWide(path).c_str(), L"wb");
    if (!pFile) strError = std::strerror(errno);
    return pFile;
}

}  // namespace zv::platform
