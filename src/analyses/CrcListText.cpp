// The text form is read the way a C runtime's line reader reads a text
// file: a read takes at most a fixed number of characters or up to and
// including the line feed, so an over-long line comes back in pieces, and
// CR LF reads as LF.
#include <string>

#include "analyses/CrcListFormats.h"
#include "core/settings/TextFile.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr size_t kHeaderChars = 270;
constexpr size_t kLineChars = 259;

class CLineReader {
public:
    explicit CLineReader(std::u16string_view text) : m_text(text) {}

    // At most nMaxChars characters, ending after a line feed if one comes
    // first, with trailing CR and LF stripped. False at the end of the text.
    bool Read(size_t nMaxChars, std::u16string_view& line) {
        if (m_nPos >= m_text.size()) return false;
        size_t nEnd = m_nPos;
        while (nEnd < m_text.size() && nEnd - m_nPos < nMaxChars)
            if (m_text[nEnd++] == u'\n') break;
        line = m_text.substr(m_nPos, nEnd - m_nPos);
        m_nPos = nEnd;
        while (!line.empty() && (line.back() == u'\n' || line.back() == u'\r'))
            line.remove_suffix(1);
        return true;
    }

private:
    std::u16string_view m_text;
    size_t m_nPos = 0;
};

}  // namespace

void ReadCrcListText(std::string_view bytes, std::vector<CCrcListEntry>& aEntries) {
    aEntries.clear();
    const std::u16string strText = DecodeTextFile(bytes);
    CLineReader reader(strText);
    std::u16string_view header, line;
    while (reader.Read(kHeaderChars, header)) {
        const bool bDirectory = header.starts_with(u"Directory: ");
        while (reader.Read(kLineChars, line) && !line.empty()) {
            if (bDirectory || !line.starts_with(u"CRC: ")) continue;
            CCrcListEntry entry;
            entry.m_strPath = header;
            entry.m_bHasCrc = ParseCrcListValue(line.substr(5), entry.m_uCrc);
            aEntries.push_back(std::move(entry));
        }
    }
}

}  // namespace zv
