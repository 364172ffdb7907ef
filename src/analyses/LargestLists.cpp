#include "analyses/LargestLists.h"

#include <algorithm>
#include <vector>

#include "core/document/Document.h"

namespace zv {
namespace {

double SizeOf(const CFileData& file) { return file.m_dSize; }
double SizeOf(const CDirectoryData& directory) { return directory.m_dFilesSize; }

// The list stays sorted by size, largest first, and among equal sizes the
// one found first stays ahead; a newcomer equal to the smallest of a full
// list is refused. Without a limit the list is not ordered at all, which
// spares the walk. A limit of 0 still keeps the first record offered.
template <class TRecord>
bool Offer(std::vector<TRecord*>& aList, double& dFloor, int nLimit, TRecord& record) {
    const double dSize = SizeOf(record);
    if (aList.empty()) {
        aList.push_back(&record);
        dFloor = dSize;
        return true;
    }
    if (nLimit < 0) {
        aList.push_back(&record);
        return true;
    }
    const size_t nMax = static_cast<size_t>(nLimit);
    // Almost every record of a long scan stops here.
    if (aList.size() >= nMax && dFloor > dSize) return false;
    for (auto it = aList.begin(); it != aList.end(); ++it) {
        if (SizeOf(**it) < dSize) {
            aList.insert(it, &record);
            if (aList.size() > nMax) {
                aList.pop_back();
                dFloor = SizeOf(*aList.back());
            }
            return true;
        }
    }
    if (aList.size() >= nMax) return false;
    aList.push_back(&record);
    dFloor = dSize;
    return true;
}

template <class TRecord>
void SortBySize(std::vector<TRecord*>& aList) {
    std::stable_sort(aList.begin(), aList.end(), [](const TRecord* pA, const TRecord* pB) {
        return SizeOf(*pA) > SizeOf(*pB);
    });
}

}  // namespace

bool OfferLargestFile(CWZorvaneDoc& doc, CFileData& file) {
    if (!doc.m_options.m_bLargestFiles) return false;
    CResultLists& results = doc.m_results;
    return Offer(results.m_aLargestFiles, results.m_dLargestFilesFloor,
                 doc.m_options.m_nLargestFilesCount, file);
}

void OfferLargestDirectory(CWZorvaneDoc& doc, CDirectoryData& directory) {
    CResultLists& results = doc.m_results;
    Offer(results.m_aLargestDirs, results.m_dLargestDirsFloor, doc.m_options.m_nLargestDirsCount,
          directory);
}

void SortLargestLists(CWZorvaneDoc& doc) {
    SortBySize(doc.m_results.m_aLargestFiles);
    SortBySize(doc.m_results.m_aLargestDirs);
}

void RemoveLargestFile(CWZorvaneDoc& doc, const CFileData& file) {
    std::vector<CFileData*>& aList = doc.m_results.m_aLargestFiles;
    const auto it = std::find(aList.begin(), aList.end(), &file);
    if (it != aList.end()) aList.erase(it);
}

}  // namespace zv
