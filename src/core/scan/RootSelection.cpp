#include "core/scan/RootSelection.h"

#include <algorithm>

#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/scan/Scanner.h"
#include "core/state/RememberedLists.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {
namespace {

bool IsSeparator(char16_t ch) { return ch == u'\\' || ch == platform::kPathSeparator; }

std::u16string_view TrimBlanks(std::u16string_view strText) {
    while (!strText.empty() && (strText.front() == u' ' || strText.front() == u'\t'))
        strText.remove_prefix(1);
    while (!strText.empty() && (strText.back() == u' ' || strText.back() == u'\t'))
        strText.remove_suffix(1);
    return strText;
}

// Indexes from the highest down, each once, so that erasing keeps the rest valid.
std::vector<size_t> Descending(std::vector<size_t> aIndexes) {
    std::sort(aIndexes.rbegin(), aIndexes.rend());
    aIndexes.erase(std::unique(aIndexes.begin(), aIndexes.end()), aIndexes.end());
    return aIndexes;
}

}  // namespace

// A drive root ("C:\") and the file system root ("/") keep theirs, which
// they need to name the same directory.
std::u16string_view WithoutTrailingSeparator(std::u16string_view strPath) {
    if (strPath.size() > 1 && IsSeparator(strPath.back()) && strPath[strPath.size() - 2] != u':')
        strPath.remove_suffix(1);
    return strPath;
}

CRootSelection::CRootSelection(CWZorvaneDoc& doc) : m_doc(doc) {
    ReadList(kRootDirList, m_aPrevious);
}

std::vector<CRootDirectoryData*> CRootSelection::ShownRoots() const {
    std::vector<CRootDirectoryData*> aShown;
    for (CRootDirectoryData* pRoot : m_doc.m_scan.m_aRoots)
        if (!pRoot->m_bRemovePending) aShown.push_back(pRoot);
    return aShown;
}

bool CRootSelection::IsShown(std::u16string_view strPath) const {
    for (const CRootDirectoryData* pRoot : ShownRoots())
        if (platform::EqualsNoCase(pRoot->m_strName.View(), strPath)) return true;
    return false;
}

bool CRootSelection::Add(std::u16string_view strPath, bool bQuiet) {
    if (IsShown(strPath)) {
        if (!bQuiet) Host().ShowMessage(u"That directory has already been chosen");
        return false;
    }
    const std::u16string strRoot(strPath);
    FILETIME ftCreated, ftAccessed, ftModified;
    CScanner::GetDirectoryTimes(strRoot, ftCreated, ftAccessed, ftModified);
    uint32_t uAttributes = platform::GetFileAttributes(strRoot);
    if (uAttributes == ATTR_INVALID) uAttributes = 0;  // accepted: the scan finds it empty
    m_doc.m_scan.m_aRoots.Add(
        new CRootDirectoryData(strRoot, ftCreated, ftAccessed, ftModified, uAttributes));
    return true;
}

bool CRootSelection::AddBrowsed(std::u16string_view strPath) {
    return Add(WithoutTrailingSeparator(strPath), false);
}

bool CRootSelection::AddTyped(std::u16string_view strText) {
    const std::u16string_view strPath = WithoutTrailingSeparator(TrimBlanks(strText));
    return !strPath.empty() && Add(strPath, false);
}

void CRootSelection::AddPrevious(const std::vector<size_t>& aSelected) {
    for (const size_t nIndex : aSelected)
        if (nIndex < m_aPrevious.size()) Add(m_aPrevious[nIndex], false);
}

void CRootSelection::AddPreviousQuietly(const std::vector<size_t>& aSelected) {
    for (const size_t nIndex : aSelected)
        if (nIndex < m_aPrevious.size()) Add(m_aPrevious[nIndex], true);
}

void CRootSelection::AddAllPreviousQuietly() {
    for (const std::u16string& strPath : m_aPrevious) Add(strPath, true);
}

void CRootSelection::RemovePrevious(const std::vector<size_t>& aSelected) {
    for (const size_t nIndex : Descending(aSelected)) {
        if (nIndex >= m_aPrevious.size()) continue;
        DeleteListEntry(kRootDirList, m_aPrevious[nIndex]);
        m_aPrevious.erase(m_aPrevious.begin() + static_cast<ptrdiff_t>(nIndex));
    }
}

void CRootSelection::RemoveAllPrevious() {
    for (const std::u16string& strPath : m_aPrevious) DeleteListEntry(kRootDirList, strPath);
    m_aPrevious.clear();
}

void CRootSelection::DeleteRoots(const std::vector<size_t>& aShown) {
    const std::vector<CRootDirectoryData*> aRoots = ShownRoots();
    for (const size_t nIndex : aShown)
        if (nIndex < aRoots.size()) aRoots[nIndex]->m_bRemovePending = 1;
}

void CRootSelection::DeleteAllRoots() {
    for (CRootDirectoryData* pRoot : ShownRoots()) pRoot->m_bRemovePending = 1;
}

std::u16string CRootSelection::EditBoxTextOf(size_t nShown) const {
    const std::vector<CRootDirectoryData*> aRoots = ShownRoots();
    return nShown < aRoots.size() ? aRoots[nShown]->m_strName.Str() : std::u16string();
}

void CRootSelection::Ok(std::u16string_view strEditBox) {
    if (ShownRoots().empty() && !TrimBlanks(strEditBox).empty() &&
        Host().AskYesNo(u"Add " + std::u16string(strEditBox) + u" to list of root directories ?",
                        false))
        AddTyped(strEditBox);

    CScanRegisters& scan = m_doc.m_scan;
    for (size_t i = scan.m_aRoots.GetSize(); i-- > 0;) {
        CRootDirectoryData* pRoot = scan.m_aRoots[i];
        if (pRoot->m_bRemovePending) {
            // The lists of the last scan point into the tree that goes.
            scan.ClearScan();
            m_doc.m_results.Clear();
            m_doc.m_pCurrentDir = nullptr;
            if (!pRoot->m_bNewRoot) scan.m_aDrives.RemoveDrive(pRoot->m_strDrive);
            scan.m_aRoots.DeleteAt(i);
        } else if (pRoot->m_bNewRoot) {
            pRoot->Prepare(scan.m_aDrives);
        }
    }
}

void CRootSelection::Cancel() {
    CScanRegisters& scan = m_doc.m_scan;
    for (size_t i = scan.m_aRoots.GetSize(); i-- > 0;)
        if (scan.m_aRoots[i]->m_bNewRoot) scan.m_aRoots.DeleteAt(i);
}

}  // namespace zv
