#pragma once

#include "Platform/Log.h"

#include <mutex>
#include <string>
#include <vector>

namespace orvane::test {

/// A log that is kept in memory.
class FakeLog : public Log {
public:
    void error(std::string_view category, std::string_view message, std::string_view detail) override {
        const std::lock_guard lock(mutex_);
        lines_.push_back(std::string(category) + ": " + std::string(message) + std::string(detail));
    }

    /// "Category: message, detail", oldest first.
    std::vector<std::string> lines() const {
        const std::lock_guard lock(mutex_);
        return lines_;
    }

private:
    mutable std::mutex mutex_;
    std::vector<std::string> lines_;
};

} // namespace orvane::test
