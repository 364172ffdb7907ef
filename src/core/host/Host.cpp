#include "core/host/Host.h"

namespace zv {
namespace {

CQuietHost s_quietHost;
IHost* s_pHost = &s_quietHost;

}  // namespace

void CQuietHost::ShowMessage(std::u16string_view strMessage) {
    m_aMessages.emplace_back(strMessage);
}

IHost& Host() { return *s_pHost; }

void SetHost(IHost* pHost) { s_pHost = pHost ? pHost : &s_quietHost; }

}  // namespace zv
