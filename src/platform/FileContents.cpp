#include "platform/FileContents.h"

#include "platform/FileSystem.h"

namespace zv::platform {

bool ReadFileContents(std::u16string_view path, std::string& strBytes) {
    strBytes.clear();
    CFileReader reader;
    if (!reader.Open(path)) return false;
    char aBuffer[65536];
    for (;;) {
        const int64_t nRead = reader.Read(aBuffer, sizeof aBuffer);
        if (nRead < 0) return false;
        if (nRead == 0) return true;
        strBytes.append(aBuffer, static_cast<size_t>(nRead));
    }
}

}  // namespace zv::platform
