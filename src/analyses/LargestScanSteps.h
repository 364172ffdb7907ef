// The scan-time part of the largest lists and total tables: every record
// the scan keeps is offered here, as the scanner's flags decide.
#pragma once

#include "core/scan/ScanHooks.h"

namespace zv {

class CLargestScanSteps : public IScanSteps {
public:
    void OfferLargestFile(CFileData& file) override;
    void OfferLargestDirectory(CDirectoryData& directory) override;
    void AddToTypeTable(CFileData& file) override;
    void AddToOwnerTable(CFileData& file) override;
    void SortTypeTable() override;
};

}  // namespace zv
