#pragma once

#include <PlannerCore/PlannerSnapshot.h>

#include <string>
#include <string_view>

/// The records' JSON. Every key of an object is written, in alphabetical order, but for the absent
/// optional ones; instants are numbers of seconds since 2001-01-01 00:00:00 UTC and identifiers
/// upper-case text. Equal records have equal bytes. Pure functions; any thread.
namespace planner::detail {

/// Appends the record as compact JSON to `out`. Throws JsonError for a number that is not finite or
/// text that is not UTF-8, which leaves `out` with whatever was written until then.
void encode(const PlannerTask& task, std::string& out);
void encode(const DailyNote& note, std::string& out);
void encode(const FocusSession& session, std::string& out);

/// Appends the whole planner, indented by 2 spaces. Validates nothing. Throws as above.
void encodeIndented(const PlannerSnapshot& snapshot, std::string& out);

/// Reads the one JSON object that `json` holds. Keys that the record does not have are skipped with
/// all that is in them. Throws JsonError, which names what was found and at which byte, for anything
/// but such an object: malformed JSON, bytes before or after it, a key that is missing or given
/// twice, a value of another kind.
PlannerTask decodeTask(std::string_view json);
DailyNote decodeNote(std::string_view json);
FocusSession decodeSession(std::string_view json);
PlannerSnapshot decodeSnapshot(std::string_view json);

} // namespace planner::detail
