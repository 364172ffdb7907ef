// The steps of an owner lookup, exposed one by one so that the scanner can
// cache between them: the file's owner security data, the owner's identity
// within it, and the account name of that identity. On POSIX both the
// "descriptor" and the "SID" are the four bytes of the file's uid.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zv::platform {

// bSizeReported tells whether the call reported the size it needed.
bool ReadOwnerDescriptor(std::u16string_view path, std::vector<uint8_t>& aDescriptor,
                         bool& bSizeReported);
bool OwnerSidOfDescriptor(const std::vector<uint8_t>& aDescriptor, std::vector<uint8_t>& aSid);
// The account name without its domain.
bool AccountNameOfSid(const std::vector<uint8_t>& aSid, std::u16string& strName);

}  // namespace zv::platform
