#include "analyses/CrcSortPreparation.h"

#include <algorithm>
#include <string>

#include "analyses/CrcServices.h"
#include "core/host/ProgressDialog.h"
#include "core/records/DirectoryData.h"
#include "platform/Text.h"

namespace zv {
namespace {

using platform::U16;

std::u16string ProgressText(const char16_t* pszWhat, int nPercent, size_t nDone, size_t nTotal,
                            const char16_t* pszUnit) {
    return pszWhat + U16(std::to_string(nPercent)) + u"% " + U16(std::to_string(nDone)) + u"/" +
           U16(std::to_string(nTotal)) + pszUnit;
}

bool HasCrc(const CFileData* pFile) {
    return (pFile->m_uFlags & (FILE_CRC_VALID | FILE_CRC_FAILED)) != 0;
}

size_t BatchThreshold(size_t nCount) {
    return std::max<size_t>(static_cast<size_t>(nCount * 0.01), 20);
}

// Opens the dialog at 0 for nTotal items.
void OpenAtZero(CProgressDialog& dialog, const char16_t* pszWhat, size_t nTotal,
                const char16_t* pszUnit) {
    dialog.Open();
    dialog.SetTextAndPercent(ProgressText(pszWhat, 0, 0, nTotal, pszUnit).c_str(), 0);
}

// The walk of the work list in batches; false on Cancel.
bool RunInBatches(const std::vector<CFileData*>& aWork) {
    const size_t nTotal = aWork.size();
    CProgressDialog dialog(true);
    OpenAtZero(dialog, u"Computing CRC ", nTotal, u" files");
    const size_t nThreshold = BatchThreshold(nTotal);
    CPercentTracker tracker;
    tracker.Update(0, double(nTotal));
    std::vector<CFileData*> aBatch;
    for (size_t i = 0; i < nTotal; ++i) {
        if (dialog.IsStopped()) return false;
        aBatch.push_back(aWork[i]);
        if (aBatch.size() >= nThreshold) {
            ComputeCrcs(aBatch);
            aBatch.clear();
        }
        if (tracker.Update(double(i + 1), double(nTotal))) {
            const int nPercent = tracker.GetPercent();
            dialog.SetTextAndPercent(
                ProgressText(u"Computing CRC ", nPercent, i + 1, nTotal, u" files").c_str(),
                nPercent);
        }
    }
    return true;
}

}  // namespace

bool PrepareFileCrcSort(const std::vector<CFileData*>& aRows) {
    if (std::all_of(aRows.begin(), aRows.end(), HasCrc)) return true;
    return RunInBatches(aRows);
}

bool PrepareDuplicateFileCrcSort(const std::vector<CFileData*>& aRows) {
    if (std::all_of(aRows.begin(), aRows.end(), HasCrc)) return true;
    CProgressDialog dialog(true);
    OpenAtZero(dialog, u"Computing CRC ", aRows.size(), u" files");
    const size_t nThreshold = BatchThreshold(aRows.size());
    size_t nBatch = 0;
    for (size_t i = 0; i < aRows.size(); ++i) {
        if (dialog.IsStopped()) return false;
        if (++nBatch >= nThreshold) {
            ComputeCrcs(aRows);
            break;
        }
    }
    return true;
}

bool PrepareDirCrcSort(const std::vector<CDirectoryData*>& aRows) {
    const bool bAllKnown = std::all_of(aRows.begin(), aRows.end(), [](const CDirectoryData* p) {
        return (p->m_uFlags & DIR_CRC_VALID) != 0;
    });
    if (bAllKnown) return true;
    std::vector<CFileData*> aWork;
    for (CDirectoryData* pDir : aRows)
        aWork.insert(aWork.end(), pDir->m_aFiles.begin(), pDir->m_aFiles.end());
    if (!RunInBatches(aWork)) return false;
    for (CDirectoryData* pDir : aRows) pDir->GetCrc();
    return true;
}

bool PrepareDirCrcWithSubdirsSort(const std::vector<CDirectoryData*>& aRows) {
    const bool bAllKnown = std::all_of(aRows.begin(), aRows.end(), [](const CDirectoryData* p) {
        return (p->m_uFlags & DIR_CRC_SUBDIRS_VALID) != 0;
    });
    if (bAllKnown) return true;
    const size_t nTotal = aRows.size();
    CProgressDialog dialog(true);
    OpenAtZero(dialog, u"Computing CRC wSub ", nTotal, u" directories");
    CPercentTracker tracker;
    tracker.Update(0, double(nTotal));
    for (size_t i = 0; i < nTotal; ++i) {
        if (dialog.IsStopped()) return false;
        aRows[i]->GetCrcWithSubdirs();
        if (tracker.Update(double(i + 1), double(nTotal))) {
            const int nPercent = tracker.GetPercent();
            dialog.SetTextAndPercent(
                ProgressText(u"Computing CRC wSub ", nPercent, i + 1, nTotal, u" directories")
                    .c_str(),
                nPercent);
        }
    }
    return true;
}

}  // namespace zv
