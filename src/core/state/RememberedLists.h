// The remembered lists: previous choices of the root and filter dialogs,
// each a family of values named by a base name and an index from 0 to 31
// ("RootDir0" ... "RootDir31"), with the entries in use at the front.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/UserStore.h"

namespace zv {

class CWZorvaneDoc;

inline constexpr int kRememberedListSize = 32;
// A value longer than this many characters does not read, and is left out.
inline constexpr size_t kRememberedValueLimit = 260;

// The base names of the roots' list; the filter lists' names are given by
// FilterListNames.
inline constexpr std::u16string_view kRootDirList = u"RootDir";

// Empties the list, then appends each value from index 0 to 31 that exists;
// gaps are allowed.
void ReadList(std::u16string_view strBase, std::vector<std::u16string>& aList);
// Saves aCurrent (its first 32 entries) merged with aPrevious: every
// previous entry equal to a current one without regard to case goes, the
// rest follows up to 32 entries in all, written from index 0. Values with
// higher indexes stay as they were.
void SaveList(const std::vector<std::u16string>& aCurrent,
              const std::vector<std::u16string>& aPrevious, std::u16string_view strBase);
// Deletes the first of the 32 values equal to the text, with case; false
// when there is none.
bool DeleteListEntry(std::u16string_view strBase, std::u16string_view strText);
// Deletes all 32 values.
void DeleteList(std::u16string_view strBase);

// The same on an open store.
void ReadList(platform::IUserStore& store, std::u16string_view strBase,
              std::vector<std::u16string>& aList);
void SaveList(platform::IUserStore& store, const std::vector<std::u16string>& aCurrent,
              const std::vector<std::u16string>& aPrevious, std::u16string_view strBase);
void DeleteList(platform::IUserStore& store, std::u16string_view strBase);

// What every scan does first: each list in use (the roots, then the filter
// lists) merged into its remembered list, in a fixed order. The Office
// extensions are not among them.
void SaveRememberedLists(const CWZorvaneDoc& doc);

}  // namespace zv
