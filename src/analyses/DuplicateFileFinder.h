// The duplicate file search: partitions the scanned files into groups that
// agree on every ticked criterion. It runs as a list of passes over a
// shrinking set, each computing only what the surviving candidates need;
// groups of two and three are settled early by comparing the files, so a
// pair is read once. The result is m_results.m_aDuplicateGroups of the
// document: pointers into the tree, valid until the next scan.
#pragma once

#include <vector>

#include "analyses/DuplicatePasses.h"
#include "analyses/FileComparison.h"
#include "core/document/ResultLists.h"
#include "core/host/ProgressDialog.h"
#include "core/records/ParallelReads.h"

namespace zv {

class CWZorvaneDoc;
class CDuplicateTrace;

// What comparing the files of a group of two or three found; m_bCompared is
// false where the group was left alone.
struct CSmallGroupOutcome {
    bool m_bCompared = false;
    CPairComparison m_pair;
    CTripleComparison m_triple;
};

class CDuplicateFileFinder {
public:
    explicit CDuplicateFileFinder(CWZorvaneDoc& doc);

    // Runs the search with the document's criteria. False when the user
    // stopped it: the result is then empty. With no files or no criterion
    // there is nothing to do and the result is empty too.
    bool Run();

private:
    bool RunPasses(const std::vector<EPassMethod>& aPasses, CDuplicateTrace& trace);
    bool GroupByKey(EPassMethod eMethod, std::vector<CFileData*>& aSource,
                    std::vector<CDuplicateGroup>& aTarget, size_t nDone, size_t nTotal);
    bool Regroup(EPassMethod eMethod);
    bool ComputeCrcsForGroups(EPassMethod eMethod);
    bool PrecomputeAllMp3Crcs();
    bool PrecomputeAllNameCrcs();
    bool SettleSmallGroups(bool bWithCrc);
    // Reads only, so that it may run on any thread.
    static CSmallGroupOutcome CompareSmallGroup(const CDuplicateGroup& group, bool bWithCrc);
    bool CompareGroupsByteByByte();
    // True to go on; false when Cancel was pressed.
    bool Report(const std::u16string& strText, int nPercent);
    void DropUnreadable();
    void KeepOnlyDuplicates();

    CWZorvaneDoc& m_doc;
    std::vector<CDuplicateGroup>& m_aDuplicateGroups;
    // Groups a small-group or byte stage has finished; they take no further
    // part, and join the result at the end.
    std::vector<CDuplicateGroup> m_aConfirmedGroups;
    CProgressDialog m_dialog{true};
    std::u16string m_strLabel;
    CParallelReads m_reads;
};

// FindDuplicateFiles as the program calls it after a scan or on command.
// False when stopped.
bool FindDuplicateFiles(CWZorvaneDoc& doc);

}  // namespace zv
