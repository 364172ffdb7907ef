// Sizes and numbers as the program shows them.
#pragma once

#include <string>
#include <string_view>

namespace zv {

class CWZorvaneDoc;

// Digits grouped in threes from the right with the thousands separator.
std::u16string GroupThousands(std::u16string_view strDigits);
// A whole number with grouping; empty for 1e15 or more and for negatives.
std::u16string FormatNumber(double dValue);
// A size in the display unit (0 bytes, 1 KB, 2 MB, 3 GB). Other units are
// floored and wrap at 2^32 units. strSuffix follows the number, then a
// blank and the unit name when bWithUnits is set.
std::u16string FormatSize(double dValue, int nSizeUnit, std::u16string_view strUnitName,
                          std::u16string_view strSuffix, bool bWithUnits);
// The same in the main document's current unit.
std::u16string FormatSize(const CWZorvaneDoc& doc, double dValue, std::u16string_view strSuffix,
                          bool bWithUnits);

// The free-space pane: the free bytes of each root's drive summed (a drive
// twice for two roots on it), or "Cannot get free space".
std::u16string FreeSpaceText(const CWZorvaneDoc& doc);

}  // namespace zv
