// The status line while a report is written: the word and the percentage
// of files done, redrawn when the percentage changes or every 100 files.
// Each step also lets pending user input run, which is where a stop request
// is seen.
#pragma once

#include <string_view>

namespace zv {

void ReportProgressBegin(double dTotal, std::u16string_view strWord);
// After each file row, and for each file left out by "no files".
void ReportProgressStep();
void ReportProgressEnd();

}  // namespace zv
