// Helpers of the analyses tests: paths as the platform takes them, test
// content, and a host that records what the engine shows.
#pragma once

#include <filesystem>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "core/Host.h"
#include "core/ProgressDialog.h"
#include "platform/Text.h"

namespace zv::test {

inline std::u16string ToU16(const std::filesystem::path& path) {
    const auto& native = path.native();
#ifdef _WIN32
    return std::u16string(native.begin(), native.end());
#else
    return platform::Utf8ToUtf16(native);
#endif
}

inline std::string RandomBytes(size_t nSize, unsigned uSeed) {
    std::mt19937 rng(uSeed);
    std::string strBytes(nSize, '\0');
    for (char& ch : strBytes) ch = static_cast<char>(rng());
    return strBytes;
}

// Records status texts, messages, pumps and progress dialog texts; safe to
// call from the checksum workers. PumpMessages runs m_onPump if set.
class CRecordingHost : public CQuietHost {
public:
    CRecordingHost() { SetHost(this); }
    ~CRecordingHost() override { SetHost(nullptr); }

    void PumpMessages() override {
        {
            std::lock_guard lock(m_mutex);
            if (std::this_thread::get_id() == m_uiThread)
                ++m_nUiPumps;
            else
                ++m_nWorkerPumps;
        }
        if (m_onPump) m_onPump();
    }
    void ShowMessage(std::u16string_view strMessage) override {
        std::lock_guard lock(m_mutex);
        m_aMessages.emplace_back(strMessage);
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
    class CView : public IProgressView {
    public:
        explicit CView(CRecordingHost& host) : m_host(host) {}
        void SetText(std::u16string_view strText) override {
            m_host.m_aProgressTexts.emplace_back(strText);
        }
        void SetLine(int, std::u16string_view) override {}
        void SetPercent(int nPercent) override { m_host.m_aPercents.push_back(nPercent); }

    private:
        CRecordingHost& m_host;
    };

    std::mutex m_mutex;
    std::thread::id m_uiThread = std::this_thread::get_id();
};

}  // namespace zv::test
