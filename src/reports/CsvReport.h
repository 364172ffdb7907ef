// The comma-separated report (the "Excel" form): one record per object.
#pragma once

namespace zv {

class CReportContext;
class CFileData;
class CDirectoryData;

void WriteFileHeaderCsv(CReportContext& ctx, bool bSubdirColumns, bool bGroupColumn,
                        bool bPathColumn);
void WriteFileRowCsv(CReportContext& ctx, CFileData& file, bool bFullPath, bool bSubdirColumns,
                     bool bCrcExcludingTags, bool bGroupColumn, bool bPathColumn);
void WriteDirRowCsv(CReportContext& ctx, CDirectoryData& dir, bool bFullPath, bool bPrefix,
                    bool bGroupColumn, bool bPathColumn);
void WriteDirectoryBlockCsv(CReportContext& ctx, CDirectoryData& dir);
void WriteTreeCsv(CReportContext& ctx, CDirectoryData& root);

}  // namespace zv
