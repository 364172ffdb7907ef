#include "core/scan/Scanner.h"

#include <algorithm>
#include <ctime>
#include <new>
#include <string_view>
#include <vector>

#include "core/document/Document.h"
#include "core/document/SortCodes.h"
#include "core/host/Host.h"
#include "core/host/ProgressDialog.h"
#include "core/records/RecordPath.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {
namespace {

// A directory stays open while its subdirectories are walked, and they are
// opened relative to it: cheaper than resolving every path from the root,
// and it walks trees deeper than the operating system's path limit. Below
// this level, or once handles have run out, handles are spared: only an
// anchor stays open, one directory whose path is at least kAnchorSpan
// characters longer than the previous anchor's (the first measured from the
// start of the path), and a directory is opened by its path relative to the
// nearest open ancestor, which stays well within the path limit.
constexpr int kHandleWalkLevels = 256;
constexpr size_t kAnchorSpan = 1024;

std::u16string Number(size_t n) { return platform::U16(std::to_string(n)); }

int Percent(size_t nDone, size_t nTotal) {
    return nTotal ? static_cast<int>(double(nDone) / double(nTotal) * 100) : 0;
}

}  // namespace

CScanner::CScanner(CWZorvaneDoc& doc, IScanFilter* pFilter, IScanSteps* pSteps)
    : m_doc(doc), m_pFilter(pFilter), m_pSteps(pSteps ? pSteps : &m_defaultSteps) {
    m_pSteps->m_pDocument = &m_doc;
}

bool CScanner::IsStopRequested() const { return m_doc.m_bStopRequested != 0; }

void CScanner::Rescan() {
    const std::u16string strCurrentDir = m_doc.m_strCurrentDir;
    if (m_doc.m_bScanning) return;
    CScanRegisters& scan = m_doc.m_scan;
    if (scan.m_aRoots.IsEmpty()) {
        m_doc.m_pCurrentDir = nullptr;
        Host().SetFileCount(0);
        Host().SetStatusText(u"");
        return;
    }
    m_doc.m_bScanning = 1;
    m_doc.m_bStopRequested = 0;
    ScanAllRoots();
    if (m_doc.m_options.m_bLargestType) m_pSteps->SortTypeTable();
    m_doc.m_bScanning = 0;

    m_pSteps->ApplyCrcList();
    m_pSteps->RunAutoPrint();
    if (m_doc.m_print.m_autoPrint.m_bExit) m_pSteps->ExitAfterPrinting();
    m_pSteps->FindDuplicates();
    m_pSteps->BuildTree();
    m_doc.m_strCurrentDir = strCurrentDir;
    m_pSteps->RestoreSelection();

    const CAutoPrintSettings& autoPrint = m_doc.m_print.m_autoPrint;
    const bool bReportsProtected =
        autoPrint.m_main.m_bEnabled || autoPrint.m_dupFiles.m_bEnabled ||
        autoPrint.m_dupDirs.m_bEnabled || autoPrint.m_largestFiles.m_bEnabled ||
        autoPrint.m_largestDirs.m_bEnabled || autoPrint.m_largestOwner.m_bEnabled;
    if (!scan.m_aProtectedDirs.empty() && !bReportsProtected) m_pSteps->ShowProtectedDirectories();
}

void CScanner::ClearPreviousScan() {
    m_pSteps->CloseResultScreens();
    m_doc.m_scan.ClearScan();
    m_doc.m_results.Clear();
    m_pSteps->ClearTables();
    m_doc.m_pCurrentDir = nullptr;
}

