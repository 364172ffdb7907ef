// CWZorvaneDoc, the main document: the single owner of everything the user
// can set and of the scanned forest. Everything reaches it through
// GetMainDocument().
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/document/DocumentOptions.h"
#include "core/document/FilterSet.h"
#include "core/document/PrintSettings.h"
#include "core/document/ResultLists.h"
#include "core/document/ScanRegisters.h"
#include "core/records/CrcListEntry.h"

namespace zv {

class CWZorvaneDoc {
public:
    CWZorvaneDoc();
    ~CWZorvaneDoc();
    CWZorvaneDoc(const CWZorvaneDoc&) = delete;
    CWZorvaneDoc& operator=(const CWZorvaneDoc&) = delete;

    CDocumentOptions m_options;
    CFilterSet m_filters;
    CPrintSettings m_print;
    CScanRegisters m_scan;
    CResultLists m_results;

    // The checksum list read from a file, and how many entries the current
    // scan matched.
    std::vector<CCrcListEntry> m_aCrcFromFile;
    size_t m_nCrcListMatched = 0;

    CDirectoryData* m_pCurrentDir = nullptr;  // the directory shown in the file list
    std::u16string m_strCurrentDir;           // its path, kept over a rescan
    int64_t m_tScanTime = 0;                  // time() at the start of the last scan
    int32_t m_bScanning = 0;
    int32_t m_bStopRequested = 0;
    int32_t m_bRootsChanged = 0;
    int32_t m_bSettingsLoaded = 0;
    int32_t m_bFilterActive = 0;
};

// The open main document, or null.
CWZorvaneDoc* GetMainDocument();
// The front end registers the document it opens, and null when it closes.
void SetMainDocument(CWZorvaneDoc* pDocument);

}  // namespace zv
