#include "app/MetaCommand.h"

#include <algorithm>
#include <cstdio>

#include "app/CheckedOutput.h"
#include "app/ExitStatus.h"
#include "app/JsonWriter.h"
#include "app/ProgramServices.h"
#include "app/SettingsCommand.h"
#include "core/document/Document.h"
#include "core/records/FileData.h"
#include "metadata/MetadataFields.h"
#include "platform/Console.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

namespace zv {

int RunMetaCommand(const std::vector<std::string>& aUtf8Paths, bool bJson) {
    platform::PrepareConsoleProcess();
    CProgramServices services;
    CWZorvaneDoc doc;
    SetMainDocument(&doc);
    OpenDocumentWithSettings(doc, "");

    CCheckedOutput out;
    CJsonWriter json;
    bool bUnread = false;
    bool bFirst = true;
    if (bJson) json.BeginArray();
    for (const std::string& strUtf8Path : aUtf8Paths) {
        const std::u16string strPath = platform::Utf8ToUtf16(strUtf8Path);
        platform::CFileReader reader;
        if (!reader.Open(strPath, false)) {
            std::fprintf(stderr, "zorvane-cli: cannot open %s\n", strUtf8Path.c_str());
            bUnread = true;
            continue;
        }
        // A record without a directory: its name is the whole path. Its size
        // is the file's, as a scanned record's is.
        CFileData file(strPath, double(std::max<int64_t>(reader.GetSize(), 0)), {}, {}, {}, 0,
                       nullptr, false, nullptr);
        reader.Close();
        MetadataValueList aValues, aMedia;
        ReadVersionMetadata(file, aValues);
        // A reader that failed may have added values before it did: they do not count.
        if (!ReadFileMetadata(file, aMedia)) aMedia.clear();
        aValues.insert(aValues.end(), aMedia.begin(), aMedia.end());

        if (bJson) {
            json.BeginObject();
            json.Key("path").String(strPath);
            json.Key("fields").BeginObject();
            for (const MetadataValue& value : aValues)
                json.Key(value.m_pDef->m_strLabel).String(value.m_strValue);
            json.EndObject();
            json.EndObject();
        } else {
            if (!bFirst) out.Write("\n");
            for (const MetadataValue& value : aValues)
                out.Write(platform::Utf16ToUtf8(value.m_pDef->m_strLabel) + ": " +
                          platform::Utf16ToUtf8(value.m_strValue) + "\n");
        }
        bFirst = false;
    }
    if (bJson) {
        json.EndArray();
        out.Write(json.Text());
    }
    const bool bWritten = out.Finish();
    SetMainDocument(nullptr);
    return ExitStatusOf(false, bUnread || !bWritten);
}

}  // namespace zv
