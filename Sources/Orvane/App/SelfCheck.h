#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace orvane {

class Clock;
class EventStore;
class Executor;
class InformationDictionary;
class LoginItem;
class NotificationCenter;
class Screens;

/// Proves in a scratch folder that the planner's store works and reports, as JSON, what the platform
/// says of itself. Shows nothing, asks for nothing and leaves the user's planner alone. Main thread.
class SelfCheck {
public:
    /// What it asks; all must outlive it.
    struct Parts {
        Clock& clock;
        Executor& worker;
        InformationDictionary& information;
        NotificationCenter& notifications;
        EventStore& events;
        LoginItem& loginItem;
        Screens& screens;
    };

    /// What a run gave: the report for standard output, or the line for standard error.
    struct Outcome {
        int exitCode = 1;
        QByteArray output;
        QByteArray error;
    };

    explicit SelfCheck(const Parts& parts);

    /// Starts the run; `finished` is called once, later. The scratch folder is gone by then, however
    /// it ended.
    void run(std::function<void(const Outcome&)> finished);

    /// Ends the run early, as a failure: the store's present step is finished, the next not begun.
    void interrupt();

private:
    void report(std::optional<QString> failure);
    QByteArray reportText(int notificationStatus) const;

    Parts parts_;
    std::function<void(const Outcome&)> finished_;
    std::shared_ptr<std::atomic<bool>> interrupted_ = std::make_shared<std::atomic<bool>>(false);
};

} // namespace orvane
