#include "app/CrcCommand.h"

#include <cstdio>

#include "analyses/CrcListing.h"

namespace zv {

int RunCrcCommand(const std::vector<std::u16string>& aPaths, bool bHex, bool bNoTags, bool bQuick) {
    CCrcListingOptions options;
    options.bHex = bHex;
    options.bNoTags = bNoTags;
    options.bQuick = bQuick;
    const CTextSink out = [](std::string_view text) {
        std::fwrite(text.data(), 1, text.size(), stdout);
    };
    const CTextSink err = [](std::string_view text) {
        std::fflush(stdout);
        std::fputs("zorvane-cli crc: ", stderr);
        std::fwrite(text.data(), 1, text.size(), stderr);
    };
    const bool bAllFound = WriteCrcListing(aPaths, options, out, err);
    std::fflush(stdout);
    return bAllFound ? 0 : 1;
}

}  // namespace zv
