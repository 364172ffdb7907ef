// OOXML packages: the core and extended property parts, found through the
// package relationships and checked against their content types.
#include <zip.h>

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "metadata/MetadataText.h"
#include "metadata/OfficeMetadata.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr const char* kCoreRelationship =
    "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties";
constexpr const char* kCoreContentType =
    "application/vnd.openxmlformats-package.core-properties+xml";
constexpr const char* kExtendedRelationship =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/extended-properties";
constexpr const char* kExtendedContentType =
    "application/vnd.openxmlformats-officedocument.extended-properties+xml";

constexpr const char* kNsCore =
    "http://schemas.openxmlformats.org/package/2006/metadata/core-properties";
constexpr const char* kNsDc = "http://purl.org/dc/elements/1.1/";
constexpr const char* kNsTerms = "http://purl.org/dc/terms/";

// XML parts larger than this are not read.
constexpr zip_uint64_t kMaxPartSize = 16u << 20;

constexpr int32_t kCreated = 1716, kModified = 1717;

// The core properties in the order they are asked: namespace, local name, field.
constexpr struct {
    const char* pszNamespace;
    const char* pszName;
    int32_t nFieldId;
} kCoreFields[] = {
    {kNsTerms, "created", 1716},
    {kNsCore, "category", 1707},
    {kNsCore, "contentStatus", 1800},
    {kNsDc, "creator", 1704},
    {kNsDc, "description", 1804},
    {kNsCore, "keywords", 1708},
    {kNsCore, "lastModifiedBy", 1712},
    {kNsTerms, "modified", 1717},
    {kNsCore, "revision", 1713},
    {kNsDc, "subject", 1703},
    {kNsDc, "title", 1702},
    {kNsCore, "version", 1802},
};

constexpr struct {
    const char* pszName;
    int32_t nFieldId;
} kExtendedFields[] = {
    {"Application", 1721},
    {"AppVersion", 1799},
    {"Characters", 1720},
    {"Company", 1706},
    {"DocSecurity", 1722},
    {"HiddenSlides", 1729},
    {"HyperlinksChanged", 1798},
    {"Lines", 1725},
    {"LinksUpToDate", 1733},
    {"Manager", 1705},
    {"MMClips", 1730},
    {"Notes", 1728},
    {"Pages", 1718},
    {"Paragraphs", 1726},
    {"PresentationFormat", 1723},
    {"ScaleCrop", 1731},
    {"SharedDoc", 1797},
    {"Slides", 1727},
    {"Template", 1711},
    {"TotalTime", 1794},
    {"Words", 1719},
};

// libzip reads the package through the platform's file reading.
zip_int64_t StreamSource(void* pState, void* pData, zip_uint64_t uLength,
                         zip_source_cmd_t eCommand) {
    auto& file = *static_cast<IByteStream*>(pState);
    switch (eCommand) {
        case ZIP_SOURCE_OPEN:
            return file.Seek(0) ? 0 : -1;
        case ZIP_SOURCE_READ:
            return file.Read(pData, size_t(uLength));
        case ZIP_SOURCE_CLOSE:
        case ZIP_SOURCE_FREE:
            return 0;
        case ZIP_SOURCE_STAT: {
            auto* pStat = static_cast<zip_stat_t*>(pData);
            zip_stat_init(pStat);
            pStat->size = file.Size();
            pStat->valid |= ZIP_STAT_SIZE;
            return sizeof(zip_stat_t);
        }
        case ZIP_SOURCE_SEEK: {
            const zip_int64_t nOffset = zip_source_seek_compute_offset(file.Position(), file.Size(),
                                                                       pData, uLength, nullptr);
            return nOffset >= 0 && file.Seek(zip_uint64_t(nOffset)) ? 0 : -1;
        }
        case ZIP_SOURCE_TELL:
            return zip_int64_t(file.Position());
        case ZIP_SOURCE_ERROR:
            return 2 * sizeof(int);
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_SEEKABLE;
        default:
            return -1;
    }
}

class CPackage {
public:
    explicit CPackage(IByteStream& file) {
        zip_error_t error;
        zip_error_init(&error);
        zip_source_t* pSource = zip_source_function_create(StreamSource, &file, &error);
        if (pSource) {
            m_pArchive = zip_open_from_source(pSource, ZIP_RDONLY, &error);
            if (!m_pArchive) zip_source_free(pSource);
        }
        zip_error_fini(&error);
    }
    ~CPackage() {
        if (m_pArchive) zip_discard(m_pArchive);
    }
    CPackage(const CPackage&) = delete;
    CPackage& operator=(const CPackage&) = delete;

    bool IsOpen() const { return m_pArchive != nullptr; }

    // A part by its name without the leading '/'. Read in blocks, so that
    // only bytes that are there take memory, whatever the header says.
    bool ReadPart(const std::string& strName, std::string& strBytes) const {
        const zip_int64_t nIndex = zip_name_locate(m_pArchive, strName.c_str(), ZIP_FL_NOCASE);
        if (nIndex < 0) return false;
        zip_file_t* pFile = zip_fopen_index(m_pArchive, zip_uint64_t(nIndex), 0);
        if (!pFile) return false;
        strBytes.clear();
        char aBlock[16384];
        zip_int64_t nRead = 0;
        while (strBytes.size() <= kMaxPartSize &&
               (nRead = zip_fread(pFile, aBlock, sizeof aBlock)) > 0)
            strBytes.append(aBlock, size_t(nRead));
        zip_fclose(pFile);
        return nRead == 0 && strBytes.size() <= kMaxPartSize;
    }

