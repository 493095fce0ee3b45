#include <PlannerCore/Checked.h>

#include <cinttypes>
#include <cstdio>
#include <cstdlib>

namespace planner {
namespace {

[[noreturn]] void overflow(std::int64_t left, char operation, std::int64_t right) {
    std::fprintf(stderr, "Integer overflow: %" PRId64 " %c %" PRId64 "\n", left, operation, right);
    std::abort();
}

} // namespace

std::int64_t checkedAdd(std::int64_t left, std::int64_t right) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(left, right, &result)) overflow(left, '+', right);
    return result;
}

std::int64_t checkedSubtract(std::int64_t left, std::int64_t right) {
    std::int64_t result = 0;
    if (__builtin_sub_overflow(left, right, &result)) overflow(left, '-', right);
    return result;
}

std::int64_t checkedMultiply(std::int64_t left, std::int64_t right) {
    std::int64_t result = 0;
    if (__builtin_mul_overflow(left, right, &result)) overflow(left, '*', right);
    return result;
}

std::int64_t checkedTruncation(double value) {
    // Both limits are powers of two and exact; the upper one is the first number beyond.
    if (value >= -0x1p63 && value < 0x1p63) return std::int64_t(value);
    std::fprintf(stderr, "No 64-bit integer: %g\n", value);
    std::abort();
}

} // namespace planner
