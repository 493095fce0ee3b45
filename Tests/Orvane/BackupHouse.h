#pragma once

#include "Orvane/ModelFixture.h"
#include "StoredRows.h"

#include <QSignalSpy>

#include <map>
#include <memory>
#include <string>

namespace orvane::test {

/// A ready model with two tasks, a note and a finished session, and files beside its planner to export to
/// and restore from.
class BackupHouse : public ModelFixture {
public:
    BackupHouse() {
        store(planner());
        load();
        watch();
    }

    static const planner::PlannerSnapshot& planner() {
        static const auto made = [] {
            planner::PlannerSnapshot planner;
            planner.tasks = {plainTask(1), plainTask(2)};
            planner.notes = {{"2026-03-07", "Call Ada", {1}}};
            planner.sessions = {session(planner.tasks[0], planner::FocusStatus::finished)};
            return planner;
        }();
        return made;
    }
    /// A planner with three tasks, none of them one of the other's, and no session under way.
    static const planner::PlannerSnapshot& other() {
        static const auto made = [] {
            planner::PlannerSnapshot planner;
            planner.tasks = {plainTask(11), plainTask(12), plainTask(13)};
            planner.notes = {{"2026-03-08", "Buy seeds", {2}}};
            return planner;
        }();
        return made;
    }
    /// The same with one more session, in this state.
    static planner::PlannerSnapshot otherWith(planner::FocusStatus status) {
        auto planner = other();
        planner.sessions = {session(planner.tasks[1], status)};
        return planner;
    }

    /// Another model over the same store, ready.
    void begin() {
        renew();
        load();
        watch();
    }

    std::filesystem::path file(const std::string& name) const { return folder().parent_path() / name; }
    std::filesystem::path written(const planner::PlannerSnapshot& planner) const {
        return written(planner.backupData());
    }
    std::filesystem::path written(const std::string& bytes) const {
        writeFile(file("Backup.json"), bytes);
        return file("Backup.json");
    }

    /// Chooses the file in the panel of a restore and lets it be read.
    void choose(const std::filesystem::path& path) {
        model->importBackup();
        platform.filePanels.choose(path);
        platform.settle();
    }
    /// Agrees to the restore that is asked about and lets nothing happen yet.
    void agree() { platform.alerts.choose(0); }
    /// A restore from the file to its end.
    void restore(const std::filesystem::path& path) {
        choose(path);
        agree();
        platform.settle();
    }
    void exportTo(const std::filesystem::path& path) {
        model->exportBackup();
        platform.filePanels.choose(path);
        platform.settle();
    }

    /// The one safety copy's path; empty without one.
    std::filesystem::path safetyCopy() const {
        for (const auto& name : namesIn(folder()))
            if (name.starts_with("Before-restore-")) return folder() / name;
        return {};
    }
    /// The planner's files but for safety copies, byte for byte.
    std::map<std::string, std::string> files() const {
        auto files = filesIn(folder());
        std::erase_if(files, [](const auto& entry) { return entry.first.starts_with("Before-restore-"); });
        return files;
    }
    StoredRows rows() const { return storedRows(folder()); }

    /// How often the panel was asked to stay away and to come back.
    int suppressed = 0;
    int restored = 0;

private:
    void watch() {
        model->suppressPanel = [this] { ++suppressed; };
        model->restorePanel = [this] { ++restored; };
    }
};

} // namespace orvane::test
