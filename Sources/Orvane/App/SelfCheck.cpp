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

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace orvane {
namespace {

planner::PlannerSnapshot testPlanner(planner::Instant now) {
    planner::PlannerSnapshot snapshot;
    snapshot.tasks.push_back({planner::Uuid::random(), "Headless integration test", now, 0});
    snapshot.notes.push_back({"2026-09-30", "Test-only persistence round trip", now});
    return snapshot;
}

QJsonArray described(const QList<Screen>& screens) {
    QJsonArray displays;
    for (const auto& screen : screens)
        displays.append(QJsonObject{{"width", screen.frame.width},
                                    {"height", screen.frame.height},
                                    {"scale", screen.scale},
                                    {"safeAreaTop", screen.topInset}});
    return displays;
}

/// A fresh path in the temporary folder. One that does not exist fails when the store is opened in it.
std::filesystem::path scratchPath() {
    std::error_code missing;
    auto folder = std::filesystem::temp_directory_path(missing);
    if (const char* named = std::getenv("TMPDIR"); missing && named) folder = named;
    return folder / ("Orvane-self-check-" + planner::Uuid::random().text());
}

} // namespace

SelfCheck::SelfCheck(Surroundings surroundings)
    : around_(surroundings), scratch_(scratchPath()), alive_(std::make_shared<SelfCheck*>(this)) {}

SelfCheck::~SelfCheck() {
    *alive_ = nullptr;
    removeScratch();
}

void SelfCheck::run(std::function<void(Outcome)> done) {
    done_ = std::move(done);
    around_.storeExecutor.run(
        [this] {
            try {
                proveStore();
            } catch (const std::exception& error) {
                failure_ = failureText(error).toStdString();
            }
        },
        [this, alive = alive_] {
            if (*alive) finish();
        });
}

void SelfCheck::proveStore() const {
    const auto saved = testPlanner(around_.clock.now());
    {
        planner::PlannerRepository repository(scratch_);
        stopIfCancelled();
        repository.save(saved);
        stopIfCancelled();
        if (repository.load() != saved) throw std::runtime_error("SQLite round trip failed");
    }
    stopIfCancelled();
    planner::PlannerRepository reopened(scratch_);
    if (reopened.load() != saved) throw std::runtime_error("SQLite reopen failed");
}

void SelfCheck::stopIfCancelled() const {
    if (cancelled_) throw std::system_error(std::make_error_code(std::errc::interrupted));
}

void SelfCheck::finish() {
    removeScratch();
    if (!failure_.empty()) return fail(failure_);
    around_.notifications.authorization([this, alive = alive_](NotificationAuthorization status) {
        if (*alive) done_({0, report(int(status)), {}});
    });
}

std::string SelfCheck::report(int notificationAuthorization) const {
    const auto identifier = around_.information.text(QStringLiteral("CFBundleIdentifier"));
    const QJsonObject report{{"result", "PASS"},
                             {"bundleID", identifier.value_or(QStringLiteral("missing"))},
                             {"sqliteRoundTrip", true},
                             {"sqliteReopen", true},
                             {"calendarAuthorization", int(around_.events.authorization())},
                             {"notificationAuthorization", notificationAuthorization},
                             {"loginItemStatus", int(around_.loginItem.status())},
                             {"displays", described(around_.screens.list())},
                             {"uiTested", false},
                             {"permissionsRequested", false}};
    return QJsonDocument(report).toJson(QJsonDocument::Indented).toStdString();
}

void SelfCheck::removeScratch() {
    std::error_code ignored;
    std::filesystem::remove_all(scratch_, ignored);
}

void SelfCheck::fail(const std::string& description) {
    done_({1, {}, "Self-check failed: " + description + "\n"});
}

} // namespace orvane
