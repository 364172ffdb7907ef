// The exit statuses of zorvane-cli, the same for every command, as du, find
// and sha256sum use them.
#pragma once

namespace zv {

inline constexpr int kExitOk = 0;
// Something could not be read (a directory or a file), or the output could
// not be written. Everything else was still done and printed.
inline constexpr int kExitIncomplete = 1;
// Bad usage: an unknown option, a value that makes no sense, a root that is
// not a directory, a settings file that cannot be read.
inline constexpr int kExitUsage = 2;
// Stopped by Ctrl-C (128 + SIGINT), after printing what was done.
inline constexpr int kExitInterrupted = 130;

// The status of a finished run: an interruption wins, then anything
// unread or unwritten.
inline int ExitStatusOf(bool bInterrupted, bool bIncomplete) {
    if (bInterrupted) return kExitInterrupted;
    return bIncomplete ? kExitIncomplete : kExitOk;
}

// The lines that --help and the README give for the statuses.
inline constexpr const char* kExitStatusHelp =
    "Exit status: 0 when everything was read and printed; 1 when something could not be read "
    "(a directory or a file) or the output could not be written; 2 for bad usage; 130 when "
    "stopped by Ctrl-C (what was done so far is printed).";

}  // namespace zv
