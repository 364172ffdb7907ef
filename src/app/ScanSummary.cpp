#include "app/ScanSummary.h"

#include <cstdio>

#include "app/JsonWriter.h"
#include "core/document/Document.h"
#include "platform/Text.h"

namespace zv {
namespace {

std::string Utf8(const std::u16string& str) { return platform::Utf16ToUtf8(str); }

std::string WholeNumber(double d) {
    char szText[32];
    std::snprintf(szText, sizeof szText, "%.0f", d);
    return szText;
}

}  // namespace

CScanSummary SummarizeScan(const CWZorvaneDoc& doc, double dSeconds, bool bListFiles) {
    CScanSummary summary;
    for (const CRootDirectoryData* pRoot : doc.m_scan.m_aRoots) {
        summary.m_aRoots.push_back(pRoot->GetFullPath());
        summary.m_dBytes += pRoot->GetSizeWithSubdirs();
        summary.m_dActualBytes += pRoot->GetActualWithSubdirs();
    }
    summary.m_nDirectories = doc.m_scan.m_aAllDirs.GetSize();
    summary.m_nFiles = doc.m_scan.m_aAllFiles.GetSize();
    summary.m_aProtected = doc.m_scan.m_aProtectedDirs;
    summary.m_dSeconds = dSeconds;
    summary.m_bStopped = doc.m_bStopRequested != 0;
    summary.m_bListed = bListFiles;
    if (bListFiles) {
        // In tree order: each directory's files, then its subdirectories.
        std::vector<std::u16string> aNames;
        std::vector<CDirectoryData*> aDirs;
        std::vector<CFileData*> aFiles;
        for (CRootDirectoryData* pRoot : doc.m_scan.m_aRoots)
            pRoot->CollectFiles(nullptr, aDirs, aFiles);
        for (const CFileData* pFile : aFiles) summary.m_aFiles.push_back(pFile->GetFullPath());
    }
    return summary;
}

std::string FormatSummaryText(const CScanSummary& summary, bool bNullEnds) {
    std::string strText;
    strText += "Roots: " + std::to_string(summary.m_aRoots.size()) + "\n";
    for (const std::u16string& strRoot : summary.m_aRoots) strText += "  " + Utf8(strRoot) + "\n";
    strText += "Directories: " + std::to_string(summary.m_nDirectories) + "\n";
    strText += "Files: " + std::to_string(summary.m_nFiles) + "\n";
    strText += "Bytes: " + WholeNumber(summary.m_dBytes) + "\n";
    strText += "Actual bytes: " + WholeNumber(summary.m_dActualBytes) + "\n";
    strText += "Protected directories: " + std::to_string(summary.m_aProtected.size()) + "\n";
    for (const std::u16string& strPath : summary.m_aProtected)
        strText += "  " + Utf8(strPath) + "\n";
    char szSeconds[32];
    std::snprintf(szSeconds, sizeof szSeconds, "%.3f", summary.m_dSeconds);
    strText += std::string("Elapsed: ") + szSeconds + " s\n";
    if (summary.m_bStopped)
        strText += "Stopped before the end: the figures cover what was scanned.\n";
    if (summary.m_bListed) {
        strText += "\n";
        const char chEnd = bNullEnds ? '\0' : '\n';
        for (const std::u16string& strPath : summary.m_aFiles) strText += Utf8(strPath) + chEnd;
    }
    return strText;
}

std::string FormatSummaryJson(const CScanSummary& summary) {
    CJsonWriter json;
    auto Strings = [&json](std::string_view strKey, const std::vector<std::u16string>& aTexts) {
        json.Key(strKey).BeginArray();
        for (const std::u16string& strText : aTexts) json.String(strText);
        json.EndArray();
    };
    json.BeginObject();
    Strings("roots", summary.m_aRoots);
    json.Key("directories").Number(uint64_t(summary.m_nDirectories));
    json.Key("files").Number(uint64_t(summary.m_nFiles));
    // Sizes are whole numbers of bytes held in doubles; exact up to 2^53.
    json.Key("bytes").Number(static_cast<uint64_t>(summary.m_dBytes));
    json.Key("actual_bytes").Number(static_cast<uint64_t>(summary.m_dActualBytes));
    Strings("protected", summary.m_aProtected);
    json.Key("elapsed_seconds").Number(summary.m_dSeconds);
    json.Key("stopped").Bool(summary.m_bStopped);
    if (summary.m_bListed) Strings("files_list", summary.m_aFiles);
    json.EndObject();
    return json.Text();
}

}  // namespace zv
