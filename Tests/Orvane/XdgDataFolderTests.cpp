#include "Platform/Linux/XdgDataFolder.h"

#include "Model/FailureText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <optional>
#include <signal.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

using namespace orvane;

namespace {

/// Another process that holds the lock of `file` until it is ended.
class OtherHolder {
public:
    explicit OtherHolder(const std::string& file) {
        int told[2];
        if (::pipe(told) != 0) return;
        child_ = ::fork();
        if (child_ == 0) {
            const int lock = ::open(file.c_str(), O_RDWR | O_CREAT, 0600);
            const char held = lock >= 0 && ::flock(lock, LOCK_EX | LOCK_NB) == 0 ? 'y' : 'n';
            if (::write(told[1], &held, 1) != 1) ::_exit(1);
            while (true) ::pause();
        }
        char held = 'n';
        holds_ = child_ > 0 && ::read(told[0], &held, 1) == 1 && held == 'y';
        ::close(told[0]);
        ::close(told[1]);
    }
    ~OtherHolder() {
        if (child_ <= 0) return;
        ::kill(child_, SIGKILL);
        ::waitpid(child_, nullptr, 0);
    }
    OtherHolder(const OtherHolder&) = delete;
    OtherHolder& operator=(const OtherHolder&) = delete;

    bool holds() const { return holds_; }

private:
    pid_t child_ = -1;
    bool holds_ = false;
};

mode_t permissions(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777u : 0;
}

std::optional<std::system_error> failureOf(XdgDataFolder& folder) {
    try {
        folder.open();
    } catch (const std::system_error& error) {
        return error;
    }
    return std::nullopt;
}

} // namespace

class XdgDataFolderTests : public QObject {
    Q_OBJECT

private slots:
    void init() {
        scratch_ = std::make_unique<QTemporaryDir>();
        QVERIFY(scratch_->isValid());
        qputenv("XDG_DATA_HOME", scratch_->filePath(QStringLiteral("data")).toUtf8());
        planner_ = scratch_->filePath(QStringLiteral("data/Orvane")).toStdString();
    }

    void itIsMadeWithItsParentsForItsOwnerAlone() {
        const auto before = ::umask(0);
        XdgDataFolder folder;
        const auto path = folder.open();
        ::umask(before);
        QCOMPARE(path.string(), planner_);
        QCOMPARE(permissions(planner_), mode_t(0700));
        QCOMPARE(permissions(planner_ + "/.lock"), mode_t(0600));
    }

    void openingAgainGivesTheSameFolder() {
        XdgDataFolder folder;
        const auto first = folder.open();
        QCOMPARE(folder.open(), first);
    }

    void whatAnotherProcessHoldsIsToldInTheUsersWords() {
        QVERIFY(QDir().mkpath(QString::fromStdString(planner_)));
        XdgDataFolder folder;
        {
            const OtherHolder other(planner_ + "/.lock");
            QVERIFY(other.holds());
            const auto failure = failureOf(folder);
            QVERIFY(failure);
            QVERIFY(failure->code() == std::errc::resource_unavailable_try_again);
            QCOMPARE(failureText(*failure), QStringLiteral("Another program is using this planner"));
        }
        QCOMPARE(folder.open().string(), planner_);
    }

    void aHeldFolderIsFreeAgainOnceItsHolderIsGone() {
        auto first = std::make_unique<XdgDataFolder>();
        first->open();
        XdgDataFolder second;
        QVERIFY(failureOf(second));
        first.reset();
        QVERIFY(!failureOf(second));
    }

    void aFileInItsPlaceIsToldAndKept() {
        QVERIFY(QDir().mkpath(scratch_->filePath(QStringLiteral("data"))));
        QFile file(QString::fromStdString(planner_));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("mine") == 4);
        file.close();
        XdgDataFolder folder;
        const auto failure = failureOf(folder);
        QVERIFY(failure);
        QVERIFY(failure->code() == std::errc::not_a_directory);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("mine"));
    }

    void aFileInPlaceOfItsParentIsTold() {
        QFile file(scratch_->filePath(QStringLiteral("data")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        XdgDataFolder folder;
        const auto failure = failureOf(folder);
        QVERIFY(failure);
        QVERIFY(failure->code() == std::errc::not_a_directory);
    }

    void aLinkInPlaceOfTheLockIsNotFollowed() {
        QVERIFY(QDir().mkpath(QString::fromStdString(planner_)));
        const auto target = scratch_->filePath(QStringLiteral("elsewhere"));
        std::filesystem::create_symlink(target.toStdString(), planner_ + "/.lock");
        XdgDataFolder folder;
        const auto failure = failureOf(folder);
        QVERIFY(failure);
        QVERIFY(failure->code() == std::errc::too_many_symbolic_link_levels);
        QVERIFY(!QFileInfo::exists(target));
    }

private:
    std::unique_ptr<QTemporaryDir> scratch_;
    std::string planner_;
};

QTEST_GUILESS_MAIN(XdgDataFolderTests)
#include "XdgDataFolderTests.moc"
