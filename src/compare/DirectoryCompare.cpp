#include "compare/DirectoryCompare.h"

#include <algorithm>
#include <cstdio>
#include <unordered_map>

#include "compare/CompareStatus.h"
#include "compare/FilePairCompare.h"
#include "core/document/SizeText.h"
#include "core/document/SortCodes.h"
#include "core/records/DirectoryData.h"
#include "core/records/RecordFileOpen.h"
#include "platform/Text.h"

namespace zv {

namespace {

constexpr uint8_t kFilesByName = 1;  // "Name asc"
constexpr uint8_t kDirsByName = 1;   // "short name asc"

// File pairs that must be read are compared in batches on several threads,
// a little behind the walk; a large pair is compared by the walk itself,
// whose progress line shows how far its reading is. The outcome of a pair
// does not depend on the thread or the time that reads it.
constexpr double kLargeFile = 16.0 * 1024 * 1024;

void ClearMarks(CDirectoryData& dir) {
    dir.m_uFlags &= static_cast<uint16_t>(~DIR_COMPARE_VISITED);
    for (CFileData* pFile : dir.m_aFiles) pFile->m_uFlags &= ~FILE_COMPARE_MATCH;
    for (CDirectoryData* pChild : dir.m_aChildren) ClearMarks(*pChild);
}

std::u16string ProgressText(int nPercent, const std::u16string& strDone,
                            const std::u16string& strTotal) {
    return u"Comparing files " + platform::U16(std::to_string(nPercent)) + u"%, " + strDone +
           u" / " + strTotal;
}

std::unique_ptr<CCompareEntry> MakeFileEntry(CFileData* pLeft, CDirectoryData* pLeftParent,
                                             CFileData* pRight, CDirectoryData* pRightParent,
                                             int32_t nStatus, double dValue = 0) {
    auto pEntry = std::make_unique<CCompareEntry>();
    pEntry->m_pLeftFile = pLeft;
    pEntry->m_pLeftParent = pLeftParent;
    pEntry->m_pRightFile = pRight;
    pEntry->m_pRightParent = pRightParent;
    pEntry->m_nStatus = nStatus;
    pEntry->m_dValue = dValue;
    pEntry->m_bFile = true;
    return pEntry;
}

// By name without regard to case; an entry with no name sorts last.
bool EntryNameLess(const std::unique_ptr<CCompareEntry>& pA,
                   const std::unique_ptr<CCompareEntry>& pB) {
    const CFileData* pFileA = pA->m_pLeftFile ? pA->m_pLeftFile : pA->m_pRightFile;
    const CFileData* pFileB = pB->m_pLeftFile ? pB->m_pLeftFile : pB->m_pRightFile;
    if (!pFileA || !pFileB) return pFileA && !pFileB;
    return platform::CompareNoCase(pFileA->m_strName.View(), pFileB->m_strName.View()) < 0;
}

template <typename T>
T* FindByName(const CPtrArray<T>& aItems, std::u16string_view strName) {
    for (T* p : aItems)
        if (platform::EqualsNoCase(p->m_strName.View(), strName)) return p;
    return nullptr;
}

// The first file of a directory with a given name, without regard to case.
// A linear search per file is quadratic in a directory of thousands of
// files, so a large directory gets an index of upper-cased names that keeps
// the first file of each, which finds what the linear search finds.
class CFileFinder {
public:
    explicit CFileFinder(CDirectoryData* pDir) : m_pDir(pDir) {
        if (!pDir || pDir->m_aFiles.GetSize() < kIndexFrom) return;
        m_index.reserve(pDir->m_aFiles.GetSize());
        for (CFileData* pFile : pDir->m_aFiles)
            m_index.emplace(platform::ToUpperCopy(pFile->m_strName.View()), pFile);
    }

