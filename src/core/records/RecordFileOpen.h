// Opening the file of a record for reading, relative to its directory: each
// thread keeps the last few directories it read several files from open, so
// that a pass over files sorted by directory walks each directory's path
// once rather than once per file.
#pragma once

#include "platform/FileSystem.h"

namespace zv {

class CFileData;

// As reader.Open(file.GetFullPath(), bSequential), which it falls back to
// when the directory cannot be opened or the file not opened relative to it.
bool OpenRecordFile(platform::CFileReader& reader, const CFileData& file, bool bSequential = true);

// Closes the directories this thread keeps open: a thread that has finished
// a pass calls it, so that no directory stays busy (a volume could not be
// unmounted while it did). A thread that opened record files calls it
// before it ends, or its handles stay open until the process ends.
void CloseRecordDirectories();

// Makes every thread open its directories afresh. Called whenever a
// directory record goes away, since a new record may take its address.
void ForgetRecordDirectories();

}  // namespace zv
