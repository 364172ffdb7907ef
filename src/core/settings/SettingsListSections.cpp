// Sections of one entry a line: the roots, the filter lists, and the one
// line of the compare mode.
#include "core/document/Document.h"
#include "core/settings/SettingsDisk.h"
#include "core/settings/SettingsSections.h"
#include "core/settings/SettingsWords.h"

namespace zv {
namespace {

class CListSection : public ISettingsSection {
public:
    CListSection(std::u16string_view strName, std::function<void(std::u16string_view)> fnReadEntry,
                 std::function<std::vector<std::u16string>()> fnEntries,
                 std::u16string_view strComment = {})
        : m_strName(strName),
          m_fnReadEntry(std::move(fnReadEntry)),
          m_fnEntries(std::move(fnEntries)),
          m_strComment(strComment) {}

    std::u16string_view Name() const override { return m_strName; }
    void ReadLine(std::u16string_view strLine) override { m_fnReadEntry(strLine); }

    // Left out when the list is empty.
    void Write(std::vector<std::u16string>& aLines) const override {
        const std::vector<std::u16string> aEntries = m_fnEntries();
        if (aEntries.empty()) return;
        aLines.emplace_back(m_strName);
        if (!m_strComment.empty()) aLines.emplace_back(m_strComment);
        aLines.insert(aLines.end(), aEntries.begin(), aEntries.end());
        aLines.emplace_back();
    }

private:
    std::u16string_view m_strName;
    std::function<void(std::u16string_view)> m_fnReadEntry;
    std::function<std::vector<std::u16string>()> m_fnEntries;
    std::u16string_view m_strComment;
};

std::vector<std::u16string> EntryTexts(const std::vector<CFilterEntry>& aEntries) {
    std::vector<std::u16string> aTexts;
    for (const CFilterEntry& entry : aEntries)
        if (!entry.m_bRemoved) aTexts.push_back(entry.m_strText);
    return aTexts;
}

// "[DEFAULT FILE COMPARE MODE]": always written; a word it does not know
// leaves the mode as it was.
class CCompareModeSection : public ISettingsSection {
public:
    explicit CCompareModeSection(CDocumentOptions& options) : m_options(options) {}

    std::u16string_view Name() const override { return u"[DEFAULT FILE COMPARE MODE]"; }
    void ReadLine(std::u16string_view strLine) override {
        CompareModeFromWord(strLine, m_options.m_nDefaultCompareMode);
    }
    void Write(std::vector<std::u16string>& aLines) const override {
        aLines.emplace_back(Name());
        aLines.emplace_back(CompareModeWord(m_options.m_nDefaultCompareMode));
        aLines.emplace_back();
    }

private:
    CDocumentOptions& m_options;
};

}  // namespace

std::unique_ptr<ISettingsSection> MakeRootsSection(CWZorvaneDoc& doc, ISettingsDisk& disk) {
    return std::make_unique<CListSection>(
        u"[SCAN DIRECTORIES]",
        [&doc, &disk](std::u16string_view strPath) { disk.AddRoot(doc, strPath); },
        [&doc] {
            std::vector<std::u16string> aPaths;
            for (const CRootDirectoryData* pRoot : doc.m_scan.m_aRoots)
                aPaths.push_back(pRoot->m_strName.Str());
            return aPaths;
        });
}

std::unique_ptr<ISettingsSection> MakeFilterListSection(CFilterSet& filters, EFilterList eList) {
    return std::make_unique<CListSection>(
        FilterListNames(eList).m_pszSettingsSection,
        [&filters, eList](std::u16string_view strText) { filters.AddEntry(eList, strText); },
        [&filters, eList] { return EntryTexts(filters.List(eList)); });
}

// Each line is measured and read; one that fails is dropped with a message.
std::unique_ptr<ISettingsSection> MakeDupFilesSection(CWZorvaneDoc& doc, ISettingsDisk& disk) {
    return std::make_unique<CListSection>(
        FilterListNames(FilterDupFiles).m_pszSettingsSection,
        [&doc, &disk](std::u16string_view strPath) { disk.AddDupFile(doc, strPath); },
        [&doc] { return EntryTexts(doc.m_filters.List(FilterDupFiles)); });
}

// A line with a leading '*' is scanned with its subdirectories. Loading
// fills the filter's trees but not its text list, so a later save leaves
// the section out.
std::unique_ptr<ISettingsSection> MakeDupDirsSection(CWZorvaneDoc& doc, ISettingsDisk& disk) {
    return std::make_unique<CListSection>(
        FilterListNames(FilterDupDirs).m_pszSettingsSection,
        [&doc, &disk](std::u16string_view strLine) {
            const bool bWithSubdirs = strLine.starts_with(u'*');
            disk.AddDupDirTree(doc, bWithSubdirs ? strLine.substr(1) : strLine, bWithSubdirs);
        },
        [&doc] { return EntryTexts(doc.m_filters.List(FilterDupDirs)); },
        u"# recursive directory names begin with a *");
}

std::unique_ptr<ISettingsSection> MakeCompareModeSection(CDocumentOptions& options) {
    return std::make_unique<CCompareModeSection>(options);
}

}  // namespace zv
