#include "Platform/Linux/AutostartLoginItem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <stdexcept>

using orvane::AutostartLoginItem;
using orvane::LoginItemStatus;

class AutostartLoginItemTests : public QObject {
    Q_OBJECT

private slots:
    void init() {
        scratch_ = std::make_unique<QTemporaryDir>();
        QVERIFY(scratch_->isValid());
        qputenv("XDG_CONFIG_HOME", path("config").toUtf8());
        qputenv("XDG_DATA_HOME", path("data").toUtf8());
        qputenv("XDG_DATA_DIRS", path("system").toUtf8());
        entry_ = path("config/autostart/app.orvane.Orvane.desktop");
    }

    void aProgramThatIsNotInstalledIsNotFoundAndRefusesBothWays() {
        AutostartLoginItem item;
        QCOMPARE(int(item.status()), 3);
        QVERIFY_EXCEPTION_THROWN(item.setEnabled(true), std::runtime_error);
        QVERIFY_EXCEPTION_THROWN(item.setEnabled(false), std::runtime_error);
        QVERIFY(!QFileInfo::exists(entry_));
    }

    void anInstalledProgramIsNotRegisteredAtFirst() {
        install();
        QCOMPARE(int(AutostartLoginItem().status()), 0);
    }

    void enablingWritesTheEntryAndDisablingRemovesIt() {
        install();
        AutostartLoginItem item;
        item.setEnabled(true);
        QCOMPARE(int(item.status()), 1);
        QVERIFY(content().startsWith("[Desktop Entry]\n"));
        QVERIFY(content().contains("\nExec=orvane\n"));
        item.setEnabled(false);
        QCOMPARE(int(item.status()), 0);
        QVERIFY(!QFileInfo::exists(entry_));
        item.setEnabled(false);
        QCOMPARE(int(item.status()), 0);
    }

    void anEntryThatTheDesktopSwitchedOffNeedsApproval_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("hidden") << QByteArray("Hidden=true");
        QTest::newRow("hidden, spaced") << QByteArray("Hidden = true ");
        QTest::newRow("disabled") << QByteArray("X-GNOME-Autostart-enabled=false");
    }
    void anEntryThatTheDesktopSwitchedOffNeedsApproval() {
        QFETCH(QByteArray, line);
        install();
        write(entry_, "[Desktop Entry]\nType=Application\nExec=orvane\n" + line + "\n");
        AutostartLoginItem item;
        QCOMPARE(int(item.status()), 2);
        item.setEnabled(true);
        QCOMPARE(int(item.status()), 1);
    }

    void anEntryThatSaysItIsOnIsEnabled() {
        install();
        write(entry_, "[Desktop Entry]\nHidden=false\nX-GNOME-Autostart-enabled=true\nComment=Hidden=true\n");
        QCOMPARE(int(AutostartLoginItem().status()), 1);
    }

    void aFolderThatCannotBeMadeIsTold() {
        install();
        write(path("config"), "a file in its place");
        QVERIFY_EXCEPTION_THROWN(AutostartLoginItem().setEnabled(true), std::runtime_error);
        QCOMPARE(int(AutostartLoginItem().status()), 0);
    }

private:
    QString path(const char* name) const { return scratch_->filePath(QLatin1String(name)); }

    static void write(const QString& name, const QByteArray& bytes) {
        QVERIFY(QDir().mkpath(QFileInfo(name).path()));
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    void install() const {
        write(path("system/applications/app.orvane.Orvane.desktop"),
              "[Desktop Entry]\nType=Application\nName=Orvane\nExec=orvane\n");
    }

    QByteArray content() const {
        QFile file(entry_);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> scratch_;
    QString entry_;
};

QTEST_GUILESS_MAIN(AutostartLoginItemTests)
#include "AutostartLoginItemTests.moc"
