#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace planner::detail {

/// Writes a new file for its owner alone and reads it back: on return it is on disk under `path` with
/// exactly these bytes, and a power cut at any moment leaves all of it or nothing under that name. Throws
/// StoreError with the system's text, or saying that what was read back differs; nothing is left then.
void writeAtomically(const std::filesystem::path& path, std::string_view bytes);

/// Puts a file of these bytes in the place of whatever `path` names, through symbolic links. On return it
/// is on disk; a power cut at any moment leaves the old file or the new one, whole. A new file is for its
/// owner alone, a replaced one hands its permissions on. Throws StoreError with the system's text, also
/// for a file that may not be written and for what is no ordinary file; then the old file is still there,
/// unless only the syncing of the folder failed.
void replaceAtomically(const std::filesystem::path& path, std::string_view bytes);

/// All bytes of an ordinary file; nothing when they are more than `most`, which is told without opening
/// it where its size says so. Throws StoreError with the system's text.
std::optional<std::string> readUpTo(const std::filesystem::path& path, std::size_t most);

/// Returns once the names in `folder` (the current one, when empty) are on disk. Throws as above.
void syncFolder(const std::filesystem::path& folder);

} // namespace planner::detail
