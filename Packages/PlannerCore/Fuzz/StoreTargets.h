#pragma once

#include <string_view>

namespace planner::fuzz {

/// The bytes of a planner's file. It opens and loads, or is refused with a clear error and keeps its
/// bytes; what loads is saved and loads again as the same. Aborts when a promise is broken.
void store(std::string_view input);

} // namespace planner::fuzz
