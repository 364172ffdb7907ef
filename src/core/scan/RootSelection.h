// The root directory selection dialog without its windows: the roots in
// force, the previous choices from the remembered "RootDir" list, and what
// the buttons, OK and Cancel do to the document's roots. The desktop dialog
// drives it and shows its lists; messages and questions go to the host.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv {

class CWZorvaneDoc;
class CRootDirectoryData;

// A directory path as typed or browsed, without a trailing separator.
std::u16string_view WithoutTrailingSeparator(std::u16string_view strPath);

class CRootSelection {
public:
    // Reads the previous choices.
    explicit CRootSelection(CWZorvaneDoc& doc);

    // The left list: the document's roots not marked for removal, in order.
    std::vector<CRootDirectoryData*> ShownRoots() const;
    // The right list.
    const std::vector<std::u16string>& PreviousChoices() const { return m_aPrevious; }

    // "Browse": the folder chosen, a trailing separator removed. A directory
    // already shown (compared without regard to case) says "That directory
    // has already been chosen"; otherwise it becomes a new root at once.
    // False when refused.
    bool AddBrowsed(std::u16string_view strPath);
    // "Add new root directory": the edit box's text with blanks removed at
    // both ends and a trailing separator removed; empty text does nothing.
    bool AddTyped(std::u16string_view strText);
    // Double click: each selected previous choice, refused ones with the
    // message. The popup's "&Add" and "Add A&ll" skip those already shown
    // silently.
    void AddPrevious(const std::vector<size_t>& aSelected);
    void AddPreviousQuietly(const std::vector<size_t>& aSelected);
    void AddAllPreviousQuietly();
    // The popup's "&Remove" and "Remove All": out of the remembered list and
    // out of the right list.
    void RemovePrevious(const std::vector<size_t>& aSelected);
    void RemoveAllPrevious();

    // "Delete selected root directories" (indexes into ShownRoots) and
    // "Delete all root directories": the roots are marked for removal and
    // leave the left list; their records stay until OK.
    void DeleteRoots(const std::vector<size_t>& aShown);
    void DeleteAllRoots();
    // The left popup's "Copy to edit box".
    std::u16string EditBoxTextOf(size_t nShown) const;

    // OK. With no root shown and text in the edit box, asks "Add " + text +
    // " to list of root directories ?" and on Yes adds it. Then, from the
    // last root to the first, a root marked for removal is deleted with its
    // subtree (and the scanned forest is emptied, since a rescan follows),
    // and a new root is prepared. The caller then refreshes the free space
    // and starts a rescan.
    void Ok(std::u16string_view strEditBox);
    // Cancel: the new roots go; roots marked for removal keep their marks.
    void Cancel();

private:
    bool Add(std::u16string_view strPath, bool bQuiet);
    bool IsShown(std::u16string_view strPath) const;

    CWZorvaneDoc& m_doc;
    std::vector<std::u16string> m_aPrevious;
};

}  // namespace zv
