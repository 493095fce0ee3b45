#pragma once

#include <functional>

namespace orvane {

/// A serial worker: runs jobs one at a time in the order in which they were handed over.
class Executor {
public:
    virtual ~Executor() = default;

    /// Runs `work` on the worker's thread and then `done` on the main thread. Call on the main thread.
    /// `work` must not throw: it keeps its outcome, a failure included, for `done`. Neither is called
    /// inside this call. `done` may run after whoever asked is gone, so it holds its owner weakly.
    virtual void run(std::function<void()> work, std::function<void()> done) = 0;
};

} // namespace orvane
