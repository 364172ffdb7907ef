#include "analyses/CrcListing.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <unordered_set>

#include "analyses/CrcServices.h"
#include "core/records/FileData.h"
#include "core/records/RecordPath.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {
namespace {

using platform::Utf16ToUtf8;

// Files are checksummed by the pool this many at a time, and printed in
// order after each batch.
constexpr size_t kBatchFiles = 192;

std::string QuickCrcText(CFileData& file, bool bHex) {
    const uint32_t uCrc = file.GetQuickCrc();
    if (file.m_uFlags & FILE_PARTIAL_CRC_FAILED) return "UNKNOWN";
    char szText[16];
    std::snprintf(szText, sizeof szText, bHex ? "0x%X" : "%u", static_cast<unsigned>(uCrc));
    return szText;
}

bool ByName(const CDirEntry& a, const CDirEntry& b) {
    const int nOrder = platform::CompareNoCase(a.strName, b.strName);
    return nOrder != 0 ? nOrder < 0 : platform::CompareOrdinal(a.strName, b.strName) < 0;
}

class CCrcLister {
public:
    CCrcLister(const CCrcListingOptions& options, const CTextSink& out, const CTextSink& err,
               CCrcListingResult& result)
        : m_options(options), m_out(out), m_err(err), m_result(result) {}
    ~CCrcLister() { Flush(); }

    bool IsStopped() {
        if (!m_result.bStopped && m_options.fnStopRequested && m_options.fnStopRequested()) {
            m_result.bStopped = true;
            m_aBatch.clear();  // not checked yet, so not listed
        }
        return m_result.bStopped;
    }

    void AddPath(const std::u16string& strFullPath, const CDirEntry& entry) {
        if (IsStopped()) return;
        if (entry.uAttributes & ATTR_REPARSE_POINT) {
            m_err("not followed (a link or mount point): " + Utf16ToUtf8(strFullPath) + "\n");
        } else if (entry.IsDirectory()) {
            AddDirectory(strFullPath);
        } else if ((entry.uAttributes & ATTR_SYSTEM) && platform::IsSpecialFile(strFullPath)) {
            m_err("skipped (not a regular file): " + Utf16ToUtf8(strFullPath) + "\n");
        } else {
            m_aBatch.push_back(std::make_unique<CFileData>(strFullPath, entry.Size(), FILETIME{},
                                                           FILETIME{}, FILETIME{}, 0, nullptr,
                                                           false, nullptr));
            // An empty file's checksum is 0 without reading it; whether it
            // can be read at all (it may lie in a directory that cannot be
            // searched) is asked here.
            platform::CFileReader reader;
            if (entry.Size() == 0 && !reader.Open(strFullPath, false))
                m_aUnreadable.insert(m_aBatch.back().get());
            if (m_aBatch.size() >= kBatchFiles) Flush();
        }
    }

    void Flush() {
        if (IsStopped()) return;
        std::vector<CFileData*> aFiles;
        for (const auto& pFile : m_aBatch) aFiles.push_back(pFile.get());
        if (m_options.bQuick)
            ComputeQuickCrcs(aFiles);
        else if (m_options.bNoTags)
            ComputeMp3Crcs(aFiles);
        else
            ComputeCrcs(aFiles);
        std::string strLines;
        for (CFileData* pFile : aFiles) {
            const std::string strCrc = m_aUnreadable.count(pFile) ? "UNKNOWN"
                                       : m_options.bQuick ? QuickCrcText(*pFile, m_options.bHex)
                                       : m_options.bNoTags
                                           ? Utf16ToUtf8(pFile->GetMp3CrcText(m_options.bHex))
                                           : Utf16ToUtf8(pFile->GetCrcText(m_options.bHex));
            if (strCrc == "UNKNOWN") m_result.bAllRead = false;
            strLines += strCrc + "  " + Utf16ToUtf8(pFile->m_strName.View()) + "\n";
        }
        m_aBatch.clear();
        m_aUnreadable.clear();
        if (!strLines.empty()) m_out(strLines);
    }

private:
    void AddDirectory(const std::u16string& strPath) {
        platform::CDirectoryReader reader;
        if (!reader.Open(strPath)) {
            Flush();  // the lines before it come first
            m_err("cannot list directory: " + Utf16ToUtf8(strPath) + "\n");
            m_result.bAllRead = false;
            return;
        }
        std::vector<CDirEntry> aEntries;
        CDirEntry entry;
        while (reader.Next(entry)) aEntries.push_back(entry);
        reader.Close();
        std::sort(aEntries.begin(), aEntries.end(), ByName);
        for (const CDirEntry& child : aEntries) AddPath(JoinPath(strPath, child.strName), child);
    }

    const CCrcListingOptions& m_options;
    const CTextSink& m_out;
    const CTextSink& m_err;
    CCrcListingResult& m_result;
    std::vector<std::unique_ptr<CFileData>> m_aBatch;
    std::unordered_set<const CFileData*> m_aUnreadable;
};

}  // namespace

CCrcListingResult WriteCrcListing(const std::vector<std::u16string>& aPaths,
                                  const CCrcListingOptions& options, const CTextSink& out,
                                  const CTextSink& err) {
    // The pool of the engine, unless the program has installed it already.
    IRecordServices* pPrevious = &RecordServices();
    std::unique_ptr<CCrcRecordServices> pOwn;
    if (!dynamic_cast<CCrcRecordServices*>(pPrevious)) {
        pOwn = std::make_unique<CCrcRecordServices>();
        SetRecordServices(pOwn.get());
    }
    CCrcListingResult result;
    {
        CCrcLister lister(options, out, err, result);
        for (const std::u16string& strPath : aPaths) {
            CDirEntry entry;
            const std::u16string strFullPath = platform::GetFullPathName(strPath);
            if (!platform::GetEntryInfo(strFullPath, entry, true)) {
                lister.Flush();
                err("no such file or directory: " + Utf16ToUtf8(strPath) + "\n");
                result.bAllFound = false;
                continue;
            }
            lister.AddPath(strFullPath, entry);
        }
    }
    if (pOwn) SetRecordServices(pPrevious);
    return result;
}

}  // namespace zv
