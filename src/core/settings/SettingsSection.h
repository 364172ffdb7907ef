// One section of a settings file as the reader meets it and the writer
// writes it. A section is bound to the part of the document it carries.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

class ISettingsSection {
public:
    virtual ~ISettingsSection() = default;

    // The header line, "[OTHER]" for example.
    virtual std::u16string_view Name() const = 0;
    // The reader calls Begin at the header, ReadLine for each line that is
    // neither empty nor a comment, and End at the empty line or the end of
    // the file.
    virtual void Begin() {}
    virtual void ReadLine(std::u16string_view strLine) = 0;
    virtual void End() {}
    // Appends the header, the lines and the closing empty line; nothing when
    // the section is left out.
    virtual void Write(std::vector<std::u16string>& aLines) const = 0;
};

using CSettingsSections = std::vector<std::unique_ptr<ISettingsSection>>;

// One "key=value" line of a keyed section.
struct CSettingsKey {
    std::u16string_view m_strKey;
    std::function<void(std::u16string_view strValue)> m_fnRead;  // null: the key is not read
    // The value to write; nothing leaves the line out.
    std::function<std::optional<std::u16string>()> m_fnWrite;
};

// Builders of keys bound to a field; the value is written as it stands.
CSettingsKey FlagKey(std::u16string_view strKey, int32_t& bFlag);  // reads non-zero as 1
CSettingsKey FlagKey(std::u16string_view strKey, uint8_t& bFlag);
CSettingsKey IntegerKey(std::u16string_view strKey, int32_t& nValue);
CSettingsKey ByteKey(std::u16string_view strKey, uint8_t& nValue);  // keeps the low 8 bits
CSettingsKey RealKey(std::u16string_view strKey, double& dValue);
CSettingsKey TextKey(std::u16string_view strKey, std::u16string& strValue);
CSettingsKey FileSortKey(std::u16string_view strKey, uint8_t& nCode);
CSettingsKey DirSortKey(std::u16string_view strKey, uint8_t& nCode);
// The same key, written only while bWritten says so.
CSettingsKey WrittenIf(CSettingsKey key, std::function<bool()> fnWritten);

// A section of "key=value" lines. Keys match without regard to case; a line
// splits at its first '='; a line without '=', or starting with one, and an
// unknown key are skipped.
class CKeySection : public ISettingsSection {
public:
    CKeySection(std::u16string_view strName, std::vector<CSettingsKey> aKeys);

    std::u16string_view Name() const override { return m_strName; }
    void Begin() override;
    void ReadLine(std::u16string_view strLine) override;
    void Write(std::vector<std::u16string>& aLines) const override;

    // A comment line written after the header.
    std::u16string_view m_strComment;
    // Null: always written.
    std::function<bool()> m_fnWritten;
    // Runs when the reader enters the section.
    std::function<void()> m_fnBegin;

private:
    std::u16string_view m_strName;
    std::vector<CSettingsKey> m_aKeys;
};

// Splits "key=value"; false when the line has no '=' or starts with one.
bool SplitKeyLine(std::u16string_view strLine, std::u16string_view& strKey,
                  std::u16string_view& strValue);

}  // namespace zv
