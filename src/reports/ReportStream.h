// The stream every report file is written through. Text arrives as UTF-16
// with "\n" line ends; the stream writes CR LF on every platform and encodes
// either as UTF-16 little-endian with a byte order mark (the Unicode form) or
// as UTF-8 without one (the narrow form). Output is buffered and handed to a
// sink in large blocks; the first failed write is remembered and everything
// after it is dropped.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zv {

// Where the bytes of a report go: a file, standard output, a test's string.
class IReportSink {
public:
    virtual ~IReportSink() = default;
    // False when the bytes could not all be written.
    virtual bool Write(const char* pData, size_t nSize) = 0;
    // Pushes everything written so far out; false on failure.
    virtual bool Flush() { return true; }
};

class CReportStream {
public:
    CReportStream(IReportSink& sink, bool bUnicode);
    ~CReportStream();
    CReportStream(const CReportStream&) = delete;
    CReportStream& operator=(const CReportStream&) = delete;

    CReportStream& operator<<(std::u16string_view strText);
    CReportStream& operator<<(const char16_t* pszText) {
        return *this << std::u16string_view(pszText);
    }
    CReportStream& operator<<(const std::u16string& strText) {
        return *this << std::u16string_view(strText);
    }
    // ASCII text of the formats themselves.
    CReportStream& operator<<(std::string_view strAscii);
    CReportStream& operator<<(const char* pszAscii) { return *this << std::string_view(pszAscii); }

    bool IsUnicode() const { return m_bUnicode; }
    // Writes what is buffered and flushes the sink. False when any write so
    // far has failed.
    bool Finish();
    bool Failed() const { return m_bFailed; }

private:
    void Put(char16_t ch);
    // Characters below 0x80 other than a line end.
    void PutAscii(const char16_t* pText, size_t nCount);
    void PutCodePoint(char32_t ch);
    void Reserve(size_t nBytes) {
        if (m_strBuffer.size() + nBytes > kBufferSize) Drain();
    }
    void Drain();

    static constexpr size_t kBufferSize = 1 << 16;
    IReportSink& m_sink;
    const bool m_bUnicode;
    bool m_bFailed = false;
    char16_t m_chPendingHigh = 0;  // a high surrogate waiting for its pair (narrow form)
    std::string m_strBuffer;
};

// Collects the bytes in a string; for clipboard texts and tests.
class CStringSink : public IReportSink {
public:
    bool Write(const char* pData, size_t nSize) override {
        m_strBytes.append(pData, nSize);
        return true;
    }
    std::string m_strBytes;
};

}  // namespace zv
