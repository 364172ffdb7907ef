#include "reports/ReportStream.h"

#include <algorithm>

namespace zv {

CReportStream::CReportStream(IReportSink& sink, bool bUnicode)
    : m_sink(sink), m_bUnicode(bUnicode) {
    m_strBuffer.reserve(kBufferSize);
    if (m_bUnicode) m_strBuffer += "\xFF\xFE";
}

CReportStream::~CReportStream() { Finish(); }

CReportStream& CReportStream::operator<<(std::u16string_view strText) {
    size_t i = 0;
    while (i < strText.size()) {
        // Runs of plain ASCII, most of every report, go in whole.
        size_t nEnd = i;
        if (!m_chPendingHigh)
            while (nEnd < strText.size() && strText[nEnd] < 0x80 && strText[nEnd] != u'\n') ++nEnd;
        if (nEnd == i) {
            Put(strText[i++]);
            continue;
        }
        PutAscii(strText.data() + i, nEnd - i);
        i = nEnd;
    }
    return *this;
}

void CReportStream::PutAscii(const char16_t* pText, size_t nCount) {
    const size_t nUnit = m_bUnicode ? 2 : 1;
    while (nCount > 0) {
        const size_t nChunk = std::min(nCount, kBufferSize / 4);
        Reserve(nChunk * nUnit);
        const size_t nAt = m_strBuffer.size();
        m_strBuffer.resize(nAt + nChunk * nUnit);
        char* pOut = m_strBuffer.data() + nAt;
        for (size_t n = 0; n < nChunk; ++n) {
            *pOut++ = static_cast<char>(pText[n]);
            if (m_bUnicode) *pOut++ = 0;
        }
        pText += nChunk;
        nCount -= nChunk;
    }
}

CReportStream& CReportStream::operator<<(std::string_view strAscii) {
    for (char ch : strAscii) Put(static_cast<char16_t>(static_cast<unsigned char>(ch)));
    return *this;
}

void CReportStream::Put(char16_t ch) {
    if (ch == u'\n') Put(u'\r');
    if (m_bUnicode) {
        Reserve(2);
        m_strBuffer += static_cast<char>(ch & 0xFF);
        m_strBuffer += static_cast<char>(ch >> 8);
        return;
    }
    // Narrow form: UTF-8. A pair of surrogates is one character; a lone
    // surrogate U+DC80..U+DCFF stands for an undecodable byte of a POSIX
    // name and goes back to that byte; any other lone one becomes '?'.
    if (m_chPendingHigh) {
        const char16_t chHigh = m_chPendingHigh;
        m_chPendingHigh = 0;
        if (ch >= 0xDC00 && ch <= 0xDFFF) {
            PutCodePoint(0x10000 + ((char32_t(chHigh) - 0xD800) << 10) + (ch - 0xDC00));
            return;
        }
        PutCodePoint(u'?');
    }
    if (ch >= 0xD800 && ch <= 0xDBFF) {
        m_chPendingHigh = ch;
        return;
    }
    if (ch >= 0xDC80 && ch <= 0xDCFF) {
        Reserve(1);
        m_strBuffer += static_cast<char>(ch - 0xDC00);
        return;
    }
    PutCodePoint(ch >= 0xDC00 && ch <= 0xDFFF ? char32_t(u'?') : char32_t(ch));
}

void CReportStream::PutCodePoint(char32_t ch) {
    Reserve(4);
    if (ch < 0x80) {
        m_strBuffer += static_cast<char>(ch);
    } else if (ch < 0x800) {
        m_strBuffer += static_cast<char>(0xC0 | (ch >> 6));
        m_strBuffer += static_cast<char>(0x80 | (ch & 0x3F));
    } else if (ch < 0x10000) {
        m_strBuffer += static_cast<char>(0xE0 | (ch >> 12));
        m_strBuffer += static_cast<char>(0x80 | ((ch >> 6) & 0x3F));
        m_strBuffer += static_cast<char>(0x80 | (ch & 0x3F));
    } else {
        m_strBuffer += static_cast<char>(0xF0 | (ch >> 18));
        m_strBuffer += static_cast<char>(0x80 | ((ch >> 12) & 0x3F));
        m_strBuffer += static_cast<char>(0x80 | ((ch >> 6) & 0x3F));
        m_strBuffer += static_cast<char>(0x80 | (ch & 0x3F));
    }
}

void CReportStream::Drain() {
    if (!m_bFailed && !m_strBuffer.empty() && !m_sink.Write(m_strBuffer.data(), m_strBuffer.size()))
        m_bFailed = true;
    m_strBuffer.clear();
}

bool CReportStream::Finish() {
    if (m_chPendingHigh) {
        m_chPendingHigh = 0;
        PutCodePoint(u'?');
    }
    Drain();
    if (!m_bFailed && !m_sink.Flush()) m_bFailed = true;
    return !m_bFailed;
}

}  // namespace zv
