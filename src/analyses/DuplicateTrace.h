// The duplicate search's trace: with the environment variable
// ZorvaneDupTracing set to "1", each pass writes its name, its time and the
// files left into a file in the temporary directory. It is the system's
// only trace.
#pragma once

#include <chrono>
#include <string>

namespace zv {

// " (time = 1 minutes 5 seconds)": days, hours, minutes and seconds, each
// only when not zero.
std::u16string ElapsedText(double dSeconds);

class CDuplicateTrace {
public:
    // Opens the trace when the variable asks for it; bUnicode writes UTF-16.
    explicit CDuplicateTrace(bool bUnicode);

    bool IsOn() const { return m_bOn; }
    // Appends text; Flush writes everything so far to the file.
    void Write(std::u16string_view strText);
    void Flush();

    static const char16_t* Path();

private:
    bool m_bOn = false;
    bool m_bUnicode = false;
    std::u16string m_strText;
};

}  // namespace zv
