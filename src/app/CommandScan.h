// What every scanning command does before its own work: installs the console
// host, the program's engines and a main document, loads the settings file,
// adds the roots and filter options, and scans. `scan` prints a summary of
// the result; other commands report on it or search it.
#pragma once

#include <memory>
#include <string>

#include "app/ConsoleHost.h"
#include "app/ProgramServices.h"
#include "app/ScanOptions.h"
#include "core/document/Document.h"

namespace zv {

class IScanSteps;

// A directory path as the user typed it, without its trailing separators:
// "photos/" names the same directory as "photos". The file system's root
// ("/") and a drive's root ("C:\\" on Windows) keep theirs.
std::u16string WithoutTrailingSeparators(std::u16string strPath);

class CCommandScan {
public:
    explicit CCommandScan(const CScanCommandOptions& options);
    ~CCommandScan();
    CCommandScan(const CCommandScan&) = delete;
    CCommandScan& operator=(const CCommandScan&) = delete;

    // Loads the settings file and adds the roots and options. Returns the
    // exit status so far: 0, or 2 when the settings file cannot be read, a
    // root is not a directory or there is nothing to scan (said on stderr).
    int Prepare();
    // Scans with the command line's after-scan steps, or with pSteps.
    void Scan(IScanSteps* pSteps = nullptr);

    CWZorvaneDoc& Doc() { return *m_pDoc; }
    CConsoleHost& Host() { return m_host; }
    double ElapsedSeconds() const { return m_dElapsedSeconds; }
    // Whether an Auto Print report the settings ask for was left out (it
    // was named on stderr).
    bool ReportsLeftOut() const { return m_bReportsLeftOut; }
    // A command whose process ends when it returns leaves the document to
    // the end of the process: freeing the records of a large scan one by
    // one takes a noticeable part of a short run. Not in a sanitizer build,
    // whose leak check would report it.
    void LeaveDocumentToExit();

private:
    const CScanCommandOptions& m_options;
    CConsoleHost m_host;
    CProgramServices m_services;
    std::unique_ptr<CWZorvaneDoc> m_pDoc;
    double m_dElapsedSeconds = 0;
    bool m_bReportsLeftOut = false;
    bool m_bLeaveDocument = false;
};

}  // namespace zv
