#include "analyses/DuplicateFileFinder.h"

#include <algorithm>
#include <chrono>
#include <unordered_map>

#include "analyses/CrcServices.h"
#include "analyses/CrcThreadPool.h"
#include "analyses/DuplicateTrace.h"
#include "analyses/FileComparison.h"
#include "analyses/NeighbourGroups.h"
#include "core/document/Document.h"
#include "core/records/RecordFileOpen.h"
#include "platform/Text.h"

namespace zv {
namespace {

using platform::U16;

std::u16string Number(size_t n) { return U16(std::to_string(n)); }

size_t CountFiles(const std::vector<CDuplicateGroup>& aGroups) {
    size_t n = 0;
    for (const CDuplicateGroup& group : aGroups) n += group.size();
    return n;
}

// Size, directory path and name (without regard to case), all descending.
// The directories' paths are put in order once, each directory getting a
// rank (equal for paths that compare equal), so that the sort compares two
// numbers where it would compare two paths; every comparison comes out as
// before, and so does the order.
void SortBySizeDescending(std::vector<CFileData*>& aFiles) {
    std::unordered_map<const CDirectoryData*, uint32_t> rankOf;
    std::vector<const CDirectoryData*> aDirs;
    for (const CFileData* pFile : aFiles)
        if (rankOf.emplace(pFile->m_pDirectory, 0).second) aDirs.push_back(pFile->m_pDirectory);
    std::sort(aDirs.begin(), aDirs.end(), [](const CDirectoryData* a, const CDirectoryData* b) {
        return CDirectoryData::ComparePath(a, b) < 0;
    });
    uint32_t uRank = 0;
    for (size_t i = 0; i < aDirs.size(); ++i) {
        if (i > 0 && CDirectoryData::ComparePath(aDirs[i - 1], aDirs[i]) != 0) ++uRank;
        rankOf[aDirs[i]] = uRank;
    }
    struct CKey {
        double dSize;
        uint32_t uDir;
        CFileData* pFile;
    };
    std::vector<CKey> aKeys;
    aKeys.reserve(aFiles.size());
    for (CFileData* pFile : aFiles)
        aKeys.push_back({pFile->m_dSize, rankOf[pFile->m_pDirectory], pFile});
    std::sort(aKeys.begin(), aKeys.end(), [](const CKey& a, const CKey& b) {
        if (a.dSize != b.dSize) return a.dSize > b.dSize;
        if (a.uDir != b.uDir) return a.uDir > b.uDir;
        return platform::CompareNoCase(a.pFile->m_strName.View(), b.pFile->m_strName.View()) > 0;
    });
    for (size_t i = 0; i < aKeys.size(); ++i) aFiles[i] = aKeys[i].pFile;
}

void SortForMethod(EPassMethod eMethod, std::vector<CFileData*>& aFiles) {
    switch (eMethod) {
        case EPassMethod::Size:
            SortBySizeDescending(aFiles);
            break;
        case EPassMethod::Name:
            std::sort(aFiles.begin(), aFiles.end(),
                      [](CFileData* a, CFileData* b) { return a->GetNameCrc() < b->GetNameCrc(); });
            break;
        case EPassMethod::Mp3Crc:
            std::sort(aFiles.begin(), aFiles.end(),
                      [](CFileData* a, CFileData* b) { return a->GetMp3Crc() > b->GetMp3Crc(); });
            break;
        case EPassMethod::QuickCrc:
            std::sort(aFiles.begin(), aFiles.end(), [](CFileData* a, CFileData* b) {
                return a->GetQuickCrc() < b->GetQuickCrc();
            });
            break;
        case EPassMethod::FullCrc:
            std::sort(aFiles.begin(), aFiles.end(),
                      [](CFileData* a, CFileData* b) { return a->GetCrc() < b->GetCrc(); });
            break;
        default:
            break;
    }
}

bool BothHave(const CFileData* a, const CFileData* b, uint32_t uBit) {
    return (a->m_uFlags & uBit) && (b->m_uFlags & uBit);
}

// Whether two files agree on the pass's key. A failed quick checksum has no
// valid bit and so matches nothing; a failed full checksum holds 0 with its
// valid bit.
bool PairEqual(EPassMethod eMethod, CFileData* a, CFileData* b) {
    switch (eMethod) {
        case EPassMethod::Size:
            return a->m_dSize == b->m_dSize;
        case EPassMethod::Name:
            return a->GetNameCrc() == b->GetNameCrc();
        case EPassMethod::Mp3Crc:
            return a->GetMp3Crc() == b->GetMp3Crc();
        case EPassMethod::QuickCrc:
            return BothHave(a, b, FILE_PARTIAL_CRC_VALID) && a->m_uQuickCrc == b->m_uQuickCrc;
        case EPassMethod::FullCrc:
            return BothHave(a, b, FILE_CRC_VALID) && a->m_uCrc == b->m_uCrc;
        default:
            return false;
    }
}

size_t BatchThreshold(size_t nTotal) {
    return std::max<size_t>(static_cast<size_t>(double(nTotal) * 0.01), 20);
}

void RunPool(EPassMethod eMethod, const std::vector<CFileData*>& aBatch) {
    if (eMethod == EPassMethod::FullCrc)
        ComputeCrcs(aBatch);
    else if (eMethod == EPassMethod::Mp3Crc)
        ComputeMp3Crcs(aBatch);
    else
        ComputeQuickCrcs(aBatch);
}

// Worker k of the pool takes the entries k, k + 3, k + 6 and so on; laid
// out so, each worker gets one stretch of the directory-sorted files, in
// order, and opens each of its directories once.
void InterleaveForWorkers(std::vector<CFileData*>::const_iterator first,
                          std::vector<CFileData*>::const_iterator last,
                          std::vector<CFileData*>& aBatch) {
    const size_t nCount = static_cast<size_t>(last - first);
    aBatch.resize(nCount);
    const size_t nWorkers = CCrcThreadPool::kWorkers;
    size_t nStretch = 0;
    for (size_t k = 0; k < nWorkers; ++k)
        for (size_t i = k; i < nCount; i += nWorkers) aBatch[i] = first[nStretch++];
}

double SecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

CDuplicateFileFinder::CDuplicateFileFinder(CWZorvaneDoc& doc)
    : m_doc(doc), m_aDuplicateGroups(doc.m_results.m_aDuplicateGroups) {}

bool CDuplicateFileFinder::Report(const std::u16string& strText, int nPercent) {
    m_dialog.SetTextAndPercent(strText.c_str(), nPercent);
    return !m_dialog.IsStopped();
}

bool CDuplicateFileFinder::Run() {
    m_aDuplicateGroups.clear();
    m_aConfirmedGroups.clear();
    if (m_doc.m_scan.m_aAllFiles.IsEmpty()) return true;
    CDuplicateTrace trace(m_doc.m_print.Flag(SaveAsUnicode));
    const std::vector<EPassMethod> aPasses =
        BuildPassList(m_doc.m_options.m_dupFiles, !m_doc.m_options.m_strCrcFromFile.empty());
    if (aPasses.empty()) return true;
    m_dialog.Open();

    const bool bFinished = RunPasses(aPasses, trace);
    if (bFinished) {
        DropUnreadable();
        for (size_t i = 0; i < m_aDuplicateGroups.size(); ++i)
            for (CFileData* pFile : m_aDuplicateGroups[i]) pFile->m_nDuplicateGroup = int64_t(i);
        if (m_doc.m_options.m_bOnlyDupFiles) KeepOnlyDuplicates();
        for (CDuplicateGroup& group : m_aConfirmedGroups)
            m_aDuplicateGroups.push_back(std::move(group));
    } else {
        m_aDuplicateGroups.clear();
    }
    m_aConfirmedGroups.clear();
    CloseRecordDirectories();
    return bFinished;
}

bool CDuplicateFileFinder::RunPasses(const std::vector<EPassMethod>& aPasses,
                                     CDuplicateTrace& trace) {
    for (size_t p = 0; p < aPasses.size(); ++p) {
        const EPassMethod eMethod = aPasses[p];
        trace.Write(
            eMethod == EPassMethod::ByteCompare
                ? std::u16string(u"Finding duplicates files based on: comparing byte by byte\n")
                : u"Finding duplicate files based on: " + std::u16string(PassTraceText(eMethod)) +
                      u"\n");
        trace.Flush();
        const auto start = std::chrono::steady_clock::now();
        // The second number is the pass count plus one, as it always was.
        m_strLabel = u"Pass " + Number(p + 1) + u"/" + Number(aPasses.size() + 1) + u": " +
                     PassLabelText(eMethod);

        bool bGoOn = true;
        if (p == 0) {
            if (eMethod == EPassMethod::Mp3Crc) bGoOn = PrecomputeAllMp3Crcs();
            if (eMethod == EPassMethod::Name) bGoOn = PrecomputeAllNameCrcs();
            std::vector<CFileData*>& aAll = m_doc.m_scan.m_aAllFiles.Items();
            bGoOn = bGoOn && GroupByKey(eMethod, aAll, m_aDuplicateGroups, 0, aAll.size());
        } else {
            switch (eMethod) {
                case EPassMethod::Mp3Crc:
                case EPassMethod::FullCrc:
                case EPassMethod::QuickCrc:
                    bGoOn = ComputeCrcsForGroups(eMethod);
                    break;
                case EPassMethod::ByteCompare:
                    bGoOn = CompareGroupsByteByByte();
                    break;
                case EPassMethod::SmallGroupsCrc:
                    bGoOn = SettleSmallGroups(true);
                    break;
                case EPassMethod::SmallGroups:
                    bGoOn = SettleSmallGroups(false);
                    break;
                default:
                    break;
            }
            if (bGoOn && static_cast<int>(eMethod) < static_cast<int>(EPassMethod::ByteCompare))
                bGoOn = Regroup(eMethod);
        }
        trace.Write(ElapsedText(SecondsSince(start)) + u", Total files left = " +
                    Number(CountFiles(m_aDuplicateGroups)) + u"\n\n");
        trace.Flush();
        if (!bGoOn) return false;
    }
    return true;
}

bool CDuplicateFileFinder::Regroup(EPassMethod eMethod) {
    const size_t nTotal = CountFiles(m_aDuplicateGroups);
    std::vector<CDuplicateGroup> aNew;
    size_t nDone = 0;
    for (CDuplicateGroup& group : m_aDuplicateGroups) {
        if (!GroupByKey(eMethod, group, aNew, nDone, nTotal)) return false;
        nDone += group.size();
    }
    m_aDuplicateGroups = std::move(aNew);
    return true;
}

bool CDuplicateFileFinder::GroupByKey(EPassMethod eMethod, std::vector<CFileData*>& aSource,
                                      std::vector<CDuplicateGroup>& aTarget, size_t nDone,
                                      size_t nTotal) {
    SortForMethod(eMethod, aSource);
    return GroupSortedNeighbours(
        aSource, aTarget, FILE_IN_DUPLICATE_GROUP,
        [&](CFileData* a, CFileData* b) { return PairEqual(eMethod, a, b); }, m_dialog, m_strLabel,
        nDone, nTotal);
}

bool CDuplicateFileFinder::ComputeCrcsForGroups(EPassMethod eMethod) {
    const size_t nTotal = CountFiles(m_aDuplicateGroups);
    const bool bQuick = eMethod == EPassMethod::QuickCrc;
    m_dialog.SetTextAndPercent((m_strLabel + u" 0%, 0 / " + Number(nTotal)).c_str(), 0);
    // The files go to the pool in directory order, a batch at a time, so
    // that the workers open each directory once for all its files; which
    // thread computes a checksum, and when, changes nothing in the result.
    std::vector<CFileData*> aPending;
    aPending.reserve(nTotal);
    for (const CDuplicateGroup& group : m_aDuplicateGroups)
        for (CFileData* pFile : group)
            if (eMethod != EPassMethod::FullCrc || !(pFile->m_uFlags & FILE_CRC_VALID))
                aPending.push_back(pFile);
    std::stable_sort(aPending.begin(), aPending.end(), [](const CFileData* a, const CFileData* b) {
        return std::less<const CDirectoryData*>()(a->m_pDirectory, b->m_pDirectory);
    });
    const size_t nThreshold = BatchThreshold(nTotal);
    const size_t nSkipped = nTotal - aPending.size();
    CPercentTracker tracker;
    tracker.Update(0, double(nTotal));
    std::vector<CFileData*> aBatch;
    for (size_t nStart = 0; nStart < aPending.size(); nStart += nThreshold) {
        const size_t nEnd = std::min(aPending.size(), nStart + nThreshold);
        InterleaveForWorkers(aPending.begin() + static_cast<std::ptrdiff_t>(nStart),
                             aPending.begin() + static_cast<std::ptrdiff_t>(nEnd), aBatch);
        RunPool(eMethod, aBatch);
        const size_t nCount = nSkipped + nEnd;
        const bool bPercent = tracker.Update(double(nCount), double(nTotal));
        if (!Report(ProgressText(m_strLabel, tracker.GetPercent(), nCount, nTotal, bQuick),
                    bPercent ? tracker.GetPercent() : -1))
            return false;
    }
    return true;
}

bool CDuplicateFileFinder::PrecomputeAllMp3Crcs() {
    std::vector<CFileData*>& aAll = m_doc.m_scan.m_aAllFiles.Items();
    std::vector<CFileData*> aBatch;
    CPercentTracker tracker;
    for (size_t i = 0; i < aAll.size(); ++i) {
        aBatch.push_back(aAll[i]);
        if (aBatch.size() >= 100) {
            ComputeMp3Crcs(aBatch);
            aBatch.clear();
        }
        const bool bPercent = tracker.Update(double(i + 1), double(aAll.size()));
        if (bPercent || (i + 1) % 100 == 0) {
            if (!Report(ProgressText(m_strLabel, tracker.GetPercent(), i + 1, aAll.size()),
                        bPercent ? tracker.GetPercent() : -1))
                return false;
        }
    }
    return true;
}

bool CDuplicateFileFinder::PrecomputeAllNameCrcs() {
    std::vector<CFileData*>& aAll = m_doc.m_scan.m_aAllFiles.Items();
    CPercentTracker tracker;
    for (size_t i = 0; i < aAll.size(); ++i) {
        aAll[i]->GetNameCrc();
        if (tracker.Update(double(i + 1), double(aAll.size())) &&
            !Report(ProgressText(m_strLabel, tracker.GetPercent(), i + 1, aAll.size()),
                    tracker.GetPercent()))
            return false;
    }
    return true;
}

CSmallGroupOutcome CDuplicateFileFinder::CompareSmallGroup(const CDuplicateGroup& group,
                                                           bool bWithCrc) {
    CSmallGroupOutcome outcome;
    const double dSize = group[0]->m_dSize;
    if (group.size() == 2) {
        const CFileData* a = group[0];
        const CFileData* b = group[1];
        if (bWithCrc) {
            // A file with a checksum waits for the full checksum stage.
            if ((a->m_uFlags | b->m_uFlags) & FILE_CRC_VALID) return outcome;
            outcome.m_pair = CompareTwoFilesWithCrc(*a, *b, dSize);
        } else {
            if (BothHave(a, b, FILE_PARTIAL_CRC_VALID) && a->m_uQuickCrc != b->m_uQuickCrc)
                return outcome;
            if (BothHave(a, b, FILE_CRC_VALID) && a->m_uCrc != b->m_uCrc) return outcome;
            outcome.m_pair = CompareTwoFiles(*a, *b, dSize);
        }
        outcome.m_bCompared = true;
        return outcome;
    }
    if (bWithCrc &&
        ((group[0]->m_uFlags | group[1]->m_uFlags | group[2]->m_uFlags) & FILE_CRC_VALID))
        return outcome;
    const CFileData* aFiles[3] = {group[0], group[1], group[2]};
    outcome.m_triple =
        bWithCrc ? CompareThreeFilesWithCrc(aFiles, dSize) : CompareThreeFiles(aFiles, dSize);
    outcome.m_bCompared = true;
    return outcome;
}

bool CDuplicateFileFinder::SettleSmallGroups(bool bWithCrc) {
    // Walked from the last group to the first; the groups that stay open are
    // gathered in reverse and turned round at the end.
    std::vector<size_t> aSmall;
    for (size_t i = m_aDuplicateGroups.size(); i-- > 0;)
        if (m_aDuplicateGroups[i].size() == 2 || m_aDuplicateGroups[i].size() == 3)
            aSmall.push_back(i);
    const size_t nSmall = aSmall.size();
    m_dialog.SetTextAndPercent((m_strLabel + u" 0%, 0 / " + Number(nSmall)).c_str(), 0);
    CPercentTracker tracker;
    tracker.Update(0, double(nSmall));
    // The comparisons only read; they run a window at a time on several
    // threads, and the outcomes are applied here, in the walk's order. A
    // window ends at a count of groups or of bytes, so that progress and a
    // stop request are not held up for long.
    constexpr size_t kWindow = 256;
    constexpr double kWindowBytes = 64.0 * 1024 * 1024;
    std::vector<CSmallGroupOutcome> aOutcomes;
    size_t nWindowStart = 0;
    size_t nHandled = 0;
    std::vector<CDuplicateGroup> aOpen;
    for (size_t i = m_aDuplicateGroups.size(); i-- > 0;) {
        CDuplicateGroup& group = m_aDuplicateGroups[i];
        if (group.size() < 2) continue;
        if (group.size() >= 4) {
            aOpen.push_back(std::move(group));
            continue;
        }
        if (nHandled == nWindowStart + aOutcomes.size()) {
            nWindowStart = nHandled;
            size_t nLength = 0;
            double dBytes = 0;
            while (nWindowStart + nLength < nSmall && nLength < kWindow &&
                   (nLength == 0 || dBytes < kWindowBytes)) {
                const CDuplicateGroup& next = m_aDuplicateGroups[aSmall[nWindowStart + nLength]];
                dBytes += next[0]->m_dSize * double(next.size());
                ++nLength;
            }
            aOutcomes.assign(nLength, CSmallGroupOutcome());
            m_reads.Run(aOutcomes.size(), [&](size_t k) {
                aOutcomes[k] =
                    CompareSmallGroup(m_aDuplicateGroups[aSmall[nWindowStart + k]], bWithCrc);
            });
        }
        const CSmallGroupOutcome& outcome = aOutcomes[nHandled - nWindowStart];
        ++nHandled;
        const bool bPercent = tracker.Update(double(nHandled), double(nSmall));
        if ((bPercent || nHandled % 100 == 0) &&
            !Report(ProgressText(m_strLabel, tracker.GetPercent(), nHandled, nSmall),
                    bPercent ? tracker.GetPercent() : -1))
            return false;

        if (!outcome.m_bCompared) {
            // Left for the full checksum stage, or told apart by checksums.
            if (bWithCrc) aOpen.push_back(std::move(group));
            continue;
        }
        if (group.size() == 2) {
            CFileData* a = group[0];
            CFileData* b = group[1];
            const CPairComparison& result = outcome.m_pair;
            if (bWithCrc) {
                if (result.m_bError[0]) a->m_uFlags |= FILE_CRC_FAILED;
                if (result.m_bError[1]) b->m_uFlags |= FILE_CRC_FAILED;
                if (!result.m_bDifferent) {
                    a->SetCrc(result.m_uCrc);
                    b->SetCrc(result.m_uCrc);
                }
            }
            if (!result.m_bDifferent) m_aConfirmedGroups.push_back(std::move(group));
            continue;
        }
        const CTripleComparison& result = outcome.m_triple;
        for (size_t k = 3; k-- > 0;) {
            if (bWithCrc && result.m_bError[k]) group[k]->m_uFlags |= FILE_CRC_FAILED;
            if (result.m_bError[k] || !result.m_bSurvivor[k]) {
                group.erase(group.begin() + static_cast<std::ptrdiff_t>(k));
            } else if (bWithCrc) {
                group[k]->SetCrc(result.m_uCrc);
            }
        }
        if (group.size() >= 2) m_aConfirmedGroups.push_back(std::move(group));
    }
    CloseRecordDirectories();
    std::reverse(aOpen.begin(), aOpen.end());
    m_aDuplicateGroups = std::move(aOpen);
    return true;
}

bool CDuplicateFileFinder::CompareGroupsByteByByte() {
    const size_t nTotal = CountFiles(m_aDuplicateGroups);
    m_dialog.SetTextAndPercent((m_strLabel + u" 0%, 0 / " + Number(nTotal)).c_str(), 0);
    const CCompareBuffer buffer;
    CPercentTracker tracker;
    tracker.Update(0, double(nTotal));
    size_t nCount = 0;
    for (CDuplicateGroup& group : m_aDuplicateGroups) {
        const size_t nGroupSize = group.size();
        std::vector<CDuplicateGroup> aSubgroups;
        while (!group.empty()) {
            CFileData* x = group.back();
            group.pop_back();
            if (x->m_dSize != 0 && buffer.Data() && !ReadHead(*x, buffer)) continue;
            bool bPlaced = false;
            for (CDuplicateGroup& subgroup : aSubgroups) {
                if (FilesEqual(*x, *subgroup[0], buffer)) {
                    subgroup.push_back(x);
                    bPlaced = true;
                    break;
                }
            }
            if (bPlaced) continue;
            CDuplicateGroup* pNew = nullptr;
            for (size_t k = group.size(); k-- > 0;) {
                if (!FilesEqual(*x, *group[k], buffer)) continue;
                if (!pNew) {
                    aSubgroups.emplace_back(CDuplicateGroup{x});
                    pNew = &aSubgroups.back();
                }
                pNew->push_back(group[k]);
                group.erase(group.begin() + static_cast<std::ptrdiff_t>(k));
            }
        }
        for (CDuplicateGroup& subgroup : aSubgroups)
            m_aConfirmedGroups.push_back(std::move(subgroup));
        nCount += nGroupSize;
        const bool bPercent = tracker.Update(double(nCount), double(nTotal));
        if ((bPercent || nCount % 100 == 0) &&
            !Report(ProgressText(m_strLabel, tracker.GetPercent(), nCount, nTotal),
                    bPercent ? tracker.GetPercent() : -1))
            return false;
    }
    m_aDuplicateGroups.clear();
    return true;
}

void CDuplicateFileFinder::DropUnreadable() {
    // A file whose content could not be read equals nothing it is grouped
    // with, even where its failed checksum matches another's.
    const CDuplicateFileCriteria& criteria = m_doc.m_options.m_dupFiles;
    uint32_t uFailed = 0;
    if (criteria.m_bByCrc) uFailed |= FILE_CRC_FAILED;
    if (criteria.m_bByCrcWithoutTags) uFailed |= FILE_CRC_NOTAGS_FAILED;
    if (!uFailed) return;
    for (std::vector<CDuplicateGroup>* pList : {&m_aDuplicateGroups, &m_aConfirmedGroups}) {
        std::vector<CDuplicateGroup> aKept;
        for (CDuplicateGroup& group : *pList) {
            std::erase_if(group, [uFailed](const CFileData* p) { return p->m_uFlags & uFailed; });
            if (group.size() >= 2) aKept.push_back(std::move(group));
        }
        *pList = std::move(aKept);
    }
}

void CDuplicateFileFinder::KeepOnlyDuplicates() {
    // A file that fell out in a byte or small-group stage keeps its bit: the
    // bit is only set and cleared by the grouping.
    std::vector<CFileData*>& aAll = m_doc.m_scan.m_aAllFiles.Items();
    std::erase_if(m_doc.m_results.m_aLargestFiles,
                  [](const CFileData* p) { return !(p->m_uFlags & FILE_IN_DUPLICATE_GROUP); });
    std::vector<CFileData*> aKept;
    aKept.reserve(aAll.size());
    for (CFileData* pFile : aAll) {
        if (pFile->m_uFlags & FILE_IN_DUPLICATE_GROUP) {
            aKept.push_back(pFile);
        } else if (pFile->m_pDirectory) {
            pFile->m_pDirectory->RemoveFile(pFile);  // deletes the record
        }
    }
    aAll = std::move(aKept);
}

bool FindDuplicateFiles(CWZorvaneDoc& doc) {
    if (doc.m_scan.m_aAllFiles.IsEmpty()) return true;
    return CDuplicateFileFinder(doc).Run();
}

}  // namespace zv
