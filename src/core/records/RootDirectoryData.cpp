#include "core/records/DirectoryData.h"
#include "core/records/DriveList.h"
#include "platform/FileSystem.h"

namespace zv {

CRootDirectoryData::CRootDirectoryData(std::u16string_view strPath, FILETIME ftCreated,
                                       FILETIME ftAccessed, FILETIME ftModified,
                                       uint32_t uAttributes)
    : CDirectoryData(nullptr, strPath, ftCreated, ftAccessed, ftModified, uAttributes) {}

void CRootDirectoryData::Prepare(CDriveList& driveList) {
    m_bNewRoot = 0;
    m_uFlags |= DIR_IS_ROOT;
    const std::u16string strPath = platform::GetFullPathName(m_strName);
    m_strName = strPath;
    m_strDrive = platform::GetDriveOfPath(strPath);
    m_bVolumeInfoValid = platform::GetVolumeInformation(strPath, m_strFileSystem) ? 1 : 0;
    m_dClusterSize =
        m_bUseManualClusterSize ? m_dManualClusterSize : platform::GetClusterSize(strPath);
    driveList.AddDrive(m_strDrive);
}

}  // namespace zv
