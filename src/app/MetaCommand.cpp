#include "app/MetaCommand.h"

#include <cstdio>

#include "app/JsonWriter.h"
#include "app/ProgramServices.h"
#include "core/document/Document.h"
#include "core/records/FileData.h"
#include "core/settings/DocumentStartup.h"
#include "metadata/MetadataFields.h"
#include "platform/Console.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {
namespace {

void Write(const std::string& strText) { std::fwrite(strText.data(), 1, strText.size(), stdout); }

}  // namespace

int RunMetaCommand(const std::vector<std::string>& aUtf8Paths, bool bJson) {
    platform::PrepareConsoleProcess();
    CProgramServices services;
    CWZorvaneDoc doc;
    SetMainDocument(&doc);
    OpenMainDocument(doc, u"");
    BuildMetadataTables(doc);

    int nStatus = 0;
    bool bFirst = true;
    if (bJson) Write("[");
    for (const std::string& strUtf8Path : aUtf8Paths) {
        const std::u16string strPath = platform::Utf8ToUtf16(strUtf8Path);
        platform::CFileReader reader;
        if (!reader.Open(strPath, false)) {
            std::fprintf(stderr, "zorvane-cli: cannot open %s\n", strUtf8Path.c_str());
            nStatus = 1;
            continue;
        }
        reader.Close();
        // A record without a directory: its name is the whole path.
        CFileData file(strPath, 0, {}, {}, {}, 0, nullptr, false, nullptr);
        MetadataValueList aValues, aMedia;
        ReadVersionMetadata(file, aValues);
        // A reader that failed may have added values before it did: they do not count.
        if (!ReadFileMetadata(file, aMedia)) aMedia.clear();
        aValues.insert(aValues.end(), aMedia.begin(), aMedia.end());

        if (bJson) {
            Write(std::string(bFirst ? "\n" : ",\n") + "  {\n    \"path\": " + JsonString(strPath) +
                  ",\n    \"fields\": {");
            bool bFirstField = true;
            for (const MetadataValue& value : aValues) {
                Write(std::string(bFirstField ? "\n" : ",\n") + "      " +
                      JsonString(value.m_pDef->m_strLabel) + ": " + JsonString(value.m_strValue));
                bFirstField = false;
            }
            Write(bFirstField ? "}\n  }" : "\n    }\n  }");
        } else {
            if (!bFirst) Write("\n");
            for (const MetadataValue& value : aValues)
                Write(platform::Utf16ToUtf8(value.m_pDef->m_strLabel) + ": " +
                      platform::Utf16ToUtf8(value.m_strValue) + "\n");
        }
        bFirst = false;
    }
    if (bJson) Write(bFirst ? "]\n" : "\n]\n");
    SetMainDocument(nullptr);
    return nStatus;
}

}  // namespace zv
