#include <PlannerCore/BackupFile.h>

#include <PlannerCore/Detail/AtomicFile.h>

namespace planner {

std::size_t writeBackup(const PlannerSnapshot& snapshot, const std::filesystem::path& path) {
    const auto bytes = snapshot.backupData();
    detail::replaceAtomically(path, bytes);
    return bytes.size();
}

PlannerSnapshot readBackup(const std::filesystem::path& path) {
    const auto bytes = detail::readUpTo(path, maximumBackupBytes);
    if (!bytes) throw PlannerError::invalidBackup(backupTooLarge);
    return PlannerSnapshot::decodeBackup(*bytes);
}

} // namespace planner
