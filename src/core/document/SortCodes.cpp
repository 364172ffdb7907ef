#include "core/document/SortCodes.h"

#include <algorithm>

#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "core/records/RecordServices.h"
#include "core/records/SubtreeWalk.h"
#include "platform/Text.h"

namespace zv {
namespace {

template <typename T>
int Compare3(T a, T b) {
    return a < b ? -1 : (a > b ? 1 : 0);
}

int CompareName(const CRecordName& a, const CRecordName& b) {
    return platform::CompareNoCase(a.View(), b.View());
}

int CompareTimes(FILETIME a, FILETIME b) { return CompareFileTime(a, b); }

// Descending codes are the ascending comparison with its sign turned.
int Directed(int nResult, bool bDescending) { return bDescending ? -nResult : nResult; }

int CompareExtensions(CFileData* pA, CFileData* pB, bool bDescending) {
    const std::u16string strA = pA->GetExtension(), strB = pB->GetExtension();
    // Files with an extension come before those without, in both orders.
    if (strA.empty() != strB.empty()) return strA.empty() ? 1 : -1;
    return Directed(platform::CompareNoCase(strA, strB), bDescending);
}

int CompareVersions(CFileData* pA, CFileData* pB, bool bDescending) {
    const std::u16string strA = RecordServices().ReadVersionText(*pA);
    const std::u16string strB = RecordServices().ReadVersionText(*pB);
    // An empty version sorts apart, after all others.
    if (strA.empty() != strB.empty()) return strA.empty() ? 1 : -1;
    return Directed(platform::CompareOrdinal(strA, strB), bDescending);
}

}  // namespace

int CompareFilesByCode(int nCode, CFileData* pA, CFileData* pB) {
    int n = 0;
    switch (nCode) {
        case 1:
            n = CompareName(pA->m_strName, pB->m_strName);
            return n ? n : Compare3(pA->m_dSize, pB->m_dSize);
        case 2:
            return CompareFilesByCode(1, pB, pA);
        case 3:
            return Compare3(pA->GetNameCrc(), pB->GetNameCrc());
        case 4:
        case 6:
            n = Compare3(pA->m_dSize, pB->m_dSize);
            if (n || !pA->m_pDirectory || !pB->m_pDirectory) return n;
            return CDirectoryData::ComparePath(pA->m_pDirectory, pB->m_pDirectory);
        case 5:
        case 7:
            n = Compare3(pB->m_dSize, pA->m_dSize);
            if (n) return n;
            if (pA->m_pDirectory && pB->m_pDirectory)
                n = CDirectoryData::ComparePath(pB->m_pDirectory, pA->m_pDirectory);
            return n ? n : CompareName(pB->m_strName, pA->m_strName);
        case 8:
        case 9:
            n = Directed(CompareTimes(pA->m_ftCreated, pB->m_ftCreated), nCode == 9);
            return n ? n : Compare3(pA->m_dSize, pB->m_dSize);
        case 10:
        case 11:
            n = Directed(CompareTimes(pA->m_ftAccessed, pB->m_ftAccessed), nCode == 11);
            return n ? n : Compare3(pA->m_dSize, pB->m_dSize);
        case 12:
        case 13:
            n = Directed(CompareTimes(pA->m_ftModified, pB->m_ftModified), nCode == 13);
            return n ? n : Compare3(pA->m_dSize, pB->m_dSize);
        case 14:
        case 15:
            return Directed(Compare3(pA->GetQuickCrc(), pB->GetQuickCrc()), nCode == 15);
        case 16:
        case 17:
            return Directed(Compare3(pA->GetCrc(), pB->GetCrc()), nCode == 17);
        case 18:
            return Compare3(pB->GetMp3Crc(), pA->GetMp3Crc());
        case 19:
        case 20:
            if (pA->m_pDirectory && pB->m_pDirectory)
                n = CDirectoryData::ComparePath(pA->m_pDirectory, pB->m_pDirectory);
            if (!n) n = CompareName(pA->m_strName, pB->m_strName);
            if (!n) n = Compare3(pA->m_dSize, pB->m_dSize);
            return Directed(n, nCode == 20);
        case 21:
        case 22:
            n = CompareExtensions(pA, pB, nCode == 22);
            return n ? n : Compare3(pA->m_dSize, pB->m_dSize);
        case 23:
        case 24:
            // The tie compares a record with itself: equal owners are equal.
            return Directed(platform::CompareNoCase(pA->GetOwner(), pB->GetOwner()), nCode == 24);
        case 25:
        case 26:
            return Directed(Compare3(pA->m_nDuplicateGroup, pB->m_nDuplicateGroup), nCode == 26);
        case 27:
        case 28:
            return CompareVersions(pA, pB, nCode == 28);
        default:
            return 0;
    }
}

int CompareDirsByCode(int nCode, CDirectoryData* pA, CDirectoryData* pB) {
    const bool bDescending = nCode % 2 == (nCode <= 3 ? 0 : 1);
    switch (nCode) {
        case 1:
        case 2:
            return Directed(CompareName(pA->m_strName, pB->m_strName), bDescending);
        case 4:
        case 5:
            return Directed(CDirectoryData::ComparePath(pA, pB), bDescending);
        case 6:
        case 7:
            return Directed(Compare3(pA->m_dFilesSize, pB->m_dFilesSize), bDescending);
        case 8:
        case 9:
            return Directed(Compare3(pA->GetSizeWithSubdirs(), pB->GetSizeWithSubdirs()),
                            bDescending);
        case 10:
        case 11:
            return Directed(CompareTimes(pA->m_ftCreated, pB->m_ftCreated), bDescending);
        case 12:
        case 13:
            return Directed(CompareTimes(pA->m_ftAccessed, pB->m_ftAccessed), bDescending);
        case 14:
        case 15:
            return Directed(CompareTimes(pA->m_ftModified, pB->m_ftModified), bDescending);
        case 16:
        case 17:
            return Directed(Compare3(pA->GetCrc(), pB->GetCrc()), bDescending);
        case 18:
        case 19:
            return Directed(Compare3(pA->GetCrcWithSubdirs(), pB->GetCrcWithSubdirs()),
                            bDescending);
        case 20:
        case 21:
            return Directed(platform::CompareNoCase(pA->GetOwner(), pB->GetOwner()), bDescending);
        default:
            return 0;
    }
}

void SortFiles(CDirectoryData& dir, uint8_t nCode) {
    if (dir.m_nFileSort == nCode) return;
    auto& aFiles = dir.m_aFiles.Items();
    std::stable_sort(aFiles.begin(), aFiles.end(), [nCode](CFileData* pA, CFileData* pB) {
        return CompareFilesByCode(nCode, pA, pB) < 0;
    });
    dir.m_nFileSort = nCode;
}

void SortChildren(CDirectoryData& dir, uint8_t nCode) {
    if (dir.m_nDirSort == nCode) return;
    auto& aChildren = dir.m_aChildren.Items();
    std::stable_sort(aChildren.begin(), aChildren.end(),
                     [nCode](CDirectoryData* pA, CDirectoryData* pB) {
                         return CompareDirsByCode(nCode, pA, pB) < 0;
                     });
    dir.m_nDirSort = nCode;
}

void SortSubtree(CDirectoryData& dir, uint8_t nFileCode, uint8_t nDirCode) {
    ForEachInSubtree(dir, [nFileCode, nDirCode](CDirectoryData& each) {
        SortFiles(each, nFileCode);
        SortChildren(each, nDirCode);
    });
}

}  // namespace zv
