// Standard output (or a file) with its write errors checked, so that a full
// disk or a failing device never passes for a complete listing.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace zv {

class CCheckedOutput {
public:
    // Standard output.
    CCheckedOutput() = default;
    // An open file, named in the message; closed by Close() or at the end
    // when bOwned.
    CCheckedOutput(std::FILE* pFile, std::string strName, bool bOwned);
    ~CCheckedOutput();
    CCheckedOutput(const CCheckedOutput&) = delete;
    CCheckedOutput& operator=(const CCheckedOutput&) = delete;

    // Writes text; a failure is remembered. Returns false once anything failed.
    bool Write(std::string_view text);
    // Flushes; returns false once anything failed.
    bool Flush();
    // Closes an owned file (nothing for one not owned); returns false once
    // anything failed.
    bool Close();
    // Flushes and closes. On a failure of this or any earlier write it says
    // so on stderr once ("zorvane-cli: cannot write standard output: ...")
    // and returns false; the exit status is then kExitIncomplete.
    bool Finish();
    // "cannot write NAME: REASON" after the first failure, empty before.
    std::string Error() const;

private:
    bool Check(bool bOk);

    std::FILE* m_pFile = stdout;
    std::string m_strName = "standard output";
    bool m_bOwned = false;
    int m_nError = 0;  // errno of the first failure
    bool m_bReported = false;
};

}  // namespace zv
