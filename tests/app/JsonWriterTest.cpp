#include <gtest/gtest.h>

#include "app/JsonWriter.h"

namespace zv {
namespace {

TEST(JsonStringTest, EscapesWhatJsonNeedsAndKeepsLoneSurrogates) {
    const std::pair<std::u16string, std::string> aCases[] = {
        {u"plain", "\"plain\""},
        {u"q\"b\\", "\"q\\\"b\\\\\""},
        {u"a\nb\tc\x01", "\"a\\nb\\tc\\u0001\""},
        {u"\u00e9\u65e5", "\"\xc3\xa9\xe6\x97\xa5\""},
        {u"\U0001F600", "\"\xf0\x9f\x98\x80\""},               // a pair is one character
        {u"a\xdcff", "\"a\\udcff\""},                          // an escaped byte 0xFF
        {u"a\xdcfe", "\"a\\udcfe\""},                          // stays apart from 0xFE
        {std::u16string(1, char16_t(0xD800)), "\"\\ud800\""},  // a lone high half
    };
    for (const auto& [strText, strJson] : aCases) EXPECT_EQ(JsonString(strText), strJson);
}

TEST(JsonWriterTest, PrettyPrintsNestedValues) {
    CJsonWriter json;
    json.BeginObject();
    json.Key("list").BeginArray();
    json.String(u"x");
    json.EndArray();
    json.Key("none").BeginArray();
    json.EndArray();
    json.Key("n").Number(uint64_t(3));
    json.Key("b").Bool(false);
    json.Key(u"\u00e9\"").String(u"");
    json.EndObject();
    EXPECT_EQ(json.Text(),
              "{\n  \"list\": [\n    \"x\"\n  ],\n  \"none\": [],\n  \"n\": 3,\n  \"b\": false,\n"
              "  \"\xc3\xa9\\\"\": \"\"\n}\n");
}

}  // namespace
}  // namespace zv
