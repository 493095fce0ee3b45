#pragma once

#include <PlannerCore/Detail/Sqlite.h>
#include <PlannerCore/Detail/StoreDifference.h>

#include <string>
#include <string_view>
#include <vector>

namespace planner::detail {

/// What bringing the rows in line came to.
struct Written {
    bool anything = false;
    /// Whether each record has its row: none gave way to a later one with the same key.
    bool everyRecord = false;
};

/// Reads and writes the planner's rows. Must not outlive its database; opens and ends no transaction.
class StoreRows {
public:
    explicit StoreRows(Database& database);

    struct Contents {
        /// Sorted and validated.
        PlannerSnapshot snapshot;
        /// Whether every row has the key and the very bytes that writing its record would give it.
        bool asWritten = true;
    };
    /// Throws as `PlannerRepository::load` does.
    Contents read();

    /// Brings the rows in line with `wanted` by comparing every row with its record. Right
    /// from whatever the table holds. Of records with one key the last counts; the kind of a row that
    /// stays is not rewritten. Throws JsonError or StoreError.
    Written writeWhole(const PlannerSnapshot& wanted);

    /// Writes what is in `difference`. False when the table was not what the difference was taken
    /// from, or a key stands twice in what is wanted: it must then be brought in line as a whole.
    /// Throws as above.
    bool writeDifference(const Difference& difference);

    /// A number that changes when another connection has written.
    std::int64_t dataVersion();

private:
    template <class Record>
    bool remove(const std::vector<const Record*>& records);
    /// What was changed and what was added.
    template <class Record>
    bool write(const ListDifference<Record>& difference);
    bool insert(std::string_view key, std::string_view kind, std::string_view payload);

    Database& database_;
    Statement select_;
    Statement insert_;
    Statement update_;
    Statement remove_;
    Statement clear_;
    Statement updateRow_;
    Statement removeRow_;
    Statement dataVersion_;
    /// Reused for each row.
    std::string key_;
    std::string payload_;
};

} // namespace planner::detail
