#pragma once

#include "Platform/DataFolder.h"

#include <filesystem>

namespace orvane {

/// "Orvane" under $XDG_DATA_HOME (freedesktop.org base directories; ~/.local/share without it),
/// readable by its owner alone, held through flock(2) on the file ".lock" in it.
class XdgDataFolder : public DataFolder {
public:
    XdgDataFolder() = default;
    /// Releases the folder.
    ~XdgDataFolder() override;
    XdgDataFolder(const XdgDataFolder&) = delete;
    XdgDataFolder& operator=(const XdgDataFolder&) = delete;

    /// A folder that another program holds is std::errc::resource_unavailable_try_again, and its code's
    /// message says so in the user's words.
    std::filesystem::path open() override;

private:
    int lock_ = -1;
};

} // namespace orvane
