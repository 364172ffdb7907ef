// The last file test of a scan: with a duplicate files or duplicate
// directories filter set, a file is kept only when it is identical, by the
// duplicate criteria, to one of the filter's files. The candidate's
// checksums and the head of its content are taken once and kept for all
// the filter's files; the filter's records remember their own checksums,
// so they are read once per scan.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/FileSystem.h"

namespace zv {

class CWZorvaneDoc;
class CFileData;
class CDirectoryData;
struct CFileCandidate;

// Compares the file at strFilterPath with a candidate whose first
// uBufferBytes are in pBuffer and whose reader is open: the buffered part
// first, then, when the size goes beyond it, the rest of both from that
// position on. Any read failure, short read or difference is "not equal".
bool CompareFiles(platform::CFileReader& candidate, const unsigned char* pBuffer,
                  size_t uBufferBytes, const std::u16string& strFilterPath, double dSize);

class CDuplicateFilter {
public:
    explicit CDuplicateFilter(CWZorvaneDoc& doc);
    ~CDuplicateFilter();
    CDuplicateFilter(const CDuplicateFilter&) = delete;
    CDuplicateFilter& operator=(const CDuplicateFilter&) = delete;

    bool IsSet() const;
    // True to keep the file. A kept file whose checksum was computed leaves
    // it in the candidate, so its record starts with it.
    bool Admits(CFileCandidate& candidate);

private:
    struct CCandidateState;
    enum class EResult { Pass, Fail, Stop };

    void TakeChecksumsFromList();
    EResult Test(CCandidateState& state, CFileData& filterFile);
    EResult TestTree(CCandidateState& state, CDirectoryData& dir);

    CWZorvaneDoc& m_doc;
    bool m_bListApplied = false;
    std::unique_ptr<unsigned char[]> m_pBuffer;  // the compare buffer, made at first need
    size_t m_uBufferSize = 0;
};

}  // namespace zv
