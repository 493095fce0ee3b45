#include "Doubles/FakeClock.h"
#include "Doubles/FakeNotificationCenter.h"
#include "Integrations/ReminderService.h"

#include <QTest>

#include <memory>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;
using planner::FocusSession;
using planner::PlannerTask;
using planner::Uuid;

namespace {

using Tasks = planner::RecordList<PlannerTask>;

QString text(const Uuid& id) {
    return QString::fromStdString(id.text());
}

QString identifier(const PlannerTask& task) {
    return QStringLiteral("task-") + text(task.id);
}

struct House {
    FakeClock clock;
    FakeNotificationCenter center;
    std::unique_ptr<ReminderService> service = std::make_unique<ReminderService>(center, clock);

    PlannerTask task(double secondsFromNow, const char* title = "Tea") const {
        PlannerTask task(Uuid::random(), title, clock.now(), 0);
        task.reminderAt = clock.now() + secondsFromNow;
        return task;
    }
    void reconcile(const Tasks& tasks) {
        service->reconcile(tasks);
        center.answerAll();
    }
    std::optional<bool> announce(const FocusSession& session) {
        std::optional<bool> answer;
        service->notifyFocusFinished(session, [&](bool delivered) { answer = delivered; });
        center.answerAll();
        return answer;
    }
};

FocusSession finishedSession() {
    return {Uuid::random(), "Tea", FocusMode::countdown, 60, {0}};
}

NotificationRequest pendingFor(const PlannerTask& task) {
    return {.identifier = identifier(task),
            .title = QStringLiteral("A little nudge"),
            .body = QString::fromStdString(task.title),
            .userInfo = {{QStringLiteral("taskID"), text(task.id)}},
            .fireAt = task.reminderAt};
}

} // namespace

class ReminderServiceTests : public QObject {
    Q_OBJECT

private slots:
    void theStatusIsUndecidedUntilItIsReadAndFollowsOnlyRefresh() {
        House house;
        QCOMPARE(house.service->status(), NotificationAuthorization::notDetermined);
        bool read = false;
        house.service->refresh([&] { read = true; });
        QVERIFY(!read);
        house.center.answerAll();
        QVERIFY(read);
        QCOMPARE(house.service->status(), NotificationAuthorization::authorized);
        house.center.status = NotificationAuthorization::denied;
        QCOMPARE(house.service->status(), NotificationAuthorization::authorized);
    }

    void aReminderToComeIsScheduledToTheSecond() {
        House house;
        house.clock.setNow({1000.25});
        const auto task = house.task(100.5, "Öl & Brot");
        house.reconcile({task});
        QCOMPARE(house.center.pending.size(), 1);
        const auto& request = house.center.pending[0];
        QCOMPARE(request.identifier, identifier(task));
        QCOMPARE(request.title, QStringLiteral("A little nudge"));
        QCOMPARE(request.body, QStringLiteral("Öl & Brot"));
        QCOMPARE(request.userInfo, (QHash<QString, QString>{{"taskID", text(task.id)}}));
        QCOMPARE(request.fireAt->seconds, 1100.0);
    }

    void onlyOpenTasksWithAReminderToComeAreWanted() {
        House house;
        auto done = house.task(60);
        done.completedAt = house.clock.now();
        PlannerTask none(Uuid::random(), "None", house.clock.now(), 0);
        const auto wanted = house.task(1);
        house.reconcile({house.task(0), house.task(-60), done, none, wanted});
        QCOMPARE(house.center.pendingIdentifiers(), QStringList{identifier(wanted)});
    }

    void aCompletedTasksRequestIsRemoved() {
        House house;
        auto task = house.task(60);
        house.reconcile({task});
        task.completedAt = house.clock.now();
        house.reconcile({task});
        QCOMPARE(house.center.pendingIdentifiers(), QStringList());
    }

