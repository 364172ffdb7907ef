// The checks the filter dialogs make, free of any window: each returns the
// message to show, or an empty text when all is well.
#pragma once

#include <string>
#include <string_view>

#include "core/document/FilterSet.h"

namespace zv {

// Adding a pattern to a list: a text already there (without regard to case,
// among entries not marked removed) is refused.
std::u16string CheckNewFilterEntry(const std::vector<CFilterEntry>& aList,
                                   std::u16string_view strText);

// The size, date and other dialog on OK. Sizes are the texts typed; an
// enabled size with no number is refused, as is a minimum above the maximum.
struct CSizeDateDialogValues {
    std::array<CDateFilter, DateFilterCount> m_aDates;
    int32_t m_bMinSize = 0;
    std::u16string m_strMinSize;
    int32_t m_bMaxSize = 0;
    std::u16string m_strMaxSize;
};
std::u16string CheckSizeDateDialog(const CSizeDateDialogValues& values);

// The warning when the has-streams test is turned on while streams are not
// checked; it does not prevent it.
std::u16string StreamFilterWarning(bool bHasStreamsOn, bool bCheckStreams);

// A duplicate directories filter closed without a duplicate criterion.
std::u16string CheckDuplicateCriterion(bool bAnyCriterion);

// A size as typed, in bytes; false when the text holds no number.
bool ParseSize(std::u16string_view strText, double& dSize);

}  // namespace zv