void CScanner::ScanAllRoots() {
    ClearPreviousScan();
    m_doc.m_tScanTime = static_cast<int64_t>(std::time(nullptr));
    CScanRegisters& scan = m_doc.m_scan;
    if (scan.m_aRoots.IsEmpty()) return;

    m_pSteps->SaveRemembered();
    m_doc.m_bFilterActive = m_pFilter && m_pFilter->IsActive() ? 1 : 0;
    if (m_pFilter && m_pFilter->HasDuplicateFilter() && !m_doc.m_options.m_dupFiles.Any() &&
        !m_doc.m_options.m_dupDirs.Any()) {
        Host().ShowMessage(
            u"You have duplicate files/dirs filter\nBut you have not chosen the duplicate files "
            u"criterea");
        if (!m_pSteps->ChooseDuplicateCriteria()) return;
    }
    if (m_pFilter) m_pFilter->ResolveRelativeDates();

    m_bSparingHandles = false;
    std::vector<std::u16string> aErrors;  // messages gathered during the walk
    for (size_t i = 0; i < scan.m_aRoots.GetSize(); ++i) {
        CRootDirectoryData& root = *scan.m_aRoots[i];
        scan.m_aAllDirs.Add(&root);
        root.ResetForScan();
        root.m_nFileSort = root.m_nDirSort = 0;
        PumpMessages();
        if (IsStopRequested()) break;
        ScanRootDirectory(i, root);
        if (m_doc.m_options.m_bShowCrc) root.GetCrcWithSubdirs();
        SortSubtree(root, m_doc.m_options.m_nFileSort, m_doc.m_options.m_nDirSort);
    }

    if (m_doc.m_bFilterActive) {
        auto& aDirs = scan.m_aAllDirs.Items();
        // The cumulative count is the number of files in a directory's
        // subtree: what HasFiles finds by walking it, without the walk.
        std::erase_if(aDirs,
                      [](const CDirectoryData* pDir) { return pDir->m_uCumulativeCount == 0; });
    }

    if (!aErrors.empty() && !m_doc.m_print.m_autoPrint.m_main.m_bEnabled) {
        std::u16string strText;
        for (const std::u16string& strError : aErrors) {
            if (!strText.empty()) strText += u'\n';
            strText += strError;
        }
        Host().ShowMessage(strText);
    }
}

bool CScanner::GetDirectoryTimes(const std::u16string& strPath, FILETIME& ftCreated,
                                 FILETIME& ftAccessed, FILETIME& ftModified) {
    ftCreated = ftAccessed = ftModified = FILETIME{};
    CDirEntry entry;
    if (!platform::GetEntryInfo(strPath, entry, true)) {
        Host().ShowMessage(u"CreateFile failed");
        return false;
    }
    ftCreated = entry.ftCreated;
    ftAccessed = entry.ftAccessed;
    ftModified = entry.ftModified;
    return true;
}

void CScanner::ScanRootDirectory(size_t nRootIndex, CRootDirectoryData& root) {
    m_strPath = root.m_strName.Str();
    m_aPending.clear();
    const CDocumentOptions& options = m_doc.m_options;
    if (m_nReadThreads > 1 && options.m_bScanSubdirs) {
        // Requests come with listings only as deep as the walk enters and
        // keeps handles open.
        const int nExpandBelow = options.m_nMaxDepth == -1
                                     ? kHandleWalkLevels
                                     : std::min(kHandleWalkLevels, options.m_nMaxDepth);
        m_readAhead.Start(m_nReadThreads - 1, nExpandBelow);  // the walk reads too
    }
    ListDirectory(1, root, root);
    if (m_aPending.empty()) {
        EndReadAhead();
        m_readAhead.Stop();
        return;
    }

    // Shown while the root's subdirectories are walked.
    CProgressDialog progress(false);
    progress.Open();
    const size_t nRootCount = m_doc.m_scan.m_aRoots.GetSize();
    while (!m_aPending.empty()) {
        CPendingDirectory& parent = m_aPending.back();
        if (parent.nChildrenLeft == 0 || IsStopRequested()) {
            // Workers may be opening directories from the handle going away.
            if (IsStopRequested()) EndReadAhead();
            // Every child's subtree is finished (or never to be walked).
            for (const CDirectoryData* pChild : parent.pDir->m_aChildren)
                parent.pDir->AddSubtreeTotals(*pChild);
            m_aPending.pop_back();
            continue;
        }
        const size_t nChildren = parent.pDir->m_aChildren.GetSize();
        const size_t nChild = --parent.nChildrenLeft;
        CDirectoryData& child = *parent.pDir->m_aChildren[nChild];
        std::unique_ptr<CDirectoryListing> pListing;
        if (parent.bReadAhead) pListing = std::move(parent.aListings[nChild]);
        m_strPath.resize(parent.nPathLength);
        AppendPathComponent(m_strPath, child.m_strName);
        if (parent.nLevel == 1) {
            const size_t i = nChildren - parent.nChildrenLeft;
            const int nPosition = Percent(i, nChildren);
            progress.SetPercent(nPosition);
            const std::u16string strLine1 =
                u"Scanning root  " + Number(nRootIndex + 1) + u"/" + Number(nRootCount) + u"   " +
                Number(Percent(nRootIndex + 1, nRootCount)) + u"%  " + root.m_strName.Str();
            const std::u16string strLine2 = u"Scanning root subdirectory  " + Number(i) + u"/" +
                                            Number(nChildren) + u"  " + Number(nPosition) + u"%  " +
                                            child.m_strName.Str();
            progress.SetLine1(strLine1.c_str());
            progress.SetLine2(strLine2.c_str());
        }
        // May push: parent is not used after.
        ListDirectory(parent.nLevel + 1, child, root, std::move(pListing));
    }
    EndReadAhead();
    m_readAhead.Stop();
}

