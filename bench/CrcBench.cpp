// In-memory CRC-32 throughput of each of our paths against zlib's crc32 and
// ISA-L's crc32_gzip_refl, on buffers from 4 KiB to 1 MiB.
#include <benchmark/benchmark.h>
#include <isa-l/crc.h>
#include <zlib.h>

#include <random>
#include <vector>

#include "analyses/Crc32Fast.h"

namespace {

std::vector<unsigned char> Buffer(size_t nSize) {
    std::vector<unsigned char> aBuffer(nSize);
    std::mt19937 rng(1);
    for (unsigned char& b : aBuffer) b = static_cast<unsigned char>(rng());
    return aBuffer;
}

template <typename Fn>
void Run(benchmark::State& state, Fn fn) {
    const std::vector<unsigned char> aBuffer = Buffer(static_cast<size_t>(state.range(0)));
    uint32_t uCrc = 0;
    for (auto _ : state) {
        uCrc = fn(uCrc, aBuffer.data(), aBuffer.size());
        benchmark::DoNotOptimize(uCrc);
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * state.range(0));
}

void BM_Zorvane(benchmark::State& state, zv::ECrc32Path ePath) {
    if (!zv::Crc32PathAvailable(ePath)) return state.SkipWithError("not on this processor");
    Run(state, [ePath](uint32_t u, const unsigned char* p, size_t n) {
        return zv::Crc32UpdateWithPath(ePath, u, p, n);
    });
}

void BM_Zlib(benchmark::State& state) {
    Run(state, [](uint32_t u, const unsigned char* p, size_t n) {
        return static_cast<uint32_t>(crc32(u, p, static_cast<uInt>(n)));
    });
}

void BM_IsaL(benchmark::State& state) {
    Run(state, [](uint32_t u, const unsigned char* p, size_t n) {
        return crc32_gzip_refl(u, p, static_cast<uint64_t>(n));
    });
}

void Sizes(benchmark::internal::Benchmark* pBenchmark) {
    pBenchmark->Arg(4096)->Arg(65536)->Arg(1 << 20);
}

BENCHMARK_CAPTURE(BM_Zorvane, auto, zv::ECrc32Path::Auto) -> Apply(Sizes);
BENCHMARK_CAPTURE(BM_Zorvane, vpclmul512, zv::ECrc32Path::Vpclmul512)->Apply(Sizes);
BENCHMARK_CAPTURE(BM_Zorvane, vpclmul, zv::ECrc32Path::Vpclmul)->Apply(Sizes);
BENCHMARK_CAPTURE(BM_Zorvane, clmul, zv::ECrc32Path::Clmul)->Apply(Sizes);
BENCHMARK_CAPTURE(BM_Zorvane, slicing16, zv::ECrc32Path::Slicing)->Apply(Sizes);
BENCHMARK_CAPTURE(BM_Zorvane, table, zv::ECrc32Path::Table)->Apply(Sizes);
BENCHMARK(BM_Zlib)->Apply(Sizes);
BENCHMARK(BM_IsaL)->Apply(Sizes);

}  // namespace
