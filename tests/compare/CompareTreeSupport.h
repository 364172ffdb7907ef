// Pairs of generated trees, scanned as two roots of one document, and the
// compare run over them.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "compare/DirectoryCompare.h"
#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/scan/Scanner.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv::test {

// A tree as paths and contents; a path ending in '/' is a directory.
using CTreeSpec = std::vector<std::pair<std::string, std::string>>;

class CTreePair {
public:
    CTreePair() {
        SetHost(&m_host);
        SetMainDocument(&m_doc);
    }
    ~CTreePair() {
        std::error_code ec;
        for (const auto& path : m_aLocked)
            std::filesystem::permissions(path, std::filesystem::perms::owner_all, ec);
        SetMainDocument(nullptr);
        SetHost(nullptr);
    }

    std::filesystem::path Left() const { return m_temp.Path() / "L"; }
    std::filesystem::path Right() const { return m_temp.Path() / "R"; }

    void Make(const CTreeSpec& left, const CTreeSpec& right) {
        Write(Left(), left);
        Write(Right(), right);
    }

    // Takes every permission from a file, so that it cannot be opened.
    void Lock(const std::filesystem::path& path) {
        std::filesystem::permissions(path, std::filesystem::perms::none);
        m_aLocked.push_back(path);
    }

    void Scan() {
        for (const auto& path : {Left(), Right()}) {
            auto* pRoot = new CRootDirectoryData(platform::Utf8ToUtf16(path.string()));
            pRoot->Prepare(m_doc.m_scan.m_aDrives);
            m_doc.m_scan.m_aRoots.Add(pRoot);
        }
        CScanner(m_doc).Rescan();
    }

    CRootDirectoryData& LeftRoot() { return *m_doc.m_scan.m_aRoots[0]; }
    CRootDirectoryData& RightRoot() { return *m_doc.m_scan.m_aRoots[1]; }

    const CCompareList& Compare(bool bWithSubdirs, int nMode = 2) {
        CDirectoryCompare(m_doc.m_results.m_compare, nMode)
            .Run(&LeftRoot(), &RightRoot(), bWithSubdirs);
        return m_doc.m_results.m_compare;
    }

    CWZorvaneDoc m_doc;

private:
    static void Write(const std::filesystem::path& root, const CTreeSpec& layout) {
        std::filesystem::create_directories(root);
        for (const auto& [strPath, strContent] : layout) {
            const auto path = root / strPath;
            if (strPath.ends_with('/')) {
                std::filesystem::create_directories(path);
                continue;
            }
            std::filesystem::create_directories(path.parent_path());
            std::ofstream(path, std::ios::binary) << strContent;
        }
    }

    CTempDir m_temp;
    CQuietHost m_host;
    std::vector<std::filesystem::path> m_aLocked;
};

}  // namespace zv::test
