// Owner names are interned once for the whole process: records hold only a
// pointer, so two owners compare by pointer or by text, and a name lives
// until the process ends.
#pragma once

#include <string>
#include <string_view>

namespace zv {

// The pooled string equal to strName, added when missing. The lookup checks
// the slot of the last hit first, then searches the sorted pool.
const std::u16string* InternOwner(std::u16string_view strName);

// The stand-in text of an owner that could not be told.
const std::u16string& NoOwner();

// Number of names pooled so far.
size_t OwnerPoolSize();

}  // namespace zv
