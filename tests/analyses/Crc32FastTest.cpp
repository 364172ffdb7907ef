#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "AnalysesTestSupport.h"
#include "analyses/Crc32Fast.h"
#include "core/records/Crc32.h"

namespace zv {
namespace {

// Every path, by name, in the order of ECrc32Path.
const std::pair<ECrc32Path, const char*> kPaths[] = {
    {ECrc32Path::Auto, "Auto"},       {ECrc32Path::Table, "Table"},
    {ECrc32Path::Slicing, "Slicing"}, {ECrc32Path::Clmul, "Clmul"},
    {ECrc32Path::Vpclmul, "Vpclmul"}, {ECrc32Path::Vpclmul512, "Vpclmul512"}};

class Crc32EveryPath : public testing::TestWithParam<std::pair<ECrc32Path, const char*>> {};

// Lengths around every threshold and stride of the fast paths, at every
// alignment of a 64-byte line, from arbitrary registers, and long buffers
// that run the main loops many times.
TEST_P(Crc32EveryPath, AgreesWithTheTableForm) {
    const auto [ePath, pszName] = GetParam();
    if (!Crc32PathAvailable(ePath)) GTEST_SKIP() << pszName << " is not on this processor";
    const std::string strData = test::RandomBytes(1 << 20, 7);
    std::mt19937 rng(11);
    std::vector<size_t> aLengths;
    for (size_t n = 0; n <= 1100; ++n) aLengths.push_back(n);
    for (size_t n : {2047u, 2048u, 2049u, 4095u, 4096u, 4097u, 8191u, 8192u, 8193u, 16383u})
        aLengths.push_back(n);
    for (int i = 0; i < 200; ++i) aLengths.push_back(rng() % 19000);
    for (int i = 0; i < 4; ++i) aLengths.push_back(strData.size() - 64 - rng() % 70000);

    const uint32_t uCheck = Crc32UpdateWithPath(ePath, Crc32Init(), "123456789", 9);
    EXPECT_EQ(Crc32Final(uCheck), 0xCBF43926u);
    int nFailures = 0;
    for (size_t nLength : aLengths) {
        const size_t nOffset = rng() % 64;
        const uint32_t uRegister = rng();
        const char* p = strData.data() + nOffset;
        const uint32_t uExpected = Crc32Update(uRegister, p, nLength);
        if (Crc32UpdateWithPath(ePath, uRegister, p, nLength) != uExpected && ++nFailures < 5)
            ADD_FAILURE() << "length " << nLength << " offset " << nOffset;
    }
}

INSTANTIATE_TEST_SUITE_P(Crc32Fast, Crc32EveryPath, testing::ValuesIn(kPaths),
                         [](const auto& info) { return std::string(info.param.second); });

TEST(Crc32Fast, ForcingAPathChangesWhatTheEngineUses) {
    EXPECT_TRUE(Crc32PathAvailable(ECrc32Path::Slicing));  // the portable paths always run
    EXPECT_TRUE(Crc32PathAvailable(ECrc32Path::Table));
    const std::string strData = test::RandomBytes(3000, 5);
    const uint32_t uExpected = Crc32Buffer(strData.data(), strData.size());
    for (auto [ePath, pszName] : kPaths) {
        if (!Crc32PathAvailable(ePath)) {
            const ECrc32Path eBefore = GetCrc32Path();
            EXPECT_FALSE(SetCrc32Path(ePath)) << pszName;
            EXPECT_EQ(GetCrc32Path(), eBefore);
            continue;
        }
        ASSERT_TRUE(SetCrc32Path(ePath));
        EXPECT_TRUE(ePath == ECrc32Path::Auto || GetCrc32Path() == ePath) << pszName;
        EXPECT_NE(GetCrc32Path(), ECrc32Path::Auto);
        EXPECT_EQ(Crc32BufferFast(strData.data(), strData.size()), uExpected) << pszName;
    }
    SetCrc32Path(ECrc32Path::Auto);
}

}  // namespace
}  // namespace zv
