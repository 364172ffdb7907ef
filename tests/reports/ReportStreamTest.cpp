#include <gtest/gtest.h>

#include "reports/ReportStream.h"

namespace zv {
namespace {

class CFailingSink : public IReportSink {
public:
    bool Write(const char*, size_t) override { return false; }
};

TEST(ReportStream, LineEndsAndEncodings) {
    CStringSink unicode, narrow;
    const std::u16string strText = u"a\n\u00e9\U0001F600\xDCFF\xDC41\n";
    {
        CReportStream out(unicode, true);
        out << strText;
    }
    EXPECT_EQ(unicode.m_strBytes,
              std::string("\xFF\xFE"
                          "a\0\r\0\n\0\xE9\0\x3D\xD8\x00\xDE\xFF\xDC\x41\xDC\r\0\n\0",
                          22));
    {
        CReportStream out(narrow, false);
        out << strText;
    }
    // A lone surrogate from an undecodable byte goes back to the byte; other
    // lone surrogates become '?'.
    EXPECT_EQ(narrow.m_strBytes, "a\r\n\xC3\xA9\xF0\x9F\x98\x80\xFF?\r\n");
}

TEST(ReportStream, ReportsAFailedWriteAtTheEnd) {
    CFailingSink sink;
    CReportStream out(sink, false);
    out << "text\n";
    EXPECT_FALSE(out.Finish());
}

}  // namespace
}  // namespace zv
