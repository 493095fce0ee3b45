#pragma once

namespace orvane {

class Alerts;
class Clock;
class DataFolder;
class EventStore;
class Executor;
class FilePanels;
class HotKeyRegistrar;
class InformationDictionary;
class Log;
class LoginItem;
class NotificationCenter;
class Screens;
class SystemEvents;
class UserDefaults;

/// Everything the application asks of the system, owned by the composition root, which outlives
/// whoever is given this.
struct Platform {
    Clock& clock;
    /// The worker of the planner's store.
    Executor& storeExecutor;
    DataFolder& dataFolder;
    UserDefaults& defaults;
    InformationDictionary& information;
    NotificationCenter& notifications;
    EventStore& events;
    LoginItem& loginItem;
    HotKeyRegistrar& hotKeys;
    Screens& screens;
    SystemEvents& systemEvents;
    Alerts& alerts;
    FilePanels& filePanels;
    Log& log;
};

} // namespace orvane
