#include <gtest/gtest.h>

#include "core/ClusterRounding.h"

namespace zv {
namespace {

TEST(ClusterRounding, RoundsUpToWholeClusters) {
    struct Case {
        double dSize, dCluster, dExpected;
    };
    const Case aCases[] = {
        {0, 4096, 0},
        {1, 4096, 4096},
        {4095, 4096, 4096},
        {4096, 4096, 4096},
        {4097, 4096, 8192},
        {12288, 4096, 12288},
        {100, 0, 0},
        {0, 0, 0},
        {1, 512, 512},
        {5e9 + 1, 4096, 5000003584.0},
        {4294967296.0, 65536, 4294967296.0},
    };
    for (const Case& c : aCases)
        EXPECT_EQ(RoundToCluster(c.dSize, c.dCluster), c.dExpected)
            << c.dSize << " with cluster " << c.dCluster;
}

}  // namespace
}  // namespace zv
