// The account name of a user id, shared by the POSIX readers of file owners.
#pragma once

#include <sys/types.h>

#include <string>

namespace zv::platform {

// The user's login name, or the id in decimal when the account database has
// none; names are kept per id for the life of the process.
std::u16string OwnerNameOfUid(uid_t uid);

}  // namespace zv::platform