void CScanner::EndReadAhead() {
    if (!m_readAhead.IsRunning()) return;  // then no listings are held either
    m_readAhead.Pause();
    for (CPendingDirectory& pending : m_aPending) {
        pending.bReadAhead = false;
        pending.aListings.clear();
    }
}

void CScanner::QueueChildren(CPendingDirectory& pending) {
    // The nearest open handle, as OpenFromNearestHandle finds it when the
    // walk enters each child.
    const CPendingDirectory* pBase = nullptr;
    for (size_t i = m_aPending.size(); i-- > 0;) {
        if (m_aPending[i].Handle().IsOpen()) {
            pBase = &m_aPending[i];
            break;
        }
    }
    const auto& aChildren = pending.pDir->m_aChildren;
    pending.bReadAhead = true;
    pending.aListings.resize(aChildren.GetSize());
    std::u16string strChild;
    // The walk takes the children from the last: that one is queued last,
    // on top.
    for (size_t i = 0; i < aChildren.GetSize(); ++i) {
        strChild.assign(m_strPath, 0, pending.nPathLength);
        AppendPathComponent(strChild, aChildren[i]->m_strName);
        if (m_pFilter && m_pFilter->IsDirectoryExcluded(strChild)) continue;
        std::u16string_view relative = strChild;
        if (pBase) {
            relative.remove_prefix(pBase->nPathLength);
            if (!relative.empty() && relative.front() == platform::kPathSeparator)
                relative.remove_prefix(1);
        }
        pending.aListings[i] = std::make_unique<CDirectoryListing>(
            pBase ? &pBase->Handle() : nullptr, std::u16string(relative),
            !platform::kListingReadsEachEntry, pending.nLevel + 1);
        m_readAhead.Queue(*pending.aListings[i]);
    }
}

void CScanner::AdoptSubdirectoryListings(CPendingDirectory& pending, CDirectoryListing& listing,
                                         const std::vector<CDirectoryData*>& aUnsorted) {
    auto& aRequests = listing.m_aSubdirectories;
    const auto& aChildren = pending.pDir->m_aChildren;
    pending.bReadAhead = true;
    pending.aListings.resize(aChildren.GetSize());
    // One child was made from each subdirectory entry, in entry order, as
    // the requests were; short of that (memory ran out) the walk reads the
    // children itself.
    if (aRequests.size() != aUnsorted.size()) {
        m_readAhead.Cancel(listing);
        aRequests.clear();
        return;
    }
    std::vector<std::pair<CDirectoryData*, size_t>> aEntryIndex;
    aEntryIndex.reserve(aUnsorted.size());
    for (size_t i = 0; i < aUnsorted.size(); ++i) aEntryIndex.emplace_back(aUnsorted[i], i);
    std::sort(aEntryIndex.begin(), aEntryIndex.end());
    for (size_t i = 0; i < aChildren.GetSize(); ++i) {
        const auto it = std::lower_bound(aEntryIndex.begin(), aEntryIndex.end(),
                                         std::pair<CDirectoryData*, size_t>(aChildren[i], 0));
        pending.aListings[i] = std::move(aRequests[it->second]);
    }
}

