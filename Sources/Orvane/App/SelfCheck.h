#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace orvane {

class Clock;
class EventStore;
class Executor;
class InformationDictionary;
class LoginItem;
class NotificationCenter;
class Screens;

/// Proves in a scratch folder that the store works end to end, reads what the desktop allows, and
/// reports in JSON. Never touches the user's planner, asks for no permission and opens no window. Main
/// thread.
class SelfCheck {
public:
    /// What the check reads; all of it outlives the check.
    struct Surroundings {
        Clock& clock;
        Executor& storeExecutor;
        InformationDictionary& information;
        NotificationCenter& notifications;
        EventStore& events;
        LoginItem& loginItem;
        Screens& screens;
    };

    /// The process's exit code and what belongs on its two outputs, line breaks included.
    struct Outcome {
        int exitCode = 0;
        std::string standardOutput;
        std::string standardError;
    };

    /// The scratch folder gets its name here, below the system's folder for temporary files.
    /// Throws std::filesystem::filesystem_error where there is none.
    explicit SelfCheck(Surroundings surroundings);
    /// Removes the scratch folder if it is still there. The store's worker must have come to rest.
    ~SelfCheck();
    SelfCheck(const SelfCheck&) = delete;
    SelfCheck& operator=(const SelfCheck&) = delete;

    /// Runs the check; call once. `done` is called on the main thread when the scratch folder is gone:
    /// exit code 0 with the report, or 1 with the line "Self-check failed: …".
    void run(std::function<void(Outcome)> done);

    /// Ends a running check as failed before its next step.
    void cancel() { cancelled_ = true; }

    const std::filesystem::path& scratchFolder() const { return scratch_; }

private:
    void proveStore() const;
    void stopIfCancelled() const;
    void finish();
    std::string report(int notificationAuthorization) const;
    void removeScratch();
    void fail(const std::string& description);

    Surroundings around_;
    const std::filesystem::path scratch_;
    std::atomic<bool> cancelled_ = false;
    std::string failure_;
    std::function<void(Outcome)> done_;
    /// Gone with the check, so that a late answer finds out.
    std::shared_ptr<SelfCheck*> alive_;
};

} // namespace orvane
