// What the core asks of the program around it. The desktop UI and the
// command line each implement this; the core never includes a toolkit
// header and never blocks on a user itself.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

class CProgressDialog;
class CErrorList;

// The screen side of one progress dialog.
class IProgressView {
public:
    virtual ~IProgressView() = default;
    virtual void SetText(std::u16string_view strText) = 0;
    virtual void SetLine(int nLine, std::u16string_view strText) = 0;  // 1..3
    virtual void SetPercent(int nPercent) = 0;
};

class IHost {
public:
    virtual ~IHost() = default;

    // Lets pending user input run between two steps of long work: the
    // desktop dispatches its events, the command line looks for Ctrl-C.
    virtual void PumpMessages() = 0;
    // A message box in the user's words.
    virtual void ShowMessage(std::u16string_view strMessage) = 0;
    // A yes/no question; an unattended host answers bSafeAnswer.
    virtual bool AskYesNo(std::u16string_view strQuestion, bool bSafeAnswer) = 0;
    // The main window's status line and file count pane.
    virtual void SetStatusText(std::u16string_view strText) = 0;
    virtual void SetFileCount(size_t nFiles) = 0;
    // Opens the screen side of a progress dialog; the dialog keeps it.
    virtual std::unique_ptr<IProgressView> OpenProgress(CProgressDialog& dialog) = 0;
    // The error list at the end of a bulk operation.
    virtual void ShowErrorList(std::u16string_view strTitle, const CErrorList& errors) = 0;
};

// A host that shows nothing and takes every question's safe answer; the
// default until a front end installs its own, and handy in tests.
class CQuietHost : public IHost {
public:
    void PumpMessages() override {}
    void ShowMessage(std::u16string_view strMessage) override;
    bool AskYesNo(std::u16string_view, bool bSafeAnswer) override { return bSafeAnswer; }
    void SetStatusText(std::u16string_view strText) override { m_strStatus = strText; }
    void SetFileCount(size_t nFiles) override { m_nFileCount = nFiles; }
    std::unique_ptr<IProgressView> OpenProgress(CProgressDialog&) override { return nullptr; }
    void ShowErrorList(std::u16string_view, const CErrorList&) override {}

    std::vector<std::u16string> m_aMessages;
    std::u16string m_strStatus;
    size_t m_nFileCount = 0;
};

IHost& Host();
// Installs the host used from now on; null restores the quiet default. The
// caller keeps the object alive while it is installed.
void SetHost(IHost* pHost);

inline void PumpMessages() { Host().PumpMessages(); }

}  // namespace zv
