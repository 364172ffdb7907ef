// A small scanned tree with fixed values, and the main report of it as the
// bytes a file would hold.
#pragma once

#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "core/document/Document.h"
#include "core/records/RecordTestSupport.h"
#include "platform/FileSystem.h"
#include "reports/MainReport.h"
#include "reports/ReportStream.h"
#include "reports/ValueText.h"

namespace zv::test {

// The expected files of the golden tests, in golden/ beside them.
inline std::string GoldenPath(const std::string& strName) {
    return std::string(ZV_GOLDEN_DIR) + "/" + strName;
}

inline std::string ReadGolden(const std::string& strName) {
    std::ifstream in(GoldenPath(strName), std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// 2024-03-05 14:07:09 UTC plus nSeconds.
inline FILETIME TestTime(int nSeconds) {
    return platform::FileTimeFromUnix(1709647629 + nSeconds, 0);
}

// R (volume D1, ZFS)
//   a.txt 1,234,567 bytes, archive, CRC 0x1234ABCD, owner alice
//   sub/ (owner bob)
//     b.txt 5,000 bytes, hidden + read-only, CRC unreadable
//     c.dat 1 byte, group 7, CRC 1
//     empty/
class CReportTree {
public:
    CReportTree() {
        if (std::getenv("TZ") == nullptr) {
            // Dates are local times: the expected files are in UTC.
#ifdef _WIN32
            _putenv("TZ=UTC");
            _tzset();
#else
            setenv("TZ", "UTC", 1);
            tzset();
#endif
        }
        UseDateLocale(false);
        m_doc.m_tScanTime = 1709647629 + 3600;
        m_pRoot->m_strDrive = u"D1";
        m_pRoot->m_strFileSystem = u"ZFS";
        Times(*m_pRoot, 0);
        Times(*m_pSub, 10);
        Times(*m_pEmpty, 20);
        m_pRoot->SetOwner(u"root");
        m_pSub->SetOwner(u"bob");
        m_pEmpty->SetOwner(u"bob");
        Set(*m_pA, 30, ATTR_ARCHIVE, u"alice");
        m_pA->SetCrc(0x1234ABCD);
        Set(*m_pB, 40, ATTR_HIDDEN | ATTR_READONLY, u"bob");
        Set(*m_pC, 50, 0, u"bob");
        m_pC->SetCrc(1);
        m_pC->m_nDuplicateGroup = 7;
        m_doc.m_scan.m_aRoots.Add(m_pRoot);
    }

    // The report's bytes with the document's settings.
    std::string Report(EPrintType eForm, EReportScope eScope, bool bFullPath = false) {
        CStringSink sink;
        {
            CReportStream out(sink, m_doc.m_print.Flag(SaveAsUnicode));
            WriteMainReport(m_doc, out, eForm, eScope, m_pSub, bFullPath);
        }
        return sink.m_strBytes;
    }
    std::string Narrow(EPrintType eForm, EReportScope eScope = ReportAllDirectories,
                       bool bFullPath = false) {
        m_doc.m_print.m_aFlags[SaveAsUnicode] = 0;
        return Report(eForm, eScope, bFullPath);
    }

    CTableServices m_services;
    CWZorvaneDoc m_doc;
    CRootDirectoryData* m_pRoot = MakeRoot(u"R").release();
    CDirectoryData* m_pSub = AddDir(*m_pRoot, u"sub");
    CDirectoryData* m_pEmpty = AddDir(*m_pSub, u"empty");
    CFileData* m_pA = AddFile(*m_pRoot, u"a.txt", 1234567);
    CFileData* m_pB = AddFile(*m_pSub, u"b.txt", 5000);
    CFileData* m_pC = AddFile(*m_pSub, u"c.dat", 1);

private:
    static void Times(CDirectoryData& dir, int nSeconds) {
        dir.m_ftCreated = TestTime(nSeconds);
        dir.m_ftAccessed = TestTime(nSeconds + 1);
        dir.m_ftModified = TestTime(nSeconds + 2);
    }
    static void Set(CFileData& file, int nSeconds, uint32_t uAttributes,
                    std::u16string_view strOwner) {
        file.m_ftCreated = TestTime(nSeconds);
        file.m_ftAccessed = TestTime(nSeconds + 43200);  // the afternoon form
        file.m_ftModified = TestTime(nSeconds + 2);
        file.m_uAttributes = uAttributes;
        file.SetOwner(strOwner);
    }
};

// The narrow form with the native separator made '/', as the expected files
// hold it.
inline std::string PortablePaths(std::string strBytes) {
#ifdef _WIN32
    for (char& ch : strBytes)
        if (ch == '\\') ch = '/';
#endif
    return strBytes;
}

}  // namespace zv::test
