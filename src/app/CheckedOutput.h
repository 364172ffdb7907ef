// Standard output with its write errors checked, so that a full disk or a
// failing device never passes for a complete listing.
#pragma once

#include <string_view>

namespace zv {

class CCheckedOutput {
public:
    // Writes text to standard output; a failure is remembered.
    void Write(std::string_view text);
    // Flushes standard output. On a failure of this or any earlier write it
    // says so on stderr once ("zorvane-cli: cannot write standard output:
    // ...") and returns false; the exit status is then kExitIncomplete.
    bool Finish();

private:
    int m_nError = 0;  // errno of the first failure
    bool m_bReported = false;
};

}  // namespace zv
