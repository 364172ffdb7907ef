#include "platform/OwnerSecurity.h"

#include <windows.h>

#include "platform/win32/WideString.h"

namespace zv::platform {

bool ReadOwnerDescriptor(std::u16string_view path, std::vector<uint8_t>& aDescriptor,
                         bool& bSizeReported) {
    constexpr DWORD kBufferSize = 8096;
    aDescriptor.assign(kBufferSize, 0);
    DWORD dwNeeded = 0;
    bSizeReported = false;
    if (!::GetFileSecurityW(ToWide(path).c_str(), OWNER_SECURITY_INFORMATION, aDescriptor.data(),
                            kBufferSize, &dwNeeded)) {
        return false;
    }
    bSizeReported = dwNeeded != 0;
    const DWORD dwLength =
        bSizeReported ? dwNeeded
                      : ::GetSecurityDescriptorLength(PSECURITY_DESCRIPTOR(aDescriptor.data()));
    if (dwLength > 0 && dwLength <= kBufferSize) aDescriptor.resize(dwLength);
    return true;
}

bool OwnerSidOfDescriptor(const std::vector<uint8_t>& aDescriptor, std::vector<uint8_t>& aSid) {
    PSID pSid = nullptr;
    BOOL bDefaulted = FALSE;
    if (!::GetSecurityDescriptorOwner(PSECURITY_DESCRIPTOR(aDescriptor.data()), &pSid,
                                      &bDefaulted) ||
        !pSid) {
        return false;
    }
    const DWORD dwLength = ::GetLengthSid(pSid);
    const auto* p = static_cast<const uint8_t*>(pSid);
    aSid.assign(p, p + dwLength);
    return true;
}

bool AccountNameOfSid(const std::vector<uint8_t>& aSid, std::u16string& strName) {
    PSID pSid = PSID(const_cast<uint8_t*>(aSid.data()));
    DWORD dwName = 0, dwDomain = 0;
    SID_NAME_USE use;
    ::LookupAccountSidW(nullptr, pSid, nullptr, &dwName, nullptr, &dwDomain, &use);
    if (dwName == 0) return false;
    std::wstring name(dwName, L'\0'), domain(dwDomain ? dwDomain : 1, L'\0');
    if (!::LookupAccountSidW(nullptr, pSid, name.data(), &dwName, domain.data(), &dwDomain, &use))
        return false;
    // Trailing zero characters are not part of the name.
    while (!name.empty() && name.back() == L'\0') name.pop_back();
    strName = FromWide(name);
    return true;
}

}  // namespace zv::platform
