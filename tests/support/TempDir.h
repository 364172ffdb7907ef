// A temporary directory for a test, removed with everything in it.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace zv::test {

class CTempDir {
public:
    CTempDir() {
        std::random_device rd;
        m_path = std::filesystem::temp_directory_path() /
                 ("zorvane-test-" + std::to_string(rd()) + std::to_string(rd()));
        std::filesystem::create_directories(m_path);
    }
    ~CTempDir() {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    CTempDir(const CTempDir&) = delete;
    CTempDir& operator=(const CTempDir&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

    std::filesystem::path WriteFile(const std::filesystem::path& name,
                                    std::string_view content) const {
        const auto path = m_path / name;
        std::ofstream out(path, std::ios::binary);
        out.write(content.data(), static_cast<std::streamsize>(content.size()));
        return path;
    }

private:
    std::filesystem::path m_path;
};

}  // namespace zv::test
