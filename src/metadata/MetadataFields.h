// The field model that every metadata reader fills: a definition per field of
// a file kind (label, element name, id, print flag), six process-wide tables
// of them, and a file's values as a list in the order the reader added them.
// Reports, the properties dialogs and the tag dialogs read values through
// ReadFileMetadata and ReadVersionMetadata; values are never cached.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/document/MetadataPrintFields.h"

namespace zv {

class CFileData;
class CWZorvaneDoc;

struct MetadataFieldDef {
    std::u16string m_strLabel;        // "MP3 Artist"
    std::u16string m_strElementName;  // the label without blanks: "MP3Artist"
    int32_t m_nFieldId = 0;
    int32_t m_nPrintFlag = 0;  // the document's print option when the table was built
};

// Definitions sorted by field id once filled; Find is a binary search.
class MetadataFieldTable {
public:
    void Add(int32_t nFieldId, std::u16string_view strLabel, int32_t nPrintFlag);
    void Sort();
    const MetadataFieldDef* Find(int32_t nFieldId) const;
    const std::vector<const MetadataFieldDef*>& Fields() const { return m_aFields; }
    bool IsSorted() const { return m_bSorted; }

private:
    std::vector<std::unique_ptr<MetadataFieldDef>> m_aOwned;
    std::vector<const MetadataFieldDef*> m_aFields;
    bool m_bSorted = false;
};

struct MetadataValue {
    const MetadataFieldDef* m_pDef = nullptr;
    std::u16string m_strValue;
};
using MetadataValueList = std::vector<MetadataValue>;

// Whether the list holds a value of the field.
bool HasField(const MetadataValueList& aValues, int32_t nFieldId);
// The value of a field, or null.
const MetadataValue* FindValue(const MetadataValueList& aValues, int32_t nFieldId);

// Builds the six tables from the document's print options; called when the
// main document is newly created.
void BuildMetadataTables(const CWZorvaneDoc& doc);
// The table of a group (MP3, WAV, AVI, Office, installer, version).
const MetadataFieldTable& MetadataTable(EMetadataGroup eGroup);

// Clears the list, dispatches by extension and sets FILE_MEDIA_READ and
// FILE_HAS_MEDIA. False when the file has no values.
bool ReadFileMetadata(CFileData& file, MetadataValueList& aValues);
// The same dispatch, run only once per file.
bool HasFileMetadata(CFileData& file);
// Clears the list, applies the version filter and the status bits, reads the
// version resource.
bool ReadVersionMetadata(CFileData& file, MetadataValueList& aValues);

// Which names go to the Office and installer readers (the document's lists).
bool IsOfficeExtension(std::u16string_view strName);
bool IsInstallerExtension(std::u16string_view strName);

}  // namespace zv
