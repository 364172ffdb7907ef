// Loads each input as a settings file into a fresh document, with a disk
// stand-in so that no input reads or walks the real disk, then checks that
// the document's settings form is a fixed point: saving, loading that and
// saving again gives the same bytes. The first input byte sets the report
// mode; the rest is the file.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "FuzzInput.h"
#include "core/document/Document.h"
#include "core/host/Host.h"
#include "core/settings/SettingsDisk.h"
#include "core/settings/SettingsFile.h"
#include "core/settings/SettingsText.h"
#include "core/settings/TextFile.h"

namespace {

using namespace zv;

// Roots and duplicate files become entries without looking at the disk;
// duplicate directories leave nothing, as they leave no text either.
class CFuzzDisk : public ISettingsDisk {
public:
    void AddRoot(CWZorvaneDoc& doc, std::u16string_view strPath) override {
        doc.m_scan.m_aRoots.Add(new CRootDirectoryData(strPath));
    }
    void AddDupFile(CWZorvaneDoc& doc, std::u16string_view strPath) override {
        doc.m_filters.AddEntry(FilterDupFiles, strPath);
    }
    void AddDupDirTree(CWZorvaneDoc&, std::u16string_view, bool) override {}
};

// Shows nothing and keeps nothing, so that memory stays flat over a run.
class CSilentHost : public CQuietHost {
public:
    void ShowMessage(std::u16string_view) override {}
};

// A line the reader would split: the line buffer holds 255 units, and a
// line of exactly 255 is followed by an empty one.
bool HasLongLine(std::string_view bytes) {
    const std::u16string strText = DecodeTextFile(bytes);
    size_t nStart = 0;
    while (nStart <= strText.size()) {
        size_t nEnd = strText.find(u'\n', nStart);
        if (nEnd == std::u16string::npos) nEnd = strText.size();
        if (nEnd - nStart >= kSettingsLineLimit) return true;
        nStart = nEnd + 1;
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    setenv("TZ", "UTC", 1);  // local time without gaps, so dates convert both ways
    static CSilentHost s_host;
    SetHost(&s_host);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    if (nSize == 0) return 0;
    const bool bReport = (pData[0] & 1) != 0;
    const std::string_view bytes(reinterpret_cast<const char*>(pData + 1), nSize - 1);
    CFuzzDisk disk;

    CWZorvaneDoc doc;
    LoadSettingsText(doc, bytes, bReport, disk);
    ZV_FUZZ_CHECK(doc.m_options.m_bCrcHex + doc.m_options.m_bCrcDecimal == 1);
    for (const CYesNoFilter& flags : doc.m_filters.m_aAttributes)
        ZV_FUZZ_CHECK(!(flags.m_bYes && flags.m_bNo) ||
                      &flags == &doc.m_filters.m_aAttributes[AttrFilterSystem]);
    const std::string strSaved = FormatSettingsText(doc);
    ZV_FUZZ_CHECK(strSaved.starts_with("\xFF\xFE#\0Z\0"));

    // Numbers written with "%f" can outgrow the line buffer; then the next
    // load reads them otherwise, as it should.
    if (HasLongLine(strSaved)) return 0;
    CWZorvaneDoc reloaded;
    LoadSettingsText(reloaded, strSaved, bReport, disk);
    ZV_FUZZ_CHECK(FormatSettingsText(reloaded) == strSaved);
    return 0;
}
