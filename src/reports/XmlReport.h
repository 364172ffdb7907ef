// The XML report: sibling elements under the root `Zorvane`, one per
// directory block, subdirectory and file, values in attributes.
#pragma once

namespace zv {

class CReportContext;
class CFileData;
class CDirectoryData;

void WriteFileXml(CReportContext& ctx, CFileData& file, bool bGroup, bool bPathAttribute);
void WriteDirXml(CReportContext& ctx, CDirectoryData& dir, bool bGroup);
void WriteDirectoryBlockXml(CReportContext& ctx, CDirectoryData& dir);
void WriteTreeXml(CReportContext& ctx, CDirectoryData& root);

}  // namespace zv
