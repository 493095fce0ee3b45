#include "Doubles/FakeExecutor.h"

namespace orvane::test {

bool FakeExecutor::work() {
    if (waiting_.empty()) return false;
    auto job = std::move(waiting_.front());
    waiting_.pop_front();
    job.work();
    untold_.push_back(std::move(job.done));
    return true;
}

bool FakeExecutor::tell() {
    if (untold_.empty()) return false;
    const auto done = std::move(untold_.front());
    untold_.pop_front();
    done();
    return true;
}

} // namespace orvane::test
