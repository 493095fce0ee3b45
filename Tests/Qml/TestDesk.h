#pragma once

#include "Doubles/PastPlanner.h"
#include "Integrations/ReminderService.h"
#include "Model/NavigationModel.h"
#include "Model/PanelState.h"
#include "Orvane/ModelFixture.h"

#include <PlannerCore/BackupFile.h>

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QObject>
#include <QQuickItem>
#include <QStringList>
#include <QVariant>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <system_error>

namespace orvane::test {

/// What a test of a view works with: the real model on a desktop in memory.
class TestDesk : public QObject {
    Q_OBJECT
    Q_PROPERTY(orvane::AppModel* model READ model NOTIFY changed)
    Q_PROPERTY(orvane::PanelState* panel READ panel NOTIFY changed)
    Q_PROPERTY(orvane::NavigationModel* navigation READ navigation NOTIFY changed)
    /// How often the model asked to close the panel, to show the Dashboard, and to show the settings.
    Q_PROPERTY(int dismissals READ dismissals NOTIFY changed)
    Q_PROPERTY(int dashboards READ dashboards NOTIFY changed)
    Q_PROPERTY(int settingsRequests READ settingsRequests NOTIFY changed)

public:
    AppModel* model() const { return stage_->house.model.get(); }
    PanelState* panel() const { return &stage_->panel; }
    NavigationModel* navigation() const { return &stage_->navigation; }
    int dismissals() const { return stage_->dismissals; }
    int dashboards() const { return stage_->dashboards; }
    int settingsRequests() const { return stage_->settingsRequests; }

    /// A new desktop whose planner is still closed and holds these open tasks. The model of the one
    /// before is gone.
    Q_INVOKABLE void begin(const QStringList& titles) {
        // Two faulty disks never live at once.
        stage_.reset();
        stage_ = std::make_unique<Stage>();
        planner::PlannerSnapshot planner;
        for (const auto& title : titles)
            planner.tasks.push_back({planner::Uuid::random(), title.toStdString(), desk().clock.now(),
                                     static_cast<std::int64_t>(planner.tasks.size())});
        stage_->house.store(planner);
        model()->dismissPanel = [this] { ++stage_->dismissals; };
        model()->openDashboard = [this] { ++stage_->dashboards; };
        model()->openSettings = [this] { ++stage_->settingsRequests; };
        stage_->panel.setReduceMotion(true);
        emit changed();
    }

    /// As `begin`, with the planner opened.
    Q_INVOKABLE void open(const QStringList& titles) {
        begin(titles);
        model()->load();
        settle();
    }

