// Checksum lines for the command line: one line per file, with the
// checksum as the reports write it, two spaces and the full path.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

struct CCrcListingOptions {
    bool bHex = false;     // "0x1A2B" rather than decimal
    bool bNoTags = false;  // the checksum without MP3 tags
    bool bQuick = false;   // the checksum of the one sample block
    // Asked between files and batches; true ends the listing with what was done.
    std::function<bool()> fnStopRequested;
};

struct CCrcListingResult {
    bool bAllFound = true;  // every path named exists
    bool bAllRead = true;   // no file read "UNKNOWN", no directory failed to list
    bool bStopped = false;
};

using CTextSink = std::function<void(std::string_view)>;

// Lists the files named and, for directories, every file below them,
// entries of a directory in name order, subdirectories where they fall in
// that order. A path named is what the user means: a link there is
// followed; below it, symbolic links and other reparse points (mount points
// too) are not. Lines go to out in UTF-8; an unreadable file reads
// "UNKNOWN". Devices, FIFOs and sockets have no contents to check: each is
// skipped with a line on err. A path that does not exist and a directory
// that cannot be listed are reported to err.
CCrcListingResult WriteCrcListing(const std::vector<std::u16string>& aPaths,
                                  const CCrcListingOptions& options, const CTextSink& out,
                                  const CTextSink& err);

}  // namespace zv
