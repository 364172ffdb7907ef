// Turns fuzzer bytes into the two texts a matcher takes: everything before
// the first newline is the pattern, the rest the text. Each byte is one
// UTF-16 code unit, so the corpus files stay readable.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace zv::fuzz {

struct FuzzInput {
    std::u16string strPattern;
    std::u16string strText;
};

inline FuzzInput SplitInput(const uint8_t* pData, size_t nSize) {
    FuzzInput input;
    std::u16string* pTarget = &input.strPattern;
    for (size_t n = 0; n < nSize; ++n) {
        if (pData[n] == '\n' && pTarget == &input.strPattern) {
            pTarget = &input.strText;
            continue;
        }
        pTarget->push_back(static_cast<char16_t>(pData[n]));
    }
    return input;
}

// Stops the run in a way libFuzzer records as a crash.
#define ZV_FUZZ_CHECK(condition)            \
    do {                                    \
        if (!(condition)) __builtin_trap(); \
    } while (false)

}  // namespace zv::fuzz
