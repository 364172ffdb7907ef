#include "core/settings/SettingsDisk.h"

#include "core/document/Document.h"
#include "core/document/DupFilterRecords.h"
#include "core/scan/Scanner.h"
#include "platform/FileSystem.h"

namespace zv {
namespace {

class CRealSettingsDisk : public ISettingsDisk {
public:
    void AddRoot(CWZorvaneDoc& doc, std::u16string_view strPath) override {
        const std::u16string strRoot(strPath);
        FILETIME ftCreated, ftAccessed, ftModified;
        CScanner::GetDirectoryTimes(strRoot, ftCreated, ftAccessed, ftModified);
        uint32_t uAttributes = platform::GetFileAttributes(strRoot);
        if (uAttributes == ATTR_INVALID) uAttributes = 0;  // a root that does not exist (yet)
        auto* pRoot =
            new CRootDirectoryData(strRoot, ftCreated, ftAccessed, ftModified, uAttributes);
        pRoot->Prepare(doc.m_scan.m_aDrives);
        doc.m_scan.m_aRoots.Add(pRoot);
    }

    void AddDupFile(CWZorvaneDoc& doc, std::u16string_view strPath) override {
        AddDupFileFilter(doc.m_filters, strPath);
    }

    void AddDupDirTree(CWZorvaneDoc& doc, std::u16string_view strPath, bool bWithSubdirs) override {
        AddDupDirFilterTree(doc.m_filters, strPath, bWithSubdirs);
    }
};

}  // namespace

ISettingsDisk& RealSettingsDisk() {
    static CRealSettingsDisk s_disk;
    return s_disk;
}

}  // namespace zv
