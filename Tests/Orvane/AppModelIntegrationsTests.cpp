#include "Integrations/CalendarService.h"
#include "Integrations/ReminderService.h"
#include "Orvane/ModelFixture.h"

#include <QTest>

using namespace orvane;
using namespace orvane::test;

namespace {

/// A model with one stored task that has a reminder still to come, on a desktop that was never asked.
class Desk : public ModelFixture {
public:
    Desk() {
        platform.notifications.status = NotificationAuthorization::notDetermined;
        planner::PlannerSnapshot planner;
        auto task = plainTask(1);
        task.reminderAt = platform.clock.now() + 3600;
        planner.tasks.push_back(task);
        store(planner);
        load();
        model->suppressPanel = [this] { steps.append(QStringLiteral("suppress")); };
        model->restorePanel = [this] { steps.append(QStringLiteral("restore")); };
    }

    QStringList steps;
};

} // namespace

class AppModelIntegrationsTests : public QObject {
    Q_OBJECT

private slots:
    void enablingRemindersAsksAndSchedulesTheStoredTasks() {
        Desk desk;
        QVERIFY(desk.platform.notifications.pending.isEmpty());
        desk.model->enableReminders();
        QCOMPARE(desk.steps, QStringList{QStringLiteral("suppress")});
        desk.platform.settle();
        QCOMPARE(desk.steps, (QStringList{QStringLiteral("suppress"), QStringLiteral("restore")}));
        QCOMPARE(desk.model->reminders()->status(), NotificationAuthorization::authorized);
        QCOMPARE(desk.platform.notifications.pending.size(), 1);
    }

    void enablingRemindersSchedulesNoUnsavedTask() {
        Desk desk;
        desk.disk.failWrites(SQLITE_FULL);
        auto unsaved = desk.task(0);
        desk.model->rename(unsaved, QStringLiteral("Renamed in vain"));
        desk.platform.settle();
        desk.model->enableReminders();
        desk.platform.settle();
        QCOMPARE(desk.platform.notifications.pending.size(), 1);
        QCOMPARE(desk.platform.notifications.pending.front().body, QStringLiteral("Task 1"));
    }

    void aRefusalSchedulesNothingAndBringsThePanelBack() {
        Desk desk;
        desk.platform.notifications.decision = NotificationAuthorization::denied;
        desk.model->enableReminders();
        desk.platform.settle();
        QVERIFY(desk.platform.notifications.pending.isEmpty());
        QCOMPARE(desk.steps.last(), QStringLiteral("restore"));
    }

    void thePanelStaysAwayWhileTheUserIsAskedForTheCalendar() {
        Desk desk;
        desk.model->connectCalendar();
        QCOMPARE(desk.steps, QStringList{QStringLiteral("suppress")});
        desk.platform.events.status = CalendarAuthorization::fullAccess;
        desk.platform.events.requests.front()(std::nullopt);
        QCOMPARE(desk.steps, (QStringList{QStringLiteral("suppress"), QStringLiteral("restore")}));
        QCOMPARE(desk.model->calendar()->status(), CalendarAuthorization::fullAccess);
    }

    void answersForAModelThatIsGoneAreDropped() {
        Desk desk;
        desk.model->enableReminders();
        desk.model->connectCalendar();
        desk.model.reset();
        desk.platform.settle();
        desk.platform.events.requests.front()(std::nullopt);
        QCOMPARE(desk.steps.count(QStringLiteral("restore")), 0);
    }
};

QTEST_GUILESS_MAIN(AppModelIntegrationsTests)
#include "AppModelIntegrationsTests.moc"