    void aReminderNowOrInThePastIsRemoved() {
        House house;
        const auto task = house.task(60);
        house.reconcile({task});
        house.clock.stepWall(60);
        house.reconcile({task});
        QCOMPARE(house.center.pendingIdentifiers(), QStringList());
    }

    void aRenamedTasksRequestIsReplacedUnderItsIdentifier() {
        House house;
        auto task = house.task(60);
        house.reconcile({task});
        task.title = "Coffee";
        house.reconcile({task});
        QCOMPARE(house.center.pending.size(), 1);
        QCOMPARE(house.center.pendingRequest(identifier(task))->body, QStringLiteral("Coffee"));
    }

    void aMoveByLessThanASecondKeepsTheRequestAndBySecondsDoesNot() {
        House house;
        auto task = house.task(60);
        house.reconcile({task});
        house.center.calls.clear();
        task.reminderAt = *task.reminderAt + 0.9;
        house.reconcile({task});
        QCOMPARE(house.center.calls, (QStringList{"authorization", "pendingRequests"}));
        task.reminderAt = *task.reminderAt + 0.1;
        house.reconcile({task});
        QCOMPARE(house.center.calls.last(), QStringLiteral("add ") + identifier(task));
        QCOMPARE(house.center.pending.size(), 1);
    }

    void whatIsNotATasksRequestSurvives() {
        House house;
        auto focus = pendingFor(house.task(60));
        focus.identifier = QStringLiteral("focus-") + text(Uuid::random());
        house.center.pending = {focus, pendingFor(house.task(60))};
        house.reconcile({});
        QCOMPARE(house.center.pendingIdentifiers(), QStringList{focus.identifier});
    }

    void allStaleRequestsAreRemovedInOneCall() {
        House house;
        house.center.pending = {pendingFor(house.task(60)), pendingFor(house.task(70))};
        const auto stale = house.center.pendingIdentifiers();
        house.reconcile({});
        QCOMPARE(house.center.calls.filter(QStringLiteral("remove")),
                 QStringList{QStringLiteral("remove ") + stale.join(u' ')});
    }

    void deniedPermissionStillRemovesAndAddsNothing() {
        House house;
        house.center.status = NotificationAuthorization::denied;
        house.center.pending = {pendingFor(house.task(60))};
        house.reconcile({house.task(60)});
        QCOMPARE(house.center.pendingIdentifiers(), QStringList());
        QCOMPARE(house.service->error(), std::nullopt);
    }

    void onlyAuthorizedAndProvisionalMayDeliver_data() {
        QTest::addColumn<NotificationAuthorization>("status");
        QTest::addColumn<bool>("delivers");
        QTest::newRow("not determined") << NotificationAuthorization::notDetermined << false;
        QTest::newRow("denied") << NotificationAuthorization::denied << false;
        QTest::newRow("authorized") << NotificationAuthorization::authorized << true;
        QTest::newRow("provisional") << NotificationAuthorization::provisional << true;
        QTest::newRow("ephemeral") << NotificationAuthorization::ephemeral << false;
    }

    void onlyAuthorizedAndProvisionalMayDeliver() {
        QFETCH(NotificationAuthorization, status);
        QFETCH(bool, delivers);
        House house;
        house.center.status = status;
        house.reconcile({house.task(60)});
        QCOMPARE(house.center.pending.size(), delivers ? 1 : 0);
        QCOMPARE(house.announce(finishedSession()), std::optional(delivers));
        QCOMPARE(house.center.shown.size(), delivers ? 1 : 0);
    }

    void aRefusedReminderIsSaidAndTheOthersAreStillScheduled() {
        House house;
        const auto first = house.task(60), second = house.task(70);
        house.center.refusals[identifier(first)] = QStringLiteral("No room.");
        house.reconcile({first, second});
        QCOMPARE(house.service->error(),
                 QStringLiteral("The task is saved, but its reminder could not be scheduled: No room."));
        QCOMPARE(house.center.pendingIdentifiers(), QStringList{identifier(second)});
    }

