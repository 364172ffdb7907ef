// The search of the compare view's Find dialog: through the rows the view
// shows, for a file or a directory entry whose left or right name contains
// the text, without regard to case. The position is kept between searches,
// as the dialog stays open.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv {

struct CCompareEntry;

class CCompareFinder {
public:
    // The dialog's two choices.
    enum EKind { FindFile, FindDirectory };

    // Empty when the search can start, else the message that refuses it.
    static std::u16string Refusal(EKind eKind, std::u16string_view strText);

    // The row of the next or previous hit, or -1 when there is none
    // ("Not found"); the position then goes back to the start, so the
    // next search begins again from the first (or last) row.
    int FindNext(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
                 std::u16string_view strText);
    int FindPrev(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
                 std::u16string_view strText);
    int FindFromBeginning(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
                          std::u16string_view strText);
    int FindFromEnd(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
                    std::u16string_view strText);

    static bool IsHit(const CCompareEntry& entry, EKind eKind, std::u16string_view strUpperText);

private:
    int Search(const std::vector<const CCompareEntry*>& aRows, EKind eKind,
               std::u16string_view strText, int nStart, int nStep);

    int m_nLastHit = -1;  // -1: nothing found yet, or the search went round
};

}  // namespace zv
