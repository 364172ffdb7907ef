#include "core/records/FileData.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "core/records/ClusterRounding.h"
#include "core/records/Crc32.h"
#include "core/records/DirectoryData.h"
#include "core/records/NameCrc.h"
#include "core/records/OwnerPool.h"
#include "core/records/RecordFileOpen.h"
#include "core/records/RecordPath.h"
#include "core/records/RecordServices.h"
#include "platform/FileSystem.h"

namespace zv {

CFileData::CFileData(std::u16string_view strName, double dSize, FILETIME ftCreated,
                     FILETIME ftAccessed, FILETIME ftModified, uint32_t uAttributes,
                     CDirectoryData* pDirectory, bool bIsStream, CFileData* pStreamOwner)
    : m_uFlags(bIsStream ? FILE_RECORD | FILE_IS_STREAM : FILE_RECORD),
      m_uAttributes(uAttributes),
      m_strName(strName),
      m_dSize(dSize),
      m_ftCreated(ftCreated),
      m_ftAccessed(ftAccessed),
      m_ftModified(ftModified),
      m_pDirectory(pDirectory),
      m_pStreams(nullptr),
      m_pStreamOwner(pStreamOwner),
      m_nDuplicateGroup(0),
      m_uNameCrc(0),
      m_uQuickCrc(0),
      m_uCrc(0),
      m_uMp3Crc(0),
      m_pOwner(nullptr) {}

CFileData::CFileData(std::u16string_view strName, double dSize, FILETIME ftCreated,
                     FILETIME ftAccessed, FILETIME ftModified, uint32_t uAttributes,
                     CDirectoryData* pDirectory, bool bIsStream, CFileData* pStreamOwner,
                     std::u16string_view strOwner)
    : CFileData(strName, dSize, ftCreated, ftAccessed, ftModified, uAttributes, pDirectory,
                bIsStream, pStreamOwner) {
    SetOwner(strOwner);
}

CFileData::~CFileData() { delete m_pStreams; }

std::u16string CFileData::GetFullPath() const {
    if (!m_pDirectory) return m_strName.Str();
    return JoinPath(m_pDirectory->GetFullPath(), m_strName);
}

std::u16string CFileData::GetExtension() const {
    const std::u16string_view name = m_strName.View();
    const size_t nDot = name.rfind(u'.');
    if (nDot == std::u16string_view::npos || nDot + 1 == name.size()) return {};
    return std::u16string(name.substr(nDot + 1));
}

double CFileData::GetSizeOnDisk() const { return platform::GetSizeOnDisk(GetFullPath()); }

double CFileData::GetActualSize() const {
    const CRootDirectoryData* pRoot = m_pDirectory ? m_pDirectory->GetRoot() : nullptr;
    return RoundToCluster(m_dSize, pRoot ? pRoot->m_dClusterSize : 0);
}

uint32_t CFileData::GetLinkCount() const { return platform::GetLinkCount(GetFullPath()); }

uint32_t CFileData::GetNameCrc() {
    if (!(m_uFlags & FILE_NAME_CRC_VALID)) {
        m_uNameCrc = NameCrc(m_strName);
        m_uFlags |= FILE_NAME_CRC_VALID;
    }
    return m_uNameCrc;
}

uint32_t CFileData::GetCrc() {
    if (m_uFlags & FILE_CRC_VALID) return m_uCrc;
    if (m_uFlags & FILE_CRC_FAILED) return 0;
    m_uCrc = 0;
    if (m_dSize != 0) {
        bool bFailed = false;
        m_uCrc = RecordServices().Crc32OfFile(GetFullPath(), bFailed, m_dSize);
        if (bFailed) m_uFlags |= FILE_CRC_FAILED;
    }
    // Set in both cases: a failed file holds 0 with both bits set.
    m_uFlags |= FILE_CRC_VALID;
    return m_uCrc;
}

uint32_t CFileData::GetMp3Crc() {
    if (m_uFlags & FILE_CRC_NOTAGS_VALID) return m_uMp3Crc;
    if (m_uFlags & FILE_CRC_NOTAGS_FAILED) return 0;
    m_uMp3Crc = 0;
    if (m_dSize != 0) {
        bool bFailed = false;
        m_uMp3Crc = RecordServices().Crc32OfFileWithoutTags(GetFullPath(), bFailed);
        if (bFailed) m_uFlags |= FILE_CRC_NOTAGS_FAILED;
    }
    m_uFlags |= FILE_CRC_NOTAGS_VALID;
    return m_uMp3Crc;
}

uint32_t CFileData::GetQuickCrc() {
    if (m_uFlags & FILE_PARTIAL_CRC_VALID) return m_uQuickCrc;
    if (m_uFlags & FILE_PARTIAL_CRC_FAILED) return 0;
    m_uQuickCrc = 0;
    if (m_dSize == 0) {
        m_uFlags |= FILE_PARTIAL_CRC_VALID;
        return 0;
    }
    platform::CFileReader reader;
    if (!OpenRecordFile(reader, *this, false)) {  // one block: no sequential hint
        m_uFlags |= FILE_PARTIAL_CRC_FAILED;
        return 0;
    }
    constexpr size_t kBlock = 4096;
    unsigned char aBlock[kBlock];
    if (m_dSize <= kBlock) {
        const int64_t nRead = reader.Read(aBlock, kBlock);
        if (nRead >= 0) {
            // The block is the whole file, so it is the full checksum too.
            m_uQuickCrc = RecordServices().Crc32OfBlock(aBlock, static_cast<size_t>(nRead));
            SetCrc(m_uQuickCrc);
        }
    } else {
        // A 4096-aligned block in the middle. The position is a signed
        // 32-bit value: from 4 GiB on it cannot be reached, and all such
        // files share the quick checksum 0.
        const double dOffset = std::floor(m_dSize / 8192) * 4096;
        if (dOffset <= 2147483647.0 && reader.Seek(static_cast<uint64_t>(dOffset))) {
            const int64_t nRead = reader.Read(aBlock, kBlock);
            if (nRead >= 0)
                m_uQuickCrc = RecordServices().Crc32OfBlock(aBlock, static_cast<size_t>(nRead));
        }
    }
    m_uFlags |= FILE_PARTIAL_CRC_VALID;
    return m_uQuickCrc;
}

void CFileData::SetCrc(uint32_t uCrc) {
    m_uCrc = uCrc;
    m_uFlags |= FILE_CRC_VALID;
}

namespace {

std::u16string CrcToText(uint32_t uCrc, bool bHexadecimal, const char* pszHexPrefix) {
    std::u16string strText;
    if (bHexadecimal) strText.assign(pszHexPrefix, pszHexPrefix + std::strlen(pszHexPrefix));
    char szDigits[16];
    const char* pEnd =
        std::to_chars(szDigits, szDigits + sizeof szDigits, uCrc, bHexadecimal ? 16 : 10).ptr;
    for (const char* p = szDigits; p != pEnd; ++p)
        strText += *p >= 'a' ? char16_t(*p - 'a' + 'A') : char16_t(*p);
    return strText;
}

}  // namespace

std::u16string CFileData::GetCrcText(bool bHexadecimal) {
    const uint32_t uCrc = GetCrc();
    if (m_uFlags & FILE_CRC_FAILED) return u"UNKNOWN";
    return CrcToText(uCrc, bHexadecimal, "0x");
}

std::u16string CFileData::GetMp3CrcText(bool bHexadecimal) {
    const uint32_t uCrc = GetMp3Crc();
    if (m_uFlags & FILE_CRC_NOTAGS_FAILED) return u"UNKNOWN";
    return CrcToText(uCrc, bHexadecimal, "");
}

const std::u16string& CFileData::GetOwner() {
    if (!(m_uFlags & FILE_OWNER_VALID)) {
        m_uFlags |= FILE_OWNER_VALID;
        m_pOwner = IsStream() ? nullptr : RecordServices().LookupOwner(GetFullPath());
    }
    return m_pOwner ? *m_pOwner : NoOwner();
}

void CFileData::SetOwner(std::u16string_view strOwner) {
    m_pOwner = InternOwner(strOwner);
    m_uFlags |= FILE_OWNER_VALID;
}

bool CFileData::HasVersionInfo() {
    if (m_uFlags & FILE_HAS_VERSION) return true;
    // The name list decides before any bit is touched.
    if (!RecordServices().PassesVersionFilter(*this)) return false;
    if (m_uFlags & FILE_VERSION_READ) return false;
    m_uFlags |= FILE_VERSION_READ;
    if (RecordServices().ReadHasVersionInfo(*this)) m_uFlags |= FILE_HAS_VERSION;
    return (m_uFlags & FILE_HAS_VERSION) != 0;
}

bool CFileData::HasMediaInfo() {
    if (!(m_uFlags & FILE_MEDIA_READ)) {
        m_uFlags |= FILE_MEDIA_READ;
        if (RecordServices().ReadHasMediaInfo(*this)) m_uFlags |= FILE_HAS_MEDIA;
    }
    return (m_uFlags & FILE_HAS_MEDIA) != 0;
}

bool CFileData::SetTimes(FILETIME ftCreated, FILETIME ftAccessed, FILETIME ftModified) {
    if (!platform::SetFileTimes(GetFullPath(), ftCreated, ftAccessed, ftModified)) return false;
    m_ftCreated = ftCreated;
    m_ftAccessed = ftAccessed;
    m_ftModified = ftModified;
    return true;
}

void CFileData::ResetDerived() {
    m_uFlags &=
        ~(FILE_NAME_CRC_VALID | FILE_PARTIAL_CRC_VALID | FILE_PARTIAL_CRC_FAILED | FILE_CRC_VALID |
          FILE_CRC_FAILED | FILE_CRC_NOTAGS_VALID | FILE_CRC_NOTAGS_FAILED | FILE_HAS_VERSION |
          FILE_VERSION_READ | FILE_HAS_MEDIA | FILE_MEDIA_READ | FILE_CRC_FROM_LIST);
    m_uNameCrc = m_uQuickCrc = m_uCrc = m_uMp3Crc = 0;
}

void CFileData::CopyFrom(const CFileData& other) {
    m_strName = other.m_strName;
    m_dSize = other.m_dSize;
    m_ftCreated = other.m_ftCreated;
    m_ftAccessed = other.m_ftAccessed;
    m_ftModified = other.m_ftModified;
    m_uAttributes = other.m_uAttributes;
    m_uFlags = (m_uFlags & ~FILE_IS_STREAM) | (other.m_uFlags & FILE_IS_STREAM);
    m_pStreamOwner = nullptr;
    ResetDerived();
}

void CFileData::AddStream(CFileData* pStream) {
    if (!m_pStreams) m_pStreams = new std::vector<CFileData*>;
    m_pStreams->push_back(pStream);
}

}  // namespace zv
