// Helpers of the analyses tests: random content, and a host that records
// what the engine shows.
#pragma once

#include <functional>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "core/host/Host.h"
#include "core/host/ProgressDialog.h"

namespace zv::test {

inline std::string RandomBytes(size_t nSize, unsigned uSeed) {
    std::mt19937 rng(uSeed);
    std::string strBytes(nSize, '\0');
    for (char& ch : strBytes) ch = static_cast<char>(rng());
    return strBytes;
}

// Installed while it lives. Records status texts (from any thread), pumps
// by thread, and progress dialog texts and percentages; PumpMessages runs
// m_onPump if set.
class CRecordingHost : public CQuietHost {
public:
    CRecordingHost() { SetHost(this); }
    ~CRecordingHost() override { SetHost(nullptr); }

    void PumpMessages() override {
        {
            std::lock_guard lock(m_mutex);
            ++(std::this_thread::get_id() == m_uiThread ? m_nUiPumps : m_nWorkerPumps);
        }
        if (m_onPump) m_onPump();
    }
    void SetStatusText(std::u16string_view strText) override {
        std::lock_guard lock(m_mutex);
        m_aStatusTexts.emplace_back(strText);
    }
    std::unique_ptr<IProgressView> OpenProgress(CProgressDialog& dialog) override {
        ++m_nProgressOpened;
        m_pDialog = &dialog;
        return std::make_unique<CView>(*this);
    }

    std::vector<std::u16string> m_aStatusTexts;
    std::vector<std::u16string> m_aProgressTexts;
    std::vector<int> m_aPercents;
    int m_nUiPumps = 0;
    int m_nWorkerPumps = 0;
    int m_nProgressOpened = 0;
    CProgressDialog* m_pDialog = nullptr;
    std::function<void()> m_onPump;

private:
    struct CView : IProgressView {
        explicit CView(CRecordingHost& host) : m_host(host) {}
        void SetText(std::u16string_view s) override { m_host.m_aProgressTexts.emplace_back(s); }
        void SetLine(int, std::u16string_view) override {}
        void SetPercent(int n) override { m_host.m_aPercents.push_back(n); }
        CRecordingHost& m_host;
    };

    std::mutex m_mutex;
    std::thread::id m_uiThread = std::this_thread::get_id();
};

}  // namespace zv::test
