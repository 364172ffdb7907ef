// "New Folder" in the file list's directory: the first free name of "New
// Folder", "New Folder (2)", "New Folder (3)", ... is created on disk and
// gets its record.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zv {

class CWZorvaneDoc;
class CDirectoryData;

// The first name for which bTaken says no; empty when none is free below
// 0xFFFFF.
std::u16string FirstFreeFolderName(const std::function<bool(std::u16string_view)>& bTaken);

// Creates the folder in dir, adds its record to dir's children and to the
// document's list of all directories, and returns it; null after a failure,
// told to the host.
CDirectoryData* CreateNewFolder(CWZorvaneDoc& doc, CDirectoryData& dir);

}  // namespace zv
