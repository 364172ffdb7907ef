// The CRC list: checksums taken from an earlier text or XML report instead
// of reading the files. The main document keeps the list's path
// (m_options.m_strCrcFromFile), its entries and the count matched.
#pragma once

#include <cstddef>
#include <string>

namespace zv {

class CWZorvaneDoc;

// Reads the file named by the document's list path: the XML form when the
// path ends in ".xml" (any case), else the text form. A file that cannot be
// read, or XML that does not parse, is reported through the host and leaves
// the earlier entries in place.
void LoadCrcList(CWZorvaneDoc& doc);

// Gives the listed checksums to the files of the scan whose full paths are
// on the list, compared without regard to case; each entry serves one file.
// A matched file gets FILE_CRC_FROM_LIST and either the checksum or, where
// the list says "UNKNOWN", FILE_CRC_FAILED. Returns the count matched, which
// the document keeps too. Runs after every scan.
size_t ApplyCrcList(CWZorvaneDoc& doc);

// The command "Get CRCs from a file" after its dialog: the document takes
// the path (an empty one ends the use of a list); a non-empty path is
// loaded and applied, and the count matched is shown. Ignored during a scan.
void GetCrcsFromFile(CWZorvaneDoc& doc, const std::u16string& strPath);

// The dialog's check of the path on OK: trims it at both ends, and returns
// the message to show, or an empty text when the path is good.
std::u16string CheckCrcListPath(std::u16string& strPath);

}  // namespace zv
