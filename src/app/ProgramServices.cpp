#include "app/ProgramServices.h"

#include "analyses/CrcServices.h"
#include "core/records/RecordServices.h"

namespace zv {

CProgramServices::CProgramServices() : m_pCrc(std::make_unique<CCrcRecordServices>()) {
    SetRecordServices(m_pCrc.get());
}

CProgramServices::~CProgramServices() { SetRecordServices(nullptr); }

}  // namespace zv
