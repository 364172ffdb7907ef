// Sections of the single filters: the date tests, the size limits and
// "[FILTER OTHER]".
#include <span>

#include "core/settings/SettingsSections.h"
#include "core/settings/SettingsValues.h"
#include "platform/FileTime.h"
#include "platform/Text.h"

namespace zv {
namespace {

struct CDateSectionNames {
    std::u16string_view m_strAbsolute;
    std::u16string_view m_strRelative;
};

constexpr CDateSectionNames kDateSections[DateFilterCount] = {
    {u"[FILTER CREATED BEFORE]", u"[FILTER CREATED BEFORE RELATIVE]"},
    {u"[FILTER CREATED AFTER]", u"[FILTER CREATED AFTER RELATIVE]"},
    {u"[FILTER ACCESSED BEFORE]", u"[FILTER ACCESSED BEFORE RELATIVE]"},
    {u"[FILTER ACCESSED AFTER]", u"[FILTER ACCESSED AFTER RELATIVE]"},
    {u"[FILTER MODIFIED BEFORE]", u"[FILTER MODIFIED BEFORE RELATIVE]"},
    {u"[FILTER MODIFIED AFTER]", u"[FILTER MODIFIED AFTER RELATIVE]"},
};

// An absolute date, one field of local time a line. Keys may come in any
// order and absent ones count 0; the date is on when a key was recognised
// and the fields make a valid local time.
class CAbsoluteDateSection : public ISettingsSection {
public:
    CAbsoluteDateSection(std::u16string_view strName, CDateFilter& date)
        : m_strName(strName), m_date(date) {}

    std::u16string_view Name() const override { return m_strName; }

    void Begin() override {
        m_time = SYSTEMTIME{};
        m_bAnyKey = false;
    }

    void ReadLine(std::u16string_view strLine) override {
        std::u16string_view strKey, strValue;
        if (!SplitKeyLine(strLine, strKey, strValue)) return;
        for (const CField& field : Fields()) {
            if (platform::EqualsNoCase(field.m_strKey, strKey)) {
                m_time.*field.m_pField = static_cast<uint16_t>(ParseSettingsInteger(strValue));
                m_bAnyKey = true;
                return;
            }
        }
    }

    void End() override {
        FILETIME ftLocal, ftUtc;
        if (m_bAnyKey && platform::SystemTimeToFileTime(m_time, ftLocal) &&
            platform::LocalFileTimeToFileTime(ftLocal, ftUtc)) {
            m_date.m_bAbsolute = 1;
            m_date.m_ftAbsolute = ftUtc;
        }
    }

    void Write(std::vector<std::u16string>& aLines) const override {
        FILETIME ftLocal;
        SYSTEMTIME time;
        if (!m_date.m_bAbsolute ||
            !platform::FileTimeToLocalFileTime(m_date.m_ftAbsolute, ftLocal) ||
            !platform::FileTimeToSystemTime(ftLocal, time))
            return;
        aLines.emplace_back(m_strName);
        for (const CField& field : Fields())
            aLines.push_back(std::u16string(field.m_strKey) + u'=' +
                             FormatSettingsInteger(time.*field.m_pField));
        aLines.emplace_back();
    }

private:
    struct CField {
        std::u16string_view m_strKey;
        uint16_t SYSTEMTIME::*m_pField;
    };

    static std::span<const CField> Fields() {
        static constexpr CField kFields[] = {
            {u"Year", &SYSTEMTIME::wYear},
            {u"Month", &SYSTEMTIME::wMonth},
            {u"Day of Week", &SYSTEMTIME::wDayOfWeek},
            {u"Day", &SYSTEMTIME::wDay},
            {u"Hour", &SYSTEMTIME::wHour},
            {u"Minute", &SYSTEMTIME::wMinute},
            {u"Second", &SYSTEMTIME::wSecond},
            {u"Millisecond", &SYSTEMTIME::wMilliseconds},
        };
        return kFields;
    }

