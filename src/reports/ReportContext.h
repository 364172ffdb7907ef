// What every writer of one report shares: the document, the stream, the
// columns, the full path choice, and the value forms that depend on the
// document's settings.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/document/Document.h"
#include "core/records/RecordName.h"
#include "platform/DirectoryHandle.h"
#include "platform/FileSystem.h"
#include "reports/ReportColumns.h"
#include "reports/RowMetadata.h"

namespace zv {

class CReportStream;

class CReportContext {
public:
    CReportContext(CWZorvaneDoc& doc, CReportStream& out, bool bFullPath);
    // Cancels the checksums still being computed ahead, and waits for the
    // workers to leave the records.
    ~CReportContext();
    CReportContext(const CReportContext&) = delete;
    CReportContext& operator=(const CReportContext&) = delete;

    bool Flag(EPrintFlag eFlag) const { return m_doc.m_print.Flag(eFlag); }
    bool Hex() const { return m_doc.m_options.m_bCrcHex != 0; }
    const std::u16string& Unit() const { return m_doc.m_options.m_strSizeUnit; }

    // A size without units, as rows print it.
    std::u16string Size(double dSize) const;
    // A size with the units word, after the suffix, as totals print it.
    std::u16string SizeWithUnits(double dSize, std::u16string_view strSuffix = {}) const;
    // A date, with the time of day when "Print time" is on.
    std::u16string Date(FILETIME ftDate) const;

    // The full path of a directory; the last one asked for is kept, since
    // every file row of a block asks for its directory's.
    const std::u16string& DirPath(const CDirectoryData& dir);
    // The file's path: the directory path and the name.
    std::u16string FilePath(const CFileData& file);

    // Size on disk and link count of a file, read once for its row with
    // its owner, which the record keeps.
    double SizeOnDisk(CFileData& file) { return DiskInfo(file).dSizeOnDisk; }
    uint32_t LinkCount(CFileData& file) { return DiskInfo(file).uLinkCount; }

    // Brings a directory's files and subdirectories into the document's sort.
    void Sort(CDirectoryData& dir) const;
    // Before a directory's block: sorts the directory, and with the CRC
    // column on makes sure the checksums its rows print are there, while
    // the checksum workers go on with the files of the directories written
    // next (aPending, last first, and the directory's own subdirectories),
    // one batch ahead of the rows that print them. With the version
    // columns on, finds which of those files have a version block.
    void PrepareRows(CDirectoryData& dir, const std::vector<CDirectoryData*>& aPending);
    // Before a walk over another tree, whose files PrepareRows has not seen.
    void BeginWalk() { m_bNoCrcsAhead = false; }
    // With directory checksums over subdirectories in the report, the
    // checksums of every file below top, in large batches, and with the
    // version columns on the version probes of those files meanwhile.
    void PrepareSubtreeCrcs(CDirectoryData& top);
    // Reads the metadata of a file for its row into m_row.
    const CRowMetadata& ReadRow(CFileData& file);
    // Whether the user asked the report to stop.
    bool Stopped() const { return m_doc.m_bStopRequested != 0; }

    CWZorvaneDoc& m_doc;
    CReportStream& m_out;
    const CReportColumns m_columns;
    const bool m_bFullPath;
    bool m_bHeaderWritten = false;  // the CSV report with "no dirs" has one header

private:
    const platform::CFileDiskInfo& DiskInfo(CFileData& file);
    // The files that Wanted picks of dir and of the directories the walk
    // writes after it, in the walk's order; at most nMaxFiles.
    // Directories in pSkip are neither sorted nor asked, as their records
    // are the checksum workers'; pVisited collects the directories that gave
    // files.
    using DirectorySet = std::unordered_set<const CDirectoryData*>;
    std::vector<CFileData*> FilesAhead(CDirectoryData& dir,
                                       const std::vector<CDirectoryData*>& aPending,
                                       bool (*Wanted)(const CFileData&), size_t nMaxFiles,
                                       const DirectorySet* pSkip = nullptr,
                                       DirectorySet* pVisited = nullptr) const;
    // Whether the rows of dir's block read records of the running batch:
    // its own files, and its subdirectories' for their directory rows.
    bool BlockInCrcBatch(const CDirectoryData& dir) const;
    void FinishCrcBatch(bool bCancel);

    CRowMetadata m_row;
    const CFileData* m_pInfoFile = nullptr;
    platform::CFileDiskInfo m_info;
    // The rows of a block read their disk info relative to their directory.
    platform::CDirectoryHandle m_dirInfo;
    const CDirectoryData* m_pInfoDir = nullptr;
    const CDirectoryData* m_pPathDir = nullptr;
    // The batch the checksum workers run ahead of the writer, by directory.
    bool m_bCrcBatchRunning = false;
    bool m_bNoCrcsAhead = false;
    DirectorySet m_aCrcBatchDirs;
    std::u16string m_strPathDir;
};

}  // namespace zv
