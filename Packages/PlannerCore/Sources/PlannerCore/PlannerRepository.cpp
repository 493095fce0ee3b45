#include <PlannerCore/PlannerRepository.h>

#include <PlannerCore/Detail/AtomicFile.h>
#include <PlannerCore/Detail/StoreFile.h>
#include <PlannerCore/Detail/StoreRecords.h>
#include <PlannerCore/Detail/StoreRows.h>
#include <PlannerCore/Uuid.h>

#include <mutex>
#include <optional>
#include <utility>

namespace planner {

class PlannerRepository::Store {
public:
    explicit Store(std::filesystem::path folder)
        : directory((detail::createFolder(folder), std::move(folder))),
          database_(detail::openStore(directory / "Planner.sqlite")), rows_(database_) {}

    PlannerSnapshot load() {
        const std::lock_guard lock(mutex_);
        held_.reset();
        detail::Transaction transaction(database_, detail::Transaction::Kind::read);
        auto contents = rows_.read();
        if (contents.asWritten) held_ = Held{contents.snapshot, rows_.dataVersion()};
        return std::move(contents.snapshot);
    }

    void save(const PlannerSnapshot& snapshot) {
        const std::lock_guard lock(mutex_);
        std::optional<detail::Difference> difference;
        if (held_) difference = detail::difference(held_->snapshot, snapshot);
        if (difference && difference->empty() && rows_.dataVersion() == held_->dataVersion) {
            // The same records in other chunks: the next difference is to find those shared.
            held_->snapshot = snapshot;
            return;
        }
        if (!writesThroughLog_) detail::writeThroughLog(database_);
        writesThroughLog_ = true;
        detail::Transaction transaction(database_, detail::Transaction::Kind::write);
        const auto version = rows_.dataVersion();
        const bool isAsHeld = difference && version == held_->dataVersion;
        auto written = detail::Written{.anything = true, .everyRecord = true};
        if (!isAsHeld) {
            written = rows_.writeWhole(snapshot);
        } else if (!rows_.writeDifference(*difference)) {
            // Part of the difference stands in the table by now, and is to be committed with the rest.
            written.everyRecord = rows_.writeWhole(snapshot).everyRecord;
        }
        if (written.anything) transaction.commit();
        if (written.everyRecord)
            held_ = Held{snapshot, version};
        else
            held_.reset();
    }

    std::filesystem::path preserveBackup(const PlannerSnapshot& snapshot) {
        const std::lock_guard lock(mutex_);
        const auto path = directory / ("Before-restore-" + Uuid::random().text() + ".json");
        detail::writeAtomically(path, snapshot.backupData());
        return path;
    }

    const std::filesystem::path directory;

private:
    /// The planner that the rows hold, as long as nobody else writes.
    struct Held {
        /// No key stands twice in it.
        PlannerSnapshot snapshot;
        std::int64_t dataVersion = 0;
    };

    /// Calls come one at a time.
    std::mutex mutex_;
    detail::Database database_;
    detail::StoreRows rows_;
    std::optional<Held> held_;
    /// Opening and loading change nothing in the file; the first save may.
    bool writesThroughLog_ = false;
};

PlannerRepository::PlannerRepository(std::filesystem::path directory)
    : store_(std::make_unique<Store>(std::move(directory))) {}

PlannerRepository::~PlannerRepository() = default;

const std::filesystem::path& PlannerRepository::directory() const {
    return store_->directory;
}

PlannerSnapshot PlannerRepository::load() {
    return store_->load();
}

void PlannerRepository::save(const PlannerSnapshot& snapshot) {
    store_->save(snapshot);
}

std::filesystem::path PlannerRepository::preserveBackup(const PlannerSnapshot& snapshot) {
    return store_->preserveBackup(snapshot);
}

} // namespace planner
