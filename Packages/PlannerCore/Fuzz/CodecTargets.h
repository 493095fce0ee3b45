#pragma once

#include <string_view>

/// What the fuzz targets do with one input; their seeds run through the same as plain tests. Each
/// aborts when a promise is broken.
namespace planner::fuzz {

/// A backup file: it reads, or is refused with a PlannerError or a JsonError; what reads keeps the
/// rules, is written again and reads back to the same.
void decodeBackup(std::string_view input);

/// A record's payload: the first byte chooses the kind ('t' a task, 'n' a note, any other a session),
/// the rest is the payload. It reads, or is refused with a JsonError that names the place; what reads
/// is written again and reads back to the same.
void record(std::string_view input);

} // namespace planner::fuzz
