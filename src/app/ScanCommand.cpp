#include "app/ScanCommand.h"

#include <chrono>
#include <cstdio>

#include "app/ConsoleHost.h"
#include "app/ScanSummary.h"
#include "core/Document.h"
#include "core/Scanner.h"
#include "platform/Console.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {

int RunScanCommand(const CScanCommandOptions& options) {
    platform::PrepareConsoleProcess();
    CConsoleHost host;
    SetHost(&host);
    CWZorvaneDoc doc;
    SetMainDocument(&doc);

    int nStatus = 0;
    for (const std::string& strRoot : options.m_aRoots) {
        const std::u16string strPath = platform::Utf8ToUtf16(strRoot);
        const uint32_t uAttributes = platform::GetFileAttributes(strPath);
        if (uAttributes == ATTR_INVALID || !(uAttributes & ATTR_DIRECTORY)) {
            std::fprintf(stderr, "zorvane-cli: not a directory: %s\n", strRoot.c_str());
            nStatus = 2;
            continue;
        }
        auto* pRoot = new CRootDirectoryData(strPath);
        pRoot->Prepare(doc.m_scan.m_aDrives);
        doc.m_scan.m_aRoots.Add(pRoot);
    }
    if (nStatus == 0) {
        doc.m_options.m_nMaxDepth = options.m_nMaxDepth;
        doc.m_options.m_bScanSubdirs = options.m_bNoSubdirs ? 0 : 1;

        CScanner scanner(doc);
        const auto start = std::chrono::steady_clock::now();
        scanner.Rescan();
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        host.ClearLine();

        const CScanSummary summary = SummarizeScan(doc, elapsed.count());
        const std::string strOut =
            options.m_bJson ? FormatSummaryJson(summary) : FormatSummaryText(summary);
        std::fwrite(strOut.data(), 1, strOut.size(), stdout);
        std::fflush(stdout);
    }
    SetMainDocument(nullptr);
    SetHost(nullptr);
    return nStatus;
}

}  // namespace zv
