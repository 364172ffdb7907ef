// Renaming one file or directory on disk and in its record. A name that is
// taken gets a number: "name_N" for directories and for files without a
// period, "front_N.rest" (cut at the first period) for files.
#pragma once

#include <string>
#include <string_view>

namespace zv {

class CFileData;
class CDirectoryData;

// The candidate of attempt N (N from 1) after the name itself.
std::u16string NumberedFileName(std::u16string_view strName, int nAttempt);
std::u16string NumberedDirectoryName(std::u16string_view strName, int nAttempt);

// An empty name or the present one (case counted) succeeds with nothing
// done. After 1000 taken names the failure goes to the host.
bool RenameFileOnDisk(CFileData& file, std::u16string_view strNewName);
// A root's new name is the part after the last separator.
bool RenameDirectoryOnDisk(CDirectoryData& dir, std::u16string_view strNewName);

}  // namespace zv