    std::u16string_view m_strName;
    CDateFilter& m_date;
    SYSTEMTIME m_time;
    bool m_bAnyKey = false;
};

// A relative date: on as soon as one of its keys is recognised.
CSettingsKey RelativeKey(std::u16string_view strKey, CDateFilter& date, int32_t& nValue) {
    CSettingsKey key = IntegerKey(strKey, nValue);
    key.m_fnRead = [&date, &nValue](std::u16string_view v) {
        nValue = ParseSettingsInteger(v);
        date.m_bRelative = 1;
    };
    return key;
}

std::unique_ptr<ISettingsSection> MakeRelativeDateSection(std::u16string_view strName,
                                                          CDateFilter& date) {
    auto pSection = std::make_unique<CKeySection>(
        strName, std::vector<CSettingsKey>{RelativeKey(u"Days", date, date.m_nDays),
                                           RelativeKey(u"Hours", date, date.m_nHours),
                                           RelativeKey(u"Minutes", date, date.m_nMinutes),
                                           RelativeKey(u"Seconds", date, date.m_nSeconds)});
    pSection->m_fnWritten = [&date] { return date.m_bRelative != 0; };
    return pSection;
}

// A size limit: on when its key is read, written only when on.
std::unique_ptr<ISettingsSection> MakeSizeSection(std::u16string_view strName,
                                                  std::u16string_view strKey, int32_t& bEnabled,
                                                  double& dLimit) {
    CSettingsKey key = RealKey(strKey, dLimit);
    key.m_fnRead = [&bEnabled, &dLimit](std::u16string_view v) {
        dLimit = ParseSettingsReal(v);
        bEnabled = 1;
    };
    auto pSection = std::make_unique<CKeySection>(strName, std::vector<CSettingsKey>{key});
    pSection->m_fnWritten = [&bEnabled] { return bEnabled != 0; };
    return pSection;
}

}  // namespace

void AddDateSections(CFilterSet& filters, CSettingsSections& aSections) {
    for (int nTest = 0; nTest < DateFilterCount; ++nTest) {
        CDateFilter& date = filters.m_aDates[nTest];
        aSections.push_back(
            std::make_unique<CAbsoluteDateSection>(kDateSections[nTest].m_strAbsolute, date));
        aSections.push_back(MakeRelativeDateSection(kDateSections[nTest].m_strRelative, date));
    }
}

void AddSizeSections(CFilterSet& filters, CSettingsSections& aSections) {
    aSections.push_back(
        MakeSizeSection(u"[FILTER MIN SIZE]", u"min size", filters.m_bMinSize, filters.m_dMinSize));
    aSections.push_back(
        MakeSizeSection(u"[FILTER MAX SIZE]", u"max size", filters.m_bMaxSize, filters.m_dMaxSize));
}

std::unique_ptr<ISettingsSection> MakeFilterOtherSection(CFilterSet& filters) {
    auto& a = filters.m_aAttributes;
    return std::make_unique<CKeySection>(
        u"[FILTER OTHER]",
        std::vector<CSettingsKey>{
            FlagKey(u"filter created date > accessed date", filters.m_bCreatedLater),
            FlagKey(u"filter any dates EQ 0", filters.m_bAnyDateLow),
            FlagKey(u"filter file has NTFS streams", filters.m_bHasStreams),
            FlagKey(u"filter system file yes", a[AttrFilterSystem].m_bYes),
            FlagKey(u"filter system file no", a[AttrFilterSystem].m_bNo),
            FlagKey(u"filter compressed yes", a[AttrFilterCompressed].m_bYes),
            FlagKey(u"filter compressed no", a[AttrFilterCompressed].m_bNo),
            FlagKey(u"filter encrypted yes", a[AttrFilterEncrypted].m_bYes),
            FlagKey(u"filter encrypted no", a[AttrFilterEncrypted].m_bNo),
            FlagKey(u"filter archive yes", a[AttrFilterArchive].m_bYes),
            FlagKey(u"filter archive no", a[AttrFilterArchive].m_bNo),
            FlagKey(u"filter read only yes", a[AttrFilterReadOnly].m_bYes),
            FlagKey(u"filter read only no", a[AttrFilterReadOnly].m_bNo),
            FlagKey(u"filter hidden yes", a[AttrFilterHidden].m_bYes),
            FlagKey(u"filter hidden no", a[AttrFilterHidden].m_bNo),
            FlagKey(u"filter linked yes", a[AttrFilterLinked].m_bYes),
            FlagKey(u"filter linked no", a[AttrFilterLinked].m_bNo),
            IntegerKey(u"filter path length", filters.m_nPathLength),
        });
}

}  // namespace zv
