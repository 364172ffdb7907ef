#include "app/CrcCommand.h"

#include <cstdio>

#include "analyses/CrcListing.h"
#include "app/CheckedOutput.h"
#include "app/ExitStatus.h"
#include "platform/Console.h"

namespace zv {

int RunCrcCommand(const std::vector<std::u16string>& aPaths, bool bHex, bool bNoTags, bool bQuick) {
    platform::InstallInterruptHandler();
    CCrcListingOptions options;
    options.bHex = bHex;
    options.bNoTags = bNoTags;
    options.bQuick = bQuick;
    options.fnStopRequested = [] { return platform::TakeInterrupt(); };
    CCheckedOutput output;
    const CTextSink out = [&output](std::string_view text) { output.Write(text); };
    const CTextSink err = [](std::string_view text) {
        std::fflush(stdout);
        std::fputs("zorvane-cli crc: ", stderr);
        std::fwrite(text.data(), 1, text.size(), stderr);
    };
    const CCrcListingResult result = WriteCrcListing(aPaths, options, out, err);
    const bool bWritten = output.Finish();
    if (result.bStopped)
        std::fputs("zorvane-cli crc: stopped; the lines above are complete.\n", stderr);
    return ExitStatusOf(result.bStopped, !bWritten || !result.bAllFound || !result.bAllRead);
}

}  // namespace zv
