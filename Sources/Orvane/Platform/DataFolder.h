#pragma once

#include <filesystem>

namespace orvane {

/// The folder that holds the planner. Main thread.
class DataFolder {
public:
    virtual ~DataFolder() = default;

    /// The folder "Orvane" among the user's application data, created where it is missing and held by
    /// this process alone until the process ends. Calling again is fine.
    /// Throws std::system_error when it cannot be created or another program holds it.
    virtual std::filesystem::path open() = 0;
};

} // namespace orvane
