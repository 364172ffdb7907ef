// zorvane-cli crc: checksums of files and directory trees on standard output.
#pragma once

#include <string>
#include <vector>

namespace zv {

// One line per file, "<checksum>  <full path>", in UTF-8 on standard
// output; directories are walked recursively in name order. bHex writes
// hexadecimal, bNoTags the checksum without MP3 tags, bQuick the checksum
// of the one sample block. Returns the exit status (ExitStatus.h): 1 when a
// path did not exist, a directory could not be listed, a file read
// "UNKNOWN" or the output could not be written; 130 when Ctrl-C stopped it,
// after the lines of the files done.
int RunCrcCommand(const std::vector<std::u16string>& aPaths, bool bHex, bool bNoTags, bool bQuick);

}  // namespace zv
