#include <gtest/gtest.h>

#include "core/OwnerPool.h"

namespace zv {
namespace {

TEST(OwnerPool, InternsEachNameOnce) {
    const size_t nBefore = OwnerPoolSize();
    const std::u16string* pAlice = InternOwner(u"pool-test\\alice");
    const std::u16string* pBob = InternOwner(u"pool-test\\bob");
    const std::u16string* pAaron = InternOwner(u"pool-test\\aaron");  // sorts first
    const std::u16string* pUpper = InternOwner(u"POOL-TEST\\ALICE");  // ordinal: distinct
    EXPECT_EQ(OwnerPoolSize(), nBefore + 4);

    // Lookups after insertions in the middle still find the same objects,
    // through the last-hit shortcut and through the search.
    EXPECT_EQ(InternOwner(u"pool-test\\alice"), pAlice);
    EXPECT_EQ(InternOwner(u"pool-test\\alice"), pAlice);
    EXPECT_EQ(InternOwner(u"pool-test\\bob"), pBob);
    EXPECT_EQ(InternOwner(u"pool-test\\aaron"), pAaron);
    EXPECT_EQ(InternOwner(u"POOL-TEST\\ALICE"), pUpper);
    EXPECT_NE(pAlice, pUpper);
    EXPECT_EQ(*pBob, u"pool-test\\bob");
    EXPECT_EQ(OwnerPoolSize(), nBefore + 4);
}

TEST(OwnerPool, NoOwnerIsEmpty) { EXPECT_TRUE(NoOwner().empty()); }

}  // namespace
}  // namespace zv
