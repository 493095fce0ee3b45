#include "App/AppDelegate.h"

#include "WindowFixture.h"

#include <QTest>

#include <sqlite3.h>

#include <system_error>

using namespace orvane;
using namespace orvane::test;

namespace {

struct Running {
    explicit Running(bool ready = true)
        : desk(ready),
          delegate(desk.model.platform.platform, *desk.model.model, *desk.coordinator, [this] { ++ended; }) {}

    FakePlatform& platform() { return desk.model.platform; }
    AppModel& model() { return *desk.model.model; }

    WindowFixture desk;
    AppDelegate delegate;
    int ended = 0;
};

} // namespace

class AppDelegateTests : public QObject {
    Q_OBJECT

private slots:
    void launchOpensThePlannerAndShowsOnlyTheStrip() {
        Running app(false);
        app.delegate.launch();
        app.platform().settle();
        QVERIFY(app.model().ready());
        QVERIFY(!app.desk.dashboard.visible());
    }

    void aPlannerThatCannotBeOpenedIsShownInTheDashboardAtLaunch() {
        Running app(false);
        app.platform().dataFolder.failure = std::make_error_code(std::errc::permission_denied);
        app.delegate.launch();
        app.platform().settle();
        QVERIFY(app.desk.dashboard.visible());
        QVERIFY(app.model().storageFailed());
    }

    void openingTheRunningProgramAgainShowsTheDashboard() {
        Running app;
        app.delegate.reopen();
        QVERIFY(app.desk.dashboard.visible());
    }

    void aQuitWhileTheStoreNeverOpenedTerminatesAtOnce() {
        Running app(false);
        app.delegate.quit();
        QCOMPARE(app.ended, 1);
    }

    void aQuitWaitsForWhatIsStillBeingSaved() {
        Running app;
        app.desk.model.add("Write it down");
        app.delegate.quit();
        QCOMPARE(app.ended, 0);
        app.platform().settle();
        QCOMPARE(app.ended, 1);
        QCOMPARE(app.desk.model.stored().tasks.size(), std::size_t(1));
        QVERIFY(!app.desk.panel.shownAt);
    }

    void aSecondQuitWaitsForTheFirst() {
        Running app;
        app.delegate.quit();
        app.delegate.quit();
        app.platform().settle();
        QCOMPARE(app.ended, 1);
    }

    void aFailedSaveAsksWithTheExactWords() {
        Running app;
        failToSave(app);
        QCOMPARE(app.ended, 0);
        QCOMPARE(app.platform().alerts.open.size(), std::size_t(1));
        const auto& question = app.platform().alerts.open.front();
        QCOMPARE(question.message, QString::fromUtf8("Some changes haven’t been saved."));
        QCOMPARE(question.informative, QString("Keep Orvane open to retry or export a backup. Quitting now "
                                               "loses changes that are only in memory."));
        QCOMPARE(question.buttons, QStringList({"Keep Open", "Quit Without Saving"}));
        QCOMPARE(question.cancelIndex, 0);
        QVERIFY(!app.desk.panel.shownAt);
    }

    void keepOpenLeavesTheProgramRunningAndALaterQuitAsksAgain() {
        Running app;
        failToSave(app);
        app.platform().alerts.choose(0);
        QCOMPARE(app.ended, 0);
        QVERIFY(app.desk.panel.shownAt.has_value());
        app.delegate.quit();
        app.platform().settle();
        QCOMPARE(app.platform().alerts.open.size(), std::size_t(1));
        app.desk.model.disk.heal();
        app.platform().alerts.choose(0);
        app.delegate.quit();
        app.platform().settle();
        QCOMPARE(app.ended, 1);
    }

    void quitWithoutSavingEndsTheProgram() {
        Running app;
        failToSave(app);
        app.platform().alerts.choose(1);
        QCOMPARE(app.ended, 1);
    }

    void aSignalToEndRunsTheSameGuard() {
        Running app;
        app.desk.model.add("Write it down");
        emit app.platform().systemEvents.quitRequested();
        QCOMPARE(app.ended, 0);
        app.platform().settle();
        QCOMPARE(app.ended, 1);
    }

private:
    /// Makes the disk fail, edits, and asks to quit.
    static void failToSave(Running& app) {
        app.desk.model.disk.failWrites(SQLITE_FULL);
        app.desk.model.add("Write it down");
        app.delegate.quit();
        app.platform().settle();
    }
};

QTEST_GUILESS_MAIN(AppDelegateTests)
#include "AppDelegateTests.moc"
