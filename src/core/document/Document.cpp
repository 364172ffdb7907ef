#include "core/document/Document.h"

namespace zv {
namespace {

CWZorvaneDoc* s_pMainDocument = nullptr;

// Arrays that span a scan grow in steps of this many entries.
constexpr size_t kGrowBy = 512;

}  // namespace

CScanRegisters::CScanRegisters() {
    m_aAllDirs.Reserve(kGrowBy);
    m_aAllFiles.Reserve(kGrowBy);
}

void CScanRegisters::ClearScan() {
    for (CRootDirectoryData* pRoot : m_aRoots) {
        pRoot->m_aFiles.DeleteAll();
        pRoot->m_aChildren.DeleteAll();
    }
    m_aAllDirs.RemoveAll();
    m_aAllFiles.RemoveAll();
    m_aProtectedDirs.clear();
}

CResultLists::CResultLists() {
    m_aLargestFiles.reserve(kGrowBy);
    m_aLargestDirs.reserve(kGrowBy);
    m_aDuplicateGroups.reserve(kGrowBy);
    m_aDuplicateDirGroups.reserve(kGrowBy);
}

void CResultLists::Clear() {
    m_aLargestFiles.clear();
    m_dLargestFilesFloor = 0;
    m_aLargestDirs.clear();
    m_dLargestDirsFloor = 0;
    m_aDuplicateGroups.clear();
    m_aDuplicateDirGroups.clear();
    m_totals.Clear();
    m_compare.Clear();
}

CWZorvaneDoc::CWZorvaneDoc() = default;

CWZorvaneDoc::~CWZorvaneDoc() {
    if (s_pMainDocument == this) s_pMainDocument = nullptr;
}

CWZorvaneDoc* GetMainDocument() { return s_pMainDocument; }

void SetMainDocument(CWZorvaneDoc* pDocument) { s_pMainDocument = pDocument; }

}  // namespace zv
