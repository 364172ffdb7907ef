// The text report: a block of labelled lines per directory and per file.
#pragma once

namespace zv {

class CReportContext;
class CFileData;
class CDirectoryData;

void WriteFileRowText(CReportContext& ctx, CFileData& file, bool bCrcExcludingTags, bool bFullPath,
                      bool bGroup);
void WriteDirRowText(CReportContext& ctx, CDirectoryData& dir, bool bFullPath, bool bPrefix,
                     bool bGroup);
void WriteDirectoryBlockText(CReportContext& ctx, CDirectoryData& dir);
void WriteTreeText(CReportContext& ctx, CDirectoryData& root);

}  // namespace zv
