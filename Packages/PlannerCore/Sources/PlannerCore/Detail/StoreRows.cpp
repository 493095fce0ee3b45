#include <PlannerCore/Detail/StoreRows.h>

#include <PlannerCore/Detail/RecordCoding.h>
#include <PlannerCore/Detail/StoreRecords.h>

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

namespace planner::detail {

namespace {

constexpr const char* unreadable = "A planner record is unreadable.";
constexpr const char* incompatible = "This planner was created by an incompatible app version.";

/// Collects decoded records and notes whether each row is the one that writing it would make.
class Collector {
public:
    void add(std::optional<std::string_view> key, std::string_view kind, std::string_view payload) {
        if (kind == StoredAs<PlannerTask>::kind)
            add(tasks_, decodeTask(payload), key, payload);
        else if (kind == StoredAs<DailyNote>::kind)
            add(notes_, decodeNote(payload), key, payload);
        else if (kind == StoredAs<FocusSession>::kind)
            add(sessions_, decodeSession(payload), key, payload);
        else
            throw PlannerError::invalidBackup(incompatible);
    }

    StoreRows::Contents finished() {
        sort(tasks_, [](const auto& task) { return std::pair(task.order, task.createdAt); });
        sort(notes_, [](const auto& note) { return std::string_view(note.id); });
        sort(sessions_, [](const auto& session) { return session.createdAt; });
        StoreRows::Contents contents;
        contents.snapshot.tasks = RecordList(std::move(tasks_));
        contents.snapshot.notes = RecordList(std::move(notes_));
        contents.snapshot.sessions = RecordList(std::move(sessions_));
        contents.snapshot.validated();
        contents.asWritten = asWritten_;
        return contents;
    }

private:
    template <class Record>
    void add(std::vector<Record>& records, Record record, std::optional<std::string_view> key,
             std::string_view payload) {
        records.push_back(std::move(record));
        if (!asWritten_) return;
        key_.clear();
        StoredAs<Record>::appendKey(records.back(), key_);
        payload_.clear();
        encode(records.back(), payload_);
        asWritten_ = key == key_ && payload == payload_;
    }

    template <class Record, class SortKey>
    static void sort(std::vector<Record>& records, SortKey sortKey) {
        std::ranges::stable_sort(records, {}, sortKey);
    }

