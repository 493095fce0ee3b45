#include "Platform/Linux/SettingsUserDefaults.h"

#include "Doubles/FakeLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

using orvane::SettingsUserDefaults;
using orvane::test::FakeLog;

namespace {

const auto key = QStringLiteral("preferences.v1");

} // namespace

class SettingsUserDefaultsTests : public QObject {
    Q_OBJECT

private slots:
    void init() {
        scratch_ = std::make_unique<QTemporaryDir>();
        QVERIFY(scratch_->isValid());
        qputenv("XDG_CONFIG_HOME", scratch_->path().toUtf8());
    }

    void withoutAFileThereIsNothing() {
        FakeLog log;
        const SettingsUserDefaults defaults(log);
        QVERIFY(!defaults.data(key));
    }

    void everyByteComesBackInTheNextRun() {
        QByteArray value;
        for (int byte = 0; byte < 256; ++byte) value.append(char(byte));
        value.append(R"({"a":"b, c; d=e\\f","ü":"…"})");
        FakeLog log;
        SettingsUserDefaults(log).setData(key, value);
        const auto read = SettingsUserDefaults(log).data(key);
        QVERIFY(read);
        QCOMPARE(*read, value);
        QVERIFY(log.lines().empty());
    }

    void anEmptyValueIsNotAMissingOne() {
        FakeLog log;
        SettingsUserDefaults(log).setData(key, QByteArray());
        const auto read = SettingsUserDefaults(log).data(key);
        QVERIFY(read);
        QVERIFY(read->isEmpty());
    }

    void oneKeyIsWrittenWithoutTouchingTheOthers() {
        FakeLog log;
        SettingsUserDefaults(log).setData(QStringLiteral("OrvaneDashboard"), "1 2 3 4");
        SettingsUserDefaults(log).setData(key, "{}");
        const SettingsUserDefaults defaults(log);
        QCOMPARE(defaults.data(QStringLiteral("OrvaneDashboard")).value_or("none"), QByteArray("1 2 3 4"));
        QCOMPARE(defaults.data(key).value_or("none"), QByteArray("{}"));
    }

    void aDamagedFileGivesNothingAndCanBeWrittenAgain() {
        damage("\x00\xff\xfe[[[General\npreferences.v1\n====\n]]garbage\x01");
        FakeLog log;
        {
            SettingsUserDefaults defaults(log);
            QVERIFY(!defaults.data(key));
            defaults.setData(key, "{\"hoverEnabled\":false}");
        }
        QCOMPARE(SettingsUserDefaults(log).data(key).value_or("none"),
                 QByteArray("{\"hoverEnabled\":false}"));
    }

    void aFileThatCannotBeWrittenIsLogged() {
        // A file where the settings' folder belongs keeps root out as well.
        QFile file(scratch_->filePath(QStringLiteral("Orvane")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        FakeLog log;
        SettingsUserDefaults(log).setData(key, "{}");
        QVERIFY(!log.lines().empty());
    }

private:
    void damage(const QByteArray& bytes) {
        QVERIFY(QDir(scratch_->path()).mkpath(QStringLiteral("Orvane")));
        QFile file(scratch_->filePath(QStringLiteral("Orvane/Orvane.conf")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    std::unique_ptr<QTemporaryDir> scratch_;
};

QTEST_GUILESS_MAIN(SettingsUserDefaultsTests)
#include "SettingsUserDefaultsTests.moc"
