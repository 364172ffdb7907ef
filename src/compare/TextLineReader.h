// Reads a text file line by line the way the C runtime's Unicode text mode
// does with fgetws: UTF-16 with a byte order mark (either byte order), or
// UTF-8 with or without one; CR LF becomes LF; a line is cut after a
// buffer's worth of units and its rest comes as the next line. The end
// flag is set only when a read runs into the end, as feof is.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace zv {

class CTextLineReader {
public:
    bool Open(std::u16string_view path);
    // Reads up to and including a LF, at most nMax - 1 units, into pBuffer
    // (not terminated). Returns the units read.
    size_t ReadLine(char16_t* pBuffer, size_t nMax);
    bool AtEnd() const { return m_bEnd; }
    bool Failed() const { return m_bFailed; }

private:
    enum class EEncoding { Utf8, Utf16Le, Utf16Be };

    int GetChar();
    // Decodes the next block onto the pending text; false at the end of the
    // file or on a read error.
    bool Fill();
    void Decode(std::string_view bytes, bool bLast);

    platform::CFileReader m_file;
    EEncoding m_eEncoding = EEncoding::Utf8;
    bool m_bStarted = false;
    bool m_bEnd = false;
    bool m_bFailed = false;
    bool m_bBytesDone = false;
    std::string m_strCarry;  // the start of a sequence split by a block end
    std::u16string m_strPending;
    size_t m_nPos = 0;
};

}  // namespace zv
