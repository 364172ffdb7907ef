#include "analyses/CrcList.h"

#include <string>
#include <unordered_map>
#include <vector>

#include "analyses/CrcListFormats.h"
#include "core/document/Document.h"
#include "core/host/Host.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {
namespace {

using platform::U16;

bool ReadWholeFile(const std::u16string& strPath, std::string& bytes) {
    platform::CFileReader reader;
    if (!reader.Open(strPath)) return false;
    char aBuffer[65536];
    for (;;) {
        const int64_t nRead = reader.Read(aBuffer, sizeof aBuffer);
        if (nRead < 0) return false;
        if (nRead == 0) return true;
        bytes.append(aBuffer, static_cast<size_t>(nRead));
    }
}

// The system's words for the usual reasons a file cannot be opened.
std::u16string OpenFailureText(const std::u16string& strPath) {
    if (platform::GetFileAttributes(strPath) == ATTR_INVALID)
        return u"The system cannot find the file specified.";
    return u"Access is denied.";
}

bool IsXmlPath(const std::u16string& strPath) {
    return strPath.size() >= 4 &&
           platform::EqualsNoCase(std::u16string_view(strPath).substr(strPath.size() - 4), u".xml");
}

std::u16string Number(size_t n) { return U16(std::to_string(n)); }

bool IsBlank(char16_t ch) { return ch == u' ' || (ch >= u'\t' && ch <= u'\r'); }

}  // namespace

void LoadCrcList(CWZorvaneDoc& doc) {
    const std::u16string& strPath = doc.m_options.m_strCrcFromFile;
    std::string bytes;
    const bool bRead = ReadWholeFile(strPath, bytes);
    if (!IsXmlPath(strPath)) {
        if (!bRead) return Host().ShowMessage(OpenFailureText(strPath));
        return ReadCrcListText(bytes, doc.m_aCrcFromFile);
    }
    const std::u16string strError =
        bRead ? ReadCrcListXml(bytes, doc.m_aCrcFromFile)
              : u"XML Parse Error " + OpenFailureText(strPath) + u"\nLine ";
    if (!strError.empty())
        Host().ShowMessage(u"XML parsing failed for file: " + strPath + u"\n" + strError);
}

size_t ApplyCrcList(CWZorvaneDoc& doc) {
    std::vector<CCrcListEntry>& aEntries = doc.m_aCrcFromFile;
    for (CCrcListEntry& entry : aEntries) entry.m_bMatched = false;
    doc.m_nCrcListMatched = 0;
    if (aEntries.empty()) return 0;

    // Entries by upper-cased path, in list order; each key's cursor is the
    // first entry not yet matched. That gives what a linear search for the
    // first unmatched equal entry gives, without its cost per file.
    struct CCandidates {
        std::vector<size_t> aIndexes;
        size_t nNext = 0;
    };
    std::unordered_map<std::u16string, CCandidates> mapEntries;
    for (size_t i = 0; i < aEntries.size(); ++i)
        mapEntries[platform::ToUpperCopy(aEntries[i].m_strPath)].aIndexes.push_back(i);

    size_t nMatched = 0;
    for (CFileData* pFile : doc.m_scan.m_aAllFiles) {
        if (nMatched == aEntries.size()) break;  // nothing left to match
        const auto it = mapEntries.find(platform::ToUpperCopy(pFile->GetFullPath()));
        if (it == mapEntries.end() || it->second.nNext == it->second.aIndexes.size()) continue;
        CCrcListEntry& entry = aEntries[it->second.aIndexes[it->second.nNext++]];
        entry.m_bMatched = true;
        ++nMatched;
        pFile->m_uFlags |= FILE_CRC_FROM_LIST;
        if (entry.m_bHasCrc)
            pFile->SetCrc(entry.m_uCrc);
        else
            pFile->m_uFlags |= FILE_CRC_FAILED;
    }
    doc.m_nCrcListMatched = nMatched;
    return nMatched;
}

void GetCrcsFromFile(CWZorvaneDoc& doc, const std::u16string& strPath) {
    if (doc.m_bScanning) return;
    doc.m_options.m_strCrcFromFile = strPath;
    if (strPath.empty()) {
        doc.m_aCrcFromFile.clear();
        doc.m_nCrcListMatched = 0;
        return;
    }
    LoadCrcList(doc);
    const size_t nMatched = ApplyCrcList(doc);
    Host().ShowMessage(u"Matched " + Number(nMatched) + u" files from " + strPath +
                       u"\nWhich contains " + Number(doc.m_aCrcFromFile.size()) + u" entries");
}

std::u16string CheckCrcListPath(std::u16string& strPath) {
    size_t nStart = 0, nEnd = strPath.size();
    while (nStart < nEnd && IsBlank(strPath[nStart])) ++nStart;
    while (nEnd > nStart && IsBlank(strPath[nEnd - 1])) --nEnd;
    strPath = strPath.substr(nStart, nEnd - nStart);
    if (strPath.empty()) return u"Please enter a file name";
    if (platform::GetFileAttributes(strPath) == ATTR_INVALID) return u"File does not exist";
    return {};
}

}  // namespace zv
