#include "reports/FiltersBlock.h"

#include <cstdio>
#include <string>
#include <vector>

#include "platform/Text.h"
#include "reports/ReportContext.h"
#include "reports/ReportStream.h"
#include "reports/ValueText.h"

namespace zv {
namespace {

struct CListForm {
    EFilterList eList;
    const char* pszHeading;     // text and HTML
    const char* pszCsvHeading;  // with its line end, or with a blank and none
    const char* pszXmlOpen;
    const char* pszXmlClose;
};

const CListForm kLists[] = {
    {FilterFileNames, "File name filters", "FileNameFilters\n", "<FileNameFilter>",
     "</FileNameFilter>\n"},
    {FilterFileNamesExclude, "File name exclude filters", "FileNameExcludeFilters\n",
     "<FileNameExcludeFilters>", "</FileNameExcludeFilters>\n"},
    {FilterFullPathExclude, "File name exclude (full path) filters",
     "FileNameExcludeFullPathFilters\n", "<FileNameExcludeFullPathFilters>",
     "</FileNameExcludeFullPathFilters>\n"},
    {FilterVersionFiles, "Filter file name version", "FilterFileNameVersion\n",
     "<FilterFileNameVersion>", "</FilterFileNameVersion>\n"},
    {FilterOwners, "File owner filters", "FileOwnerFilters ", "<FileOwnerFilters>",
     "</FileOwnerFilters>\n"},
    {FilterOwnersExclude, "File owner exclude filters", "FileOwnerExcludeFilters ",
     "<FileOwnerExcludeFilters>", "<.FileOwnerExcludeFilters>\n"},
    {FilterDirExclude, "Directory Exclude filters", "DirectoryExcludeFilters ",
     "<DirectoryExcludeFilters>", "</DirectoryExcludeFilters>\n"},
    {FilterDir, "Directory filters", "DirectoryFilters ", "<DirectoryFilters>",
     "</DirectoryFilters>\n"},
    {FilterDupFiles, "Duplicate file filters", "DupFileFilters ", "<DupFileFilters>",
     "</DupFileFilters>\n"},
    {FilterDupDirs, "Duplicate directory filters", "DupDirectoryFilters ", "<DupDirectoryFilters>",
     "</DupDirectoryFilters>\n"},
};

// One active single filter: its text line, its attribute name in XML and
// comma-separated form, and its value when it has one.
struct CSingleFilter {
    const char* pszText;  // "... = " before a value
    const char* pszName;
    bool bCsvOne;  // the comma-separated form says "=1"
    bool bHasValue;
    std::u16string strValue;
};

std::vector<CSingleFilter> ActiveSingleFilters(const CFilterSet& f) {
    std::vector<CSingleFilter> aActive;
    static const struct {
        const char* pszText;
        const char* pszName;
    } kDates[DateFilterCount] = {
        {"Created  before filter = ", "CreatedBeforeFilter"},
        {"Created  after  filter = ", "CreatedAfterFilter"},
        {"Accessed before filter = ", "AccessedBeforeFilter"},
        {"Accessed after  filter = ", "AccessedAfterFilter"},
        {"Modified before filter = ", "ModifiedBeforeFilter"},
        {"Modified after  filter = ", "ModifiedAfterFilter"},
    };
    for (int i = 0; i < DateFilterCount; ++i) {
        const CDateFilter& date = f.m_aDates[i];
        if (!date.m_bAbsolute && !date.m_bRelative) continue;
        const FILETIME ft = date.m_bAbsolute ? date.m_ftAbsolute : date.m_ftResolved;
        aActive.push_back(
            {kDates[i].pszText, kDates[i].pszName, false, true, FormatReportDate(ft, true)});
    }
    if (f.m_bCreatedLater)
        aActive.push_back({"Dates mismatch filter", "DatesMismatchFilter", false, false, {}});
    if (f.m_bAnyDateLow)
        aActive.push_back({"Zero dates filter", "ZeroDatesFilter", false, false, {}});
    const auto Size = [](double d) {
        char sz[64];
        std::snprintf(sz, sizeof sz, "%f", d);
        return platform::U16(sz);
    };
    if (f.m_bMinSize)
        aActive.push_back({"Min size filter = ", "MinSizeFilter", false, true, Size(f.m_dMinSize)});
    if (f.m_bMaxSize)
        aActive.push_back({"Max size filter = ", "MaxSizeFilter", false, true, Size(f.m_dMaxSize)});
    if (f.m_bHasStreams)
        aActive.push_back({"Has streams filter", "HasStreamsFilter", true, false, {}});
    if (f.m_aAttributes[AttrFilterSystem].m_bYes)
        aActive.push_back({"System file filter", "SystemFileFilter", true, false, {}});
    static const struct {
        EAttributeFilter eFilter;
        const char* pszYesText;
        const char* pszYesName;
        const char* pszNoText;
        const char* pszNoName;
    } kAttributes[] = {
        {AttrFilterCompressed, "Compressed YES filter", "CompressedYesFilter",
         "Compressed NO filter", "CompressedNoFilter"},
        {AttrFilterEncrypted, "Encrypted YES filter", "EncryptedYesFilter", "Encrypted NO filter",
         "EncryptedNoFilter"},
        {AttrFilterArchive, "Archive YES filter", "ArchiveYesFilter", "Archive NO filter",
         "ArchiveNoFilter"},
        {AttrFilterReadOnly, "Read Only YES filter", "ReadOnlyYesFilter", "Read Only NO filter",
         "ReadOnlyNoFilter"},
        {AttrFilterHidden, "Hidden YES filter", "HiddenYesFilter", "Hidden NO filter",
         "HiddenNoFilter"},
        {AttrFilterLinked, "Linked YES filter", "LinkedYesFilter", "Linked NO filter",
         "LinkedNoFilter"},
    };
    for (const auto& a : kAttributes) {
        const CYesNoFilter& yesNo = f.m_aAttributes[a.eFilter];
        if (yesNo.m_bYes) aActive.push_back({a.pszYesText, a.pszYesName, true, false, {}});
        if (yesNo.m_bNo) aActive.push_back({a.pszNoText, a.pszNoName, true, false, {}});
    }
    return aActive;
}

const CFilterSet& Filters(const CReportContext& ctx) { return ctx.m_doc.m_filters; }

}  // namespace

void FiltersBlockText(CReportContext& ctx) {
    if (!ctx.Flag(PrintFilters)) return;
    CReportStream& out = ctx.m_out;
    bool bAny = false;
    for (const CListForm& form : kLists) {
        const auto& aEntries = Filters(ctx).List(form.eList);
        if (aEntries.empty()) continue;
        bAny = true;
        out << form.pszHeading << "\n";
        for (const CFilterEntry& entry : aEntries) out << entry.m_strText << "\n";
        out << "\n";
    }
    const auto aSingles = ActiveSingleFilters(Filters(ctx));
    for (const CSingleFilter& single : aSingles) out << single.pszText << single.strValue << "\n";
    if (!aSingles.empty()) out << "\n";
    if (!bAny && aSingles.empty()) out << "No filters\n\n";
}

void FiltersBlockHtml(CReportContext& ctx) {
    if (!ctx.Flag(PrintFilters)) return;
    CReportStream& out = ctx.m_out;
    bool bAny = false;
    const auto Open = [&] {
        if (!bAny) out << "<p>\n";
        bAny = true;
    };
    for (const CListForm& form : kLists) {
        const auto& aEntries = Filters(ctx).List(form.eList);
        if (aEntries.empty()) continue;
        Open();
        out << form.pszHeading << "<br>\n";
        for (const CFilterEntry& entry : aEntries) out << HtmlEscape(entry.m_strText) << "<br>\n";
        out << "<br>\n";
    }
    const auto aSingles = ActiveSingleFilters(Filters(ctx));
    for (const CSingleFilter& single : aSingles) {
        Open();
        out << single.pszText << single.strValue << "<br>\n";
    }
    if (!aSingles.empty()) out << "<br>\n";
    out << (bAny ? "</p>\n" : "<p>No filters</p>\n");
}

void FiltersBlockCsv(CReportContext& ctx) {
    if (!ctx.Flag(PrintFilters)) return;
    CReportStream& out = ctx.m_out;
    for (const CListForm& form : kLists) {
        const auto& aEntries = Filters(ctx).List(form.eList);
        if (aEntries.empty()) continue;
        out << form.pszCsvHeading;
        for (const CFilterEntry& entry : aEntries) out << entry.m_strText << "\n";
    }
    for (const CSingleFilter& single : ActiveSingleFilters(Filters(ctx))) {
        out << single.pszName;
        if (single.bHasValue) out << "=" << single.strValue;
        if (single.bCsvOne) out << "=1";
        out << "\n";
    }
    out << "\n";
}

void FiltersBlockXml(CReportContext& ctx) {
    if (!ctx.Flag(PrintFilters)) return;
    CReportStream& out = ctx.m_out;
    for (const CListForm& form : kLists)
        for (const CFilterEntry& entry : Filters(ctx).List(form.eList))
            out << form.pszXmlOpen << XmlEscape(entry.m_strText) << form.pszXmlClose;
    const auto aSingles = ActiveSingleFilters(Filters(ctx));
    if (aSingles.empty()) return;
    out << "<OtherFilters ";
    for (const CSingleFilter& single : aSingles) {
        out << single.pszName << "='";
        if (single.bHasValue)
            out << single.strValue;
        else
            out << "1";
        out << "' ";
    }
    out << "/>\n";
}

}  // namespace zv
