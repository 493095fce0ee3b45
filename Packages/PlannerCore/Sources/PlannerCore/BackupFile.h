#pragma once

#include <PlannerCore/PlannerSnapshot.h>

#include <cstddef>
#include <filesystem>

namespace planner {

/// What is said of a backup above `maximumBackupBytes`.
inline constexpr const char* backupTooLarge = "Backups must be smaller than 50 MB.";

/// Writes `snapshot` as a backup to the file that the user chose and returns its length in bytes once it
/// is on disk. A new file is for its owner alone, one that is replaced keeps its permissions; a symbolic
/// link stays and the file it leads to is replaced. Whoever looks, at any moment and after a power cut,
/// finds the old file whole or the new one. A backup above `maximumBackupBytes` is written too.
/// Blocks on the disk; any thread but the main one.
/// Throws as `PlannerSnapshot::backupData` does, or StoreError with the system's text; what was there
/// before is there still, unless only the last step failed, which makes the new name last.
std::size_t writeBackup(const PlannerSnapshot& snapshot, const std::filesystem::path& path);

/// Reads the backup in the file at `path`. A file above `maximumBackupBytes` is not opened. Blocks on the
/// disk; any thread but the main one.
/// Throws StoreError with the system's text for what cannot be read or is no ordinary file, and as
/// `PlannerSnapshot::decodeBackup` does.
PlannerSnapshot readBackup(const std::filesystem::path& path);

} // namespace planner
