#include "core/settings/SettingsConflicts.h"

#include <string>

#include "core/document/FilterSet.h"
#include "core/host/Host.h"

namespace zv {

void ResolveSettingsConflicts(CFilterSet& filters, bool bReport) {
    static constexpr struct {
        EAttributeFilter m_eAttribute;
        const char16_t* m_pszYes;
        const char16_t* m_pszNo;
    } kPairs[] = {
        {AttrFilterCompressed, u"filter compressed yes", u"filter compressed no"},
        {AttrFilterEncrypted, u"filter encrypted yes", u"filter encrypted no"},
        {AttrFilterArchive, u"filter archive yes", u"filter archive no"},
        {AttrFilterReadOnly, u"filter read only yes", u"filter read only no"},
        {AttrFilterHidden, u"filter hidden yes", u"filter hidden no"},
        {AttrFilterLinked, u"filter linked yes", u"filter linked no"},
    };
    for (const auto& pair : kPairs) {
        CYesNoFilter& flags = filters.m_aAttributes[pair.m_eAttribute];
        if (!flags.m_bYes || !flags.m_bNo) continue;
        if (bReport)
            Host().ShowMessage(u"Both '" + std::u16string(pair.m_pszYes) + u"' and '" +
                               pair.m_pszNo + u"' are set, setting both to off");
        flags.m_bNo = 0;
        if (pair.m_eAttribute == AttrFilterEncrypted) {
            filters.m_aAttributes[AttrFilterCompressed].m_bNo = 0;
        } else {
            flags.m_bYes = 0;
        }
    }
}

}  // namespace zv
