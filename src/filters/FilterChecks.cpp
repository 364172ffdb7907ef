#include "filters/FilterChecks.h"

#include <cstdlib>

#include "platform/Text.h"

namespace zv {

std::u16string CheckNewFilterEntry(const std::vector<CFilterEntry>& aList,
                                   std::u16string_view strText) {
    for (const CFilterEntry& entry : aList)
        if (!entry.m_bRemoved && platform::EqualsNoCase(entry.m_strText, strText))
            return u"That filter has already been chosen";
    return {};
}

bool ParseSize(std::u16string_view strText, double& dSize) {
    const std::string strUtf8 = platform::Utf16ToUtf8(strText);
    const char* pszStart = strUtf8.c_str();
    char* pszEnd = nullptr;
    dSize = std::strtod(pszStart, &pszEnd);
    return pszEnd != pszStart;
}

std::u16string CheckSizeDateDialog(const CSizeDateDialogValues& values) {
    struct Pair {
        EDateFilter eBefore, eAfter;
        const char16_t* pszMessage;
    };
    static const Pair kPairs[] = {
        {CreatedBefore, CreatedAfter, u"created-before date > created-after date"},
        {AccessedBefore, AccessedAfter, u"accessed-before date > accessed-ater date"},
        {ModifiedBefore, ModifiedAfter, u"modify-before date > modify-after date"},
    };
    for (const Pair& pair : kPairs) {
        const CDateFilter& before = values.m_aDates[pair.eBefore];
        const CDateFilter& after = values.m_aDates[pair.eAfter];
        if (before.m_bAbsolute && after.m_bAbsolute &&
            CompareFileTime(before.m_ftAbsolute, after.m_ftAbsolute) > 0) {
            return pair.pszMessage;
        }
    }
    double dMin = 0, dMax = 0;
    const bool bMinNumber = ParseSize(values.m_strMinSize, dMin);
    const bool bMaxNumber = ParseSize(values.m_strMaxSize, dMax);
    if (values.m_bMinSize && !bMinNumber)
        return u"Minimum file size is enable, but there is no number entered";
    if (values.m_bMaxSize && !bMaxNumber)
        return u"Maximum file size is enable, but there is no number entered";
    if (values.m_bMinSize && values.m_bMaxSize && dMin > dMax) return u"Min Size > Max Size";
    return {};
}

std::u16string StreamFilterWarning(bool bHasStreamsOn, bool bCheckStreams) {
    if (!bHasStreamsOn || bCheckStreams) return {};
    return u"This will not work unless you turn on checking for streams\nby selecting menu\nFile / "
           u"Check for streams";
}

std::u16string CheckDuplicateCriterion(bool bAnyCriterion) {
    return bAnyCriterion ? std::u16string() : u"Please pick a method of finding duplicate files";
}

}  // namespace zv
