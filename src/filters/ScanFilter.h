// The filter set as the scanner applies it: the directory tests when a
// directory is entered and the file tests in their fixed order. Cheap tests
// on what the listing gave come first, tests that open files or read
// security information last.
#pragma once

#include "core/scan/ScanHooks.h"
#include "filters/DuplicateFilter.h"

namespace zv {

class CWZorvaneDoc;
struct CFilterSet;

class CScanFilter : public IScanFilter {
public:
    explicit CScanFilter(CWZorvaneDoc& doc);

    bool IsActive() override;
    bool HasDuplicateFilter() override;
    void ResolveRelativeDates() override;
    bool IsDirectoryExcluded(const std::u16string& strPath) override;
    bool SkipsFilesOf(const std::u16string& strPath) override;
    bool AdmitsFile(CFileCandidate& candidate) override;

private:
    bool PassesDates(const CFileCandidate& candidate) const;
    bool PassesAttributes(const CFileCandidate& candidate) const;
    bool PassesOwners(CFileCandidate& candidate);
    bool PassesDuplicateFilter(CFileCandidate& candidate);

    CWZorvaneDoc& m_doc;
    CFilterSet& m_filters;
    CDuplicateFilter m_duplicates;
};

}  // namespace zv
