#include "ui/logic/StatusTexts.h"

#include <string>

#include "core/document/SizeText.h"
#include "core/records/DirectoryData.h"
#include "core/records/FileData.h"
#include "platform/Text.h"

namespace zv {

namespace {

std::u16string Count(size_t n) { return platform::Utf8ToUtf16(std::to_string(n)); }

}  // namespace

CSelectionTexts SelectionTexts(const CWZorvaneDoc& doc, CDirectoryData* pDir,
                               const std::vector<CListRow>& aSelected) {
    CSelectionTexts texts;
    if (!pDir) {
        texts.m_strObjects = u"0 object(s)";
        return texts;
    }
    if (aSelected.empty()) {
        texts.m_strObjects =
            Count(pDir->m_aFiles.GetSize() + pDir->m_aChildren.GetSize()) + u" object(s)";
        texts.m_strSize = FormatSize(doc, pDir->GetSizeWithSubdirs(), u"", true);
        texts.m_strActual = FormatSize(doc, pDir->GetActualWithSubdirs(), u" actual", true);
        return texts;
    }
    double dSize = 0;
    double dActual = 0;
    for (const CListRow& row : aSelected) {
        if (row.m_pDir) {
            dSize += row.m_pDir->GetSizeWithSubdirs();
            dActual += row.m_pDir->GetActualWithSubdirs();
        } else if (row.m_pFile) {
            dSize += row.m_pFile->m_dSize;
            dActual += row.m_pFile->GetActualSize();
        }
    }
    texts.m_strObjects = Count(aSelected.size()) + u" object(s) selected";
    texts.m_strSize = FormatSize(doc, dSize, u"", true);
    texts.m_strActual = FormatSize(doc, dActual, u" actual", true);
    return texts;
}

}  // namespace zv
