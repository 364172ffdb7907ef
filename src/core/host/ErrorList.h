// The failures of a bulk operation, collected as it goes and shown at the
// end: three parallel text arrays, the file array optional.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv {

class CErrorList {
public:
    explicit CErrorList(bool bHasFiles = true) : m_bHasFiles(bHasFiles) {}

    void Add(std::u16string_view strDirectory, std::u16string_view strFile,
             std::u16string_view strError) {
        m_aDirectories.emplace_back(strDirectory);
        if (m_bHasFiles) m_aFiles.emplace_back(strFile);
        m_aErrors.emplace_back(strError);
    }
    bool IsEmpty() const { return m_aDirectories.empty(); }
    size_t GetSize() const { return m_aDirectories.size(); }
    bool HasFiles() const { return m_bHasFiles; }

    // Row i; a cell beyond the end of its array is empty.
    std::u16string_view Directory(size_t i) const { return Cell(m_aDirectories, i); }
    std::u16string_view File(size_t i) const { return Cell(m_aFiles, i); }
    std::u16string_view Error(size_t i) const { return Cell(m_aErrors, i); }

private:
    static std::u16string_view Cell(const std::vector<std::u16string>& a, size_t i) {
        return i < a.size() ? std::u16string_view(a[i]) : std::u16string_view();
    }

    bool m_bHasFiles;
    std::vector<std::u16string> m_aDirectories;
    std::vector<std::u16string> m_aFiles;
    std::vector<std::u16string> m_aErrors;
};

}  // namespace zv
