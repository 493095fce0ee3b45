#include "App/SelfCheck.h"

#include "Model/FailureText.h"
#include "Platform/Clock.h"
#include "Platform/EventStore.h"
#include "Platform/Executor.h"
#include "Platform/InformationDictionary.h"
#include "Platform/LoginItem.h"
#include "Platform/NotificationCenter.h"
#include "Platform/Screens.h"

#include <PlannerCore/PlannerRepository.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace orvane {
namespace {

using planner::PlannerRepository;
using planner::PlannerSnapshot;

/// A folder of its own among the system's temporary files, removed at the end of its life.
class ScratchFolder {
public:
    ScratchFolder()
        : path_(std::filesystem::temp_directory_path() /
                ("Orvane-self-check-" + planner::Uuid::random().text())) {}
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

PlannerSnapshot testSnapshot(planner::Instant now) {
    PlannerSnapshot snapshot;
    snapshot.tasks.push_back({planner::Uuid::random(), "Headless integration test", now, 0});
    snapshot.notes.push_back({"2026-09-30", "Test-only persistence round trip", now});
    return snapshot;
}

void checkStore(planner::Instant now, const std::atomic<bool>& interrupted) {
    const auto goOn = [&interrupted] {
        if (interrupted) throw std::runtime_error("Interrupted");
    };
    const ScratchFolder folder;
    const auto saved = testSnapshot(now);
    goOn();
    {
        PlannerRepository repository(folder.path());
        goOn();
        repository.save(saved);
        goOn();
        if (repository.load() != saved) throw std::runtime_error("SQLite round trip failed");
    }
    goOn();
    if (PlannerRepository(folder.path()).load() != saved) throw std::runtime_error("SQLite reopen failed");
    goOn();
}

QJsonArray displays(const QList<Screen>& screens) {
    QJsonArray list;
    for (const auto& screen : screens)
        list.append(QJsonObject{{QStringLiteral("width"), screen.frame.width},
                                {QStringLiteral("height"), screen.frame.height},
                                {QStringLiteral("scale"), screen.scale},
                                {QStringLiteral("safeAreaTop"), screen.topInset}});
    return list;
}

} // namespace

SelfCheck::SelfCheck(const Parts& parts) : parts_(parts) {}

void SelfCheck::interrupt() {
    *interrupted_ = true;
}

void SelfCheck::run(std::function<void(const Outcome&)> finished) {
    finished_ = std::move(finished);
    auto failure = std::make_shared<std::optional<QString>>();
    parts_.worker.run(
        [failure, now = parts_.clock.now(), interrupted = interrupted_] {
            try {
                checkStore(now, *interrupted);
            } catch (const std::exception& error) {
                *failure = failureText(error);
            }
        },
        [this, failure] { report(*failure); });
}

void SelfCheck::report(std::optional<QString> failure) {
    if (failure) return finished_({1, {}, "Self-check failed: " + failure->toUtf8() + '\n'});
    parts_.notifications.authorization([this](NotificationAuthorization status) {
        finished_({0, reportText(int(status)), {}});
    });
}

QByteArray SelfCheck::reportText(int notificationStatus) const {
    const auto bundle = parts_.information.text(QStringLiteral("CFBundleIdentifier"));
    // An object keeps its keys sorted.
    const QJsonObject report{
        {QStringLiteral("result"), QStringLiteral("PASS")},
        {QStringLiteral("bundleID"), bundle.value_or(QStringLiteral("missing"))},
        {QStringLiteral("sqliteRoundTrip"), true},
        {QStringLiteral("sqliteReopen"), true},
        {QStringLiteral("calendarAuthorization"), int(parts_.events.authorization())},
        {QStringLiteral("notificationAuthorization"), notificationStatus},
        {QStringLiteral("loginItemStatus"), int(parts_.loginItem.status())},
        {QStringLiteral("displays"), displays(parts_.screens.list())},
        {QStringLiteral("uiTested"), false},
        {QStringLiteral("permissionsRequested"), false},
    };
    return QJsonDocument(report).toJson(QJsonDocument::Indented);
}

} // namespace orvane
