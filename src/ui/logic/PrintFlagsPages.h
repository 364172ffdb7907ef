// The printing options sheet without windows: its pages, the check boxes of
// each page and what they stand for, and the sheet's working copy of the
// document's print flags with the "All" and "None" rules and the check that
// OK makes.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/document/MetadataPrintFields.h"

namespace zv {

struct CPrintSettings;

// In the order of the sheet's tabs.
enum EPrintPage {
    PageGeneral,
    PageAvi,
    PageMp3,
    PageMsi,
    PageOffice,
    PageVersion,
    PageWav,
    PageHtml,
    PrintPageCount
};

struct CPrintCheckBox {
    const char16_t* m_pszLabel;
    // A print flag on the general page, a metadata field id on a metadata
    // page, unused on the HTML page.
    int m_nKey;
    // The heading of the group that starts at this box, if one does.
    const char16_t* m_pszGroup = nullptr;
};

std::u16string_view PrintPageTitle(EPrintPage ePage);
std::span<const CPrintCheckBox> PrintPageBoxes(EPrintPage ePage);

// What the sheet shows while it is open. Loaded from the document's print
// settings and written back only on OK.
class CPrintFlagsSheetData {
public:
    explicit CPrintFlagsSheetData(const CPrintSettings& print);

    bool IsChecked(EPrintPage ePage, size_t nBox) const { return m_aChecked[ePage].at(nBox) != 0; }
    void SetChecked(EPrintPage ePage, size_t nBox, bool bChecked) {
        m_aChecked[ePage].at(nBox) = bChecked;
    }
    // The page's "All" or "None" button; on the general page "No files just
    // directories" is always cleared and "No directories just files" and
    // "Save as Unicode" are left alone.
    void SetPage(EPrintPage ePage, bool bAll);
    // "All for all tabs" and "None for all tabs".
    void SetAllPages(bool bAll);

    // The message that keeps the sheet open, or an empty text.
    std::u16string_view Problem() const;
    void StoreInto(CPrintSettings& print) const;

    std::u16string m_strPrintTitle;

private:
    std::array<std::vector<uint8_t>, PrintPageCount> m_aChecked;
};

}  // namespace zv
