#include "Orvane/BackupHouse.h"

#include "ChildProcess.h"
#include "SmallDisk.h"

#include <QTest>

#include <algorithm>
#include <sys/stat.h>

using namespace orvane;
using namespace orvane::test;
using planner::PlannerSnapshot;
using Titles = std::vector<std::string>;

namespace {

const QString failed = QStringLiteral("Restore failed; your current planner was preserved. ");
const QString notABackup = QStringLiteral("Choose a JSON backup exported by Orvane.");
const QString tooLarge = QStringLiteral("Backups must be smaller than 50 MB.");
const QString done = QStringLiteral("Backup restored. Previous data was backed up locally.");

std::string padded(const PlannerSnapshot& planner, std::size_t size) {
    auto bytes = planner.backupData();
    bytes.resize(size, ' ');
    return bytes;
}

/// JSON with its quotation marks, for which `text` has apostrophes.
std::string json(std::string text) {
    std::replace(text.begin(), text.end(), '\'', '"');
    return text;
}

/// The JSON of a planner that may break the rules, which `backupData` would refuse.
std::string unchecked(const std::string& tasks, const std::string& notes, const std::string& sessions,
                      int version = 1) {
    return json("{'notes':[" + notes + "],'schemaVersion':" + std::to_string(version) + ",'sessions':[" +
                sessions + "],'tasks':[" + tasks + "]}");
}

std::string id(int number) {
    return "'0F8FAD5B-D9CB-469F-A165-70867728950" + std::to_string(number) + "'";
}

std::string task(const std::string& title) {
    return "{'createdAt':1,'id':" + id(1) + ",'order':1,'title':'" + title + "'}";
}

std::string note(const std::string& text, int day = 1) {
    return "{'id':'day " + std::to_string(day) + "','text':'" + text + "','updatedAt':1}";
}

std::string focus(int number, const std::string& status, const char* target, const char* duration) {
    return "{'createdAt':1,'id':" + id(number) + ",'mode':'countdown','segments':[{'duration':" + duration +
           ",'start':1}],'status':'" + status + "','target':" + target + ",'taskID':" + id(9) +
           ",'title':'Tea'}";
}

} // namespace

class AppModelRestoreRefusalTests : public QObject {
    Q_OBJECT

private slots:
    void aBackupOfExactlyTheLimitIsRestored() {
        BackupHouse house;
        house.restore(house.written(padded(BackupHouse::other(), planner::maximumBackupBytes)));
        QCOMPARE(house.model->notice(), std::optional(done));
        QVERIFY(house.stored() == BackupHouse::other());
    }

