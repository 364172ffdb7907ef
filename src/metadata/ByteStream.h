// The bytes a metadata reader parses: a file opened through the platform
// layer, or a block in memory (tests and fuzz targets). Readers seek and
// read as the file calls do: a seek past the end succeeds and the next read
// then comes back short.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/records/RecordFileOpen.h"
#include "platform/FileSystem.h"

namespace zv {

class IByteStream {
public:
    virtual ~IByteStream() = default;
    // Bytes read, 0 at the end, -1 on a read error.
    virtual int64_t Read(void* pBuffer, size_t uSize) = 0;
    virtual bool Seek(uint64_t uOffset) = 0;
    virtual uint64_t Size() const = 0;
    virtual uint64_t Position() const = 0;

    // Exactly uSize bytes or false.
    bool ReadExact(void* pBuffer, size_t uSize) {
        return Read(pBuffer, uSize) == static_cast<int64_t>(uSize);
    }
    // Moves from the current position; false before the start.
    bool Skip(int64_t nDistance) {
        const uint64_t uPos = Position();
        if (nDistance < 0 && uint64_t(-nDistance) > uPos) return false;
        return Seek(uPos + uint64_t(nDistance));
    }
    // Bytes between the position and the end.
    uint64_t Remaining() const { return Position() < Size() ? Size() - Position() : 0; }
};

class CFileByteStream : public IByteStream {
public:
    bool Open(std::u16string_view strPath) { return Opened(m_file.Open(strPath, false)); }
    // The file of a record, opened relative to its directory.
    bool Open(const CFileData& file) { return Opened(OpenRecordFile(m_file, file, false)); }
    int64_t Read(void* pBuffer, size_t uSize) override {
        int64_t nTotal = 0;
        auto* pBytes = static_cast<unsigned char*>(pBuffer);
        while (uSize > 0) {
            const int64_t nRead = m_file.Read(pBytes + nTotal, uSize);
            if (nRead < 0) return nTotal ? nTotal : -1;
            if (nRead == 0) break;
            nTotal += nRead;
            uSize -= size_t(nRead);
        }
        m_uPos += uint64_t(nTotal);
        return nTotal;
    }
    bool Seek(uint64_t uOffset) override {
        // Readers seek to where they already are, to the start of a file
        // just opened above all: no call for that.
        if (uOffset == m_uPos) return true;
        if (uOffset > uint64_t(INT64_MAX) || !m_file.Seek(uOffset)) return false;
        m_uPos = uOffset;
        return true;
    }
    uint64_t Size() const override { return m_uSize; }
    uint64_t Position() const override { return m_uPos; }

private:
    bool Opened(bool bOpen) {
        m_uPos = 0;
        if (!bOpen) return false;
        const int64_t nSize = m_file.GetSize();
        m_uSize = nSize > 0 ? uint64_t(nSize) : 0;
        return nSize >= 0;
    }

    platform::CFileReader m_file;
    uint64_t m_uSize = 0;
    uint64_t m_uPos = 0;
};

class CMemoryByteStream : public IByteStream {
public:
    explicit CMemoryByteStream(std::string_view bytes) : m_bytes(bytes) {}
    int64_t Read(void* pBuffer, size_t uSize) override {
        if (m_uPos >= m_bytes.size()) return 0;
        const size_t uCount = std::min<uint64_t>(uSize, m_bytes.size() - m_uPos);
        for (size_t n = 0; n < uCount; ++n)
            static_cast<char*>(pBuffer)[n] = m_bytes[size_t(m_uPos) + n];
        m_uPos += uCount;
        return int64_t(uCount);
    }
    bool Seek(uint64_t uOffset) override {
        if (uOffset > uint64_t(INT64_MAX)) return false;
        m_uPos = uOffset;
        return true;
    }
    uint64_t Size() const override { return m_bytes.size(); }
    uint64_t Position() const override { return m_uPos; }

private:
    std::string_view m_bytes;
    uint64_t m_uPos = 0;
};

}  // namespace zv
