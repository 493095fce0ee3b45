#pragma once

#include <cstddef>
#include <cstdlib>

/// How often a loop of a randomized or exhaustive test runs: `count`, divided by the number in the
/// environment's ORVANE_TEST_SCALE where one is set (slow, sanitized builds set it), at least once.
inline int scaled(int count) {
    const char* text = std::getenv("ORVANE_TEST_SCALE");
    const int divisor = text ? std::atoi(text) : 1;
    return divisor > 1 && count > divisor ? count / divisor : (divisor > 1 ? 1 : count);
}

/// Which steps of an exhaustive loop are taken: each one, or each `reduced`-th where ORVANE_TEST_SCALE asks
/// for less.
inline std::size_t stride(std::size_t reduced) {
    return scaled(2) == 2 ? 1 : reduced;
}