    void theErrorIsClearedWhenRemindersMayBeScheduledAndKeptOtherwise() {
        House house;
        const auto task = house.task(60);
        house.center.refusals[identifier(task)] = QStringLiteral("No room.");
        house.reconcile({task});
        house.center.status = NotificationAuthorization::denied;
        house.reconcile({});
        QVERIFY(house.service->error());
        house.center.status = NotificationAuthorization::provisional;
        house.reconcile({});
        QCOMPARE(house.service->error(), std::nullopt);
    }

    void aSecondReconcileBeginsWhenTheFirstHasEnded() {
        House house;
        const auto first = house.task(60), second = house.task(70);
        house.service->reconcile({first});
        house.service->reconcile({second});
        QCOMPARE(house.center.calls, QStringList{"authorization"});
        house.center.answerAll();
        const auto add = QStringLiteral("add "), remove = QStringLiteral("remove ");
        QCOMPARE(house.center.calls,
                 (QStringList{"authorization", "pendingRequests", add + identifier(first), "authorization",
                              "pendingRequests", remove + identifier(first), add + identifier(second)}));
    }

    void eachReconcileSeesTheListItWasGiven() {
        House house;
        Tasks tasks{house.task(60)};
        house.service->reconcile(tasks);
        tasks.erase(0);
        house.center.answerAll();
        QCOMPARE(house.center.pending.size(), 1);
    }

    void theFocusAlertIsShownAtOnce() {
        House house;
        const auto session = finishedSession();
        QCOMPARE(house.announce(session), std::optional(true));
        QCOMPARE(house.center.shown.size(), 1);
        const auto& request = house.center.shown[0];
        QCOMPARE(request.identifier, QStringLiteral("focus-") + text(session.id));
        QCOMPARE(request.title, QStringLiteral("Focus time is up"));
        QCOMPARE(request.body, QStringLiteral("Your focus session is complete."));
        QCOMPARE(request.userInfo, (QHash<QString, QString>{{"focusSession", text(session.id)}}));
    }

    void aFocusAlertThatMayNotBeShownIsSaid() {
        House house;
        house.center.status = NotificationAuthorization::denied;
        QCOMPARE(house.announce(finishedSession()), std::optional(false));
        QCOMPARE(house.service->error(), QStringLiteral("Notifications are disabled for Orvane."));
    }

    void aFocusAlertThatIsRefusedIsSaid() {
        House house;
        const auto session = finishedSession();
        house.center.refusals[QStringLiteral("focus-") + text(session.id)] = QStringLiteral("No room.");
        QCOMPARE(house.announce(session), std::optional(false));
        QCOMPARE(house.service->error(),
                 QStringLiteral("The focus timer finished, but its notification could not be delivered: "
                                "No room."));
    }

    void aClickIsRoutedByWhatTheNotificationNames() {
        House house;
        const auto task = house.task(60);
        QStringList opened;
        house.service->open({{"taskID", text(task.id)}});
        house.service->onOpen = [&](const std::optional<Uuid>& id) {
            opened.append(id ? text(*id) : "none");
        };
        house.service->onOpenFocus = [&] { opened.append("focus"); };
        house.service->open({{"taskID", text(task.id)}});
        house.service->open({{"taskID", "no id"}});
        house.service->open({});
        house.service->open({{"focusSession", "any"}, {"taskID", text(task.id)}});
        QCOMPARE(opened, (QStringList{text(task.id), "none", "none", "focus"}));
    }

    void answersForAServiceThatIsGoneAreDropped() {
        House house;
        bool answered = false;
        house.service->reconcile({house.task(60)});
        house.service->notifyFocusFinished(finishedSession(), [&](bool) { answered = true; });
        house.center.answerOne();
        house.service.reset();
        house.center.answerAll();
        QVERIFY(!answered);
        QCOMPARE(house.center.pending.size(), 0);
    }
};

QTEST_GUILESS_MAIN(ReminderServiceTests)
#include "ReminderServiceTests.moc"
