#include "core/settings/SettingsSection.h"

#include "core/settings/SettingsValues.h"
#include "core/settings/SettingsWords.h"
#include "platform/Text.h"

namespace zv {

bool SplitKeyLine(std::u16string_view strLine, std::u16string_view& strKey,
                  std::u16string_view& strValue) {
    const size_t nEquals = strLine.find(u'=');
    if (nEquals == std::u16string_view::npos || nEquals == 0) return false;
    strKey = strLine.substr(0, nEquals);
    strValue = strLine.substr(nEquals + 1);
    return true;
}

CSettingsKey FlagKey(std::u16string_view strKey, int32_t& bFlag) {
    return {strKey, [&bFlag](std::u16string_view v) { bFlag = ParseSettingsInteger(v) != 0; },
            [&bFlag] { return FormatSettingsInteger(bFlag); }};
}

CSettingsKey FlagKey(std::u16string_view strKey, uint8_t& bFlag) {
    return {strKey, [&bFlag](std::u16string_view v) { bFlag = ParseSettingsInteger(v) != 0; },
            [&bFlag] { return FormatSettingsInteger(bFlag); }};
}

CSettingsKey IntegerKey(std::u16string_view strKey, int32_t& nValue) {
    return {strKey, [&nValue](std::u16string_view v) { nValue = ParseSettingsInteger(v); },
            [&nValue] { return FormatSettingsInteger(nValue); }};
}

CSettingsKey ByteKey(std::u16string_view strKey, uint8_t& nValue) {
    return {strKey,
            [&nValue](std::u16string_view v) {
                nValue = static_cast<uint8_t>(ParseSettingsInteger(v) & 0xFF);
            },
            [&nValue] { return FormatSettingsInteger(nValue); }};
}

CSettingsKey RealKey(std::u16string_view strKey, double& dValue) {
    return {strKey, [&dValue](std::u16string_view v) { dValue = ParseSettingsReal(v); },
            [&dValue] { return FormatSettingsReal(dValue); }};
}

CSettingsKey TextKey(std::u16string_view strKey, std::u16string& strValue) {
    return {strKey, [&strValue](std::u16string_view v) { strValue = v; },
            [&strValue] { return strValue; }};
}

CSettingsKey FileSortKey(std::u16string_view strKey, uint8_t& nCode) {
    return {strKey, [&nCode](std::u16string_view v) { nCode = FileSortCode(v); },
            [&nCode] { return std::u16string(FileSortWord(nCode)); }};
}

CSettingsKey DirSortKey(std::u16string_view strKey, uint8_t& nCode) {
    return {strKey, [&nCode](std::u16string_view v) { nCode = DirSortCode(v); },
            [&nCode] { return std::u16string(DirSortWord(nCode)); }};
}

CSettingsKey WrittenIf(CSettingsKey key, std::function<bool()> fnWritten) {
    key.m_fnWrite = [fnWrite = std::move(key.m_fnWrite),
                     fnWritten = std::move(fnWritten)]() -> std::optional<std::u16string> {
        if (!fnWritten()) return std::nullopt;
        return fnWrite();
    };
    return key;
}

CKeySection::CKeySection(std::u16string_view strName, std::vector<CSettingsKey> aKeys)
    : m_strName(strName), m_aKeys(std::move(aKeys)) {}

void CKeySection::Begin() {
    if (m_fnBegin) m_fnBegin();
}

void CKeySection::ReadLine(std::u16string_view strLine) {
    std::u16string_view strKey, strValue;
    if (!SplitKeyLine(strLine, strKey, strValue)) return;
    for (const CSettingsKey& key : m_aKeys) {
        if (key.m_fnRead && platform::EqualsNoCase(key.m_strKey, strKey)) {
            key.m_fnRead(strValue);
            return;
        }
    }
}

void CKeySection::Write(std::vector<std::u16string>& aLines) const {
    if (m_fnWritten && !m_fnWritten()) return;
    aLines.emplace_back(m_strName);
    if (!m_strComment.empty()) aLines.emplace_back(m_strComment);
    for (const CSettingsKey& key : m_aKeys) {
        if (!key.m_fnWrite) continue;
        if (const std::optional<std::u16string> strValue = key.m_fnWrite())
            aLines.push_back(std::u16string(key.m_strKey) + u'=' + *strValue);
    }
    aLines.emplace_back();
}

}  // namespace zv
