#pragma once

#include <cstdint>
#include <filesystem>

// Less room than there is, for the whole rest of a process: call these in one of its own (ChildProcess.h).

/// Writing beyond `bytes` of any file fails with "File too large". Throws std::system_error.
void limitFilesTo(std::uint64_t bytes);

/// Puts an empty file system of one megabyte over `folder` that only this process sees; false where that is
/// not allowed.
bool mountSmallDisk(const std::filesystem::path& folder);
