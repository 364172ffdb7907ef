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
};

using CTextSink = std::function<void(std::string_view)>;

// Lists the files named and, for directories, every file below them,
// entries of a directory in name order, subdirectories where they fall in
// that order. Symbolic links and other reparse points are not followed.
// Lines go to out in UTF-8; an unreadable file reads "UNKNOWN". A path
// that does not exist is reported to err, and the result is then false.
bool WriteCrcListing(const std::vector<std::u16string>& aPaths, const CCrcListingOptions& options,
                     const CTextSink& out, const CTextSink& err);

}  // namespace zv
