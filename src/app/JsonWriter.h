// JSON output for the command line: pretty-printed with two-space indents,
// and with names written losslessly. A name that is not valid UTF-8 holds
// lone surrogates U+DC80..U+DCFF (the platform's text conversion turns each
// such byte into one); they are written as the escapes "\udcXX", so that
// distinct names stay distinct and a reader that maps surrogate escapes back
// (Python's "surrogateescape") gets the original bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

// The quoted JSON string of a text: UTF-8, with '"', '\\' and control
// characters escaped, and every lone surrogate as "\uXXXX".
std::string JsonString(std::u16string_view strText);

class CJsonWriter {
public:
    void BeginObject();
    void EndObject();
    void BeginArray();
    void EndArray();
    // The name of the next value inside an object.
    CJsonWriter& Key(std::string_view strName);
    // A name that is text of its own (a field label), written like a string value.
    CJsonWriter& Key(std::u16string_view strName);
    void String(std::u16string_view strText);
    void Number(uint64_t uValue);
    void Number(double dValue);
    void Bool(bool bValue);
    void Null();

    // The document so far, ending with a line feed once the outermost value is closed.
    const std::string& Text() const { return m_strText; }

private:
    void BeforeValue();
    void Open(char chBracket);
    void Close(char chBracket);

    struct CLevel {
        bool bEmpty = true;
    };
    std::string m_strText;
    std::vector<CLevel> m_aLevels;
    std::string m_strKey;  // already quoted
    bool m_bHasKey = false;
};

}  // namespace zv
