#include <gtest/gtest.h>

#include "MetadataTestSupport.h"
#include "metadata/VersionMetadata.h"

namespace zv {
namespace {

using test::LabelValues;
using test::Le16;

std::string Pad4(std::string str) {
    while (str.size() % 4) str += '\0';
    return str;
}

std::string Utf16z(std::u16string_view str) {
    std::string strOut;
    for (char16_t c : str) strOut += Le16(c);
    return strOut + Le16(0);
}

// One node of a version block: length, value length, type, key, value, children.
std::string Node(std::u16string_view strKey, const std::string& strValue, bool bText,
                 const std::string& strChildren = "") {
    std::string strBody =
        Pad4(std::string(6, '\0') + Utf16z(strKey)) + Pad4(strValue) + strChildren;
    const size_t uValueLength = bText ? strValue.size() / 2 : strValue.size();
    strBody.replace(0, 6,
                    Le16(uint32_t(strBody.size())) + Le16(uint32_t(uValueLength)) + Le16(bText));
    return Pad4(strBody);
}

std::string Text(std::u16string_view strKey, std::u16string_view strValue) {
    return Node(strKey, Utf16z(strValue), true);
}

std::string Block(const std::string& strTranslation, const std::string& strTables) {
    std::string strChildren = Node(u"StringFileInfo", "", true, strTables);
    if (!strTranslation.empty())
        strChildren += Node(u"VarFileInfo", "", true, Node(u"Translation", strTranslation, false));
    return Node(u"VS_VERSION_INFO", std::string(52, '\0'), false, strChildren);
}

LabelValues BlockFields(const std::string& strBlock) {
    MetadataValueList aValues;
    EXPECT_TRUE(ReadVersionBlockFields(strBlock, aValues));
    return test::Listed(aValues);
}

TEST(VersionMetadata, RealExecutable) {
    MetadataValueList aValues;
    ASSERT_TRUE(ReadVersionResource(test::FixturePath("version.exe"), aValues));
    EXPECT_EQ(test::Listed(aValues), (LabelValues{{"VER Language", u"English (United States)"},
                                                  {"VER Company Name", u"Halvorn Test"},
                                                  {"VER Description", u"Version fixture"},
                                                  {"VER Version", u"1.2.3.4"},
                                                  {"VER Internal Name", u"version"},
                                                  {"VER Legal Copyright", u"Copyright 2026"},
                                                  {"VER Original Filename", u"version.exe"},
                                                  {"VER Product Name", u"Zorvane Fixtures"},
                                                  {"VER Product Version", u"1.2"},
                                                  {"VER Comments", u""},
                                                  {"VER Legal Trademarks", u""},
                                                  {"VER Private Build", u""},
                                                  {"VER Special Build", u""}}));
    // Files that are no PE file have no version.
    EXPECT_FALSE(ReadVersionResource(test::FixturePath("id3v1.mp3"), aValues));
}

TEST(VersionMetadata, Candidates) {
    // German translation, but only the 040904E4 table: read through the
    // second candidate; keys compare without case.
    const LabelValues aSecond = BlockFields(Block(
        Le16(0x0407) + Le16(1252), Node(u"040904e4", "", true, Text(u"FileVersion", u"2.0"))));
    ASSERT_EQ(aSecond.size(), 13u);
    EXPECT_EQ(aSecond[0].second, u"German (Germany)");
    EXPECT_EQ(aSecond[3], (std::pair<std::string, std::u16string>("VER Version", u"2.0")));
    EXPECT_EQ(aSecond[1].second, u"");  // in neither table
    // A string that is present but empty in the last table asked adds no field.
    const LabelValues aEmpty = BlockFields(Block(
        Le16(0x0409) + Le16(0x04E4),
        Node(u"040904E4", "", true, Text(u"FileVersion", u"3.0") + Node(u"Comments", "", true))));
    EXPECT_EQ(aEmpty.size(), 12u);
    for (const auto& [strLabel, strValue] : aEmpty) EXPECT_NE(strLabel, "VER Comments");
    // No translation: the twelve strings, empty, and no language.
    EXPECT_EQ(BlockFields(Block("", "")).size(), 12u);
    MetadataValueList aValues;
    EXPECT_FALSE(ReadVersionBlockFields(Node(u"VS_VERSION_INFO", "", false), aValues));
}

}  // namespace
}  // namespace zv
