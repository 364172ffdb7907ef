#pragma once

#include <memory>

namespace zv {

class CCrcRecordServices;

// The engines a program installs for the records' lazily read values, for
// as long as it lives.
class CProgramServices {
public:
    CProgramServices();
    ~CProgramServices();
    CProgramServices(const CProgramServices&) = delete;
    CProgramServices& operator=(const CProgramServices&) = delete;

private:
    std::unique_ptr<CCrcRecordServices> m_pCrc;
};

}  // namespace zv
