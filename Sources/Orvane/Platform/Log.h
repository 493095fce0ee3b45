#pragma once

#include <string_view>

namespace orvane {

/// The system log. Any thread.
class Log {
public:
    virtual ~Log() = default;

    /// Writes "`message``detail`" at error level under `category` ("Persistence"). `detail` is private
    /// to the user and is replaced where the log is kept for others to read.
    virtual void error(std::string_view category, std::string_view message, std::string_view detail) = 0;
};

} // namespace orvane
