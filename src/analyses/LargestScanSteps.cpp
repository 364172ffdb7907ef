#include "analyses/LargestScanSteps.h"

#include "analyses/LargestLists.h"
#include "analyses/LargestTotals.h"

namespace zv {

void CLargestScanSteps::OfferLargestFile(CFileData& file) {
    zv::OfferLargestFile(*m_pDocument, file);
}

void CLargestScanSteps::OfferLargestDirectory(CDirectoryData& directory) {
    zv::OfferLargestDirectory(*m_pDocument, directory);
}

void CLargestScanSteps::AddToTypeTable(CFileData& file) { AddTypeTotals(*m_pDocument, file); }

void CLargestScanSteps::AddToOwnerTable(CFileData& file) { AddOwnerTotals(*m_pDocument, file); }

void CLargestScanSteps::SortTypeTable() { zv::SortTypeTable(*m_pDocument); }

}  // namespace zv
