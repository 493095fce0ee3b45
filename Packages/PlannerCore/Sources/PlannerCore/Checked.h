#pragma once

#include <cstdint>

namespace planner {

/// Integer arithmetic for counters whose overflow is a defect and not a condition to handle: the exact
/// result, or the program ends through std::abort after a line on standard error that names the
/// operation and its operands. Any thread.
std::int64_t checkedAdd(std::int64_t left, std::int64_t right);
std::int64_t checkedSubtract(std::int64_t left, std::int64_t right);
std::int64_t checkedMultiply(std::int64_t left, std::int64_t right);

/// `value` cut off towards zero; the program ends likewise when it is not finite or beyond 64 bits.
std::int64_t checkedTruncation(double value);

} // namespace planner
