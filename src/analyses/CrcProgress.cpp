#include "analyses/CrcProgress.h"

#include "analyses/CrcThreadPool.h"
#include "core/document/Document.h"
#include "core/host/Host.h"
#include "platform/Text.h"

namespace zv {

CCrcProgress::CCrcProgress(const std::u16string& strPath, double dSize)
    : m_strPath(strPath), m_dSize(dSize), m_bOn(dSize >= kThreshold) {}

void CCrcProgress::Add(double dBytes) {
    if (!m_bOn) return;
    m_dDone += dBytes;
    const int nPercent = static_cast<int>(m_dDone / m_dSize * 100);
    if (nPercent == m_nShown) return;
    m_nShown = nPercent;
    const bool bBusy = CCrcThreadPool::IsBusy();
    if (nPercent < 100) {
        Host().SetStatusText(CrcProgressText(nPercent, m_strPath));
        if (!bBusy) PumpMessages();
    } else if (bBusy) {
        Host().SetStatusText(CrcProgressText(nPercent, m_strPath));
    } else {
        Host().SetStatusText(CurrentDirectoryText());
        PumpMessages();
    }
}

std::u16string CrcProgressText(int nPercent, const std::u16string& strPath) {
    return u"calculating crc " + platform::U16(std::to_string(nPercent)) + u"% for " + strPath +
           u"\n";
}

std::u16string CurrentDirectoryText() {
    const CWZorvaneDoc* pDoc = GetMainDocument();
    if (!pDoc || !pDoc->m_pCurrentDir) return {};
    return pDoc->m_pCurrentDir->GetFullPath();
}

}  // namespace zv