    void whatIsNoBackupIsRefusedWithItsReason_data() {
        const auto records = QStringLiteral("The backup contains invalid or excessively large records.");
        const auto duplicates = QStringLiteral("The backup contains duplicate records.");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        const auto add = [](const char* name, const std::string& bytes, const QString& reason) {
            QTest::newRow(name) << QByteArray::fromStdString(bytes) << reason;
        };
        add("one byte too large", padded(BackupHouse::other(), planner::maximumBackupBytes + 1), tooLarge);
        add("nothing", "", notABackup);
        add("no JSON", "Dear diary", notABackup);
        add("cut short", BackupHouse::other().backupData().substr(0, 200), notABackup);
        add("JSON of another shape", json("{'version':2,'items':[]}"), notABackup);
        add("a list", "[]", notABackup);
        add("a wrong type", json("{'notes':[],'schemaVersion':1,'sessions':[],'tasks':{}}"), notABackup);
        add("another version", unchecked("", "", "", 2),
            QStringLiteral("This backup uses an unsupported format."));
        add("two equal tasks", unchecked(task("Tea") + "," + task("Cake"), "", ""), duplicates);
        add("two equal notes", unchecked("", note("a") + "," + note("b"), ""), duplicates);
        const auto finished = focus(1, "finished", "60", "1");
        add("two equal sessions", unchecked("", "", finished + "," + finished), duplicates);
        add("a blank title", unchecked(task(" "), "", ""), records);
        add("a title too long", unchecked(task(std::string(1001, 't')), "", ""), records);
        add("a note too long", unchecked("", note(std::string(5'000'001, 'n')), ""), records);
        add("two open sessions",
            unchecked("", "", focus(1, "paused", "60", "1") + "," + focus(2, "running", "60", "1")), records);
        add("no target", unchecked("", "", focus(1, "finished", "0", "1")), records);
        add("a target too long", unchecked("", "", focus(1, "finished", "86400.5", "1")), records);
        add("a negative stretch", unchecked("", "", focus(1, "finished", "60", "-0.001")), records);
        add("too long a session", unchecked("", "", focus(1, "finished", "60", "315576001")), records);
        std::string many = note("", 0);
        for (int day = 1; day <= int(planner::maximumRecords); ++day) many += "," + note("", day);
        add("too many notes", unchecked("", many, ""), records);
    }
    void whatIsNoBackupIsRefusedWithItsReason() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        BackupHouse house;
        const auto files = house.files();
        house.choose(house.written(bytes.toStdString()));
        QVERIFY(house.platform.alerts.open.empty());
        refused(house, files, reason);
        QVERIFY(house.safetyCopy().empty());
    }

    void whatCannotBeReadIsRefused() {
        BackupHouse house;
        std::filesystem::create_directory(house.file("folder"));
        QCOMPARE(mkfifo(house.file("pipe").c_str(), 0600), 0);
        const auto files = house.files();
        for (const auto* name : {"missing", "folder", "pipe"}) {
            house.choose(house.file(name));
            QVERIFY2(house.platform.alerts.open.empty(), name);
            refused(house, files, notABackup);
            house.model->setError(std::nullopt);
        }
    }

    void whatMayNotBeReadIsRefused() {
        const auto told = inChildProcess([]() -> std::string {
            BackupHouse house;
            const auto path = house.written(BackupHouse::other());
            chmod(path.c_str(), 0);
            chmod(house.folder().parent_path().c_str(), 0755);
            becomeNobody();
            house.choose(path);
            return house.model->error().value_or("restored").toStdString();
        });
        QCOMPARE(QString::fromStdString(told), failed + notABackup);
    }

    void aFileThatVanishesAfterTheQuestionIsRestoredAllTheSame() {
        BackupHouse house;
        const auto path = house.written(BackupHouse::other());
        house.choose(path);
        std::filesystem::remove(path);
        house.agree();
        house.platform.settle();
        QVERIFY(house.stored() == BackupHouse::other());
    }

    void whatCannotBeSavedIsNotReplaced() {
        BackupHouse house;
        const auto files = house.files();
        house.disk.failWrites(SQLITE_FULL);
        house.add(QStringLiteral("In memory"));
        house.platform.settle();
        house.restore(house.written(BackupHouse::other()));
        QCOMPARE(house.model->error(),
                 std::optional(failed + QStringLiteral("Your latest changes could not be saved first.")));
        QVERIFY(!house.model->restoring());
        QCOMPARE(house.titles(), (Titles{"Task 1", "Task 2", "In memory"}));
        QCOMPARE(house.model->saveState(), QStringLiteral("Not saved"));
        QVERIFY(house.files() == files);
        QVERIFY(house.safetyCopy().empty());
        QCOMPARE(house.restored, 1);
        house.disk.heal();
        house.model->persist();
        house.platform.settle();
        QVERIFY(house.stored() == house.model->snapshot());
    }

    void withoutASafetyCopyNothingIsReplaced() {
        BackupHouse house;
        const auto path = house.written(BackupHouse::other());
        const auto files = house.files();
        house.choose(path);
        // The open store goes along; only the copy cannot be made any more.
        std::filesystem::rename(house.folder(), house.file("Elsewhere"));
        house.agree();
        house.platform.settle();
        std::filesystem::rename(house.file("Elsewhere"), house.folder());
        refused(house, files, QStringLiteral("No such file or directory"));
        QVERIFY(house.safetyCopy().empty());
    }

    void withoutRoomForASafetyCopyNothingIsReplaced() {
        const auto told = inChildProcess([]() -> std::string {
            BackupHouse house;
            const auto path = house.written(BackupHouse::other());
            const auto files = house.files();
            house.choose(path);
            limitFilesTo(100);
            house.agree();
            house.platform.settle();
            if (house.files() != files || !house.safetyCopy().empty()) return "something was written";
            return house.model->error().value_or("restored").toStdString();
        });
        QCOMPARE(QString::fromStdString(told), failed + QStringLiteral("File too large"));
    }

    void inAFolderThatMayNotBeWrittenNothingIsReplaced() {
        const auto told = inChildProcess([]() -> std::string {
            BackupHouse house;
            const auto path = house.written(BackupHouse::other());
            const auto files = house.files();
            house.choose(path);
            chmod(house.folder().c_str(), 0555);
            chmod(house.folder().parent_path().c_str(), 0755);
            becomeNobody();
            house.agree();
            house.platform.settle();
            if (!(house.model->snapshot() == BackupHouse::planner())) return "something was replaced";
            return house.model->error().value_or("restored").toStdString();
        });
        QCOMPARE(QString::fromStdString(told), failed + QStringLiteral("Permission denied"));
    }

    void aStoreThatCannotBeWrittenKeepsTheOldPlanner() {
        BackupHouse house;
        const auto files = house.files();
        house.choose(house.written(BackupHouse::other()));
        house.disk.failWrites(SQLITE_FULL);
        house.agree();
        house.platform.settle();
        house.disk.heal();
        refused(house, files, QStringLiteral("database or disk is full"));
        QCOMPARE(fileBytes(house.safetyCopy()), BackupHouse::planner().backupData());
        // Neither does a later save bring the other planner.
        house.add(QStringLiteral("Later"));
        house.platform.settle();
        QCOMPARE(BackupHouse::titles(house.stored()), (Titles{"Task 1", "Task 2", "Later"}));
    }

    void whicheverWriteFailsThePlannerIsTheOldOneOrTheNewOneWhole() {
        bool failedEver = true;
        std::size_t call = 0;
        for (; failedEver; ++call) {
            BackupHouse house;
            house.choose(house.written(BackupHouse::other()));
            house.disk.failAt(call, SQLITE_IOERR, false);
            house.agree();
            house.platform.settle();
            failedEver = house.disk.hasFailed();
            house.disk.heal();
            const bool told = house.model->error().has_value();
            const auto& expected = told ? BackupHouse::planner() : BackupHouse::other();
            QVERIFY(house.model->snapshot() == expected);
            house.begin();
            QVERIFY(house.model->snapshot() == expected);
        }
        QVERIFY(call > 10);
    }

private:
    /// The restore has failed with this reason, and everything is as it was.
    static void refused(const BackupHouse& house, const std::map<std::string, std::string>& files,
                        const QString& reason) {
        QCOMPARE(house.model->error(), std::optional(failed + reason));
        QCOMPARE(house.model->notice(), std::nullopt);
        QVERIFY(!house.model->restoring());
        QVERIFY(house.model->snapshot() == BackupHouse::planner());
        QVERIFY(house.files() == files);
        QCOMPARE(house.suppressed, house.restored);
    }
};

QTEST_GUILESS_MAIN(AppModelRestoreRefusalTests)
#include "AppModelRestoreRefusalTests.moc"
