// The XML form. The walk visits the document element and everything below
// it depth first in document order, and empties the entry list at every
// node before looking at it: what remains is only what the last visited
// nodes added. That is how lists of this form have always been read, and
// it is kept.
#include <pugixml.hpp>
#include <string>

#include "analyses/CrcListFormats.h"
#include "platform/Text.h"

namespace zv {
namespace {

std::u16string U16(const char* psz) { return platform::Utf8ToUtf16(psz); }

// The line of the input that holds byte offset nOffset.
std::string_view SourceLine(std::string_view bytes, ptrdiff_t nOffset) {
    const size_t nAt = std::min<size_t>(nOffset < 0 ? 0 : size_t(nOffset), bytes.size());
    const size_t nStart = bytes.rfind('\n', nAt == 0 ? 0 : nAt - 1);
    const size_t nFrom = (nStart == std::string_view::npos || nStart >= nAt) ? 0 : nStart + 1;
    size_t nEnd = bytes.find('\n', nAt);
    if (nEnd == std::string_view::npos) nEnd = bytes.size();
    std::string_view line = bytes.substr(nFrom, nEnd - nFrom);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

void VisitFileElement(const pugi::xml_node& node, std::vector<CCrcListEntry>& aEntries) {
    std::u16string strName, strCrc;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        const std::u16string strAttribute = U16(attribute.name());
        if (platform::EqualsNoCase(strAttribute, u"name"))
            strName = U16(attribute.value());
        else if (platform::EqualsNoCase(strAttribute, u"crc"))
            strCrc = U16(attribute.value());
        if (!strName.empty() && !strCrc.empty()) break;
    }
    if (strName.empty() || strCrc.empty()) return;
    CCrcListEntry entry;
    entry.m_strPath = std::move(strName);
    entry.m_bHasCrc = ParseCrcListValue(strCrc, entry.m_uCrc);
    aEntries.push_back(std::move(entry));
}

void Visit(const pugi::xml_node& node, std::vector<CCrcListEntry>& aEntries) {
    aEntries.clear();
    if (node.type() == pugi::node_element && platform::EqualsNoCase(U16(node.name()), u"file"))
        VisitFileElement(node, aEntries);
}

}  // namespace

std::u16string ReadCrcListXml(std::string_view bytes, std::vector<CCrcListEntry>& aEntries) {
    pugi::xml_document document;
    // Comments and processing instructions are nodes of the tree, as in a
    // DOM; whitespace-only text is not.
    const unsigned uOptions = pugi::parse_default | pugi::parse_comments | pugi::parse_pi;
    const pugi::xml_parse_result result =
        document.load_buffer(bytes.data(), bytes.size(), uOptions);
    if (result.status == pugi::status_no_document_element ||
        (result && !document.document_element()))
        return u"XML file has no file data";
    if (!result)
        return u"XML Parse Error " + U16(result.description()) + u"\nLine " +
               platform::Utf8ToUtf16(SourceLine(bytes, result.offset));

    // Depth first without recursion, so that deep nesting cannot exhaust
    // the stack.
    std::vector<CCrcListEntry> aWalked;
    const pugi::xml_node root = document.document_element();
    pugi::xml_node node = root;
    while (node) {
        Visit(node, aWalked);
        if (node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node != root && !node.next_sibling()) node = node.parent();
        node = node == root ? pugi::xml_node() : node.next_sibling();
    }
    aEntries = std::move(aWalked);
    return {};
}

}  // namespace zv
