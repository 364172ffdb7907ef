// The checks the duplicate option dialogs make on OK, free of any window:
// each returns the message to show, or an empty text when all is well.
#pragma once

#include <string>

#include "core/document/DocumentOptions.h"

namespace zv {
class CWZorvaneDoc;
}

namespace zv {

// "Duplicate Options": a search that starts after every scan needs a
// criterion, and a sound to play needs a file.
std::u16string CheckDuplicateOptions(const CDocumentOptions& options);

// "Duplicate File Options", the five method boxes alone.
std::u16string CheckDuplicateFileOptions(const CDuplicateFileCriteria& criteria,
                                         bool bFindAfterScan);

// The commands after a run: the message for an empty result, or empty.
std::u16string NoDuplicateFilesMessage(const CWZorvaneDoc& doc);
std::u16string NoDuplicateDirsMessage(const CWZorvaneDoc& doc);

}  // namespace zv
