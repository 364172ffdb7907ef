#include "core/records/DirectoryData.h"

#include <array>

#include "core/records/ClusterRounding.h"
#include "core/records/Crc32.h"
#include "core/records/NameCrc.h"
#include "core/records/OwnerPool.h"
#include "core/records/RecordFileOpen.h"
#include "core/records/RecordPath.h"
#include "core/records/RecordServices.h"
#include "core/records/SubtreeWalk.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {

CDirectoryData::CDirectoryData(CDirectoryData* pParent, std::u16string_view strName,
                               FILETIME ftCreated, FILETIME ftAccessed, FILETIME ftModified,
                               uint32_t uAttributes)
    : m_uFlags(0),
      m_nFileSort(0),
      m_nDirSort(0),
      m_nLevel(pParent ? pParent->m_nLevel + 1 : 0),
      m_hTreeItem(nullptr),
      m_dFilesSize(0),
      m_dFilesActual(0),
      m_dSubdirsSize(0),
      m_dSubdirsActual(0),
      m_strName(strName),
      m_pParent(pParent),
      m_ftCreated(ftCreated),
      m_ftAccessed(ftAccessed),
      m_ftModified(ftModified),
      m_uAttributes(uAttributes),
      m_uCumulativeCount(0),
      m_nDuplicateGroup(0),
      m_uNameCrc(0),
      m_uCrc(0),
      m_uCrcWithSubdirs(0),
      m_bTotalsValid(0),
      m_pOwner(nullptr),
      m_nTotalFiles(0),
      m_nTotalDirs(0) {}

CDirectoryData::~CDirectoryData() {
    ForgetRecordDirectories();
    // Each descendant's children are taken from it before it is deleted, so
    // no destructor recurses, however deep the tree.
    std::vector<CDirectoryData*> aPending;
    auto TakeChildren = [&aPending](CDirectoryData& dir) {
        auto& aChildren = dir.m_aChildren.Items();
        aPending.insert(aPending.end(), aChildren.begin(), aChildren.end());
        aChildren.clear();
    };
    TakeChildren(*this);
    while (!aPending.empty()) {
        CDirectoryData* pDir = aPending.back();
        aPending.pop_back();
        TakeChildren(*pDir);
        delete pDir;
    }
}

std::u16string CDirectoryData::GetFullPath() const {
    std::vector<const CDirectoryData*> aChain;
    size_t nLength = 0;
    for (const CDirectoryData* p = this; p; p = p->m_pParent) {
        aChain.push_back(p);
        nLength += p->m_strName.GetLength() + 1;
    }
    std::u16string strPath;
    strPath.reserve(nLength);
    strPath.append(aChain.back()->m_strName.View());
    for (size_t i = aChain.size() - 1; i-- > 0;) AppendPathComponent(strPath, aChain[i]->m_strName);
    return strPath;
}

namespace {

// Fills aChain with the directories from the root down to pDir.
template <typename Chain>
size_t FillChain(const CDirectoryData* pDir, Chain& aChain, size_t nDepth) {
    for (size_t i = nDepth; pDir; pDir = pDir->m_pParent) aChain[--i] = pDir;
    return nDepth;
}

size_t Depth(const CDirectoryData* pDir) {
    size_t n = 0;
    for (; pDir; pDir = pDir->m_pParent) ++n;
    return n;
}

template <typename ChainA, typename ChainB>
int CompareChains(const ChainA& aA, size_t nA, const ChainB& aB, size_t nB) {
    const size_t nCommon = nA < nB ? nA : nB;
    for (size_t i = 0; i < nCommon; ++i) {
        if (aA[i] == aB[i]) continue;
        const int nCmp = platform::CompareNoCase(aA[i]->m_strName.View(), aB[i]->m_strName.View());
        if (nCmp != 0) return nCmp;
    }
    // One is an ancestor of the other (or the same path in other case): the
    // shorter chain sorts after the longer.
    if (nA == nB) return 0;
    return nA < nB ? 1 : -1;
}

}  // namespace

int CDirectoryData::ComparePath(const CDirectoryData* pA, const CDirectoryData* pB) {
    if (pA == pB) return 0;
    constexpr size_t kStackLevels = 20;
    const size_t nA = Depth(pA), nB = Depth(pB);
    if (nA < kStackLevels && nB < kStackLevels) {
        std::array<const CDirectoryData*, kStackLevels> aA, aB;
        FillChain(pA, aA, nA);
        FillChain(pB, aB, nB);
        return CompareChains(aA, nA, aB, nB);
    }
    std::vector<const CDirectoryData*> aA(nA), aB(nB);
    FillChain(pA, aA, nA);
    FillChain(pB, aB, nB);
    return CompareChains(aA, nA, aB, nB);
}

