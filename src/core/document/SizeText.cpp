#include "core/document/SizeText.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "core/document/Document.h"
#include "platform/FileSystem.h"

namespace zv {

std::u16string GroupThousands(std::u16string_view strDigits) {
    const char16_t chSeparator = platform::GetThousandsSeparator();
    std::u16string strOut;
    strOut.reserve(strDigits.size() + strDigits.size() / 3);
    for (size_t i = 0; i < strDigits.size(); ++i) {
        if (i != 0 && (strDigits.size() - i) % 3 == 0) strOut += chSeparator;
        strOut += strDigits[i];
    }
    return strOut;
}

std::u16string FormatNumber(double dValue) {
    if (dValue >= 1e15 || dValue < 0) return {};
    char szDigits[32];
    size_t nLength;
    // Sizes are whole numbers: their digits without the printf machinery,
    // which every row of a report would pay for.
    if (dValue == std::floor(dValue)) {
        nLength = size_t(std::to_chars(szDigits, szDigits + sizeof szDigits, uint64_t(dValue)).ptr -
                         szDigits);
    } else {
        nLength = size_t(std::snprintf(szDigits, sizeof szDigits, "%.0f", dValue));
    }
    return GroupThousands(std::u16string(szDigits, szDigits + nLength));
}

std::u16string FormatSize(double dValue, int nSizeUnit, std::u16string_view strUnitName,
                          std::u16string_view strSuffix, bool bWithUnits) {
    static const double kScale[] = {1.0, 0.0009765625, 9.5367431640625e-07, 9.313225746154785e-10};
    if (nSizeUnit >= 1 && nSizeUnit <= 3) {
        // Whole units, cut to 32 bits: 2^32 units or more wrap.
        const double dUnits = std::floor(dValue * kScale[nSizeUnit]);
        dValue = double(static_cast<uint32_t>(static_cast<uint64_t>(dUnits)));
    }
    std::u16string strText = FormatNumber(dValue);
    strText += strSuffix;
    if (bWithUnits) {
        strText += u' ';
        strText += strUnitName;
    }
    return strText;
}

std::u16string FormatSize(const CWZorvaneDoc& doc, double dValue, std::u16string_view strSuffix,
                          bool bWithUnits) {
    return FormatSize(dValue, doc.m_options.m_nSizeUnit, doc.m_options.m_strSizeUnit, strSuffix,
                      bWithUnits);
}

std::u16string FreeSpaceText(const CWZorvaneDoc& doc) {
    const auto& aRoots = doc.m_scan.m_aRoots;
    if (aRoots.IsEmpty()) return {};
    double dSum = 0;
    bool bAny = false;
    for (size_t i = aRoots.GetSize(); i-- > 0;) {
        const CRootDirectoryData& root = *aRoots[i];
        double dFree = 0, dTotal = 0;
        if (root.m_bVolumeInfoValid &&
            platform::GetDiskFreeSpace(root.GetFullPath(), dFree, dTotal)) {
            dSum += dFree;
            bAny = true;
        }
    }
    if (!bAny) return u"Cannot get free space";
    return FormatSize(doc, dSum, u"", true) + u" free";
}

}  // namespace zv
