// The duplicate directory search: the file search's shape (a list of passes,
// each sorting and cutting the groups of the pass before) over the scanned
// directories, comparing their totals and cached checksums only. With the
// CRC-with-subdirectories criterion, directories that are duplicates only
// because their parents are leave the result. The result is
// m_results.m_aDuplicateDirGroups: pointers into the tree, valid until the
// next scan.
#pragma once

#include <vector>

#include "analyses/DuplicatePasses.h"
#include "core/document/ResultLists.h"
#include "core/host/ProgressDialog.h"

namespace zv {

class CWZorvaneDoc;

class CDuplicateDirFinder {
public:
    explicit CDuplicateDirFinder(CWZorvaneDoc& doc);

    // False when the user stopped it: the result is then empty.
    bool Run();

private:
    bool GroupDirsByKey(EDirPass ePass, std::vector<CDirectoryData*>& aSource,
                        std::vector<CDuplicateDirGroup>& aTarget, size_t nDone, size_t nTotal);
    void RemoveNestedDuplicates();

    CWZorvaneDoc& m_doc;
    std::vector<CDuplicateDirGroup>& m_aGroups;
    CProgressDialog m_dialog{true};
    std::u16string m_strLabel;
};

// FindDuplicateDirs as the program calls it. False when stopped.
bool FindDuplicateDirs(CWZorvaneDoc& doc);

}  // namespace zv