    /// A new desktop with an open planner that has a past: `tasks` of { title, daysAgo, hour } were
    /// completed then, `sessions` of { title, daysAgo, hour, minutes, status } began then, and `notes` of
    /// { text, daysAgo } were written.
    Q_INVOKABLE void openPast(const QVariantMap& lists) {
        begin({});
        PastPlanner past(desk().clock);
        const auto each = [&](const char* name, const auto& add) {
            for (const auto& entry : lists.value(QLatin1String(name)).toList()) {
                const auto map = entry.toMap();
                add(map, map["daysAgo"].toInt(), map["hour"].toDouble());
            }
        };
        each("tasks", [&](const QVariantMap& task, int daysAgo, double hour) {
            past.complete(daysAgo, hour, task["title"].toString().toStdString());
        });
        each("sessions", [&](const QVariantMap& session, int daysAgo, double hour) {
            past.focus(daysAgo, hour, session["title"].toString().toStdString(),
                       session["minutes"].toDouble(),
                       planner::focusStatus(session["status"].toString().toStdString())
                           .value_or(planner::FocusStatus::finished));
        });
        each("notes", [&](const QVariantMap& note, int daysAgo, double) {
            past.note(daysAgo, note["text"].toString().toStdString());
        });
        stage_->house.store(past.snapshot);
        model()->load();
        settle();
    }
    /// The key of the day `daysAgo` before today.
    Q_INVOKABLE QString day(int daysAgo) const {
        return QString::fromStdString(PastPlanner(desk().clock).day(daysAgo));
    }
    /// Lets so much time pass, with whatever happens at a midnight on the way.
    Q_INVOKABLE void pass(double seconds) {
        desk().clock.advance(seconds);
        model()->followToday();
        settle();
    }
    /// Runs the store's jobs and whatever follows from them.
    Q_INVOKABLE void settle() { desk().settle(); }
    /// Opening the planner fails from now on, or works again.
    Q_INVOKABLE void failOpening(bool fails) {
        desk().dataFolder.failure.reset();
        if (fails) desk().dataFolder.failure = std::make_error_code(std::errc::permission_denied);
    }
    /// Writing the planner fails from now on, or works again.
    Q_INVOKABLE void failSaves(bool fails) {
        if (fails)
            stage_->house.disk.failWrites(SQLITE_FULL);
        else
            stage_->house.disk.heal();
    }
    /// Agrees to put a backup with these open tasks in the planner's place; `settle` lets that happen.
    Q_INVOKABLE void beginRestore(const QStringList& titles) {
        planner::PlannerSnapshot backup;
        for (const auto& title : titles)
            backup.tasks.push_back({planner::Uuid::random(), title.toStdString(), desk().clock.now(),
                                    static_cast<std::int64_t>(backup.tasks.size())});
        const auto file = stage_->house.folder().parent_path() / "Backup.json";
        planner::writeBackup(backup, file);
        model()->importBackup();
        desk().filePanels.choose(file);
        settle();
        desk().alerts.choose(0);
    }
    /// Lets the end of a focus session be announced while notifications are refused, which the reminder
    /// service takes down as its problem.
    Q_INVOKABLE void failReminder() {
        desk().notifications.status = NotificationAuthorization::denied;
        model()->reminders()->notifyFocusFinished(
            {planner::Uuid::random(), "", planner::FocusMode::countdown, 60, desk().clock.now()},
            [](bool) {});
        settle();
    }
    Q_INVOKABLE void requestFocus() { model()->requestFocus(); }
    /// The item below `from` of that object name; nothing when there is none.
    Q_INVOKABLE QQuickItem* find(QQuickItem* from, const QString& name) const {
        if (from->objectName() == name) return from;
        for (auto* child : from->childItems())
            if (auto* found = find(child, name)) return found;
        return nullptr;
    }
    Q_INVOKABLE QStringList openTitles() const { return titles(false); }
    Q_INVOKABLE QStringList completedTitles() const { return titles(true); }