CRootDirectoryData* CDirectoryData::GetRoot() {
    CDirectoryData* p = this;
    while (p->m_pParent) p = p->m_pParent;
    return p->IsRoot() ? static_cast<CRootDirectoryData*>(p) : nullptr;
}

const CRootDirectoryData* CDirectoryData::GetRoot() const {
    return const_cast<CDirectoryData*>(this)->GetRoot();
}

uint32_t CDirectoryData::GetNameCrc() {
    if (!(m_uFlags & DIR_NAME_CRC_VALID)) {
        m_uNameCrc = NameCrc(m_strName);
        m_uFlags |= DIR_NAME_CRC_VALID;
    }
    return m_uNameCrc;
}

const std::u16string& CDirectoryData::GetOwner() {
    if (!(m_uFlags & DIR_OWNER_VALID)) {
        m_uFlags |= DIR_OWNER_VALID;
        m_pOwner = RecordServices().LookupOwner(GetFullPath());
    }
    return m_pOwner ? *m_pOwner : NoOwner();
}

void CDirectoryData::SetOwner(std::u16string_view strOwner) {
    m_pOwner = InternOwner(strOwner);
    m_uFlags |= DIR_OWNER_VALID;
}

uint32_t CDirectoryData::GetCrc() {
    if (m_uFlags & DIR_CRC_VALID) return m_uCrc;
    // Valid before anything else, so the guard holds against re-entry.
    m_uFlags |= DIR_CRC_VALID;
    m_uCrc = 0;
    if (m_aFiles.IsEmpty()) return 0;
    RecordServices().ComputeCrcs(m_aFiles.Items());
    uint32_t uRunning = Crc32Init();
    for (CFileData* pFile : m_aFiles) uRunning = Crc32Fold(uRunning, pFile->GetCrc());
    m_uCrc = m_aFiles.GetSize() == 1 ? m_aFiles[0]->GetCrc() : Crc32Final(uRunning);
    return m_uCrc;
}

uint32_t CDirectoryData::GetCrcWithSubdirs() {
    if (m_uFlags & DIR_CRC_SUBDIRS_VALID) return m_uCrcWithSubdirs;
    ForEachInSubtreeChildrenFirst(*this, [](CDirectoryData& dir) {
        if (dir.m_uFlags & DIR_CRC_SUBDIRS_VALID) return;
        dir.m_uFlags |= DIR_CRC_SUBDIRS_VALID;
        dir.GetCrc();
        if (dir.m_aChildren.IsEmpty()) {
            dir.m_uCrcWithSubdirs = dir.m_uCrc;
            return;
        }
        uint32_t uRunning = Crc32Fold(Crc32Init(), dir.m_uCrc);
        for (CDirectoryData* pChild : dir.m_aChildren)
            uRunning = Crc32Fold(uRunning, pChild->m_uCrcWithSubdirs);
        dir.m_uCrcWithSubdirs = Crc32Final(uRunning);
    });
    return m_uCrcWithSubdirs;
}

void CDirectoryData::AddFile(CFileData* pFile, double dClusterSize) {
    const double dSize = pFile->m_dSize;
    const double dActual = RoundToCluster(dSize, dClusterSize);
    m_dFilesSize += dSize;
    m_dFilesActual += dActual;
    ++m_uCumulativeCount;
    for (CDirectoryData* p = m_pParent; p; p = p->m_pParent) {
        p->m_dSubdirsSize += dSize;
        p->m_dSubdirsActual += dActual;
        ++p->m_uCumulativeCount;
    }
    m_aFiles.Add(pFile);
}

void CDirectoryData::AddScannedFile(CFileData* pFile, double dClusterSize) {
    m_dFilesSize += pFile->m_dSize;
    m_dFilesActual += RoundToCluster(pFile->m_dSize, dClusterSize);
    ++m_uCumulativeCount;
    m_aFiles.Add(pFile);
}

void CDirectoryData::AddSubtreeTotals(const CDirectoryData& child) {
    m_dSubdirsSize += child.m_dFilesSize + child.m_dSubdirsSize;
    m_dSubdirsActual += child.m_dFilesActual + child.m_dSubdirsActual;
    m_uCumulativeCount += child.m_uCumulativeCount;
}

