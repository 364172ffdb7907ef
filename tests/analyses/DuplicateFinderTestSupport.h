// A generated tree on disk, scanned into a main document with the CRC
// engine installed, and the finders' results as sets of relative paths.
#pragma once

#include <filesystem>
#include <set>
#include <string>

#include "analyses/CrcServices.h"
#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/scan/Scanner.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv::test {

using CGroupSet = std::set<std::set<std::string>>;

inline std::string Numbered(const char* pszPrefix, int n) {
    std::string s(pszPrefix);
    s += std::to_string(n);
    return s;
}

class CScannedTree {
public:
    CScannedTree() {
        SetRecordServices(&m_services);
        SetMainDocument(&m_doc);
    }
    ~CScannedTree() {
        SetMainDocument(nullptr);
        SetRecordServices(nullptr);
    }

    std::filesystem::path Write(const std::string& strName, const std::string& strContent) {
        std::filesystem::create_directories((m_temp.Path() / strName).parent_path());
        return m_temp.WriteFile(strName, strContent);
    }
    void Scan() {
        auto* pRoot = new CRootDirectoryData(m_temp.Path().u16string());
        pRoot->Prepare(m_doc.m_scan.m_aDrives);
        m_doc.m_scan.m_aRoots.Add(pRoot);
        CScanner(m_doc).Rescan();
    }
    std::string Relative(const std::u16string& strPath) const {
        return std::filesystem::path(strPath).lexically_relative(m_temp.Path()).generic_string();
    }
    template <typename Groups>
    CGroupSet Result(const Groups& aGroups) const {
        CGroupSet result;
        for (const auto& group : aGroups) {
            std::set<std::string> names;
            for (const auto* p : group) names.insert(Relative(p->GetFullPath()));
            result.insert(names);
        }
        return result;
    }

    CTempDir m_temp;
    CCrcRecordServices m_services;
    CWZorvaneDoc m_doc;
};

}  // namespace zv::test