    std::vector<PlannerTask> tasks_;
    std::vector<DailyNote> notes_;
    std::vector<FocusSession> sessions_;
    bool asWritten_ = true;
    std::string key_;
    std::string payload_;
};

struct Entry {
    std::string key;
    std::string_view kind;
    std::string payload;
    /// Whether a row holds it already.
    bool stored = false;
};

/// The rows that `snapshot` is to have, in the order of its lists; of those with one key the last.
std::vector<Entry> entries(const PlannerSnapshot& snapshot) {
    std::vector<Entry> rows;
    rows.reserve(recordCount(snapshot));
    std::unordered_map<std::string, std::size_t> places;
    places.reserve(recordCount(snapshot));
    forEachList(snapshot, [&]<class Record>(const RecordList<Record>& records) {
        for (const auto& record : records) {
            Entry entry{.key = {}, .kind = StoredAs<Record>::kind, .payload = {}};
            StoredAs<Record>::appendKey(record, entry.key);
            encode(record, entry.payload);
            const auto [place, isNew] = places.emplace(entry.key, rows.size());
            if (isNew)
                rows.push_back(std::move(entry));
            else
                rows[place->second] = std::move(entry);
        }
    });
    return rows;
}

} // namespace

StoreRows::StoreRows(Database& database)
    : database_(database),
      select_(database, "SELECT key, kind, payload, rowid FROM PlannerRecord ORDER BY rowid"),
      insert_(database, "INSERT INTO PlannerRecord(key, kind, payload) VALUES(?, ?, ?)"
                        " ON CONFLICT(key) DO NOTHING"),
      update_(database, "UPDATE PlannerRecord SET payload = ? WHERE key = ?"),
      remove_(database, "DELETE FROM PlannerRecord WHERE key = ?"),
      clear_(database, "DELETE FROM PlannerRecord"),
      updateRow_(database, "UPDATE PlannerRecord SET payload = ? WHERE rowid = ?"),
      removeRow_(database, "DELETE FROM PlannerRecord WHERE rowid = ?"),
      dataVersion_(database, "PRAGMA data_version") {}

StoreRows::Contents StoreRows::read() {
    Collector collector;
    const StatementRun run(select_);
    while (select_.step()) {
        const auto kind = select_.text(1);
        const auto payload = select_.blob(2);
        if (!kind || !payload) throw PlannerError::invalidBackup(unreadable);
        collector.add(select_.text(0), *kind, *payload);
    }
    return collector.finished();
}

Written StoreRows::writeWhole(const PlannerSnapshot& wanted) {
    auto rows = entries(wanted);
    std::unordered_map<std::string_view, Entry*> byKey;
    byKey.reserve(rows.size());
    for (auto& row : rows) byKey.emplace(row.key, &row);

    std::vector<std::int64_t> unwanted;
    std::vector<std::pair<std::int64_t, const Entry*>> outdated;
    {
        const StatementRun run(select_);
        while (select_.step()) {
            const auto key = select_.text(0);
            const auto match = key ? byKey.find(*key) : byKey.end();
            if (match == byKey.end() || match->second->stored) {
                unwanted.push_back(select_.number(3));
                continue;
            }
            match->second->stored = true;
            if (select_.blob(2) != match->second->payload)
                outdated.emplace_back(select_.number(3), match->second);
        }
    }

    bool written = !unwanted.empty() || !outdated.empty();
    for (const auto row : unwanted) {
        removeRow_.bindNumber(1, row);
        removeRow_.run();
    }
    for (const auto& [row, entry] : outdated) {
        updateRow_.bindBlob(1, entry->payload);
        updateRow_.bindNumber(2, row);
        updateRow_.run();
    }
    for (const auto& row : rows) {
        if (row.stored) continue;
        insert(row.key, row.kind, row.payload);
        written = true;
    }
    return {.anything = written, .everyRecord = rows.size() == recordCount(wanted)};
}

bool StoreRows::insert(std::string_view key, std::string_view kind, std::string_view payload) {
    insert_.bindText(1, key);
    insert_.bindText(2, kind);
    insert_.bindBlob(3, payload);
    insert_.run();
    return database_.changes() == 1;
}

template <class Record>
bool StoreRows::remove(const std::vector<const Record*>& records) {
    for (const auto* record : records) {
        key_.clear();
        StoredAs<Record>::appendKey(*record, key_);
        remove_.bindText(1, key_);
        remove_.run();
        if (database_.changes() != 1) return false;
    }
    return true;
}

template <class Record>
bool StoreRows::write(const ListDifference<Record>& difference) {
    const auto prepare = [this](const Record& record) {
        key_.clear();
        StoredAs<Record>::appendKey(record, key_);
        payload_.clear();
        encode(record, payload_);
    };
    for (const auto* record : difference.changed) {
        prepare(*record);
        update_.bindBlob(1, payload_);
        update_.bindText(2, key_);
        update_.run();
        if (database_.changes() != 1) return false;
    }
    for (const auto* record : difference.added) {
        prepare(*record);
        if (!insert(key_, StoredAs<Record>::kind, payload_)) return false;
    }
    return true;
}

bool StoreRows::writeDifference(const Difference& difference) {
    if (difference.removesEverything) {
        clear_.run();
    } else if (!remove(difference.tasks.removed) || !remove(difference.notes.removed) ||
               !remove(difference.sessions.removed)) {
        return false;
    }
    return write(difference.tasks) && write(difference.notes) && write(difference.sessions);
}

std::int64_t StoreRows::dataVersion() {
    const StatementRun run(dataVersion_);
    if (!dataVersion_.step()) throw StoreError("The store tells no data version.");
    return dataVersion_.number(0);
}

} // namespace planner::detail
