#include <gtest/gtest.h>

#include <string>

#include "AnalysesTestSupport.h"
#include "analyses/Crc32Fast.h"
#include "core/Crc32.h"

namespace zv {
namespace {

const ECrc32Path kPaths[] = {ECrc32Path::Auto, ECrc32Path::Table, ECrc32Path::Slicing,
                             ECrc32Path::Clmul, ECrc32Path::Vpclmul};

const char* Name(ECrc32Path ePath) {
    switch (ePath) {
        case ECrc32Path::Auto:
            return "Auto";
        case ECrc32Path::Table:
            return "Table";
        case ECrc32Path::Slicing:
            return "Slicing";
        case ECrc32Path::Clmul:
            return "Clmul";
        case ECrc32Path::Vpclmul:
            return "Vpclmul";
    }
    return "?";
}

// Restores the automatic choice after a test that forces a path.
class Crc32FastTest : public ::testing::Test {
protected:
    void TearDown() override { SetCrc32Path(ECrc32Path::Auto); }
};

TEST_F(Crc32FastTest, KnownVectorsOnEveryPath) {
    const std::string strLong(1000, 'a');
    struct Case {
        std::string strData;
        uint32_t uExpected;
    };
    const Case aCases[] = {
        {"", 0},
        {"123456789", 0xCBF43926u},
        {"The quick brown fox jumps over the lazy dog", 0x414FA339u},
        {strLong, Crc32Buffer(strLong.data(), strLong.size())},
        {std::string(4096, '\0'), Crc32Buffer(std::string(4096, '\0').data(), 4096)},
    };
    for (ECrc32Path ePath : kPaths) {
        if (!Crc32PathAvailable(ePath)) continue;
        for (const Case& c : aCases) {
            const uint32_t uRegister =
                Crc32UpdateWithPath(ePath, Crc32Init(), c.strData.data(), c.strData.size());
            EXPECT_EQ(Crc32Final(uRegister), c.uExpected) << Name(ePath) << " " << c.strData.size();
        }
    }
}

// Lengths around every threshold and stride of the fast paths, at every
// alignment of a 64-byte line, from arbitrary registers.
TEST_F(Crc32FastTest, EveryPathAgreesWithTheTableForm) {
    const std::string strData = test::RandomBytes(20000, 7);
    std::mt19937 rng(11);
    std::vector<size_t> aLengths;
    for (size_t n = 0; n <= 1100; ++n) aLengths.push_back(n);
    for (size_t n : {2047u, 2048u, 2049u, 4095u, 4096u, 4097u, 8191u, 8192u, 8193u, 16383u})
        aLengths.push_back(n);
    for (int i = 0; i < 200; ++i) aLengths.push_back(rng() % 19000);
    for (ECrc32Path ePath : kPaths) {
        if (!Crc32PathAvailable(ePath)) continue;
        int nFailures = 0;
        for (size_t nLength : aLengths) {
            const size_t nOffset = rng() % 64;
            const uint32_t uRegister = rng();
            const char* p = strData.data() + nOffset;
            const uint32_t uExpected = Crc32Update(uRegister, p, nLength);
            if (Crc32UpdateWithPath(ePath, uRegister, p, nLength) != uExpected && ++nFailures < 5)
                ADD_FAILURE() << Name(ePath) << " length " << nLength << " offset " << nOffset;
        }
    }
}

TEST_F(Crc32FastTest, ForcingAPathChangesWhatTheEngineUses) {
    EXPECT_TRUE(Crc32PathAvailable(ECrc32Path::Slicing));  // the portable paths always run
    EXPECT_TRUE(Crc32PathAvailable(ECrc32Path::Table));
    const std::string strData = test::RandomBytes(3000, 5);
    const uint32_t uExpected = Crc32Buffer(strData.data(), strData.size());
    for (ECrc32Path ePath : kPaths) {
        if (!Crc32PathAvailable(ePath)) {
            const ECrc32Path eBefore = GetCrc32Path();
            EXPECT_FALSE(SetCrc32Path(ePath)) << Name(ePath);
            EXPECT_EQ(GetCrc32Path(), eBefore);
            continue;
        }
        ASSERT_TRUE(SetCrc32Path(ePath));
        if (ePath != ECrc32Path::Auto) {
            EXPECT_EQ(GetCrc32Path(), ePath);
        }
        EXPECT_NE(GetCrc32Path(), ECrc32Path::Auto);
        EXPECT_EQ(Crc32BufferFast(strData.data(), strData.size()), uExpected) << Name(ePath);
    }
}

}  // namespace
}  // namespace zv
