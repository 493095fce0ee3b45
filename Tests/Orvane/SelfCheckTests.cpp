#include "App/SelfCheck.h"

#include "Doubles/FakePlatform.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

using namespace orvane;
using namespace orvane::test;

class SelfCheckTests : public QObject {
    Q_OBJECT

private slots:
    void init() {
        qunsetenv("TMPDIR");
        folder_ = std::make_unique<QTemporaryDir>();
        qputenv("TMPDIR", folder_->path().toUtf8());
        platform_ = std::make_unique<FakePlatform>();
    }

    void aWorkingStoreIsReportedWithEveryKeySortedAndExitCodeZero() {
        platform_->notifications.status = NotificationAuthorization::notDetermined;
        const auto outcome = check();
        QCOMPARE(outcome.exitCode, 0);
        QVERIFY(outcome.standardError.empty());
        const auto report = reportOf(outcome);
        QCOMPARE(report.keys(),
                 QStringList({"bundleID", "calendarAuthorization", "displays", "loginItemStatus",
                              "notificationAuthorization", "permissionsRequested", "result", "sqliteReopen",
                              "sqliteRoundTrip", "uiTested"}));
        QCOMPARE(report["result"].toString(), "PASS");
        QVERIFY(report["sqliteRoundTrip"].toBool());
        QVERIFY(report["sqliteReopen"].toBool());
        QCOMPARE(report["notificationAuthorization"].toInt(-1), 0);
        QCOMPARE(report["calendarAuthorization"].toInt(-1), int(platform_->events.authorization()));
        QCOMPARE(report["loginItemStatus"].toInt(-1), int(platform_->loginItem.status()));
        QCOMPARE(report["uiTested"].toBool(true), false);
        QCOMPARE(report["permissionsRequested"].toBool(true), false);
        QVERIFY(outcome.standardOutput.find("\n    \"bundleID\"") != std::string::npos);
    }

    void withNoScreenTheListIsEmptyAndTheResultIsStillPass() {
        const auto report = reportOf(check());
        QCOMPARE(report["result"].toString(), "PASS");
        QVERIFY(report["displays"].isArray());
        QVERIFY(report["displays"].toArray().isEmpty());
    }

    void eachScreenIsListedWithItsSizeScaleAndInset() {
        auto screen = FakeScreens::plain(7, "Built-in");
        screen.scale = 2;
        screen.topInset = 37;
        platform_->screens.set({screen, FakeScreens::plain(8, "Desk")});
        const auto displays = reportOf(check())["displays"].toArray();
        QCOMPARE(displays.size(), 2);
        QCOMPARE(displays[0].toObject(),
                 (QJsonObject{{"width", 1512}, {"height", 982}, {"scale", 2}, {"safeAreaTop", 37}}));
        QCOMPARE(displays[1].toObject()["safeAreaTop"].toDouble(-1), 0);
    }

    void theScratchFolderIsGoneAfterSuccess() {
        check();
        QVERIFY(QDir(folder_->path()).isEmpty());
    }

    void theScratchFolderIsGoneAfterAFailure() {
        auto selfCheck = make();
        // A file stands where the folder should be.
        QFile blocker(QString::fromStdString(selfCheck->scratchFolder().string()));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        const auto outcome = finish(*selfCheck);
        QCOMPARE(outcome.exitCode, 1);
        QVERIFY(outcome.standardOutput.empty());
        QVERIFY(QString::fromStdString(outcome.standardError).startsWith("Self-check failed: "));
        QVERIFY(outcome.standardError.ends_with("\n"));
        QVERIFY(QDir(folder_->path()).isEmpty());
    }

    void twoChecksAtTheSameMomentUseDifferentFoldersAndBothPass() {
        auto first = make();
        auto second = make();
        QVERIFY(first->scratchFolder() != second->scratchFolder());
        std::optional<SelfCheck::Outcome> outcomes[2];
        first->run([&](SelfCheck::Outcome outcome) { outcomes[0] = std::move(outcome); });
        second->run([&](SelfCheck::Outcome outcome) { outcomes[1] = std::move(outcome); });
        platform_->settle();
        QCOMPARE(outcomes[0].value().exitCode, 0);
        QCOMPARE(outcomes[1].value().exitCode, 0);
    }

    void aCancelledCheckFailsAndLeavesNothing() {
        auto selfCheck = make();
        selfCheck->cancel();
        const auto outcome = finish(*selfCheck);
        QCOMPARE(outcome.exitCode, 1);
        QVERIFY(QString::fromStdString(outcome.standardError).startsWith("Self-check failed: "));
        QVERIFY(QDir(folder_->path()).isEmpty());
    }

    void aCheckThatIsGoneIsNotToldOfAnything() {
        auto selfCheck = make();
        bool told = false;
        selfCheck->run([&](SelfCheck::Outcome) { told = true; });
        platform_->storeExecutor.work();
        selfCheck.reset();
        platform_->settle();
        QVERIFY(!told);
        QVERIFY(QDir(folder_->path()).isEmpty());
    }

private:
    std::unique_ptr<SelfCheck> make() {
        return std::make_unique<SelfCheck>(SelfCheck::Surroundings{
            platform_->clock, platform_->storeExecutor, platform_->information, platform_->notifications,
            platform_->events, platform_->loginItem, platform_->screens});
    }

    SelfCheck::Outcome finish(SelfCheck& selfCheck) {
        std::optional<SelfCheck::Outcome> outcome;
        selfCheck.run([&](SelfCheck::Outcome result) { outcome = std::move(result); });
        platform_->settle();
        return outcome.value();
    }

    SelfCheck::Outcome check() { return finish(*make()); }

    static QJsonObject reportOf(const SelfCheck::Outcome& outcome) {
        return QJsonDocument::fromJson(QByteArray::fromStdString(outcome.standardOutput)).object();
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<FakePlatform> platform_;
};

QTEST_GUILESS_MAIN(SelfCheckTests)
#include "SelfCheckTests.moc"
