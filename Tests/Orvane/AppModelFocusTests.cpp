#include "Orvane/ModelFixture.h"

#include <QTest>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;
using planner::FocusStatus;

namespace {

const QString undelivered = QStringLiteral("Focus time is up, but its notification could not be delivered.");

const QString noAlert = QStringLiteral(
    "Focus timer started. Enable Orvane notifications in System Settings to get a time-up alert.");

/// A ready model with one task.
class Focus : public ModelFixture {
public:
    Focus() {
        load();
        add(QStringLiteral("Tea"));
        platform.settle();
    }

    planner::FocusStatus status() const { return model->focus()->engine()->session.status; }
    void begin(FocusMode mode, int minutes = 25) { model->beginFocus(task(0), mode, minutes); }

    /// Starts a countdown of one minute and lets it run out.
    void runOut() {
        model->focus()->start(task(0), FocusMode::countdown, 1);
        platform.clock.advance(61);
        platform.settle();
    }
};

} // namespace

class AppModelFocusTests : public QObject {
    Q_OBJECT

private slots:
    void aSessionIsStoredFromItsStart() {
        Focus house;
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        house.platform.settle();
        QCOMPARE(house.stored().sessions.size(), std::size_t(1));
        QCOMPARE(house.stored().sessions[0].status, FocusStatus::running);
    }

    void aCheckpointReplacesTheSessionInItsPlace() {
        Focus house;
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        house.model->focus()->finish();
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        house.platform.clock.advance(31);
        house.platform.settle();
        const auto stored = house.stored().sessions;
        QCOMPARE(stored.size(), std::size_t(2));
        QCOMPARE(stored[1].segments.size(), std::size_t(2));
        QVERIFY(stored[1] == house.model->snapshot().sessions[1]);
    }

    void anEqualSessionIsSavedAgainButAppendsNothing() {
        Focus house;
        house.model->focus()->start(house.task(0), FocusMode::stopwatch, 25);
        house.model->focus()->finish();
        const auto revision = house.model->revision();
        house.model->focus()->finish();
        QCOMPARE(house.model->revision(), revision + 1);
        QCOMPARE(house.model->snapshot().sessions.size(), std::size_t(1));
    }

    void aCountdownThatRunsOutIsAnnouncedAndStoredFinished() {
        Focus house;
        house.runOut();
        QCOMPARE(house.platform.notifications.shown.size(), 1);
        QCOMPARE(house.model->notice(), std::nullopt);
        QCOMPARE(house.stored().sessions[0].status, FocusStatus::finished);
    }

    void anAnnouncementThatCannotBeDeliveredIsSaidInTheNotice() {
        Focus house;
        house.platform.notifications.status = NotificationAuthorization::denied;
        house.runOut();
        QCOMPARE(house.model->notice(), std::optional(undelivered));
        QCOMPARE(house.stored().sessions[0].status, FocusStatus::finished);
    }

    void anAnswerForAModelThatIsGoneIsDropped() {
        Focus house;
        house.platform.notifications.status = NotificationAuthorization::denied;
        house.model->focus()->start(house.task(0), FocusMode::countdown, 1);
        house.platform.clock.advance(61);
        QVERIFY(house.platform.notifications.waiting() > 0);
        house.model.reset();
        house.platform.settle();
        QCOMPARE(house.platform.notifications.shown.size(), 0);
    }

    void twoStartsInQuickSuccessionBeginOneSession() {
        Focus house;
        house.begin(FocusMode::countdown);
        QVERIFY(house.model->startingFocus());
        house.begin(FocusMode::countdown);
        house.begin(FocusMode::stopwatch);
        QVERIFY(!house.model->focus()->engine());
        house.platform.settle();
        QVERIFY(!house.model->startingFocus());
        QCOMPARE(house.stored().sessions.size(), std::size_t(1));
        QCOMPARE(house.stored().sessions[0].mode, FocusMode::countdown);
        QCOMPARE(house.stored().sessions[0].target, 1500.0);
    }

    void aStopwatchBeginsAtOnceAsksNothingAndSaysNothing() {
        Focus house;
        house.platform.notifications.status = NotificationAuthorization::denied;
        house.platform.notifications.calls.clear();
        house.begin(FocusMode::stopwatch);
        QCOMPARE(house.status(), FocusStatus::running);
        QVERIFY(!house.model->startingFocus());
        house.platform.settle();
        QCOMPARE(house.platform.notifications.calls.filter(QStringLiteral("equest")), QStringList());
        QCOMPARE(house.model->notice(), std::nullopt);
    }

    void aCountdownWithNotificationsBeginsWithoutANotice() {
        Focus house;
        for (const auto status :
             {NotificationAuthorization::authorized, NotificationAuthorization::provisional}) {
            house.platform.notifications.status = status;
            house.platform.notifications.calls.clear();
            house.begin(FocusMode::countdown, 45);
            house.platform.settle();
            QCOMPARE(house.status(), FocusStatus::running);
            QCOMPARE(house.model->focus()->target(), 2700.0);
            QVERIFY(!house.platform.notifications.calls.contains(QStringLiteral("request")));
            QCOMPARE(house.model->notice(), std::nullopt);
        }
    }

