#include "platform/OwnerSecurity.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv::platform {
namespace {

bool UidOf(const std::vector<uint8_t>& aBytes, uid_t& uid) {
    uint32_t u = 0;
    if (aBytes.size() != sizeof u) return false;
    std::memcpy(&u, aBytes.data(), sizeof u);
    uid = static_cast<uid_t>(u);
    return true;
}

}  // namespace

bool ReadOwnerDescriptor(std::u16string_view path, std::vector<uint8_t>& aDescriptor,
                         bool& bSizeReported) {
    struct stat st;
    bSizeReported = false;
    if (lstat(Utf16ToUtf8(path).c_str(), &st) != 0) return false;
    const uint32_t u = static_cast<uint32_t>(st.st_uid);
    aDescriptor.resize(sizeof u);
    std::memcpy(aDescriptor.data(), &u, sizeof u);
    return true;
}

bool OwnerSidOfDescriptor(const std::vector<uint8_t>& aDescriptor, std::vector<uint8_t>& aSid) {
    aSid = aDescriptor;
    return aSid.size() == sizeof(uint32_t);
}

bool AccountNameOfSid(const std::vector<uint8_t>& aSid, std::u16string& strName) {
    uid_t uid;
    if (!UidOf(aSid, uid)) return false;
    long nBuffer = sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> aBuffer(nBuffer > 0 ? size_t(nBuffer) : 16384);
    passwd pw;
    passwd* pResult = nullptr;
    if (getpwuid_r(uid, &pw, aBuffer.data(), aBuffer.size(), &pResult) == 0 && pResult)
        strName = Utf8ToUtf16(pResult->pw_name);
    else
        strName = Utf8ToUtf16(std::to_string(uid));
    return true;
}

}  // namespace zv::platform
