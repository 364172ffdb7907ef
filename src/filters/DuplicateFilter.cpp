#include "filters/DuplicateFilter.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <unordered_map>

#include "core/document/Document.h"
#include "core/records/RecordPath.h"
#include "core/records/RecordServices.h"
#include "core/scan/ScanHooks.h"
#include "platform/ReadFull.h"
#include "platform/Text.h"

namespace zv {
namespace {

constexpr size_t kBlock = 4096;

// The name part of a filter record: a record of the duplicate files list
// has the whole path as its name.
std::u16string_view NamePart(const CFileData& file) {
    const std::u16string_view name = file.m_strName.View();
    const size_t n = name.find_last_of(u"\\/");
    return n == std::u16string_view::npos ? name : name.substr(n + 1);
}

}  // namespace

bool CompareFiles(platform::CFileReader& candidate, const unsigned char* pBuffer,
                  size_t uBufferBytes, const std::u16string& strFilterPath, double dSize) {
    platform::CFileReader filter;
    if (!filter.Open(strFilterPath)) return false;
    unsigned char aFilter[kBlock];
    for (size_t uDone = 0; uDone < uBufferBytes;) {
        const size_t uWant = std::min(kBlock, uBufferBytes - uDone);
        if (platform::ReadFull(filter, aFilter, uWant) != int64_t(uWant) ||
            std::memcmp(aFilter, pBuffer + uDone, uWant) != 0)
            return false;
        uDone += uWant;
    }
    double dLeft = dSize - double(uBufferBytes);
    if (dLeft <= 0) return true;
    if (!candidate.Seek(uBufferBytes)) return false;
    unsigned char aCandidate[kBlock];
    while (dLeft > 0) {
        const size_t uWant = static_cast<size_t>(std::min(double(kBlock), dLeft));
        if (platform::ReadFull(filter, aFilter, uWant) != int64_t(uWant) ||
            platform::ReadFull(candidate, aCandidate, uWant) != int64_t(uWant) ||
            std::memcmp(aFilter, aCandidate, uWant) != 0)
            return false;
        dLeft -= double(uWant);
    }
    return true;
}

// What is known of the candidate, computed at first need.
struct CDuplicateFilter::CCandidateState {
    CCandidateState(CFileCandidate& c, std::u16string strFullPath)
        : candidate(c), strPath(std::move(strFullPath)) {}
    CFileCandidate& candidate;
    std::u16string strPath;
    bool bCrcKnown = false, bCrcFailed = false;
    uint32_t uCrc = 0;
    bool bMp3Known = false, bMp3Failed = false;
    uint32_t uMp3Crc = 0;
    bool bHeadRead = false, bHeadFailed = false, bOpenFailed = false;
    size_t uHeadBytes = 0;
    platform::CFileReader reader;
};

CDuplicateFilter::CDuplicateFilter(CWZorvaneDoc& doc) : m_doc(doc) {}
CDuplicateFilter::~CDuplicateFilter() = default;

bool CDuplicateFilter::IsSet() const {
    // Trees loaded from a settings file are in force without a text list.
    return !m_doc.m_filters.List(FilterDupFiles).empty() ||
           !m_doc.m_filters.List(FilterDupDirs).empty() ||
           !m_doc.m_filters.m_aDupDirTrees.IsEmpty();
}

void CDuplicateFilter::TakeChecksumsFromList() {
    m_bListApplied = true;
    if (m_doc.m_aCrcFromFile.empty()) return;
    std::unordered_map<std::u16string, const CCrcListEntry*> mapEntries;
    for (const CCrcListEntry& entry : m_doc.m_aCrcFromFile)
        mapEntries.emplace(platform::ToUpperCopy(entry.m_strPath), &entry);
    auto Apply = [&mapEntries](CFileData& file) {
        const auto it = mapEntries.find(platform::ToUpperCopy(file.GetFullPath()));
        if (it == mapEntries.end()) return;
        file.m_uFlags |= FILE_CRC_FROM_LIST;
        if (it->second->m_bHasCrc) {
            file.m_uFlags &= ~FILE_CRC_FAILED;
            file.SetCrc(it->second->m_uCrc);
        } else {
            file.m_uFlags = (file.m_uFlags | FILE_CRC_FAILED) & ~FILE_CRC_VALID;
        }
    };
    for (CFileData* pFile : m_doc.m_filters.m_aDupFileRecords) Apply(*pFile);
    for (CDirectoryData* pTree : m_doc.m_filters.m_aDupDirTrees) {
        std::vector<CDirectoryData*> aDirs;
        std::vector<CFileData*> aFiles;
        pTree->CollectFiles(nullptr, aDirs, aFiles);
        for (CFileData* pFile : aFiles) Apply(*pFile);
    }
}

bool CDuplicateFilter::Admits(CFileCandidate& candidate) {
    if (!IsSet()) return true;
    if (!m_bListApplied) TakeChecksumsFromList();
    CCandidateState state(candidate,
                          JoinPath(candidate.m_strDirectoryPath, candidate.m_entry.strName));
    EResult eResult = EResult::Fail;
    auto& aRecords = m_doc.m_filters.m_aDupFileRecords;
    for (size_t i = aRecords.GetSize(); i-- > 0 && eResult == EResult::Fail;)
        eResult = Test(state, *aRecords[i]);
    auto& aTrees = m_doc.m_filters.m_aDupDirTrees;
    for (size_t i = aTrees.GetSize(); i-- > 0 && eResult == EResult::Fail;)
        eResult = TestTree(state, *aTrees[i]);
    if (eResult != EResult::Pass) return false;
    if (state.bCrcKnown && !state.bCrcFailed) {
        candidate.m_bHasCrc = true;
        candidate.m_uCrc = state.uCrc;
    }
    return true;
}

CDuplicateFilter::EResult CDuplicateFilter::TestTree(CCandidateState& state, CDirectoryData& dir) {
    for (size_t i = dir.m_aFiles.GetSize(); i-- > 0;) {
        const EResult eResult = Test(state, *dir.m_aFiles[i]);
        if (eResult != EResult::Fail) return eResult;
    }
    for (CDirectoryData* pChild : dir.m_aChildren) {
        const EResult eResult = TestTree(state, *pChild);
        if (eResult != EResult::Fail) return eResult;
    }
    return EResult::Fail;
}

CDuplicateFilter::EResult CDuplicateFilter::Test(CCandidateState& state, CFileData& filterFile) {
    const CDuplicateFileCriteria& criteria = m_doc.m_options.m_dupFiles;
    const double dSize = state.candidate.m_dSize;
    if (criteria.m_bByName && NamePart(filterFile) != state.candidate.m_entry.strName)
        return EResult::Fail;
    if ((criteria.m_bBySize || criteria.m_bByCrc || criteria.m_bByteByByte) &&
        filterFile.m_dSize != dSize)
        return EResult::Fail;
    if (criteria.m_bByCrc) {
        if (!state.bCrcKnown) {
            state.bCrcKnown = true;
            if (dSize != 0)
                state.uCrc = RecordServices().Crc32OfFile(state.strPath, state.bCrcFailed, dSize);
        }
        if (state.bCrcFailed) return EResult::Stop;
        if (filterFile.GetCrc() != state.uCrc) return EResult::Fail;
    }
    if (criteria.m_bByCrcWithoutTags) {
        if (!state.bMp3Known) {
            state.bMp3Known = true;
            if (dSize != 0)
                state.uMp3Crc =
                    RecordServices().Crc32OfFileWithoutTags(state.strPath, state.bMp3Failed);
        }
        if (state.bMp3Failed) return EResult::Stop;
        if (filterFile.GetMp3Crc() != state.uMp3Crc) return EResult::Fail;
    }
    if (!criteria.m_bByteByByte || dSize == 0) return EResult::Pass;

    if (!state.bHeadRead) {
        state.bHeadRead = true;
        if (!m_pBuffer) {
            for (size_t uSize = 0x400000; uSize >= 1024 && !m_pBuffer; uSize /= 2) {
                m_pBuffer.reset(new (std::nothrow) unsigned char[uSize]);
                if (m_pBuffer) m_uBufferSize = uSize;
            }
        }
        if (!state.reader.Open(state.strPath)) {
            state.bOpenFailed = true;
        } else {
            state.uHeadBytes = static_cast<size_t>(std::min(dSize, double(m_uBufferSize)));
            state.bHeadFailed = !m_pBuffer || platform::ReadFull(state.reader, m_pBuffer.get(),
                                                                 state.uHeadBytes) < 0;
        }
    }
    if (state.bOpenFailed) return EResult::Stop;
    // A read that fails counts as passing.
    if (state.bHeadFailed) return EResult::Pass;
    return CompareFiles(state.reader, m_pBuffer.get(), state.uHeadBytes, filterFile.GetFullPath(),
                        dSize)
               ? EResult::Pass
               : EResult::Fail;
}

}  // namespace zv
