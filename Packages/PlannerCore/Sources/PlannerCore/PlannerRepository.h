#pragma once

#include <PlannerCore/PlannerSnapshot.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

namespace planner {

/// A failure of the disk or the database; `what()` is the system's own text for it.
class StoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Keeps a planner on disk between runs: one row for each task, note and session in an SQLite file.
/// docs/storage.md describes the file.
///
/// Calls block on the disk and run one at a time: a call made while another runs waits for it. The
/// application makes them on its store worker, never on the main thread. Files and folders it makes
/// are readable by their owner alone.
class PlannerRepository {
public:
    /// Creates `directory` where it is missing (with its parents) and opens or creates
    /// "Planner.sqlite" in it. A file that is not a planner, a damaged one, or one written by a newer
    /// version is checked before anything is opened for writing and keeps its bytes.
    /// Throws StoreError with the system's text, PlannerError for a newer version.
    explicit PlannerRepository(std::filesystem::path directory);
    ~PlannerRepository();
    PlannerRepository(const PlannerRepository&) = delete;
    PlannerRepository& operator=(const PlannerRepository&) = delete;

    const std::filesystem::path& directory() const;

    /// Reads the whole planner: tasks by order, then creation; notes by day; sessions by creation.
    /// Throws PlannerError for an unreadable row, an unknown kind or a broken rule, JsonError for a
    /// payload that is not its record, StoreError for a failing read. The store is never changed.
    PlannerSnapshot load();

    /// Makes the store hold exactly `snapshot` in one transaction, writing only rows whose bytes
    /// changed; nothing changed means no disk access. Returns once a power cut cannot take it.
    /// Does not validate. Throws JsonError or StoreError; the store is then as it was before.
    void save(const PlannerSnapshot& snapshot);

    /// Writes `snapshot` as a backup file of its own beside the store and returns its path once it is
    /// on disk and was read back byte for byte. Throws as `PlannerSnapshot::backupData` does, or
    /// StoreError, which also tells that it read back differently; no file is left then.
    std::filesystem::path preserveBackup(const PlannerSnapshot& snapshot);

private:
    class Store;
    std::unique_ptr<Store> store_;
};

} // namespace planner