void CScanner::ListDirectory(int nLevel, CDirectoryData& dir, CRootDirectoryData& root,
                             std::unique_ptr<CDirectoryListing> pListing) {
    const std::u16string& strPath = m_strPath;
    // However the directory ends up, requests read ahead below it that the
    // walk does not take are withdrawn before they are destroyed.
    struct CWithdrawUnused {
        CDirectoryReadAhead& readAhead;
        std::unique_ptr<CDirectoryListing>& pListing;
        ~CWithdrawUnused() {
            if (pListing) readAhead.Cancel(*pListing);
        }
    } withdraw{m_readAhead, pListing};
    if (m_pFilter && m_pFilter->IsDirectoryExcluded(strPath)) return;
    const bool bSkipFiles = m_pFilter && m_pFilter->SkipsFilesOf(strPath);

    if (pListing) {
        m_readAhead.Wait(*pListing);
        // Handles ran out with workers holding some: the walk goes on alone,
        // sparing handles as it does.
        if (!pListing->m_bOpened && pListing->m_nError == ERR_TOO_MANY_OPEN_FILES) {
            EndReadAhead();
            pListing.reset();
        }
    }
    platform::CDirectoryReader reader;
    const bool bOpened = pListing ? pListing->m_bOpened : OpenDirectory(reader);
    if (!bOpened) {
        const uint32_t uAttributes = platform::GetFileAttributes(strPath);
        if (uAttributes != ATTR_INVALID) dir.m_uAttributes = uAttributes;
        // A directory that could not be opened for want of handles is named
        // as unread too, so that it never passes for an empty one.
        const int nError = pListing ? pListing->m_nError : reader.GetLastError();
        if (nError == ERR_ACCESS_DENIED || nError == ERR_TOO_MANY_OPEN_FILES) {
            m_doc.m_scan.m_aProtectedDirs.push_back(strPath);
            dir.m_uFlags |= DIR_PROTECTED;
        }
        return;
    }
    // The attributes of the directory as it is now; a root has only these.
    CDirEntry self;
    if (pListing) {
        if (pListing->m_uSelfAttributes != ATTR_INVALID)
            dir.m_uAttributes = pListing->m_uSelfAttributes;
    } else if ((nLevel == 1 || !platform::kListingReadsEachEntry) && reader.GetSelf(self)) {
        dir.m_uAttributes = self.uAttributes;
    }
    Host().SetStatusText(u"Scanning " + strPath);

    const CDocumentOptions& options = m_doc.m_options;
    const double dClusterSize = root.m_dClusterSize;
    CDirEntry entry;
    for (size_t nNext = 0;; ++nNext) {
        PumpMessages();
        if (IsStopRequested()) break;
        if (pListing) {
            if (nNext == pListing->GetCount()) break;
            pListing->GetEntry(nNext, entry);
        } else if (!reader.Next(entry)) {
            break;
        }
        if (entry.IsDirectory()) {
            // Junctions, mount points and links are never followed.
            if (entry.uAttributes & ATTR_REPARSE_POINT) continue;
            if (!options.m_bScanSubdirs) continue;
            CDirectoryData* pChild = new (std::nothrow)
                CDirectoryData(&dir, entry.strName, entry.ftCreated, entry.ftAccessed,
                               entry.ftModified, entry.uAttributes);
            if (!pChild) {
                Host().ShowMessage(
                    u"Ran out of memory (new CDirectoryData) in "
                    u"CTreeCtrlView::ScanRootDirectory()");
                break;
            }
            m_doc.m_scan.m_aAllDirs.Add(pChild);
            dir.m_aChildren.Add(pChild);
            continue;
        }
        if (bSkipFiles) continue;
        const double dSize = entry.Size();
        CFileCandidate candidate(entry, dir, strPath, dSize);
        // With no filter active no test can fail, so none is run.
        if (m_pFilter && m_doc.m_bFilterActive && !m_pFilter->AdmitsFile(candidate)) continue;
        AddFileRecord(dir, entry, dSize, dClusterSize, candidate);
    }

    dir.m_aChildren.FreeExtra();
    dir.m_aFiles.FreeExtra();
    Host().SetFileCount(m_doc.m_scan.m_aAllFiles.GetSize());
    if (options.m_bShowCrc) dir.GetCrc();
    if (options.m_bLargestDirs) m_pSteps->OfferLargestDirectory(dir);
    if (dir.m_aChildren.IsEmpty()) return;

    if (options.m_nMaxDepth != -1 && options.m_nMaxDepth < nLevel + 1) {
        SortChildren(dir, 2);
        return;
    }
    // The requests a listing brought are in entry order, which sorting loses.
    const bool bHasRequests =
        pListing && m_readAhead.IsRunning() && !pListing->m_aSubdirectories.empty();
    std::vector<CDirectoryData*> aUnsorted;
    if (bHasRequests) aUnsorted = dir.m_aChildren.Items();
    SortChildren(dir, 2);  // name descending: walked from the last, so in name order

    CPendingDirectory pending;
    pending.pDir = &dir;
    pending.nLevel = nLevel;
    pending.nPathLength = strPath.size();
    pending.nChildrenLeft = dir.m_aChildren.GetSize();
    pending.bAnchor = strPath.size() - AnchorPathLength() >= kAnchorSpan;
    const bool bKeepHandle = pending.bAnchor || (nLevel < kHandleWalkLevels && !m_bSparingHandles);
    // With the workers paused nothing opens from the listing's handle.
    if (pListing && !m_readAhead.IsRunning()) reader = std::move(pListing->m_reader);
    if (pListing && !bKeepHandle) pListing->m_reader.Close();  // no requests were made from it
    if (bKeepHandle) pending.reader = std::move(reader);
    m_aPending.push_back(std::move(pending));
    CPendingDirectory& pushed = m_aPending.back();
    if (!m_readAhead.IsRunning()) return;  // the listing goes with withdraw
    if (bHasRequests) {
        pushed.pListing = std::move(pListing);
        AdoptSubdirectoryListings(pushed, *pushed.pListing, aUnsorted);
    } else if (pListing) {
        pushed.pListing = std::move(pListing);
        QueueChildren(pushed);
    } else {
        QueueChildren(pushed);
    }
}

