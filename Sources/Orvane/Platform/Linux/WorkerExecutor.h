#pragma once

#include "Platform/Executor.h"

#include <QObject>
#include <QThread>

namespace orvane {

/// One thread of its own. Destroying it runs the jobs that are waiting to their end first; their
/// `done` is then not called any more.
class WorkerExecutor : public Executor {
public:
    WorkerExecutor();
    ~WorkerExecutor() override;
    WorkerExecutor(const WorkerExecutor&) = delete;
    WorkerExecutor& operator=(const WorkerExecutor&) = delete;

    void run(std::function<void()> work, std::function<void()> done) override;

private:
    QThread thread_;
    /// Lives on the worker's thread: jobs are its events.
    QObject* worker_;
    /// Lives on the main thread: what is `done` are its events.
    QObject home_;
};

} // namespace orvane
