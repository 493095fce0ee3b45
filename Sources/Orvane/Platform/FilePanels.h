#pragma once

#include <QString>

#include <filesystem>
#include <functional>
#include <optional>

namespace orvane {

/// The dialogs in which the user chooses a JSON file. They come to the front of all programs. Main thread.
class FilePanels {
public:
    /// Gets the chosen file's path, or nothing when the user chose none. Called later, never inside the
    /// call, and exactly once; not at all when the panels go first.
    using Answer = std::function<void(const std::optional<std::filesystem::path>&)>;

    virtual ~FilePanels() = default;

    /// Asks where to write a file, offering `suggestedName`. Replacing an existing one has been agreed to.
    virtual void save(const QString& suggestedName, Answer answer) = 0;
    /// Asks for an existing file, which is no folder.
    virtual void open(Answer answer) = 0;
};

} // namespace orvane
