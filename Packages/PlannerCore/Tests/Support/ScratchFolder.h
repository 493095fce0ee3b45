#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>

/// A folder of its own among the temporary files, taken away with all that is in it.
class ScratchFolder {
public:
    /// Throws std::system_error when it cannot be made.
    ScratchFolder();
    /// As above, below `parent`.
    explicit ScratchFolder(const std::filesystem::path& parent);
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

/// The whole of a file; throws std::runtime_error when it cannot be read.
std::string fileBytes(const std::filesystem::path& path);
/// Puts `bytes` in place of whatever the file held.
void writeFile(const std::filesystem::path& path, const std::string& bytes);
/// Name and bytes of each file directly in `folder`, but for SQLite's "-shm": memory that processes
/// share, not data. Compare with ==, not with EXPECT_EQ, which would print all of it.
std::map<std::string, std::string> filesIn(const std::filesystem::path& folder);
/// The names of what is directly in `folder`.
std::set<std::string> namesIn(const std::filesystem::path& folder);