    // The part a package relationship of the type leads to, when its
    // content type is the expected one.
    bool FindPart(const char* pszRelationship, const char* pszContentType,
                  pugi::xml_document& doc) const {
        std::string strBytes;
        pugi::xml_document rels, types;
        if (!ReadPart("_rels/.rels", strBytes) ||
            !rels.load_buffer(strBytes.data(), strBytes.size()) ||
            !ReadPart("[Content_Types].xml", strBytes) ||
            !types.load_buffer(strBytes.data(), strBytes.size()))
            return false;
        for (pugi::xml_node rel : rels.document_element().children()) {
            if (std::string_view(rel.attribute("Type").value()) != pszRelationship) continue;
            std::string strPart = rel.attribute("Target").value();
            while (strPart.starts_with("/") || strPart.starts_with("./"))
                strPart.erase(0, strPart[0] == '/' ? 1 : 2);
            if (ContentType(types, strPart) == pszContentType && ReadPart(strPart, strBytes) &&
                doc.load_buffer(strBytes.data(), strBytes.size()))
                return true;
        }
        return false;
    }

private:
    static std::string ContentType(const pugi::xml_document& types, const std::string& strPart) {
        const std::u16string strName = platform::Utf8ToUtf16("/" + strPart);
        std::u16string strDefault;
        const size_t uDot = strPart.rfind('.');
        const std::u16string strExtension =
            uDot == std::string::npos ? u"" : platform::Utf8ToUtf16(strPart.substr(uDot + 1));
        for (pugi::xml_node node : types.document_element().children()) {
            const std::string_view strKind = node.name();
            if (strKind.ends_with("Override") &&
                platform::EqualsNoCase(platform::Utf8ToUtf16(node.attribute("PartName").value()),
                                       strName))
                return node.attribute("ContentType").value();
            if (strKind.ends_with("Default") &&
                platform::EqualsNoCase(platform::Utf8ToUtf16(node.attribute("Extension").value()),
                                       strExtension))
                strDefault = platform::Utf8ToUtf16(node.attribute("ContentType").value());
        }
        return platform::Utf16ToUtf8(strDefault);
    }

    zip_t* m_pArchive = nullptr;
};

// The namespace of an element's prefix, from the declarations around it.
std::string_view NamespaceOf(pugi::xml_node node) {
    const std::string_view strName = node.name();
    const size_t uColon = strName.find(':');
    const std::string strAttribute = uColon == std::string_view::npos
                                         ? "xmlns"
                                         : "xmlns:" + std::string(strName.substr(0, uColon));
    for (pugi::xml_node n = node; n; n = n.parent())
        if (pugi::xml_attribute a = n.attribute(strAttribute.c_str())) return a.value();
    return {};
}

std::string_view LocalName(pugi::xml_node node) {
    const std::string_view strName = node.name();
    const size_t uColon = strName.find(':');
    return uColon == std::string_view::npos ? strName : strName.substr(uColon + 1);
}

// The first element in document order with the namespace and local name.
pugi::xml_node FindElement(pugi::xml_node root, const char* pszNamespace, const char* pszName) {
    for (pugi::xml_node node = root.first_child(); node;) {
        if (node.type() == pugi::node_element && LocalName(node) == pszName &&
            NamespaceOf(node) == pszNamespace)
            return node;
        if (node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node && !node.next_sibling() && node != root) node = node.parent();
        if (!node || node == root) break;
        node = node.next_sibling();
    }
    return {};
}

// The text of a node and all below it.
std::u16string NodeText(pugi::xml_node node) {
    std::string strText;
    for (const pugi::xpath_node& n : node.select_nodes(".//text()")) strText += n.node().value();
    return platform::Utf8ToUtf16(strText);
}

// "2024-03-05T10:20:30Z": the fixed positions, without a time-zone change.
std::u16string PackageDateText(const std::u16string& strText) {
    if (strText.size() < 20) return strText;
    const auto Number = [&strText](size_t uAt, size_t uDigits) {
        int n = 0;
        for (size_t i = uAt; i < uAt + uDigits; ++i)
            n = n * 10 + (strText[i] >= u'0' && strText[i] <= u'9' ? strText[i] - u'0' : 0);
        return uint16_t(n);
    };
    SYSTEMTIME st;
    st.wYear = Number(0, 4);
    st.wMonth = Number(5, 2);
    st.wDay = Number(8, 2);
    st.wHour = Number(11, 2);
    st.wMinute = Number(14, 2);
    st.wSecond = Number(17, 2);
    return SystemTimeText(st, true);
}

}  // namespace

bool ReadPackageProperties(IByteStream& file, MetadataValueList& aValues) {
    CPackage package(file);
    if (!package.IsOpen()) return false;
    pugi::xml_document core;
    if (package.FindPart(kCoreRelationship, kCoreContentType, core)) {
        for (const auto& field : kCoreFields) {
            std::u16string strText = NodeText(FindElement(core, field.pszNamespace, field.pszName));
            if (strText.empty()) continue;
            if (field.nFieldId == kCreated || field.nFieldId == kModified)
                strText = PackageDateText(strText);
            AddValue(aValues, MetaOffice, field.nFieldId, std::move(strText));
        }
    }
    pugi::xml_document extended;
    if (package.FindPart(kExtendedRelationship, kExtendedContentType, extended)) {
        for (pugi::xml_node node : extended.document_element().children()) {
            if (node.type() != pugi::node_element) continue;
            const std::u16string strName = platform::Utf8ToUtf16(node.name());
            for (const auto& field : kExtendedFields) {
                if (platform::EqualsNoCase(strName, platform::Utf8ToUtf16(field.pszName))) {
                    AddValue(aValues, MetaOffice, field.nFieldId, NodeText(node));
                    break;
                }
            }
        }
    }
    return !aValues.empty();
}

}  // namespace zv
