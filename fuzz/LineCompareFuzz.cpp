// Compares two files line by line, as the directory compare does with text
// files nobody checked: the input up to its first NUL byte is one file, the
// rest the other. Any byte sequence must decode without fault, a file must
// equal itself, and the result must not depend on which side a file is on.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "FuzzInput.h"
#include "compare/CompareStatus.h"
#include "compare/FilePairCompare.h"
#include "platform/FileContents.h"
#include "platform/Text.h"

namespace {

using namespace zv;

// The two files of this process, removed when it ends.
struct CTempFile {
    explicit CTempFile(const char* pszName)
        : strPath("/tmp/zorvane-fuzz-" + std::to_string(getpid()) + "-" + pszName),
          strPath16(platform::Utf8ToUtf16(strPath)) {}
    ~CTempFile() { unlink(strPath.c_str()); }
    std::string strPath;
    std::u16string strPath16;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    static const CTempFile leftFile("left"), rightFile("right");
    const std::u16string& strLeft = leftFile.strPath16;
    const std::u16string& strRight = rightFile.strPath16;
    const std::string_view input(reinterpret_cast<const char*>(pData), nSize);
    const size_t nSplit = input.find('\0');
    const std::string_view left = input.substr(0, nSplit);
    const std::string_view right =
        nSplit == std::string_view::npos ? std::string_view() : input.substr(nSplit + 1);
    if (!platform::WriteFileContents(strLeft, left) ||
        !platform::WriteFileContents(strRight, right))
        return 0;

    const CPairResult self = CompareFilesByLines(strLeft, strLeft, double(left.size()), nullptr);
    ZV_FUZZ_CHECK(self.m_nStatus == CompareIdentical);
    const CPairResult there = CompareFilesByLines(strLeft, strRight, double(left.size()), nullptr);
    const CPairResult back = CompareFilesByLines(strRight, strLeft, double(right.size()), nullptr);
    ZV_FUZZ_CHECK(there.m_nStatus == CompareIdentical || there.m_nStatus == CompareBlanksOnly ||
                  there.m_nStatus == CompareAtLine);
    ZV_FUZZ_CHECK(there.m_nStatus == back.m_nStatus && there.m_dValue == back.m_dValue);
    return 0;
}
