#include "compare/TextLineReader.h"

#include "platform/Text.h"

namespace zv {

namespace {

constexpr size_t kBlock = 65536;

// Bytes at the end of s that begin a UTF-8 sequence the block does not
// complete.
size_t IncompleteTail(std::string_view s) {
    const size_t nLook = s.size() < 3 ? s.size() : 3;
    for (size_t k = 1; k <= nLook; ++k) {
        const unsigned char c = static_cast<unsigned char>(s[s.size() - k]);
        if ((c & 0xC0) == 0x80) continue;  // a continuation byte: look further back
        size_t nNeed = 1;
        if (c >= 0xF0)
            nNeed = 4;
        else if (c >= 0xE0)
            nNeed = 3;
        else if (c >= 0xC0)
            nNeed = 2;
        return nNeed > k ? k : 0;
    }
    return 0;
}

}  // namespace

bool CTextLineReader::Open(std::u16string_view path) { return m_file.Open(path); }

void CTextLineReader::Decode(std::string_view bytes, bool bLast) {
    if (m_eEncoding == EEncoding::Utf8) {
        std::string strBytes = m_strCarry;
        strBytes.append(bytes);
        const size_t nTail = bLast ? 0 : IncompleteTail(strBytes);
        m_strCarry = strBytes.substr(strBytes.size() - nTail);
        strBytes.resize(strBytes.size() - nTail);
        m_strPending += platform::Utf8ToUtf16(strBytes);
        return;
    }
    std::string strBytes = m_strCarry;
    strBytes.append(bytes);
    const bool bLittle = m_eEncoding == EEncoding::Utf16Le;
    size_t i = 0;
    for (; i + 1 < strBytes.size(); i += 2) {
        const auto b0 = static_cast<unsigned char>(strBytes[i]);
        const auto b1 = static_cast<unsigned char>(strBytes[i + 1]);
        m_strPending += static_cast<char16_t>(bLittle ? b0 | (b1 << 8) : (b0 << 8) | b1);
    }
    m_strCarry = strBytes.substr(i);
    if (bLast && !m_strCarry.empty()) {
        // A stray last byte survives as an escape, as undecodable bytes do.
        m_strPending += static_cast<char16_t>(0xDC00 + static_cast<unsigned char>(m_strCarry[0]));
        m_strCarry.clear();
    }
}

bool CTextLineReader::Fill() {
    if (m_bBytesDone) return false;
    m_strPending.erase(0, m_nPos);
    m_nPos = 0;
    std::string strBlock(kBlock, '\0');
    while (m_strPending.empty()) {
        const int64_t nRead = m_file.Read(strBlock.data(), strBlock.size());
        if (nRead < 0) m_bFailed = true;
        if (nRead <= 0) {
            Decode({}, true);
            m_bBytesDone = true;
            return !m_strPending.empty();
        }
        std::string_view bytes(strBlock.data(), static_cast<size_t>(nRead));
        if (!m_bStarted) {
            m_bStarted = true;
            if (bytes.starts_with("\xFF\xFE")) {
                m_eEncoding = EEncoding::Utf16Le;
                bytes.remove_prefix(2);
            } else if (bytes.starts_with("\xFE\xFF")) {
                m_eEncoding = EEncoding::Utf16Be;
                bytes.remove_prefix(2);
            } else if (bytes.starts_with("\xEF\xBB\xBF")) {
                bytes.remove_prefix(3);
            }
        }
        Decode(bytes, false);
    }
    return true;
}

int CTextLineReader::GetChar() {
    if (m_nPos >= m_strPending.size() && !Fill()) {
        m_bEnd = true;
        return -1;
    }
    const char16_t ch = m_strPending[m_nPos++];
    if (ch == u'\r' && (m_nPos < m_strPending.size() || Fill()) && m_strPending[m_nPos] == u'\n') {
        ++m_nPos;
        return u'\n';
    }
    return ch;
}

size_t CTextLineReader::ReadLine(char16_t* pBuffer, size_t nMax) {
    size_t n = 0;
    while (n + 1 < nMax) {
        const int ch = GetChar();
        if (ch < 0) break;
        pBuffer[n++] = static_cast<char16_t>(ch);
        if (ch == u'\n') break;
    }
    return n;
}

}  // namespace zv