    CFileData* Find(std::u16string_view strName) {
        if (!m_pDir) return nullptr;
        if (m_index.empty()) return FindByName(m_pDir->m_aFiles, strName);
        m_strKey.assign(strName);
        platform::MakeUpper(m_strKey);
        const auto it = m_index.find(m_strKey);
        return it == m_index.end() ? nullptr : it->second;
    }

private:
    static constexpr size_t kIndexFrom = 32;
    CDirectoryData* m_pDir;
    std::unordered_map<std::u16string, CFileData*> m_index;
    std::u16string m_strKey;
};

}  // namespace

CDirectoryCompare::CDirectoryCompare(CCompareList& list, int nMode)
    : m_list(list), m_nMode(nMode) {}

int32_t CDirectoryCompare::CompareDirectories(CDirectoryData* pA, CDirectoryData* pB) {
    if (!pA) return CompareLeftDirMissing;
    if (!pB) return CompareRightDirMissing;
    if (pA->m_aFiles.GetSize() != pB->m_aFiles.GetSize()) return CompareDirFiles;
    if (pA->m_aChildren.GetSize() != pB->m_aChildren.GetSize()) return CompareDirSubdirs;
    if (pA->GetTotalFiles() != pB->GetTotalFiles()) return CompareDirFilesWithSubdirs;
    if (pA->GetTotalDirs() != pB->GetTotalDirs()) return CompareDirSubdirsAllLevels;
    if ((pA->m_uFlags & DIR_CRC_SUBDIRS_VALID) && (pB->m_uFlags & DIR_CRC_SUBDIRS_VALID))
        return pA->m_uCrcWithSubdirs == pB->m_uCrcWithSubdirs ? CompareIdentical
                                                              : CompareDirCrcWithSubdirs;
    if ((pA->m_uFlags & DIR_CRC_VALID) && (pB->m_uFlags & DIR_CRC_VALID))
        return pA->m_uCrc == pB->m_uCrc ? CompareIdentical : CompareDirCrc;
    return CompareIdentical;
}

void CDirectoryCompare::Run(CDirectoryData* pLeft, CDirectoryData* pRight, bool bWithSubdirs) {
    m_list.Clear();
    m_list.m_pLeft = pLeft;
    m_list.m_pRight = pRight;
    m_list.m_bCompareWithSubdirs = bWithSubdirs ? 1 : 0;
    m_bWithSubdirs = bWithSubdirs;
    m_bStopped = false;
    CompareRoots();
}

void CDirectoryCompare::CompareRoots() {
    CDirectoryData* pLeft = m_list.m_pLeft;
    CDirectoryData* pRight = m_list.m_pRight;
    if (pLeft) ClearMarks(*pLeft);
    if (pRight) ClearMarks(*pRight);
    if (pLeft)
        m_dTotal = m_bWithSubdirs ? static_cast<double>(pLeft->GetTotalFiles())
                                  : static_cast<double>(pLeft->m_aFiles.GetSize());
    m_strTotal = FormatNumber(m_dTotal);
    m_pProgress = std::make_unique<CProgressDialog>(true);
    m_pProgress->Open();
    m_pProgress->SetText(ProgressText(0, u"0", m_strTotal).c_str());

    auto pRoots = std::make_unique<CCompareEntry>();
    pRoots->m_pLeftDir = pLeft;
    pRoots->m_pRightDir = pRight;
    pRoots->m_bFile = false;
    pRoots->m_nStatus = CompareDirectories(pLeft, pRight);
    m_list.m_aEntries.push_back(std::move(pRoots));

    ComparePair(pLeft, pRight);
    SettlePending();  // also after a stop: the entries made so far are whole
    CloseRecordDirectories();
    m_pProgress.reset();
}

bool CDirectoryCompare::CountFile() {
    m_dDone += 1;
    if (m_percent.Update(m_dDone, m_dTotal))
        m_pProgress->SetText(
            ProgressText(m_percent.GetPercent(), FormatNumber(m_dDone), m_strTotal).c_str());
    if (m_pProgress->IsStopped()) m_bStopped = true;
    return !m_bStopped;
}

void CDirectoryCompare::CompareFiles(CDirectoryData* pLeft, CDirectoryData* pRight,
                                     std::vector<std::unique_ptr<CCompareEntry>>& aEntries) {
    if (!pLeft) {
        for (CFileData* pFile : pRight->m_aFiles)
            aEntries.push_back(
                MakeFileEntry(nullptr, nullptr, pFile, pRight, CompareLeftFileMissing));
        return;
    }
    CFileFinder finder(pRight);
    for (CFileData* pFile : pLeft->m_aFiles) {
        if (!CountFile()) return;
        CFileData* pOther = finder.Find(pFile->m_strName.View());
        if (!pOther) {
            aEntries.push_back(
                MakeFileEntry(pFile, pLeft, nullptr, pRight, CompareRightFileMissing));
            continue;
        }
        pFile->m_uFlags |= FILE_COMPARE_MATCH;
        pOther->m_uFlags |= FILE_COMPARE_MATCH;
        m_pProgress->SetLine3(pFile->m_strName.Str().c_str());
        if (MustReadPair(*pFile, *pOther) && pFile->m_dSize < kLargeFile) {
            // Settled with the next batch; the status is a placeholder.
            aEntries.push_back(MakeFileEntry(pFile, pLeft, pOther, pRight, CompareIdentical));
            m_aPending.push_back(aEntries.back().get());
            m_dPendingBytes += pFile->m_dSize;
            if (m_aPending.size() >= kPendingBatch || m_dPendingBytes >= kPendingBytes)
                SettlePending();
            continue;
        }
        const CPairResult result = CompareFilesOfPair(*pFile, *pOther, m_nMode, m_pProgress.get());
        aEntries.push_back(
            MakeFileEntry(pFile, pLeft, pOther, pRight, result.m_nStatus, result.m_dValue));
    }
    if (!pRight) return;
    for (CFileData* pFile : pRight->m_aFiles)
        if (!(pFile->m_uFlags & FILE_COMPARE_MATCH))
            aEntries.push_back(
                MakeFileEntry(nullptr, pLeft, pFile, pRight, CompareLeftFileMissing));
}

void CDirectoryCompare::SettlePending() {
    m_reads.Run(m_aPending.size(), [this](size_t k) {
        CCompareEntry& entry = *m_aPending[k];
        const CPairResult result =
            CompareFilesOfPair(*entry.m_pLeftFile, *entry.m_pRightFile, m_nMode, nullptr);
        entry.m_nStatus = result.m_nStatus;
        entry.m_dValue = result.m_dValue;
    });
    m_aPending.clear();
    m_dPendingBytes = 0;
}

void CDirectoryCompare::ComparePair(CDirectoryData* pLeft, CDirectoryData* pRight) {
    if ((!pLeft && !pRight) || m_bStopped) return;
    if (pLeft) m_pProgress->SetLine1(pLeft->GetFullPath().c_str());
    if (pRight) m_pProgress->SetLine2(pRight->GetFullPath().c_str());

    std::vector<std::unique_ptr<CCompareEntry>> aEntries;
    CompareFiles(pLeft, pRight, aEntries);
    if (m_bStopped) {  // this directory's entries are left out
        std::erase_if(m_aPending, [&](const CCompareEntry* pPending) {
            return std::any_of(aEntries.begin(), aEntries.end(),
                               [&](const auto& pEntry) { return pEntry.get() == pPending; });
        });
        return;
    }
    std::stable_sort(aEntries.begin(), aEntries.end(), EntryNameLess);
    for (auto& pEntry : aEntries) m_list.m_aEntries.push_back(std::move(pEntry));

    // From here on the tree is in name order on both sides.
    for (CDirectoryData* pDir : {pLeft, pRight}) {
        if (!pDir) continue;
        SortFiles(*pDir, kFilesByName);
        SortChildren(*pDir, kDirsByName);
    }
    CompareSubdirs(pLeft, pRight);
}

void CDirectoryCompare::CompareSubdirs(CDirectoryData* pLeft, CDirectoryData* pRight) {
    if (pLeft) {
        for (CDirectoryData* pSub : pLeft->m_aChildren) {
            if (m_bStopped) return;
            CDirectoryData* pOther =
                pRight ? FindByName(pRight->m_aChildren, pSub->m_strName.View()) : nullptr;
            if (pOther) {
                AddDirEntry(pSub, pOther);
                if (m_bWithSubdirs) ComparePair(pSub, pOther);
            }
            if (!(pSub->m_uFlags & DIR_COMPARE_VISITED)) {
                AddDirEntry(pSub, nullptr);
                if (m_bWithSubdirs) ComparePair(pSub, nullptr);
            }
        }
    }
    if (!pRight) return;
    for (CDirectoryData* pSub : pRight->m_aChildren) {
        if (m_bStopped) return;
        if (pSub->m_uFlags & DIR_COMPARE_VISITED) continue;
        AddDirEntry(nullptr, pSub);
        if (m_bWithSubdirs) ComparePair(nullptr, pSub);
    }
}

void CDirectoryCompare::AddDirEntry(CDirectoryData* pA, CDirectoryData* pB) {
    if (pA) pA->m_uFlags |= DIR_COMPARE_VISITED;
    if (pB) pB->m_uFlags |= DIR_COMPARE_VISITED;
    auto pEntry = std::make_unique<CCompareEntry>();
    pEntry->m_pLeftDir = pA;
    pEntry->m_pLeftParent = pA ? pA->m_pParent : nullptr;
    pEntry->m_pRightDir = pB;
    pEntry->m_pRightParent = pB ? pB->m_pParent : nullptr;
    pEntry->m_bFile = false;
    pEntry->m_nStatus = CompareDirectories(pA, pB);
    m_list.m_aEntries.push_back(std::move(pEntry));
}

}  // namespace zv
