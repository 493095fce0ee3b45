#include "Model/AppModel.h"

#include "Integrations/CalendarService.h"
#include "Integrations/ReminderService.h"
#include "Integrations/UpdateService.h"
#include "Platform/Clock.h"
#include "Platform/Platform.h"

#include <utility>

namespace orvane {

AppModel::AppModel(Platform& platform, QObject* parent)
    : QObject(parent), platform_(platform), saveState_(tr("Opening your planner…")),
      noteDate_(platform.clock.now()), settings_(std::make_unique<SettingsModel>(platform)),
      focus_(std::make_unique<FocusController>(platform.clock)),
      calendar_(std::make_unique<CalendarService>(platform.events, platform.clock)),
      reminders_(std::make_unique<ReminderService>(platform.notifications, platform.clock)),
      updates_(std::make_unique<UpdateService>(platform.information)),
      openTasks_(std::make_unique<TaskListModel>(TaskListModel::Shown::open)),
      completedTasks_(std::make_unique<TaskListModel>(TaskListModel::Shown::completed)) {
    connect(reminders_.get(), &ReminderService::errorChanged, this, &AppModel::reminderErrorChanged);
}

AppModel::~AppModel() = default;

Clock& AppModel::clock() const {
    return platform_.clock;
}

void AppModel::setError(std::optional<QString> error) {
    if (error == error_) return;
    error_ = std::move(error);
    emit errorChanged();
    updateStorageFailed();
}

void AppModel::setNotice(std::optional<QString> notice) {
    if (notice == notice_) return;
    notice_ = std::move(notice);
    emit noticeChanged();
}

void AppModel::setErrorText(const QString& text) {
    setError(text.isEmpty() ? std::nullopt : std::optional(text));
}

void AppModel::setNoticeText(const QString& text) {
    setNotice(text.isEmpty() ? std::nullopt : std::optional(text));
}

QString AppModel::reminderError() const {
    return reminders_->error().value_or(QString());
}

void AppModel::dismissReminderError() {
    reminders_->dismissError();
}

void AppModel::requestFocus() {
    ++focusRequest_;
    emit focusRequestChanged();
}

void AppModel::requestDashboard() const {
    if (openDashboard) openDashboard();
}

void AppModel::requestSettings() const {
    if (openSettings) openSettings();
}

void AppModel::requestDismissal() const {
    if (dismissPanel) dismissPanel();
}

void AppModel::setSaveState(const QString& text) {
    if (text == saveState_) return;
    saveState_ = text;
    emit saveStateChanged();
}

void AppModel::updateStorageFailed() {
    if (std::exchange(storageFailedBefore_, storageFailed()) != storageFailed()) emit storageFailedChanged();
}

void AppModel::tasksEdited() {
    openTasks_->setTasks(snapshot_.tasks);
    completedTasks_->setTasks(snapshot_.tasks);
    emit snapshotChanged();
}

} // namespace orvane
