#include "reports/ReportProgress.h"

#include <string>

#include "core/host/Host.h"
#include "platform/Text.h"

namespace zv {
namespace {

// Reports run on the user-interface thread only, one at a time.
struct CReportProgressState {
    double dTotal = 0;
    double dCount = 0;
    int nCountdown = 100;
    int nLastPercent = 0;
    std::u16string strWord;
};
CReportProgressState s_state;

void Show(int nPercent) {
    Host().SetStatusText(s_state.strWord + u": " + platform::U16(std::to_string(nPercent)) + u"%");
}

}  // namespace

void ReportProgressBegin(double dTotal, std::u16string_view strWord) {
    s_state = CReportProgressState{};
    s_state.dTotal = dTotal;
    s_state.strWord = strWord;
    Show(0);
}

void ReportProgressStep() {
    s_state.dCount += 1;
    const int nPercent =
        s_state.dTotal > 0 ? static_cast<int>(s_state.dCount * 100 / s_state.dTotal) : 100;
    if (nPercent != s_state.nLastPercent || --s_state.nCountdown <= 0) {
        s_state.nLastPercent = nPercent;
        s_state.nCountdown = 100;
        Show(nPercent);
    }
    PumpMessages();
}

void ReportProgressEnd() { Host().SetStatusText(u""); }

}  // namespace zv
