#include <PlannerCore/PlannerSnapshot.h>

#include <PlannerCore/BackupFile.h>
#include <PlannerCore/Detail/RecordCoding.h>
#include <PlannerCore/Detail/Text.h>

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace planner {

namespace {

/// Ten years of 365.25 days.
constexpr double maximumActiveSeconds = 315'576'000;
constexpr double maximumTargetSeconds = 86'400;

template <class Records>
bool hasDuplicates(const Records& records) {
    using Key = std::remove_cvref_t<decltype(records.front().id)>;
    std::unordered_set<Key> seen;
    seen.reserve(records.size());
    return !std::ranges::all_of(records, [&](const auto& record) { return seen.insert(record.id).second; });
}

bool isValid(const PlannerTask& task) {
    // A character has at least one byte, so only a long title needs counting.
    return !detail::isBlank(task.title) && (task.title.size() <= maximumTitleCharacters ||
                                            detail::characterCount(task.title) <= maximumTitleCharacters);
}

bool isValid(const DailyNote& note) {
    return note.text.size() <= maximumNoteBytes;
}

bool isValid(const FocusSegment& segment) {
    return std::isfinite(segment.duration) && segment.duration >= 0;
}

bool isValid(const FocusSession& session) {
    const auto active = session.activeDuration();
    return std::isfinite(session.target) && session.target > 0 && session.target <= maximumTargetSeconds &&
           std::isfinite(active) && active <= maximumActiveSeconds &&
           std::ranges::all_of(session.segments, [](const auto& segment) { return isValid(segment); });
}

template <class Records>
bool areValid(const Records& records) {
    return std::ranges::all_of(records, [](const auto& record) { return isValid(record); });
}

bool hasValidRecords(const PlannerSnapshot& snapshot) {
    if (std::max({snapshot.tasks.size(), snapshot.notes.size(), snapshot.sessions.size()}) > maximumRecords)
        return false;
    const auto unfinished = std::ranges::count_if(
        snapshot.sessions, [](const auto& session) { return session.status != FocusStatus::finished; });
    return areValid(snapshot.tasks) && areValid(snapshot.notes) && unfinished <= 1 &&
           areValid(snapshot.sessions);
}

} // namespace

const PlannerSnapshot& PlannerSnapshot::validated() const {
    if (schemaVersion != 1) throw PlannerError::invalidBackup("This backup uses an unsupported format.");
    if (hasDuplicates(tasks) || hasDuplicates(notes) || hasDuplicates(sessions))
        throw PlannerError::invalidBackup("The backup contains duplicate records.");
    if (!hasValidRecords(*this))
        throw PlannerError::invalidBackup("The backup contains invalid or excessively large records.");
    return *this;
}

std::string PlannerSnapshot::backupData() const {
    validated();
    std::string bytes;
    detail::encodeIndented(*this, bytes);
    return bytes;
}

PlannerSnapshot PlannerSnapshot::decodeBackup(std::string_view data) {
    if (data.size() > maximumBackupBytes) throw PlannerError::invalidBackup(backupTooLarge);
    auto snapshot = detail::decodeSnapshot(data);
    snapshot.validated();
    return snapshot;
}

} // namespace planner
