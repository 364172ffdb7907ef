#include "app/ProgramServices.h"

#include "analyses/CrcServices.h"
#include "core/records/RecordServices.h"
#include "metadata/MetadataRecords.h"

namespace zv {

// The CRC engine, with the records' metadata questions answered by the
// metadata readers.
class CProgramRecordServices : public CCrcRecordServices {
public:
    bool PassesVersionFilter(const CFileData& file) override {
        return zv::PassesVersionFilter(file);
    }
    bool ReadHasVersionInfo(const CFileData& file) override { return ProbeVersionMetadata(file); }
    bool ReadHasMediaInfo(const CFileData& file) override { return ProbeFileMetadata(file); }
    std::u16string ReadVersionText(const CFileData& file) override {
        return zv::ReadVersionText(file);
    }
};

CProgramServices::CProgramServices() : m_pCrc(std::make_unique<CProgramRecordServices>()) {
    SetRecordServices(m_pCrc.get());
}

CProgramServices::~CProgramServices() { SetRecordServices(nullptr); }

}  // namespace zv
