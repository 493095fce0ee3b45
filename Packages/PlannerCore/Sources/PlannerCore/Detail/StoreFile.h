#pragma once

#include <PlannerCore/Detail/Sqlite.h>

#include <filesystem>

namespace planner::detail {

/// Makes `directory` and its missing parents, for their owner alone; one that exists is left as it is.
/// Throws StoreError with the system's text.
void createFolder(const std::filesystem::path& directory);

/// Opens the planner's database at `path`, or makes one where the file is missing or empty.
///
/// What the file holds is looked at through a connection that cannot write. Anything but a planner of
/// this version is refused there and keeps its bytes: StoreError, or PlannerError for a newer version.
/// The connection that comes back waits for the disk at every commit.
Database openStore(const std::filesystem::path& path);

/// Makes the store write through a log from now on, which takes one sync a commit instead of several.
/// Once done it stays so in the file. Call it before the first change. Throws StoreError.
void writeThroughLog(Database& database);

} // namespace planner::detail