bool CDirectoryData::RemoveFile(CFileData* pFile) {
    // Depth first, each directory's files before its subdirectories, the
    // last subdirectory first.
    std::vector<CDirectoryData*> aPending{this};
    while (!aPending.empty()) {
        CDirectoryData& dir = *aPending.back();
        aPending.pop_back();
        auto& aFiles = dir.m_aFiles.Items();
        for (size_t i = aFiles.size(); i-- > 0;) {
            if (aFiles[i] != pFile) continue;
            const double dSize = pFile->m_dSize;
            const CRootDirectoryData* pRoot = dir.GetRoot();
            const double dActual = RoundToCluster(dSize, pRoot ? pRoot->m_dClusterSize : 0);
            dir.m_dFilesSize -= dSize;
            dir.m_dFilesActual -= dActual;
            dir.m_aFiles.DeleteAt(i);
            --dir.m_uCumulativeCount;
            for (CDirectoryData* p = dir.m_pParent; p; p = p->m_pParent) {
                --p->m_uCumulativeCount;
                p->m_dSubdirsSize -= dSize;
                p->m_dSubdirsActual -= dActual;
            }
            return true;
        }
        for (CDirectoryData* pChild : dir.m_aChildren) aPending.push_back(pChild);
    }
    return false;
}

void CDirectoryData::ResetForScan() {
    m_uFlags &= ~(DIR_CRC_VALID | DIR_CRC_SUBDIRS_VALID);
    m_dFilesSize = m_dFilesActual = m_dSubdirsSize = m_dSubdirsActual = 0;
    m_uCumulativeCount = 0;
    m_uCrc = m_uCrcWithSubdirs = 0;
    InvalidateTotals();
}

void CDirectoryData::InvalidateTotals() {
    ForEachInSubtree(*this, [](CDirectoryData& dir) { dir.m_bTotalsValid = 0; });
}

void CDirectoryData::Flatten(std::vector<CDirectoryData*>& aList) {
    // Each directory, then its subdirectories' subtrees from the last to the first.
    std::vector<CDirectoryData*> aPending{this};
    while (!aPending.empty()) {
        CDirectoryData* pDir = aPending.back();
        aPending.pop_back();
        aList.push_back(pDir);
        for (CDirectoryData* pChild : pDir->m_aChildren) aPending.push_back(pChild);
    }
}

void CDirectoryData::CollectFiles(std::vector<std::u16string>* pNames,
                                  std::vector<CDirectoryData*>& aDirs,
                                  std::vector<CFileData*>& aFiles) {
    ForEachInSubtree(*this, [&](CDirectoryData& dir) {
        for (CFileData* pFile : dir.m_aFiles) {
            if (pNames) pNames->push_back(pFile->m_strName.Str());
            aDirs.push_back(&dir);
            aFiles.push_back(pFile);
        }
    });
}

bool CDirectoryData::HasFiles() const {
    std::vector<const CDirectoryData*> aPending{this};
    while (!aPending.empty()) {
        const CDirectoryData* pDir = aPending.back();
        aPending.pop_back();
        if (!pDir->m_aFiles.IsEmpty()) return true;
        for (const CDirectoryData* pChild : pDir->m_aChildren) aPending.push_back(pChild);
    }
    return false;
}

void CDirectoryData::ComputeTotals() {
    m_nTotalFiles = m_nTotalDirs = 0;
    ForEachInSubtree(*this, [this](const CDirectoryData& dir) {
        m_nTotalFiles += static_cast<int64_t>(dir.m_aFiles.GetSize());
        m_nTotalDirs += static_cast<int64_t>(dir.m_aChildren.GetSize());
    });
    m_bTotalsValid = 1;
}

int64_t CDirectoryData::GetTotalFiles() {
    if (!m_bTotalsValid) ComputeTotals();
    return m_nTotalFiles;
}

int64_t CDirectoryData::GetTotalDirs() {
    if (!m_bTotalsValid) ComputeTotals();
    return m_nTotalDirs;
}

void CDirectoryData::RecomputeTotals() {
    ForEachInSubtreeChildrenFirst(*this, [](CDirectoryData& dir) {
        dir.m_nTotalFiles = static_cast<int64_t>(dir.m_aFiles.GetSize());
        dir.m_nTotalDirs = static_cast<int64_t>(dir.m_aChildren.GetSize());
        for (const CDirectoryData* pChild : dir.m_aChildren) {
            dir.m_nTotalFiles += pChild->m_nTotalFiles;
            dir.m_nTotalDirs += pChild->m_nTotalDirs;
        }
        dir.m_bTotalsValid = 1;
    });
}

void CDirectoryData::DecrementFileTotal() { --m_nTotalFiles; }
void CDirectoryData::DecrementDirTotal() { --m_nTotalDirs; }

void CDirectoryData::CompactArrays() {
    ForEachInSubtree(*this, [](CDirectoryData& dir) {
        dir.m_aFiles.FreeExtra();
        dir.m_aChildren.FreeExtra();
    });
}

}  // namespace zv