size_t CScanner::AnchorPathLength() const {
    for (size_t i = m_aPending.size(); i-- > 0;)
        if (m_aPending[i].bAnchor) return m_aPending[i].nPathLength;
    return 0;
}

bool CScanner::OpenFromNearestHandle(platform::CDirectoryReader& reader) const {
    for (size_t i = m_aPending.size(); i-- > 0;) {
        const CPendingDirectory& ancestor = m_aPending[i];
        if (!ancestor.Handle().IsOpen()) continue;
        std::u16string_view relative = std::u16string_view(m_strPath).substr(ancestor.nPathLength);
        if (!relative.empty() && relative.front() == platform::kPathSeparator)
            relative.remove_prefix(1);
        return reader.OpenChild(ancestor.Handle(), relative);
    }
    return reader.Open(m_strPath);
}

bool CScanner::OpenDirectory(platform::CDirectoryReader& reader) {
    if (OpenFromNearestHandle(reader)) return true;
    if (reader.GetLastError() != ERR_TOO_MANY_OPEN_FILES) return false;
    // Workers may be opening directories from the handles about to close.
    EndReadAhead();
    CloseSpareHandles();
    return OpenFromNearestHandle(reader);
}

void CScanner::CloseSpareHandles() {
    // From now on only the anchors keep their handles; the directories
    // between them are reached by a relative path from the nearest one.
    m_bSparingHandles = true;
    for (CPendingDirectory& pending : m_aPending) {
        if (pending.bAnchor) continue;
        pending.reader.Close();
        if (pending.pListing) pending.pListing->m_reader.Close();
    }
}

CFileData* CScanner::AddFileRecord(CDirectoryData& dir, const CDirEntry& entry, double dSize,
                                   double dClusterSize, CFileCandidate& candidate) {
    CFileData* pFile =
        candidate.m_bHasOwner
            ? new (std::nothrow) CFileData(entry.strName, dSize, entry.ftCreated, entry.ftAccessed,
                                           entry.ftModified, entry.uAttributes, &dir, false,
                                           nullptr, candidate.m_strOwner)
            : new (std::nothrow)
                  CFileData(entry.strName, dSize, entry.ftCreated, entry.ftAccessed,
                            entry.ftModified, entry.uAttributes, &dir, false, nullptr);
    if (!pFile) {
        Host().ShowMessage(
            u"Ran out of memory (new CFileData) in CTreeCtrlView::ScanRootDirectory()");
        return nullptr;
    }
    m_doc.m_scan.m_aAllFiles.Add(pFile);
    if (candidate.m_bHasCrc) pFile->SetCrc(candidate.m_uCrc);
    dir.AddScannedFile(pFile, dClusterSize);  // rolled up when the walk leaves the subtree
    m_pSteps->OfferLargestFile(*pFile);
    if (m_doc.m_options.m_bLargestType) m_pSteps->AddToTypeTable(*pFile);
    if (m_doc.m_options.m_bLargestOwner && !pFile->IsStream()) m_pSteps->AddToOwnerTable(*pFile);
    return pFile;
}

}  // namespace zv
