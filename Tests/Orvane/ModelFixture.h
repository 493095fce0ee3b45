#pragma once

#include "Doubles/FakePlatform.h"
#include "FaultVfs.h"
#include "Model/AppModel.h"
#include "ScratchFolder.h"

#include <PlannerCore/PlannerRepository.h>

#include <QString>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace orvane::test {

/// A model over a real store on disk; the rest of the desktop is in memory, and nothing happens by
/// itself.
class ModelFixture {
public:
    ModelFixture() : folder_(quickFolder()), planner_(folder_ / "Orvane") { renew(); }

    /// Lets the model go and makes another one over the same store; what is in the air stays there.
    void renew() {
        model.reset();
        platform.dataFolder.folder = planner_;
        model = std::make_unique<AppModel>(platform.platform);
    }

    /// Opens the store and lets everything come to rest.
    void load() {
        model->load();
        platform.settle();
    }

    const std::filesystem::path& folder() const { return planner_; }

    /// What another program would find in the store.
    planner::PlannerSnapshot stored() const { return planner::PlannerRepository(planner_).load(); }
    /// Puts a planner there beforehand.
    void store(const planner::PlannerSnapshot& snapshot) const {
        planner::PlannerRepository(planner_).save(snapshot);
    }

    planner::PlannerTask task(std::size_t position) const { return model->snapshot().tasks[position]; }
    /// Adds a task, which must succeed, and returns it.
    planner::PlannerTask add(const QString& title) {
        if (!model->addTask(title)) qFatal("the task was not added");
        return model->snapshot().tasks.back();
    }

    static std::vector<std::string> titles(const planner::PlannerSnapshot& snapshot) {
        std::vector<std::string> all;
        for (const auto& task : snapshot.tasks) all.push_back(task.title);
        return all;
    }
    std::vector<std::string> titles() const { return titles(model->snapshot()); }

    /// Before everything that has the store open.
    FaultVfs disk;

private:
    /// Memory where there is some: nothing here depends on a disk being slow.
    static std::filesystem::path quickFolder() {
        const std::filesystem::path memory = "/dev/shm";
        return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    }

    ScratchFolder folder_;
    std::filesystem::path planner_;

public:
    FakePlatform platform;
    std::unique_ptr<AppModel> model;
};

/// An open task, made at second `number` and with that order.
inline planner::PlannerTask plainTask(unsigned number) {
    return {
        planner::Uuid::random(), "Task " + std::to_string(number), {double(number)}, std::int64_t(number)};
}

/// A session of half an hour on `task`.
inline planner::FocusSession session(const planner::PlannerTask& task, planner::FocusStatus status) {
    planner::FocusSession session(task.id, task.title, planner::FocusMode::countdown, 1800, {1000});
    session.status = status;
    return session;
}

} // namespace orvane::test
