// zorvane-cli: the headless front end of Zorvane.
#include <cstdio>
#include <cstring>

#include "Version.h"

namespace {

const char kUsage[] =
    "Usage: zorvane-cli [--help] [--version]\n"
    "\n"
    "Zorvane scans directory trees and reports on what it finds.\n"
    "This build provides only the options below; the scan and report\n"
    "commands are not part of it yet.\n"
    "\n"
    "Options:\n"
    "  --help     show this help and exit\n"
    "  --version  print the version and exit\n";

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::printf("zorvane-cli %s\n", ZORVANE_VERSION);
        return 0;
    }
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    std::fputs(kUsage, stderr);
    return 2;
}
