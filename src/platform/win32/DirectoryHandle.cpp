#include "platform/DirectoryHandle.h"

#include <windows.h>
// The platform function of that name, not the API macro.
#undef GetFileAttributes

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/win32/WideString.h"

namespace zv::platform {
namespace {

// The owner SID of a file from its security descriptor.
bool ReadOwnerSid(const std::wstring& strPath, std::vector<BYTE>& aSid) {
    DWORD dwNeeded = 0;
    std::vector<BYTE> descriptor(512);
    while (!::GetFileSecurityW(strPath.c_str(), OWNER_SECURITY_INFORMATION, descriptor.data(),
                               DWORD(descriptor.size()), &dwNeeded)) {
        if (::GetLastError() != ERROR_INSUFFICIENT_BUFFER || dwNeeded <= descriptor.size())
            return false;
        descriptor.resize(dwNeeded);
    }
    PSID pOwner = nullptr;
    BOOL bDefaulted = FALSE;
    if (!::GetSecurityDescriptorOwner(descriptor.data(), &pOwner, &bDefaulted) || !pOwner ||
        !::IsValidSid(pOwner))
        return false;
    const auto* pBytes = static_cast<const BYTE*>(pOwner);
    aSid.assign(pBytes, pBytes + ::GetLengthSid(pOwner));
    return true;
}

// The account name of a SID without its domain; nothing when it has none.
std::optional<std::u16string> AccountNameOfSid(std::vector<BYTE>& aSid) {
    DWORD dwName = 0, dwDomain = 0;
    SID_NAME_USE use;
    ::LookupAccountSidW(nullptr, aSid.data(), nullptr, &dwName, nullptr, &dwDomain, &use);
    if (dwName == 0) return std::nullopt;
    std::vector<wchar_t> name(dwName), domain(dwDomain > 0 ? dwDomain : 1);
    if (!::LookupAccountSidW(nullptr, aSid.data(), name.data(), &dwName, domain.data(), &dwDomain,
                             &use))
        return std::nullopt;
    // On success the count excludes the terminating zero.
    return FromWide(name.data(), dwName);
}

}  // namespace

struct CDirectoryHandle::Impl {
    bool bOpen = false;
    std::u16string strPath;  // ending in a separator
    // Kept while the handle lives, across directories. Keyed by the SID's
    // bytes as a string: a vector key makes MinGW's GCC 12 warn falsely
    // about the memcmp in its comparison.
    std::map<std::string, std::optional<std::u16string>> mapOwners;
};

CDirectoryHandle::CDirectoryHandle() : m_pImpl(std::make_unique<Impl>()) {}

CDirectoryHandle::~CDirectoryHandle() = default;

bool CDirectoryHandle::Open(std::u16string_view path) {
    Close();
    const uint32_t uAttributes = GetFileAttributes(path);
    if (uAttributes == ATTR_INVALID || !(uAttributes & ATTR_DIRECTORY)) return false;
    m_pImpl->strPath.assign(path);
    if (m_pImpl->strPath.back() != u'\\' && m_pImpl->strPath.back() != u'/')
        m_pImpl->strPath += u'\\';
    m_pImpl->bOpen = true;
    return true;
}

void CDirectoryHandle::Close() {
    m_pImpl->bOpen = false;
    m_pImpl->strPath.clear();
}

bool CDirectoryHandle::IsOpen() const { return m_pImpl->bOpen; }

bool CDirectoryHandle::OpenFile(CFileReader& reader, std::u16string_view name,
                                bool bSequential) const {
    if (!IsOpen()) return false;
    std::u16string strPath = m_pImpl->strPath;
    strPath += name;
    return reader.Open(strPath, bSequential);
}

bool CDirectoryHandle::ReadDiskInfo(std::u16string_view name, bool bWantOwner,
                                    CFileDiskInfo& info) {
    if (!IsOpen()) return false;
    info = CFileDiskInfo{};
    std::u16string strPath = m_pImpl->strPath;
    strPath += name;
    info.dSizeOnDisk = GetSizeOnDisk(strPath);
    info.uLinkCount = GetLinkCount(strPath);
    std::vector<BYTE> aSid;
    if (!bWantOwner || !ReadOwnerSid(ToWide(strPath), aSid)) return true;
    const std::string strKey(aSid.begin(), aSid.end());
    auto it = m_pImpl->mapOwners.find(strKey);
    if (it == m_pImpl->mapOwners.end())
        it = m_pImpl->mapOwners.emplace(strKey, AccountNameOfSid(aSid)).first;
    if (it->second) {
        info.bOwnerKnown = true;
        info.strOwner = *it->second;
    }
    return true;
}

}  // namespace zv::platform
