#include "core/state/RememberedLists.h"

#include "core/document/Document.h"
#include "core/state/AppKey.h"
#include "platform/Text.h"

namespace zv {
namespace {

std::u16string ValueName(std::u16string_view strBase, int nIndex) {
    return std::u16string(strBase) + platform::U16(std::to_string(nIndex));
}

std::vector<std::u16string> InUse(const std::vector<CFilterEntry>& aEntries) {
    std::vector<std::u16string> aTexts;
    for (const CFilterEntry& entry : aEntries)
        if (!entry.m_bRemoved) aTexts.push_back(entry.m_strText);
    return aTexts;
}

}  // namespace

void ReadList(platform::IUserStore& store, std::u16string_view strBase,
              std::vector<std::u16string>& aList) {
    aList.clear();
    std::u16string strValue;
    for (int nIndex = 0; nIndex < kRememberedListSize; ++nIndex)
        if (store.ReadValue(ValueName(strBase, nIndex), strValue) &&
            strValue.size() <= kRememberedValueLimit)
            aList.push_back(strValue);
}

void SaveList(platform::IUserStore& store, const std::vector<std::u16string>& aCurrent,
              const std::vector<std::u16string>& aPrevious, std::u16string_view strBase) {
    std::vector<std::u16string> aMerged;
    for (const std::u16string& strText : aCurrent) {
        if (aMerged.size() == kRememberedListSize) break;
        aMerged.push_back(strText);
    }
    const size_t nCurrent = aMerged.size();
    for (const std::u16string& strText : aPrevious) {
        if (aMerged.size() == kRememberedListSize) break;
        bool bInCurrent = false;
        for (size_t i = 0; i < nCurrent && !bInCurrent; ++i)
            bInCurrent = platform::EqualsNoCase(aMerged[i], strText);
        if (!bInCurrent) aMerged.push_back(strText);
    }
    for (size_t i = 0; i < aMerged.size(); ++i)
        store.WriteValue(ValueName(strBase, static_cast<int>(i)), aMerged[i]);
}

void DeleteList(platform::IUserStore& store, std::u16string_view strBase) {
    for (int nIndex = 0; nIndex < kRememberedListSize; ++nIndex)
        store.DeleteValue(ValueName(strBase, nIndex));
}

void ReadList(std::u16string_view strBase, std::vector<std::u16string>& aList) {
    aList.clear();
    if (const auto pStore = OpenAppKey()) ReadList(*pStore, strBase, aList);
}

void SaveList(const std::vector<std::u16string>& aCurrent,
              const std::vector<std::u16string>& aPrevious, std::u16string_view strBase) {
    if (const auto pStore = OpenAppKey()) SaveList(*pStore, aCurrent, aPrevious, strBase);
}

bool DeleteListEntry(std::u16string_view strBase, std::u16string_view strText) {
    const auto pStore = OpenAppKey();
    if (!pStore) return false;
    std::u16string strValue;
    for (int nIndex = 0; nIndex < kRememberedListSize; ++nIndex) {
        const std::u16string strName = ValueName(strBase, nIndex);
        if (pStore->ReadValue(strName, strValue) && strValue == strText)
            return pStore->DeleteValue(strName);
    }
    return false;
}

void DeleteList(std::u16string_view strBase) {
    if (const auto pStore = OpenAppKey()) DeleteList(*pStore, strBase);
}

void SaveRememberedLists(const CWZorvaneDoc& doc) {
    const auto pStore = OpenAppKey();
    if (!pStore) return;
    std::vector<std::u16string> aPrevious;
    std::vector<std::u16string> aRoots;
    for (const CRootDirectoryData* pRoot : doc.m_scan.m_aRoots)
        if (!pRoot->m_bRemovePending) aRoots.push_back(pRoot->m_strName.Str());
    ReadList(*pStore, kRootDirList, aPrevious);
    SaveList(*pStore, aRoots, aPrevious, kRootDirList);
    for (const EFilterList eList : {FilterFileNames, FilterFileNamesExclude, FilterFullPathExclude,
                                    FilterOwners, FilterOwnersExclude, FilterDirExclude, FilterDir,
                                    FilterVersionFiles, FilterDupFiles, FilterDupDirs}) {
        const std::u16string_view strBase = FilterListNames(eList).m_pszRegistryList;
        ReadList(*pStore, strBase, aPrevious);
        SaveList(*pStore, InUse(doc.m_filters.List(eList)), aPrevious, strBase);
    }
}

}  // namespace zv
