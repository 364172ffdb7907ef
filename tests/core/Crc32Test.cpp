#include <gtest/gtest.h>

#include <string>

#include "core/Crc32.h"
#include "core/NameCrc.h"

namespace zv {
namespace {

TEST(Crc32, KnownVectors) {
    struct Case {
        std::string strData;
        uint32_t uExpected;
    };
    const Case aCases[] = {
        {"", 0},
        {"123456789", 0xCBF43926u},
        {"a", 0xE8B7BE43u},
        {"The quick brown fox jumps over the lazy dog", 0x414FA339u},
        {std::string(1, '\0'), 0xD202EF8Du},
    };
    for (const Case& c : aCases)
        EXPECT_EQ(Crc32Buffer(c.strData.data(), c.strData.size()), c.uExpected) << c.strData;
}

TEST(Crc32, UpdateInPiecesEqualsWhole) {
    const std::string strData = "123456789";
    uint32_t uRegister = Crc32Init();
    uRegister = Crc32Update(uRegister, strData.data(), 4);
    uRegister = Crc32Update(uRegister, strData.data() + 4, 5);
    EXPECT_EQ(Crc32Final(uRegister), 0xCBF43926u);
}

TEST(Crc32, FoldRunsTheDataBytesLowFirstThroughTheRegister) {
    const uint32_t uData = 0x04030201u;
    const unsigned char aBytes[] = {1, 2, 3, 4};
    EXPECT_EQ(Crc32Fold(uData, 0x12345678u), Crc32Update(0x12345678u, aBytes, 4));
    EXPECT_EQ(Crc32Final(Crc32Fold(uData, Crc32Init())), Crc32Buffer(aBytes, 4));
}

TEST(NameCrc, UpperCasesAndTakesTwoBytesPerCodeUnit) {
    const unsigned char aAbc[] = {'A', 0, 'B', 0, 'C', 0};
    EXPECT_EQ(NameCrc(u"abc"), Crc32Buffer(aAbc, sizeof aAbc));
    EXPECT_EQ(NameCrc(u"abc"), NameCrc(u"ABC"));
    // U+00E9 upper-cases to U+00C9; U+0416 stays; both bytes of each unit count.
    const unsigned char aAccents[] = {0xC9, 0x00, 0x16, 0x04};
    EXPECT_EQ(NameCrc(u"\u00e9\u0416"), Crc32Buffer(aAccents, sizeof aAccents));
    EXPECT_EQ(NameCrc(u""), 0u);
}

}  // namespace
}  // namespace zv
