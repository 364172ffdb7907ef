#include "analyses/DuplicatePasses.h"

#include "core/document/DocumentOptions.h"

namespace zv {

std::vector<EPassMethod> BuildPassList(const CDuplicateFileCriteria& criteria, bool bCrcListInUse) {
    std::vector<EPassMethod> aPasses;
    const bool bSizeDone = criteria.m_bBySize != 0;
    if (criteria.m_bBySize) aPasses.push_back(EPassMethod::Size);
    if (criteria.m_bByName) aPasses.push_back(EPassMethod::Name);
    if (criteria.m_bByCrcWithoutTags) aPasses.push_back(EPassMethod::Mp3Crc);
    if (criteria.m_bByCrc) {
        if (!bSizeDone) aPasses.push_back(EPassMethod::Size);
        aPasses.push_back(EPassMethod::SmallGroupsCrc);
        if (!bCrcListInUse) {
            aPasses.push_back(EPassMethod::QuickCrc);
            aPasses.push_back(EPassMethod::SmallGroupsCrc);
        }
        aPasses.push_back(EPassMethod::FullCrc);
        if (criteria.m_bByteByByte) aPasses.push_back(EPassMethod::ByteCompare);
    }
    // Also after the CRC stages, with a Size stage of its own when Size is
    // not ticked; its stages then find nothing left to do.
    if (criteria.m_bByteByByte) {
        if (!bSizeDone) aPasses.push_back(EPassMethod::Size);
        for (EPassMethod e : {EPassMethod::SmallGroups, EPassMethod::QuickCrc,
                              EPassMethod::SmallGroups, EPassMethod::ByteCompare})
            aPasses.push_back(e);
    }
    return aPasses;
}

const char16_t* PassTraceText(EPassMethod eMethod) {
    switch (eMethod) {
        case EPassMethod::Size:
            return u"Size";
        case EPassMethod::Name:
            return u"Name";
        case EPassMethod::Mp3Crc:
            return u"CRC_MP3";
        case EPassMethod::QuickCrc:
            return u"QUICK CRC";
        case EPassMethod::FullCrc:
            return u"CRC";
        case EPassMethod::ByteCompare:
            return u"comparing byte by byte";
        case EPassMethod::SmallGroupsCrc:
            return u"DUP_METHOD_SMALL_GROUPS_CRC";
        case EPassMethod::SmallGroups:
            return u"DUP_METHOD_SMALL_GROUPS";
    }
    return u"";
}

const char16_t* PassLabelText(EPassMethod eMethod) {
    switch (eMethod) {
        case EPassMethod::Size:
            return u"Finding duplicate files based on: Size";
        case EPassMethod::Name:
            return u"Finding duplicate files based on: Name";
        case EPassMethod::Mp3Crc:
            return u"Finding duplicate files based on: CRC_MP3";
        case EPassMethod::QuickCrc:
        case EPassMethod::FullCrc:
        case EPassMethod::SmallGroupsCrc:
            return u"Finding duplicate files based on: CRC";
        case EPassMethod::ByteCompare:
        case EPassMethod::SmallGroups:
            return u"Finding duplicates files based on: comparing byte by byte";
    }
    return u"";
}

std::vector<EDirPass> BuildDirPassList(const CDuplicateDirCriteria& criteria) {
    const int32_t* a = criteria.m_aCriteria;
    const bool bCrcSub = a[DupDirByCrcWithSubdirs] != 0;
    const bool bCrc = a[DupDirByCrc] != 0;
    std::vector<EDirPass> aPasses;
    if (bCrcSub || a[DupDirBySizeWithSubdirs]) aPasses.push_back(EDirPass::SizeWithSub);
    if (bCrcSub || bCrc || a[DupDirBySize]) aPasses.push_back(EDirPass::Size);
    if (bCrcSub || bCrc || a[DupDirByTotalFiles]) aPasses.push_back(EDirPass::FileCount);
    if (bCrcSub || a[DupDirByTotalFilesWithSubdirs]) aPasses.push_back(EDirPass::FileCountWithSub);
    if (a[DupDirByName]) aPasses.push_back(EDirPass::Name);
    if (bCrcSub) aPasses.push_back(EDirPass::CrcWithSub);
    if (bCrc) aPasses.push_back(EDirPass::Crc);
    return aPasses;
}

const char16_t* DirPassLabel(EDirPass ePass) {
    switch (ePass) {
        case EDirPass::SizeWithSub:
            return u"Finding duplicate dirs based on: Size with subdirs";
        case EDirPass::Size:
            return u"Finding duplicate dirs based on: Size";
        case EDirPass::FileCount:
            return u"Finding duplicate dirs based on: # Files";
        case EDirPass::FileCountWithSub:
            return u"Finding duplicate dirs based on: # Files with subdirs";
        case EDirPass::Name:
            return u"Finding duplicate dirs based on: Name";
        case EDirPass::CrcWithSub:
            return u"Finding duplicate dirs based on: CRC with subdirs";
        case EDirPass::Crc:
            return u"Finding duplicate dirs based on: CRC";
    }
    return u"";
}

}  // namespace zv
