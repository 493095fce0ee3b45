#include "App/AppDelegate.h"

#include "Integrations/CalendarService.h"
#include "Integrations/ReminderService.h"
#include "Model/AppModel.h"
#include "Platform/Alerts.h"
#include "Platform/Clock.h"
#include "Platform/Platform.h"
#include "Platform/SystemEvents.h"
#include "Windows/WindowCoordinator.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QPointer>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace orvane {
namespace {

enum Answer { keepOpen = 0, quitWithoutSaving = 1 };

/// The least time to wait for midnight: a clock that is slow by a little does not keep the program busy.
constexpr double leastWait = 1.0;

} // namespace

AppDelegate::AppDelegate(Platform& platform, AppModel& model, WindowCoordinator& windows,
                         std::function<void()> terminate)
    : platform_(platform), model_(model), windows_(windows), terminate_(std::move(terminate)) {
    connect(&platform_.systemEvents, &SystemEvents::quitRequested, this, &AppDelegate::quit);
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::launch() {
    model_.load([self = QPointer(this)] {
        if (!self) return;
        self->scheduleMidnight();
        if (self->model_.storageFailed()) self->windows_.showDashboard(NavigationModel::DashboardPage::today);
    });
}

void AppDelegate::scheduleMidnight() {
    midnight_.reset();
    const auto now = platform_.clock.now();
    const auto calendar = platform_.clock.calendar();
    const auto today = calendar.day(now);
    const auto next = calendar.startOfDay(now, 1);
    if (!today || !next) return;
    midnight_ = platform_.clock.after(std::max(next->seconds - now.seconds, leastWait),
                                      [this, day = *today] { reachMidnight(day); });
}

void AppDelegate::reachMidnight(planner::CivilDay day) {
    const auto today = platform_.clock.calendar().day(platform_.clock.now());
    // Not where the clock was set back meanwhile.
    if (today && *today > day) {
        model_.calendar()->refresh();
        model_.followToday();
        if (model_.ready()) {
            model_.reminders()->reconcile(model_.snapshot().tasks);
            model_.setNotice(tr("A new day is here. Your unfinished tasks are still with you."));
        }
    }
    scheduleMidnight();
}

void AppDelegate::reopen() {
    windows_.showDashboard(NavigationModel::DashboardPage::today);
}

void AppDelegate::quit() {
    if (terminating_) return;
    if (!model_.ready()) return end();
    terminating_ = true;
    model_.focus()->pause();
    model_.flush([self = QPointer(this)](bool saved) {
        if (!self) return;
        if (saved)
            self->end();
        else
            self->askWhetherToLose();
    });
}

void AppDelegate::askWhetherToLose() {
    if (model_.suppressPanel) model_.suppressPanel();
    platform_.alerts.ask(tr("Some changes haven’t been saved."),
                         tr("Keep Orvane open to retry or export a backup. Quitting now loses changes that "
                            "are only in memory."),
                         {tr("Keep Open"), tr("Quit Without Saving")}, keepOpen,
                         [self = QPointer(this)](int answer) {
                             if (!self) return;
                             self->terminating_ = false;
                             if (self->model_.restorePanel) self->model_.restorePanel();
                             if (answer == quitWithoutSaving) self->end();
                         });
}

void AppDelegate::end() {
    midnight_.reset();
    windows_.stop();
    model_.calendar()->stop();
    terminate_();
}

void AppDelegate::watch(QWindow& window) {
    window.installEventFilter(this);
}

bool AppDelegate::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const auto* press = static_cast<const QKeyEvent*>(event);
    if (press->key() != Qt::Key_Q || press->modifiers() != Qt::ControlModifier) return false;
    quit();
    return true;
}

} // namespace orvane
