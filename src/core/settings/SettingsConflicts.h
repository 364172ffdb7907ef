// Filter flags that a hand-written settings file can set against each other.
#pragma once

namespace zv {

struct CFilterSet;

// Turns off the yes and no flags of an attribute that are both set, in a
// fixed order, and with bReport says "Both '...' and '...' are set, setting
// both to off" for each pair. The encrypted pair turns off "no" and also
// "filter compressed no", and leaves "yes" on, in spite of the message. The
// system pair is not checked.
void ResolveSettingsConflicts(CFilterSet& filters, bool bReport);

}  // namespace zv
