// The quoting rules hold on every platform, so the Windows side's command
// lines are tested natively too.
#include "platform/Process.h"

namespace zv::platform {

namespace {

bool IsSpace(char16_t ch) { return ch == u' ' || ch == u'\t' || ch == u'\n' || ch == u'\v'; }

}  // namespace

std::u16string QuoteWindowsArgument(std::u16string_view strArg) {
    if (!strArg.empty() && strArg.find_first_of(u" \t\n\v\"") == std::u16string_view::npos)
        return std::u16string(strArg);
    std::u16string strOut = u"\"";
    size_t nBackslashes = 0;
    for (char16_t ch : strArg) {
        if (ch == u'\\') {
            ++nBackslashes;
            continue;
        }
        // Backslashes before a quote are doubled, and the quote escaped.
        strOut.append(ch == u'"' ? 2 * nBackslashes + 1 : nBackslashes, u'\\');
        nBackslashes = 0;
        strOut += ch;
    }
    // Before the closing quote they are doubled too.
    strOut.append(2 * nBackslashes, u'\\');
    strOut += u'"';
    return strOut;
}

std::u16string BuildWindowsCommandLine(const std::vector<std::u16string>& aArgs) {
    std::u16string strLine;
    for (size_t i = 0; i < aArgs.size(); ++i) {
        if (i) strLine += u' ';
        // The program name is read up to the next quote, without escapes; a
        // Windows path cannot hold a quote.
        if (i == 0)
            strLine += aArgs[0].find_first_of(u" \t") == std::u16string::npos && !aArgs[0].empty()
                           ? aArgs[0]
                           : u"\"" + aArgs[0] + u"\"";
        else
            strLine += QuoteWindowsArgument(aArgs[i]);
    }
    return strLine;
}

std::vector<std::u16string> SplitWindowsCommandLine(std::u16string_view strText) {
    std::vector<std::u16string> aWords;
    size_t i = 0;
    const size_t n = strText.size();
    for (;;) {
        while (i < n && IsSpace(strText[i])) ++i;
        if (i >= n) break;
        std::u16string strWord;
        bool bQuoted = false;
        while (i < n) {
            const char16_t ch = strText[i];
            if (ch == u'\\') {
                size_t nBackslashes = 0;
                while (i < n && strText[i] == u'\\') ++nBackslashes, ++i;
                if (i < n && strText[i] == u'"') {
                    strWord.append(nBackslashes / 2, u'\\');
                    if (nBackslashes % 2) {
                        strWord += u'"';
                        ++i;
                    }
                } else {
                    strWord.append(nBackslashes, u'\\');
                }
            } else if (ch == u'"') {
                if (bQuoted && i + 1 < n && strText[i + 1] == u'"') {
                    strWord += u'"';  // "" inside quotes is a literal quote
                    i += 2;
                } else {
                    bQuoted = !bQuoted;
                    ++i;
                }
            } else if (IsSpace(ch) && !bQuoted) {
                break;
            } else {
                strWord += ch;
                ++i;
            }
        }
        aWords.push_back(std::move(strWord));
    }
    return aWords;
}

}  // namespace zv::platform
