#include "Orvane/ModelFixture.h"

#include <QTest>

using namespace orvane;
using namespace orvane::test;
using planner::FocusMode;
using planner::FocusStatus;

namespace {

const QString undelivered = QStringLiteral("Focus time is up, but its notification could not be delivered.");

/// A ready model with one task.
class Focus : public ModelFixture {
public:
    Focus() {
        load();
        add(QStringLiteral("Tea"));
        platform.settle();
    }

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
};

QTEST_GUILESS_MAIN(AppModelFocusTests)
#include "AppModelFocusTests.moc"
