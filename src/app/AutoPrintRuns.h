// The Auto Print run after a scan: every enabled report, in the fixed
// order main, duplicate files, duplicate directories, largest files,
// largest directories, largest owner, largest type, each into its own file
// (dated when its block says so). Nothing is asked and nothing is shown: a
// report whose file cannot be opened, whose list is empty, or whose search
// has no criterion to search by, is left out.
#pragma once

#include <functional>
#include <string>

namespace zv {

class CWZorvaneDoc;
struct CAutoPrintBlock;
class CReportStream;

class CAutoPrintRun {
public:
    enum class ESkipped {
        Unwritable,       // the file could not be opened or written
        NoFileCriterion,  // duplicate files, and no criterion to search by
        NoDirCriterion,   // duplicate directories, and no criterion
    };
    // Told the name of each report left out, and why. An empty list is not
    // told: it is what the search found.
    using SkippedFn = std::function<void(const std::u16string& strFile, ESkipped eWhy)>;

    CAutoPrintRun(CWZorvaneDoc& doc, SkippedFn onSkipped)
        : m_doc(doc), m_onSkipped(std::move(onSkipped)) {}

    // All seven; nothing when the scan found no file.
    void Run();

    void RunAutoPrintMain();
    void RunAutoPrintDupFiles();
    void RunAutoPrintDupDirs();
    void RunAutoPrintLargestFiles();
    void RunAutoPrintLargestDirs();
    void RunAutoPrintLargestOwner();
    void RunAutoPrintLargestType();

private:
    // Opens the block's file and has write fill it; false when it could
    // not be opened or written.
    bool WriteFile(const CAutoPrintBlock& block, const std::function<void(CReportStream&)>& write);

    CWZorvaneDoc& m_doc;
    SkippedFn m_onSkipped;
};

}  // namespace zv