    Q_INVOKABLE void showPanel(bool expanded, const QRectF& target, bool animated) {
        stage_->panel.setExpanded(expanded);
        stage_->panel.setTarget(target, animated);
    }
    Q_INVOKABLE void setReduceMotion(bool on) { stage_->panel.setReduceMotion(on); }
    Q_INVOKABLE void setNotch(double inset, double width) { stage_->panel.setNotch(inset, width); }
    Q_INVOKABLE void hideEveryCard() {
        auto preferences = model()->settings()->preferences();
        preferences.hiddenCards = allWorkspaceCards();
        model()->settings()->setPreferences(preferences);
    }
    /// Leaves one kind of card.
    Q_INVOKABLE void showOnly(const QString& card) {
        auto preferences = model()->settings()->preferences();
        preferences.hiddenCards = allWorkspaceCards();
        preferences.hiddenCards.removeIf([&](WorkspaceCard other) { return rawValue(other) == card; });
        model()->settings()->setPreferences(preferences);
    }
    Q_INVOKABLE void setCardWidth(int width) {
        auto preferences = model()->settings()->preferences();
        preferences.cardWidth = width;
        model()->settings()->setPreferences(preferences);
    }
    Q_INVOKABLE void setAppearance(const QString& appearance) {
        auto preferences = model()->settings()->preferences();
        preferences.appearance = appearance;
        model()->settings()->setPreferences(preferences);
    }
    /// Attaches these displays, whose ids count from 1, in place of those before.
    Q_INVOKABLE void attachDisplays(const QStringList& names) {
        QList<Screen> screens;
        for (const auto& name : names)
            screens.append(FakeScreens::plain(std::uint32_t(screens.size()) + 1, name));
        desk().screens.set(screens);
    }
    /// What a new program on this desktop begins with.
    Q_INVOKABLE QVariantMap storedPreferences() const {
        const auto stored = SettingsModel(desk().platform).preferences();
        return {{"appearance", stored.appearance},
                {"clockStyle", stored.clockStyle},
                {"defaultMinutes", qint64(stored.defaultMinutes)},
                {"hoverEnabled", stored.hoverEnabled},
                {"cards", words(stored.cards)},
                {"hiddenCards", words(stored.hiddenCards)},
                {"cardWidth", stored.cardWidth},
                {"displayID", stored.displayID}};
    }
    /// How often something was written to the user's defaults.
    Q_INVOKABLE int writes() const { return int(desk().defaults.writes.size()); }
    /// Starts an 80-minute countdown and lets `seconds` of it pass.
    Q_INVOKABLE void startFocus(double seconds) {
        model()->focus()->start(model()->incompleteTasks().front(), planner::FocusMode::countdown, 80);
        desk().clock.advance(seconds);
    }
    Q_INVOKABLE void pauseFocus() { model()->focus()->pause(); }
    Q_INVOKABLE void finishFocus() { model()->focus()->finish(); }
    /// Finds a countdown that was planned to last `target` seconds and had `spent` of them counted when
    /// the program ended.
    Q_INVOKABLE void recoverFocus(const QString& title, double target, double spent) {
        planner::FocusSession session(planner::Uuid::random(), title.toStdString(),
                                      planner::FocusMode::countdown, target, desk().clock.now());
        session.segments = {{desk().clock.now(), spent}};
        model()->focus()->restore(session);
    }
    /// Lets time pass, and whatever happens meanwhile happen.
    Q_INVOKABLE void advance(double seconds) {
        desk().clock.advance(seconds);
        settle();
    }
    Q_INVOKABLE void setDefaultMinutes(int minutes) {
        prefer([=](Preferences& p) { p.defaultMinutes = minutes; });
    }
    Q_INVOKABLE void setClockStyle(const QString& style) {
        prefer([&](Preferences& p) { p.clockStyle = style; });
    }
    Q_INVOKABLE void hideTasksCard() {
        prefer([](Preferences& p) { p.hiddenCards = {WorkspaceCard::tasks}; });
    }
    /// The id of the first task of that title, open or completed; empty when there is none.
    Q_INVOKABLE QString idOf(const QString& title) const {
        for (const auto& task : model()->snapshot().tasks)
            if (task.title == title.toStdString()) return QString::fromStdString(task.id.text());
        return {};
    }
    /// The text of a day's note in the store; nothing where there is none.
    Q_INVOKABLE QVariant storedNote(const QString& day) const {
        for (const auto& note : stage_->house.stored().notes)
            if (note.id == day.toStdString()) return QString::fromStdString(note.text);
        return {};
    }
    /// An input method's doing in front of `item`: what it shows, and what it gives for good.
    Q_INVOKABLE void compose(QQuickItem* item, const QString& unfinished, const QString& finished) const {
        QInputMethodEvent event(unfinished, {});
        event.setCommitString(finished);
        QCoreApplication::sendEvent(item, &event);
    }
    /// Puts a text into the clipboard, and the same in bold.
    Q_INVOKABLE void copy(const QString& text) const {
        auto* data = new QMimeData;
        data->setText(text);
        data->setHtml(QStringLiteral("<b>%1</b>").arg(text));
        QGuiApplication::clipboard()->setMimeData(data);
    }
    Q_INVOKABLE QString copied() const { return QGuiApplication::clipboard()->text(); }

signals:
    void changed();

private:
    struct Stage {
        ModelFixture house;
        PanelState panel;
        NavigationModel navigation;
        int dismissals = 0;
        int dashboards = 0;
        int settingsRequests = 0;
    };

    void prefer(const std::function<void(Preferences&)>& change) {
        auto preferences = model()->settings()->preferences();
        change(preferences);
        model()->settings()->setPreferences(preferences);
    }

    static QStringList words(const QList<WorkspaceCard>& cards) {
        QStringList words;
        for (const auto card : cards) words.append(rawValue(card));
        return words;
    }

    FakePlatform& desk() const { return stage_->house.platform; }

    QStringList titles(bool complete) const {
        QStringList found;
        for (const auto& task : model()->snapshot().tasks)
            if (task.isComplete() == complete) found.append(QString::fromStdString(task.title));
        return found;
    }

    std::unique_ptr<Stage> stage_ = std::make_unique<Stage>();
};

} // namespace orvane::test
