#include "reports/ReportContext.h"

#include <algorithm>

#include "core/document/SizeText.h"
#include "core/document/SortCodes.h"
#include "core/records/RecordFileOpen.h"
#include "core/records/RecordPath.h"
#include "core/records/RecordServices.h"
#include "reports/ValueText.h"
#include "reports/VersionProbes.h"

namespace zv {

CReportContext::CReportContext(CWZorvaneDoc& doc, CReportStream& out, bool bFullPath)
    : m_doc(doc), m_out(out), m_columns(SelectedColumns(doc)), m_bFullPath(bFullPath) {}

CReportContext::~CReportContext() {
    // No row is left to print what the workers still compute.
    FinishCrcBatch(true);
    CloseRecordDirectories();
}

std::u16string CReportContext::Size(double dSize) const {
    return FormatSize(m_doc, dSize, u"", false);
}

std::u16string CReportContext::SizeWithUnits(double dSize, std::u16string_view strSuffix) const {
    return FormatSize(m_doc, dSize, strSuffix, true);
}

std::u16string CReportContext::Date(FILETIME ftDate) const {
    return FormatReportDate(ftDate, Flag(PrintTime));
}

const std::u16string& CReportContext::DirPath(const CDirectoryData& dir) {
    if (m_pPathDir != &dir) {
        m_pPathDir = &dir;
        m_strPathDir = dir.GetFullPath();
    }
    return m_strPathDir;
}

std::u16string CReportContext::FilePath(const CFileData& file) {
    if (!file.m_pDirectory) return std::u16string(file.m_strName.View());
    return JoinPath(DirPath(*file.m_pDirectory), file.m_strName);
}

const platform::CFileDiskInfo& CReportContext::DiskInfo(CFileData& file) {
    if (m_pInfoFile != &file) {
        m_pInfoFile = &file;
        const bool bWantOwner = !(file.m_uFlags & FILE_OWNER_VALID) && !file.IsStream();
        const CDirectoryData* pDir = file.m_pDirectory;
        if (pDir && pDir != m_pInfoDir) {
            m_pInfoDir = pDir;
            m_dirInfo.Open(DirPath(*pDir));
        }
        if (!pDir || !m_dirInfo.ReadDiskInfo(file.m_strName.View(), bWantOwner, m_info))
            platform::GetFileDiskInfo(FilePath(file), bWantOwner, m_info);
        if (bWantOwner && m_info.bOwnerKnown) file.SetOwner(m_info.strOwner);
    }
    return m_info;
}

void CReportContext::Sort(CDirectoryData& dir) const {
    SortFiles(dir, m_doc.m_options.m_nFileSort);
    SortChildren(dir, m_doc.m_options.m_nDirSort);
}

namespace {

constexpr size_t kCrcBatchFiles = 192;
// Large enough that the workers are busy while the rows of the previous
// batch are written.
constexpr size_t kCrcAheadFiles = 768;
constexpr size_t kVersionBatchFiles = 1024;
constexpr size_t kLookAheadDirs = 512;

bool NeedsCrc(const CFileData& file) { return !(file.m_uFlags & FILE_CRC_VALID); }

}  // namespace

std::vector<CFileData*> CReportContext::FilesAhead(CDirectoryData& dir,
                                                   const std::vector<CDirectoryData*>& aPending,
                                                   bool (*Wanted)(const CFileData&),
                                                   size_t nMaxFiles, const DirectorySet* pSkip,
                                                   DirectorySet* pVisited) const {
    std::vector<CFileData*> aFiles;
    size_t nDirs = 0;
    const auto Full = [&] { return aFiles.size() >= nMaxFiles || nDirs >= kLookAheadDirs; };
    const auto AddFiles = [&](CDirectoryData& d) {
        const size_t nBefore = aFiles.size();
        for (CFileData* pFile : d.m_aFiles)
            if (Wanted(*pFile)) aFiles.push_back(pFile);
        if (aFiles.size() == nBefore) return false;
        if (pVisited) pVisited->insert(&d);
        return true;
    };
    // The walk's own order: each subtree sorted and in preorder.
    const auto Visit = [&](CDirectoryData* pStart) {
        std::vector<CDirectoryData*> aStack{pStart};
        while (!aStack.empty() && !Full()) {
            CDirectoryData& d = *aStack.back();
            aStack.pop_back();
            // Sorted already when its batch was made.
            if (!pSkip || !pSkip->count(&d)) {
                Sort(d);
                // Only directories that give files count: the look-ahead
                // passes over those done already.
                if (AddFiles(d)) ++nDirs;
            }
            for (size_t i = d.m_aChildren.GetSize(); i-- > 0;) aStack.push_back(d.m_aChildren[i]);
        }
    };
    AddFiles(dir);
    for (size_t i = 0; i < dir.m_aChildren.GetSize() && !Full(); ++i) Visit(dir.m_aChildren[i]);
    for (size_t i = aPending.size(); i-- > 0 && !Full();) Visit(aPending[i]);
    return aFiles;
}

bool CReportContext::BlockInCrcBatch(const CDirectoryData& dir) const {
    if (m_aCrcBatchDirs.count(&dir)) return true;
    for (const CDirectoryData* pChild : dir.m_aChildren)
        if (m_aCrcBatchDirs.count(pChild)) return true;
    return false;
}

void CReportContext::FinishCrcBatch(bool bCancel) {
    if (!m_bCrcBatchRunning) return;
    RecordServices().FinishCrcs(bCancel);
    m_bCrcBatchRunning = false;
    m_aCrcBatchDirs.clear();
}

void CReportContext::PrepareRows(CDirectoryData& dir,
                                 const std::vector<CDirectoryData*>& aPending) {
    if (m_bCrcBatchRunning && BlockInCrcBatch(dir)) FinishCrcBatch(false);
    Sort(dir);
    const DirectorySet* pBusy = m_bCrcBatchRunning ? &m_aCrcBatchDirs : nullptr;
    const bool bFileRows = !Flag(PrintNoFiles);
    if (bFileRows && m_columns.AnyVersion() &&
        std::any_of(dir.m_aFiles.begin(), dir.m_aFiles.end(),
                    [](const CFileData* pFile) { return NeedsVersionProbe(*pFile); }))
        ProbeVersionBlocks(FilesAhead(dir, aPending, NeedsVersionProbe, kVersionBatchFiles, pBusy));
    // File rows print file checksums; directory rows and totals print the
    // checksums of a directory's files folded.
    if (!Flag(PrintCrc) || (!bFileRows && Flag(PrintNoDirs) && !Flag(PrintDirTotals))) return;
    // The running batch holds none of this block's files; it is waited
    // for where the block needs it.
    if (m_bCrcBatchRunning) return;
    // The block's own records: the directory's files, and its
    // subdirectories' for their directory rows.
    const auto BlockFilesNeedingCrc = [&dir] {
        std::vector<CFileData*> aFiles;
        const auto Add = [&](const CDirectoryData& d) {
            for (CFileData* pFile : d.m_aFiles)
                if (NeedsCrc(*pFile)) aFiles.push_back(pFile);
        };
        Add(dir);
        for (const CDirectoryData* pChild : dir.m_aChildren) Add(*pChild);
        return aFiles;
    };
    if (!BlockFilesNeedingCrc().empty()) {
        // With the files after them, up to a batch; what a large first
        // subdirectory crowds out of it follows in a second.
        RecordServices().ComputeCrcs(FilesAhead(dir, aPending, NeedsCrc, kCrcBatchFiles));
        RecordServices().ComputeCrcs(BlockFilesNeedingCrc());
    }
    // This block's records have their checksums: the workers go on with
    // the files after them while its rows are written.
    if (m_bNoCrcsAhead) return;
    std::vector<CFileData*> aAhead =
        FilesAhead(dir, aPending, NeedsCrc, kCrcAheadFiles, nullptr, &m_aCrcBatchDirs);
    if (aAhead.empty()) {
        // The rest of the walk has them all: no need to look again.
        m_bNoCrcsAhead = true;
        return;
    }
    m_bCrcBatchRunning = true;
    RecordServices().StartCrcs(std::move(aAhead));
}

void CReportContext::PrepareSubtreeCrcs(CDirectoryData& top) {
    constexpr size_t kBatch = 4096;
    // While the workers compute a batch, the files of the one before are
    // probed for version blocks: those records are no longer theirs.
    const bool bProbe = !Flag(PrintNoFiles) && m_columns.AnyVersion();
    std::vector<CFileData*> aBatch, aPrevious;
    const auto Probe = [&] {
        if (!bProbe) return;
        std::vector<CFileData*> aProbe;
        for (CFileData* pFile : aPrevious)
            if (NeedsVersionProbe(*pFile)) aProbe.push_back(pFile);
        ProbeVersionBlocks(aProbe);
    };
    const auto Run = [&] {
        RecordServices().StartCrcs(aBatch);
        Probe();
        RecordServices().FinishCrcs(Stopped());
        aPrevious.swap(aBatch);
        aBatch.clear();
    };
    std::vector<CDirectoryData*> aStack{&top};
    while (!aStack.empty() && !Stopped()) {
        CDirectoryData& d = *aStack.back();
        aStack.pop_back();
        for (CFileData* pFile : d.m_aFiles)
            if (NeedsCrc(*pFile)) aBatch.push_back(pFile);
        if (aBatch.size() >= kBatch) Run();
        for (CDirectoryData* pChild : d.m_aChildren) aStack.push_back(pChild);
    }
    Run();
    Probe();
}

const CRowMetadata& CReportContext::ReadRow(CFileData& file) {
    m_row.Read(file, m_columns);
    return m_row;
}

}  // namespace zv
