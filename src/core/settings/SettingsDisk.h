// What loading a settings file does beyond the document: a root and the
// duplicate filters look at what they name on the disk. Tests and the fuzz
// target put their own in place of the real one.
#pragma once

#include <string_view>

namespace zv {

class CWZorvaneDoc;

class ISettingsDisk {
public:
    virtual ~ISettingsDisk() = default;
    // Creates a root with its times and attributes and prepares it.
    virtual void AddRoot(CWZorvaneDoc& doc, std::u16string_view strPath) = 0;
    // An entry of the duplicate files filter with its record, or a message.
    virtual void AddDupFile(CWZorvaneDoc& doc, std::u16string_view strPath) = 0;
    // A tree of the duplicate directories filter.
    virtual void AddDupDirTree(CWZorvaneDoc& doc, std::u16string_view strPath,
                               bool bWithSubdirs) = 0;
};

// The one that reads the disk.
ISettingsDisk& RealSettingsDisk();

}  // namespace zv
