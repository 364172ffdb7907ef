#include "analyses/CrcListing.h"

#include <algorithm>
#include <cstdio>
#include <memory>

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
    CCrcLister(const CCrcListingOptions& options, const CTextSink& out, const CTextSink& err)
        : m_options(options), m_out(out), m_err(err) {}
    ~CCrcLister() { Flush(); }

    void AddPath(const std::u16string& strFullPath, const CDirEntry& entry) {
        if (entry.uAttributes & ATTR_REPARSE_POINT) {
            m_err("not followed (a link): " + Utf16ToUtf8(strFullPath) + "\n");
        } else if (entry.IsDirectory()) {
            AddDirectory(strFullPath);
        } else {
            m_aBatch.push_back(std::make_unique<CFileData>(strFullPath, entry.Size(), FILETIME{},
                                                           FILETIME{}, FILETIME{}, 0, nullptr,
                                                           false, nullptr));
            if (m_aBatch.size() >= kBatchFiles) Flush();
        }
    }

    void Flush() {
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
            strLines += m_options.bQuick    ? QuickCrcText(*pFile, m_options.bHex)
                        : m_options.bNoTags ? Utf16ToUtf8(pFile->GetMp3CrcText(m_options.bHex))
                                            : Utf16ToUtf8(pFile->GetCrcText(m_options.bHex));
            strLines += "  " + Utf16ToUtf8(pFile->m_strName.View()) + "\n";
        }
        m_aBatch.clear();
        if (!strLines.empty()) m_out(strLines);
    }

private:
    void AddDirectory(const std::u16string& strPath) {
        platform::CDirectoryReader reader;
        if (!reader.Open(strPath)) {
            m_err("cannot list directory: " + Utf16ToUtf8(strPath) + "\n");
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
    std::vector<std::unique_ptr<CFileData>> m_aBatch;
};

}  // namespace

bool WriteCrcListing(const std::vector<std::u16string>& aPaths, const CCrcListingOptions& options,
                     const CTextSink& out, const CTextSink& err) {
    // The pool of the engine, unless the program has installed it already.
    IRecordServices* pPrevious = &RecordServices();
    std::unique_ptr<CCrcRecordServices> pOwn;
    if (!dynamic_cast<CCrcRecordServices*>(pPrevious)) {
        pOwn = std::make_unique<CCrcRecordServices>();
        SetRecordServices(pOwn.get());
    }
    bool bAllFound = true;
    {
        CCrcLister lister(options, out, err);
        for (const std::u16string& strPath : aPaths) {
            CDirEntry entry;
            const std::u16string strFullPath = platform::GetFullPathName(strPath);
            if (!platform::GetEntryInfo(strFullPath, entry)) {
                lister.Flush();
                err("no such file or directory: " + Utf16ToUtf8(strPath) + "\n");
                bAllFound = false;
                continue;
            }
            lister.AddPath(strFullPath, entry);
        }
    }
    if (pOwn) SetRecordServices(pPrevious);
    return bAllFound;
}

}  // namespace zv
