// The passes a duplicate search is made of. Cheap criteria come first, so
// that checksums and reads are spent only on what the cheap ones left.
#pragma once

#include <vector>

namespace zv {

struct CDuplicateFileCriteria;
struct CDuplicateDirCriteria;

enum class EPassMethod {
    Size = 0,
    Name = 1,
    Mp3Crc = 2,
    QuickCrc = 3,
    FullCrc = 4,
    ByteCompare = 5,
    SmallGroupsCrc = 6,  // groups of 2 and 3 settled by comparing while taking checksums
    SmallGroups = 7,     // the same, comparing only
};

// The file passes for the ticked criteria. Without a CRC list the quick
// checksum thins out large groups before the full one; with a list the
// full checksums are mostly known already.
std::vector<EPassMethod> BuildPassList(const CDuplicateFileCriteria& criteria, bool bCrcListInUse);

// The pass's name in the trace, and the last words of its progress label.
const char16_t* PassTraceText(EPassMethod eMethod);
const char16_t* PassLabelText(EPassMethod eMethod);

enum class EDirPass {
    SizeWithSub,
    Size,
    FileCount,
    FileCountWithSub,
    Name,
    CrcWithSub,
    Crc,
};

std::vector<EDirPass> BuildDirPassList(const CDuplicateDirCriteria& criteria);
// "Finding duplicate dirs based on: ..."
const char16_t* DirPassLabel(EDirPass ePass);

}  // namespace zv
