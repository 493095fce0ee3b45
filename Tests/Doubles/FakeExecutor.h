#pragma once

#include "Platform/Executor.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <utility>

namespace orvane::test {

/// A worker without a thread: a job waits until it is run or released, on the calling thread. A job
/// can be stopped halfway, its work done and its owner not told yet.
class FakeExecutor : public Executor {
public:
    void run(std::function<void()> work, std::function<void()> done) override {
        waiting_.push_back({std::move(work), std::move(done)});
        ++handedOver_;
    }

    /// Jobs whose work has not been done yet.
    std::size_t waiting() const { return waiting_.size(); }
    /// Jobs whose work is done and whose owner has not been told.
    std::size_t untold() const { return untold_.size(); }
    /// All jobs ever handed over.
    std::size_t handedOver() const { return handedOver_; }

    /// Does the oldest job's work and holds its answer back. False when there is none.
    bool work();
    /// Gives the oldest answer that is held back. False when there is none.
    bool tell();
    /// Works off the oldest job and gives its answer, after the answers held back. False when there was
    /// nothing to do.
    bool runOne() { return tell() || (work() && tell()); }
    /// Runs jobs, also those that come up meanwhile, until there are none.
    void runAll() {
        while (runOne()) {
        }
    }

private:
    struct Job {
        std::function<void()> work;
        std::function<void()> done;
    };
    std::deque<Job> waiting_;
    std::deque<std::function<void()>> untold_;
    std::size_t handedOver_ = 0;
};

} // namespace orvane::test