    void aCountdownWithoutNotificationsBeginsWithANotice() {
        Focus house;
        house.platform.notifications.status = NotificationAuthorization::denied;
        house.begin(FocusMode::countdown);
        house.platform.settle();
        QCOMPARE(house.status(), FocusStatus::running);
        QCOMPARE(house.model->notice(), std::optional(noAlert));
        QVERIFY(!house.platform.notifications.calls.contains(QStringLiteral("request")));
    }

    void aCountdownAsksFirstWhereNothingIsDecided() {
        for (const auto decision :
             {NotificationAuthorization::authorized, NotificationAuthorization::denied}) {
            Focus house;
            house.platform.notifications.status = NotificationAuthorization::notDetermined;
            house.platform.notifications.decision = decision;
            house.begin(FocusMode::countdown);
            QVERIFY(house.platform.notifications.answerOne());
            QVERIFY(house.platform.notifications.calls.contains(QStringLiteral("request")));
            QVERIFY(!house.model->focus()->engine());
            house.platform.settle();
            QCOMPARE(house.status(), FocusStatus::running);
            QCOMPARE(house.model->notice(),
                     decision == NotificationAuthorization::denied ? std::optional(noAlert) : std::nullopt);
        }
    }

    void aTaskCompletedWhileTheUserIsAskedIsNotFocusedOn() {
        Focus house;
        house.begin(FocusMode::countdown);
        house.model->toggle(house.task(0));
        house.platform.settle();
        QVERIFY(!house.model->focus()->engine());
        QVERIFY(!house.model->startingFocus());
        house.model->toggle(house.task(0));
        house.begin(FocusMode::countdown);
        house.platform.settle();
        QCOMPARE(house.status(), FocusStatus::running);
    }

    void aTaskRemovedWhileTheUserIsAskedIsNotFocusedOn() {
        Focus house;
        house.begin(FocusMode::countdown);
        house.model->deleteTask(house.task(0));
        house.platform.settle();
        QVERIFY(!house.model->focus()->engine());
        QVERIFY(!house.model->startingFocus());
    }

    void aTaskRenamedWhileTheUserIsAskedGivesTheSessionItsNewTitle() {
        Focus house;
        house.begin(FocusMode::countdown);
        house.model->rename(house.task(0), QStringLiteral("Coffee"));
        house.platform.settle();
        QCOMPARE(house.model->focus()->taskTitle(), QStringLiteral("Coffee"));
    }

    void aPlannerThatIsNotOpenBeginsNothing() {
        ModelFixture house;
        house.model->beginFocus(plainTask(1), FocusMode::stopwatch, 25);
        QVERIFY(!house.model->startingFocus());
        QVERIFY(!house.model->focus()->engine());
        QCOMPARE(house.platform.notifications.calls, QStringList());
    }

    void aModelThatGoesWhileTheUserIsAskedBeginsNothing() {
        Focus house;
        house.begin(FocusMode::countdown);
        house.model.reset();
        house.platform.settle();
        QCOMPARE(house.stored().sessions.size(), std::size_t(0));
    }

    void viewsNameTheTaskAndTheModeInWords() {
        Focus house;
        const auto id = QString::fromStdString(house.task(0).id.text());
        house.model->beginFocusOn(id, QStringLiteral("hourglass"), 25);
        house.model->beginFocusOn(QStringLiteral("nobody"), QStringLiteral("stopwatch"), 25);
        QVERIFY(!house.model->focus()->active());
        QCOMPARE(house.model->focus()->modeText(), QString());
        house.model->beginFocusOn(id, QStringLiteral("stopwatch"), 25);
        auto& timer = *house.model->focus();
        QVERIFY(timer.active());
        QCOMPARE(timer.modeText(), QStringLiteral("stopwatch"));
        QCOMPARE(timer.taskTitle(), QStringLiteral("Tea"));
        timer.pause();
        QVERIFY(timer.active());
        timer.finish();
        QVERIFY(!timer.active());
    }

    void onlyAnOpenTaskHasATitleToShow() {
        Focus house;
        const auto id = QString::fromStdString(house.task(0).id.text());
        QCOMPARE(house.model->openTaskTitle(id), QStringLiteral("Tea"));
        QCOMPARE(house.model->openTaskTitle(QStringLiteral("nobody")), QString());
        house.model->toggle(house.task(0));
        QCOMPARE(house.model->openTaskTitle(id), QString());
        house.model->toggle(house.task(0));
        house.model->deleteTask(house.task(0));
        QCOMPARE(house.model->openTaskTitle(id), QString());
        house.model->undoDelete();
        QCOMPARE(house.model->openTaskTitle(id), QStringLiteral("Tea"));
    }

    void theTimersTextIsThatOfItsSeconds() {
        Focus house;
        const auto& timer = *house.model->focus();
        QCOMPARE(timer.clockText(0), QStringLiteral("00:00"));
        QCOMPARE(timer.clockText(1500), QStringLiteral("25:00"));
        QCOMPARE(timer.clockText(3947.5), QStringLiteral("1:05:48"));
    }
};

QTEST_GUILESS_MAIN(AppModelFocusTests)
#include "AppModelFocusTests.moc"
