// The POSIX user store: one text file per place, read when the store opens
// and replaced as a whole when it flushes. A flush reads the file again and
// applies this session's changes to what it finds. From opening to closing
// a store holds an exclusive lock on a lock file beside it, so programs
// running at once take turns at their read-merge-write and lose nothing.
#include "platform/UserStore.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "platform/FileContents.h"
#include "platform/UserStoreText.h"

namespace zv::platform {
namespace {

constexpr const char* kFileName = "remembered-state.txt";
constexpr const char* kLockFileName = "remembered-state.lock";

// The lock between processes. Stores opened at once within one process
// share it (a second flock of the same file would wait for the first).
class CStoreLock {
public:
    explicit CStoreLock(const std::string& strDirectory) {
        std::lock_guard<std::mutex> guard(Mutex());
        State& state = Shared();
        if (state.nUsers++ > 0) return;
        const std::string strPath = strDirectory + "/" + kLockFileName;
        state.nFd = open(strPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        // Without a lock file (a read-only directory) the store still works,
        // unlocked, as before.
        while (state.nFd >= 0 && flock(state.nFd, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    ~CStoreLock() {
        std::lock_guard<std::mutex> guard(Mutex());
        State& state = Shared();
        if (--state.nUsers > 0 || state.nFd < 0) return;
        close(state.nFd);  // releases the lock
        state.nFd = -1;
    }
    CStoreLock(const CStoreLock&) = delete;
    CStoreLock& operator=(const CStoreLock&) = delete;

private:
    struct State {
        int nUsers = 0;
        int nFd = -1;
    };
    static std::mutex& Mutex() {
        static std::mutex s_mutex;
        return s_mutex;
    }
    static State& Shared() {
        static State s_state;
        return s_state;
    }
};

std::string EnvironmentValue(const char* pszName) {
    const char* pszValue = std::getenv(pszName);
    return pszValue ? std::string(pszValue) : std::string();
}

// Creates the directory and its missing parents, private to the user.
bool MakeDirectories(const std::string& strPath) {
    struct stat st;
    if (stat(strPath.c_str(), &st) == 0) return S_ISDIR(st.st_mode);
    const size_t nSlash = strPath.find_last_of('/');
    if (nSlash != std::string::npos && nSlash > 0 && !MakeDirectories(strPath.substr(0, nSlash)))
        return false;
    return mkdir(strPath.c_str(), 0700) == 0 || errno == EEXIST;
}

bool WriteAll(int nFd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t nWritten = write(nFd, bytes.data(), bytes.size());
        if (nWritten < 0 && errno == EINTR) continue;
        if (nWritten <= 0) return false;
        bytes.remove_prefix(static_cast<size_t>(nWritten));
    }
    return true;
}

// Writes a temporary file beside the target, flushes it to the disk and
// renames it over the target: readers see the old file or the new one.
bool ReplaceFile(const std::string& strPath, std::string_view bytes) {
    const std::string strTemp = strPath + ".tmp." + std::to_string(getpid());
    const int nFd = open(strTemp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (nFd < 0) return false;
    const bool bWritten = WriteAll(nFd, bytes) && fsync(nFd) == 0;
    if (close(nFd) != 0 || !bWritten || rename(strTemp.c_str(), strPath.c_str()) != 0) {
        unlink(strTemp.c_str());
        return false;
    }
    return true;
}

class CFileUserStore : public IUserStore {
public:
    CFileUserStore(std::unique_ptr<CStoreLock> pLock, std::string strPath, CUserStoreValues aValues)
        : m_pLock(std::move(pLock)), m_strPath(std::move(strPath)), m_aValues(std::move(aValues)) {}
    ~CFileUserStore() override { Flush(); }

    bool ReadValue(std::u16string_view strName, std::u16string& strValue) override {
        const auto it = m_aValues.find(std::u16string(strName));
        if (it == m_aValues.end()) return false;
        strValue = it->second;
        return true;
    }

    bool WriteValue(std::u16string_view strName, std::u16string_view strValue) override {
        m_aValues[std::u16string(strName)] = strValue;
        m_aChanges.emplace_back(strName, std::u16string(strValue));
        return true;
    }

    bool DeleteValue(std::u16string_view strName) override {
        if (m_aValues.erase(std::u16string(strName)) == 0) return false;
        m_aChanges.emplace_back(strName, std::nullopt);
        return true;
    }

    bool Flush() override {
        if (m_aChanges.empty()) return true;
        std::string strBytes;
        CUserStoreValues aValues;
        if (ReadFileContents(Utf8ToUtf16(m_strPath), strBytes))
            aValues = ParseUserStoreText(strBytes);
        for (const auto& [strName, strValue] : m_aChanges) {
            if (strValue) {
                aValues[strName] = *strValue;
            } else {
                aValues.erase(strName);
            }
        }
        if (!ReplaceFile(m_strPath, FormatUserStoreText(aValues))) return false;
        m_aValues = std::move(aValues);
        m_aChanges.clear();
        return true;
    }

private:
    std::unique_ptr<CStoreLock> m_pLock;  // released after the last flush
    std::string m_strPath;
    CUserStoreValues m_aValues;
    // This session's writes (with a value) and deletions (without), in order.
    std::vector<std::pair<std::u16string, std::optional<std::u16string>>> m_aChanges;
};

}  // namespace

std::u16string DefaultUserStorePlace() {
    if (std::string strDir = EnvironmentValue("ZORVANE_CONFIG_DIR"); !strDir.empty())
        return Utf8ToUtf16(strDir);
    if (std::string strDir = EnvironmentValue("XDG_CONFIG_HOME"); !strDir.empty())
        return Utf8ToUtf16(strDir + "/zorvane");
    return Utf8ToUtf16(EnvironmentValue("HOME") + "/.config/zorvane");
}

std::unique_ptr<IUserStore> OpenUserStore(std::u16string_view strPlace) {
    const std::string strDirectory = Utf16ToUtf8(strPlace);
    if (strDirectory.empty() || !MakeDirectories(strDirectory)) return nullptr;
    auto pLock = std::make_unique<CStoreLock>(strDirectory);
    const std::string strPath = strDirectory + "/" + kFileName;
    std::string strBytes;
    CUserStoreValues aValues;
    if (ReadFileContents(Utf8ToUtf16(strPath), strBytes)) {
        aValues = ParseUserStoreText(strBytes);
    } else if (access(strPath.c_str(), F_OK) == 0) {
        return nullptr;  // there but unreadable: writing would lose it
    }
    return std::make_unique<CFileUserStore>(std::move(pLock), strPath, std::move(aValues));
}

}  // namespace zv::platform
