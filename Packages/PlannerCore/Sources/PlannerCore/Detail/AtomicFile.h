#pragma once

#include <filesystem>
#include <string_view>

namespace planner::detail {

/// Writes a new file for its owner alone: on return it is on disk under `path` with all its bytes, and
/// a power cut at any moment leaves all of it or nothing under that name. Throws StoreError with the
/// system's text; nothing is left then.
void writeAtomically(const std::filesystem::path& path, std::string_view bytes);

/// Returns once the names in `folder` (the current one, when empty) are on disk. Throws as above.
void syncFolder(const std::filesystem::path& folder);

} // namespace planner::detail
