#pragma once

#include "Platform/DataFolder.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace orvane::test {

/// A folder that the test names, or a failure to get one.
class FakeDataFolder : public DataFolder {
public:
    std::filesystem::path open() override {
        ++opened;
        if (failure) throw std::system_error(*failure, "open");
        return folder;
    }

    std::filesystem::path folder;
    std::optional<std::error_code> failure;
    int opened = 0;
};

} // namespace orvane::test
