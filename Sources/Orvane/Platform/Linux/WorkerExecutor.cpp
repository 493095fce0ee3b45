#include "Platform/Linux/WorkerExecutor.h"

#include <QMetaObject>

#include <utility>

namespace orvane {

WorkerExecutor::WorkerExecutor() : worker_(new QObject) {
    worker_->moveToThread(&thread_);
    thread_.setObjectName(QStringLiteral("store"));
    thread_.start();
}

WorkerExecutor::~WorkerExecutor() {
    // Behind every waiting job: leaving the thread from outside would drop them.
    QMetaObject::invokeMethod(
        worker_,
        [this] {
            delete worker_;
            thread_.quit();
        },
        Qt::QueuedConnection);
    thread_.wait();
}

void WorkerExecutor::run(std::function<void()> work, std::function<void()> done) {
    QMetaObject::invokeMethod(
        worker_,
        [this, work = std::move(work), done = std::move(done)]() mutable {
            work();
            // What the work holds ends here, on the worker's thread.
            work = nullptr;
            QMetaObject::invokeMethod(&home_, std::move(done), Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
}

} // namespace orvane
