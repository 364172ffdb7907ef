#pragma once

#include <cmath>

namespace zv {

// A size rounded up to whole clusters: the "actual" size of the reports.
// A cluster size of 0 (unknown) gives 0.
inline double RoundToCluster(double dSize, double dClusterSize) {
    if (dClusterSize == 0) return 0;
    const double dWhole = std::floor(dSize / dClusterSize) * dClusterSize;
    return dWhole >= dSize ? dWhole : dWhole + dClusterSize;
}

}  // namespace zv
