#include "analyses/FileComparison.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "analyses/Crc32Fast.h"
#include "core/records/Crc32.h"
#include "core/records/FileData.h"
#include "core/records/RecordFileOpen.h"
#include "platform/FileSystem.h"
#include "platform/ReadFull.h"

namespace zv {
namespace {

// Blocks are larger than the 4096 and 8192 bytes the comparison is defined
// in: the same bytes are compared, with fewer calls. A short read still ends
// a file, so only files that change while they are read can tell. A pair or
// triple starts with the defined 4096 bytes and doubles its block from
// there: most files of one size that are not equal differ early, and then
// nothing beyond the first block is copied.
constexpr size_t kBlock = 64 * 1024;
constexpr size_t kFirstBlock = 4096;

size_t NextBlock(size_t uBlock) { return uBlock < kBlock ? uBlock * 2 : kBlock; }

// The read-ahead hint costs a call, and a file of a few blocks is read
// ahead whole without it.
bool Sequential(double dSize) { return dSize > static_cast<double>(kBlock); }

unsigned char* Block(int nIndex) {
    thread_local std::unique_ptr<unsigned char[]> s_aBlocks[3];
    if (!s_aBlocks[nIndex]) s_aBlocks[nIndex].reset(new unsigned char[kBlock]);
    return s_aBlocks[nIndex].get();
}

CPairComparison ComparePair(const CFileData& a, const CFileData& b, double dSize, bool bWithCrc) {
    CPairComparison result;
    if (bWithCrc && dSize == 0) return result;
    platform::CFileReader aReaders[2];
    const CFileData* aFiles[2] = {&a, &b};
    for (int i = 0; i < 2; ++i) {
        if (!OpenRecordFile(aReaders[i], *aFiles[i], Sequential(dSize))) {
            result.m_bError[i] = true;
            result.m_bDifferent = true;
        }
    }
    if (result.m_bDifferent || dSize <= 0) return result;

    unsigned char* pA = Block(0);
    unsigned char* pB = Block(1);
    uint32_t uRegister = Crc32Init();
    bool bFed = false;
    for (size_t uBlock = kFirstBlock;; uBlock = NextBlock(uBlock)) {
        const int64_t nA = platform::ReadFull(aReaders[0], pA, uBlock);
        const int64_t nB = platform::ReadFull(aReaders[1], pB, uBlock);
        if (nA < 0 || nB < 0) {
            result.m_bError[0] = nA < 0;
            result.m_bError[1] = nB < 0;
            result.m_bDifferent = true;
            break;
        }
        if (nA == 0 && nB == 0) break;
        dSize -= static_cast<double>(nA);
        if (nA != nB || std::memcmp(pA, pB, static_cast<size_t>(nA)) != 0) {
            result.m_bDifferent = true;
            break;
        }
        if (bWithCrc) {
            uRegister = Crc32UpdateFast(uRegister, pA, static_cast<size_t>(nA));
            bFed = true;
        }
        if (static_cast<size_t>(nA) < uBlock || dSize <= 0) break;
    }
    if (bWithCrc && bFed) result.m_uCrc = Crc32Final(uRegister);
    return result;
}

bool SameBlock(int64_t nA, const unsigned char* pA, int64_t nB, const unsigned char* pB) {
    return nA != 0 && nA == nB && std::memcmp(pA, pB, static_cast<size_t>(nA)) == 0;
}

CTripleComparison CompareTriple(const CFileData* const* aFiles, double dSize, bool bWithCrc) {
    CTripleComparison result;
    if (dSize == 0) return result;
    platform::CFileReader aReaders[3];
    bool aAlive[3];
    int nFailures = 0;
    for (int i = 0; i < 3; ++i) {
        aAlive[i] = OpenRecordFile(aReaders[i], *aFiles[i], Sequential(dSize));
        if (!aAlive[i]) {
            result.m_bError[i] = true;
            ++nFailures;
        }
    }
    if (nFailures >= 2) return result;

    unsigned char* aBlocks[3] = {Block(0), Block(1), Block(2)};
    uint32_t uRegister = Crc32Init();
    bool bFed = false;
    for (size_t uBlock = kFirstBlock; dSize > 0; uBlock = NextBlock(uBlock)) {
        int64_t aRead[3] = {0, 0, 0};
        for (int i = 0; i < 3; ++i) {
            if (!aAlive[i]) continue;
            aRead[i] = platform::ReadFull(aReaders[i], aBlocks[i], uBlock);
            if (aRead[i] < 0) {
                result.m_bError[i] = true;
                aAlive[i] = false;
                aRead[i] = 0;
            }
        }
        if (aRead[0] == 0 && aRead[1] == 0 && aRead[2] == 0) break;
        for (int64_t n : aRead) {
            if (n == 0) continue;
            dSize -= static_cast<double>(n);
            break;
        }
        // Two lengths that agree outvote the third.
        if (aRead[0] == aRead[1] && aRead[2] != aRead[0]) aAlive[2] = false;
        if (aRead[0] == aRead[2] && aRead[1] != aRead[0]) aAlive[1] = false;
        if (aRead[1] == aRead[2] && aRead[0] != aRead[1]) aAlive[0] = false;

        const bool bSame12 = SameBlock(aRead[0], aBlocks[0], aRead[1], aBlocks[1]);
        const bool bSame13 = SameBlock(aRead[0], aBlocks[0], aRead[2], aBlocks[2]);
        const bool bSame23 = SameBlock(aRead[1], aBlocks[1], aRead[2], aBlocks[2]);
        aAlive[2] = aAlive[2] && (bSame13 || bSame23);
        if (!bSame12) {
            aAlive[1] = aAlive[1] && bSame23;
            aAlive[0] = aAlive[0] && bSame13;
        }
        const int nFirst = aAlive[0] ? 0 : aAlive[1] ? 1 : aAlive[2] ? 2 : -1;
        if (nFirst < 0) break;
        if (bWithCrc) {
            uRegister = Crc32UpdateFast(uRegister, aBlocks[nFirst], size_t(aRead[nFirst]));
            bFed = true;
        }
    }
    for (int i = 0; i < 3; ++i) result.m_bSurvivor[i] = aAlive[i];
    if (bWithCrc && bFed) result.m_uCrc = Crc32Final(uRegister);
    return result;
}

}  // namespace

CPairComparison CompareTwoFiles(const CFileData& a, const CFileData& b, double dSize) {
    return ComparePair(a, b, dSize, false);
}

CPairComparison CompareTwoFilesWithCrc(const CFileData& a, const CFileData& b, double dSize) {
    return ComparePair(a, b, dSize, true);
}

CTripleComparison CompareThreeFiles(const CFileData* const* aFiles, double dSize) {
    return CompareTriple(aFiles, dSize, false);
}

CTripleComparison CompareThreeFilesWithCrc(const CFileData* const* aFiles, double dSize) {
    return CompareTriple(aFiles, dSize, true);
}

CCompareBuffer::CCompareBuffer() {
    for (size_t uSize = 0x400000; uSize >= 1024; uSize /= 2) {
        m_pData = new (std::nothrow) unsigned char[uSize];
        if (m_pData) {
            m_uSize = uSize;
            break;
        }
    }
}

CCompareBuffer::~CCompareBuffer() { delete[] m_pData; }

bool ReadHead(const CFileData& file, const CCompareBuffer& buffer) {
    platform::CFileReader reader;
    if (!OpenRecordFile(reader, file)) return false;
    const size_t uWant = static_cast<size_t>(std::min<double>(file.m_dSize, double(buffer.Size())));
    // A file shorter than the scan saw has changed since: it counts as unreadable.
    return platform::ReadFull(reader, buffer.Data(), uWant) == static_cast<int64_t>(uWant);
}

bool FilesEqual(const CFileData& a, const CFileData& b, const CCompareBuffer& buffer) {
    if (a.m_dSize == 0 && b.m_dSize == 0) return true;
    if (a.m_dSize != b.m_dSize) return false;
    const size_t uInBuffer =
        buffer.Data() ? static_cast<size_t>(std::min<double>(a.m_dSize, double(buffer.Size()))) : 0;
    platform::CFileReader readerB;
    if (!OpenRecordFile(readerB, b)) return false;

    unsigned char* pB = Block(1);
    uint64_t uPosition = 0;
    while (uPosition < uInBuffer) {
        const size_t uWant = std::min<size_t>(kBlock, uInBuffer - uPosition);
        const int64_t n = platform::ReadFull(readerB, pB, uWant);
        // A file that ends before its recorded size has changed: not equal.
        if (n != static_cast<int64_t>(uWant)) return false;
        if (std::memcmp(buffer.Data() + uPosition, pB, uWant) != 0) return false;
        uPosition += uWant;
    }
    if (static_cast<double>(uPosition) >= a.m_dSize) return true;

    platform::CFileReader readerA;
    if (!OpenRecordFile(readerA, a) || !readerA.Seek(uPosition)) return false;
    unsigned char* pA = Block(0);
    for (;;) {
        const int64_t nA = platform::ReadFull(readerA, pA, kBlock);
        const int64_t nB = platform::ReadFull(readerB, pB, kBlock);
        if (nA < 0 || nB < 0 || nA != nB) return false;
        if (nA == 0) return true;
        if (std::memcmp(pA, pB, static_cast<size_t>(nA)) != 0) return false;
    }
}

}  // namespace zv
