#include "app/JsonWriter.h"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "platform/Utf8.h"

namespace zv {
namespace {

void AppendEscape(std::string& strOut, unsigned uCode) {
    char szEscape[8];
    std::snprintf(szEscape, sizeof szEscape, "\\u%04x", uCode);
    strOut += szEscape;
}

bool IsHighSurrogate(char16_t ch) { return ch >= 0xD800 && ch <= 0xDBFF; }
bool IsLowSurrogate(char16_t ch) { return ch >= 0xDC00 && ch <= 0xDFFF; }

}  // namespace

std::string JsonString(std::u16string_view strText) {
    std::string strOut = "\"";
    strOut.reserve(strText.size() + 2);
    for (size_t i = 0; i < strText.size(); ++i) {
        const char16_t ch = strText[i];
        if (IsHighSurrogate(ch) && i + 1 < strText.size() && IsLowSurrogate(strText[i + 1])) {
            platform::AppendUtf8(
                strOut, 0x10000 + ((char32_t(ch) - 0xD800) << 10) + (strText[i + 1] - 0xDC00));
            ++i;
        } else if (IsHighSurrogate(ch) || IsLowSurrogate(ch)) {
            AppendEscape(strOut, ch);
        } else if (ch == u'"') {
            strOut += "\\\"";
        } else if (ch == u'\\') {
            strOut += "\\\\";
        } else if (ch == u'\n') {
            strOut += "\\n";
        } else if (ch == u'\r') {
            strOut += "\\r";
        } else if (ch == u'\t') {
            strOut += "\\t";
        } else if (ch < 0x20) {
            AppendEscape(strOut, ch);
        } else {
            platform::AppendUtf8(strOut, ch);
        }
    }
    strOut += '"';
    return strOut;
}

void CJsonWriter::BeforeValue() {
    if (!m_aLevels.empty()) {
        m_strText += m_aLevels.back().bEmpty ? "\n" : ",\n";
        m_aLevels.back().bEmpty = false;
        m_strText.append(2 * m_aLevels.size(), ' ');
    }
    if (m_bHasKey) {
        m_strText += m_strKey;
        m_strText += ": ";
        m_bHasKey = false;
    }
}

void CJsonWriter::Open(char chBracket) {
    BeforeValue();
    m_strText += chBracket;
    m_aLevels.push_back(CLevel{});
}

void CJsonWriter::Close(char chBracket) {
    const bool bEmpty = m_aLevels.back().bEmpty;
    m_aLevels.pop_back();
    if (!bEmpty) {
        m_strText += '\n';
        m_strText.append(2 * m_aLevels.size(), ' ');
    }
    m_strText += chBracket;
    if (m_aLevels.empty()) m_strText += '\n';
}

void CJsonWriter::BeginObject() { Open('{'); }
void CJsonWriter::EndObject() { Close('}'); }
void CJsonWriter::BeginArray() { Open('['); }
void CJsonWriter::EndArray() { Close(']'); }

CJsonWriter& CJsonWriter::Key(std::string_view strName) {
    return Key(std::u16string(strName.begin(), strName.end()));  // ASCII key names
}

CJsonWriter& CJsonWriter::Key(std::u16string_view strName) {
    m_strKey = JsonString(strName);
    m_bHasKey = true;
    return *this;
}

void CJsonWriter::String(std::u16string_view strText) {
    BeforeValue();
    m_strText += JsonString(strText);
}

void CJsonWriter::Number(uint64_t uValue) {
    BeforeValue();
    m_strText += std::to_string(uValue);
}

void CJsonWriter::Number(double dValue) {
    BeforeValue();
    m_strText += nlohmann::json(dValue).dump();  // the shortest form that reads back the same
}

void CJsonWriter::Null() {
    BeforeValue();
    m_strText += "null";
}

void CJsonWriter::Bool(bool bValue) {
    BeforeValue();
    m_strText += bValue ? "true" : "false";
}

}  // namespace zv
