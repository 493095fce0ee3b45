#pragma once

#include <PlannerCore/DailyNote.h>
#include <PlannerCore/FocusSession.h>
#include <PlannerCore/PlannerError.h>
#include <PlannerCore/PlannerTask.h>
#include <PlannerCore/RecordList.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace planner {

/// The largest backup that is read, in bytes (decimal megabytes).
inline constexpr std::size_t maximumBackupBytes = 50'000'000;
/// The most records that each of the three lists may hold.
inline constexpr std::size_t maximumRecords = 100'000;
/// The most user-perceived characters of a task's title.
inline constexpr std::size_t maximumTitleCharacters = 1000;
/// The most bytes of UTF-8 in a note.
inline constexpr std::size_t maximumNoteBytes = 5'000'000;

/// The whole planner. A plain value whose copy costs a pointer per few hundred records; any thread.
struct PlannerSnapshot {
    /// Format version; 1 is the only one there is.
    std::int64_t schemaVersion = 1;
    RecordList<PlannerTask> tasks;
    RecordList<DailyNote> notes;
    /// All sessions, finished or not.
    RecordList<FocusSession> sessions;

    /// Returns this snapshot unchanged when it keeps every rule; never repairs or drops anything.
    /// Time and memory are linear in the number of records.
    /// Throws PlannerError with the sentence of the first rule broken, in this order: version,
    /// duplicates within one list, list sizes, titles, notes, one unfinished session at most,
    /// session values.
    const PlannerSnapshot& validated() const;

    /// The backup file's bytes: validated, then encoded with sorted keys and indented by 2 spaces.
    /// Throws PlannerError as `validated` does, JsonError for a number that JSON cannot hold.
    std::string backupData() const;

    /// Reads a backup. Throws PlannerError "Backups must be smaller than 50 MB." before any parsing
    /// for more than `maximumBackupBytes`, JsonError for bytes that are not this format, and
    /// PlannerError as `validated` does.
    static PlannerSnapshot decodeBackup(std::string_view data);

    bool operator==(const PlannerSnapshot&) const = default;
};

} // namespace planner
