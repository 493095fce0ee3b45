#include <PlannerCore/BackupFile.h>

#include <PlannerCore/PlannerRepository.h>

#include "ChildProcess.h"
#include "FailingCalls.h"
#include "ScratchFolder.h"
#include "SmallDisk.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

using namespace planner;

namespace {

PlannerSnapshot plannerOf(int tasks) {
    PlannerSnapshot planner;
    for (int index = 0; index < tasks; ++index)
        planner.tasks.push_back({Uuid::random(), std::string(400, 't'), Instant{1}, index});
    return planner;
}

mode_t modeOf(const std::filesystem::path& path) {
    struct stat found {};
    return stat(path.c_str(), &found) == 0 ? found.st_mode & 07777 : 0;
}

/// How writing a planner of one task to `path` went: "written" or the failure's text.
std::string writing(const std::filesystem::path& path, int tasks = 1) {
    try {
        writeBackup(plannerOf(tasks), path);
        return "written";
    } catch (const StoreError& error) {
        return error.what();
    }
}

/// What the backup at `path` holds: "read", or the failure's text.
std::string reading(const std::filesystem::path& path) {
    try {
        readBackup(path);
        return "read";
    } catch (const std::exception& error) {
        return error.what();
    }
}

/// An empty planner's backup with as many blanks behind it as `size` asks for.
std::string backupOf(std::size_t size) {
    auto bytes = PlannerSnapshot().backupData();
    bytes.resize(size, ' ');
    return bytes;
}

} // namespace

TEST(BackupFile, IsReadAsItWasWrittenAndItsLengthTold) {
    const ScratchFolder folder;
    const auto path = folder / "Orvane.json";
    const auto planner = plannerOf(3);
    EXPECT_EQ(writeBackup(planner, path), planner.backupData().size());
    EXPECT_EQ(fileBytes(path), planner.backupData());
    EXPECT_EQ(readBackup(path), planner);
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"Orvane.json"});
}

TEST(BackupFile, ThatIsNewIsForItsOwnerAlone) {
    const ScratchFolder folder;
    const auto before = umask(0);
    EXPECT_EQ(writing(folder / "Orvane.json"), "written");
    umask(before);
    EXPECT_EQ(modeOf(folder / "Orvane.json"), 0600u);
}

TEST(BackupFile, ThatIsReplacedKeepsItsPermissions) {
    const ScratchFolder folder;
    for (const mode_t mode : {0644u, 0640u, 0666u, 0755u, 0600u}) {
        writeFile(folder / "Orvane.json", "old");
        chmod((folder / "Orvane.json").c_str(), mode);
        EXPECT_EQ(writing(folder / "Orvane.json"), "written");
        EXPECT_EQ(modeOf(folder / "Orvane.json"), mode);
        EXPECT_EQ(reading(folder / "Orvane.json"), "read");
    }
}

TEST(BackupFile, BehindALinkIsReplacedAndTheLinkStays) {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder / "far");
    writeFile(folder / "far" / "Real.json", "old");
    chmod((folder / "far" / "Real.json").c_str(), 0644);
    std::filesystem::create_symlink("far/Real.json", folder / "near");
    std::filesystem::create_symlink(folder / "near", folder / "Orvane.json");
    EXPECT_EQ(writing(folder / "Orvane.json"), "written");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "Orvane.json"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "near"));
    EXPECT_EQ(reading(folder / "far" / "Real.json"), "read");
    EXPECT_EQ(modeOf(folder / "far" / "Real.json"), 0644u);
    EXPECT_EQ(namesIn(folder / "far"), std::set<std::string>{"Real.json"});
}

TEST(BackupFile, BehindALinkThatLeadsNowhereIsMadeThere) {
    const ScratchFolder folder;
    std::filesystem::create_symlink("Real.json", folder / "Orvane.json");
    EXPECT_EQ(writing(folder / "Orvane.json"), "written");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "Orvane.json"));
    EXPECT_EQ(reading(folder / "Real.json"), "read");
}

TEST(BackupFile, BehindLinksInACircleIsTold) {
    const ScratchFolder folder;
    std::filesystem::create_symlink("b", folder / "a");
    std::filesystem::create_symlink("a", folder / "b");
    EXPECT_EQ(writing(folder / "a"), "Too many levels of symbolic links");
    EXPECT_EQ(reading(folder / "a"), "Too many levels of symbolic links");
}

TEST(BackupFile, MayHaveTheLongestNameThereIs) {
    const ScratchFolder folder;
    const auto path = folder / (std::string(250, 'n') + ".json");
    EXPECT_EQ(writing(path), "written");
    EXPECT_EQ(reading(path), "read");
}

TEST(BackupFile, GoesOntoAnotherFileSystem) {
    if (!std::filesystem::is_directory("/dev/shm")) GTEST_SKIP() << "there is no file system in memory";
    const ScratchFolder folder("/dev/shm");
    writeFile(folder / "Orvane.json", "old");
    EXPECT_EQ(writing(folder / "Orvane.json"), "written");
    EXPECT_EQ(reading(folder / "Orvane.json"), "read");
}

TEST(BackupFile, IsNotWrittenInPlaceOfAFolderOrAPipe) {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder / "folder");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(writing(folder / "folder"), "Is a directory");
    EXPECT_EQ(writing(folder / "pipe"), "Operation not supported");
    EXPECT_EQ(writing(folder / "missing" / "Orvane.json"), "No such file or directory");
    EXPECT_EQ(namesIn(folder.path()), (std::set<std::string>{"folder", "pipe"}));
}

TEST(BackupFile, ThatMayNotBeWrittenIsLeftAlone) {
    const ScratchFolder folder;
    const auto path = folder / "Orvane.json";
    writeFile(path, "old");
    chmod(path.c_str(), 0444);
    chmod(folder.path().c_str(), 0777);
    EXPECT_EQ(inChildProcess([&] {
                  becomeNobody();
                  return writing(path);
              }),
              "Permission denied");
    EXPECT_EQ(fileBytes(path), "old");
    EXPECT_EQ(modeOf(path), 0444u);
}

TEST(BackupFile, InAFolderThatMayNotBeWrittenIsTold) {
    const ScratchFolder folder;
    chmod(folder.path().c_str(), 0555);
    EXPECT_EQ(inChildProcess([&] {
                  becomeNobody();
                  return writing(folder / "Orvane.json");
              }),
              "Permission denied");
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>());
}

TEST(BackupFile, OnAFullDiskLeavesTheOldOne) {
    const ScratchFolder folder;
    const auto told = inChildProcess([&]() -> std::string {
        if (!mountSmallDisk(folder.path())) return "not allowed";
        const auto first = writing(folder / "Orvane.json", 100);
        const auto before = fileBytes(folder / "Orvane.json");
        const auto second = writing(folder / "Orvane.json", 4000);
        const bool kept = fileBytes(folder / "Orvane.json") == before;
        return first + ", " + second + (kept ? ", kept " : ", lost ") +
               std::to_string(namesIn(folder.path()).size());
    });
    if (told == "not allowed") GTEST_SKIP() << "mounting a small file system is not allowed here";
    EXPECT_EQ(told, "written, No space left on device, kept 1");
}

TEST(BackupFile, WhicheverCallFailsTheOldOneOrTheNewOneIsThereAlone) {
    const ScratchFolder folder;
    const auto path = folder / "Orvane.json";
    const auto planner = plannerOf(2);
    std::vector<std::string> calls;
    {
        FailingCalls disk;
        writeBackup(planner, path);
        calls = disk.calls();
    }
    EXPECT_EQ(calls, (std::vector<std::string>{"open", "write", "fsync", "close", "rename", "open", "fsync",
                                               "close"}));
    for (std::size_t call = 0; call + 1 < calls.size(); ++call) {
        SCOPED_TRACE(calls[call] + ", call " + std::to_string(call));
        writeFile(path, "old");
        std::string told;
        {
            FailingCalls disk;
            disk.failAt(call, EIO);
            try {
                writeBackup(planner, path);
            } catch (const StoreError& error) {
                told = error.what();
            }
        }
        EXPECT_EQ(told, "Input/output error");
        const bool isRenamed = call > 4;
        EXPECT_EQ(fileBytes(path), isRenamed ? planner.backupData() : "old");
        EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"Orvane.json"});
    }
}

TEST(BackupFile, IsWrittenWhereFoldersCannotBeSynced) {
    const ScratchFolder folder;
    FailingCalls disk;
    disk.failAt(6, EINVAL);
    EXPECT_EQ(writing(folder / "Orvane.json"), "written");
    EXPECT_EQ(disk.calls()[6], "fsync");
}

TEST(BackupFile, OfAnInvalidPlannerIsNotBegun) {
    const ScratchFolder folder;
    writeFile(folder / "Orvane.json", "old");
    PlannerSnapshot planner;
    planner.tasks.push_back({Uuid::random(), " ", Instant{1}, 1});
    EXPECT_THROW(writeBackup(planner, folder / "Orvane.json"), PlannerError);
    EXPECT_EQ(fileBytes(folder / "Orvane.json"), "old");
}

TEST(BackupFile, AboveTheLimitIsWrittenButNotOpenedAgain) {
    const ScratchFolder folder;
    const auto path = folder / "Orvane.json";
    PlannerSnapshot planner;
    for (int day = 0; day < 11; ++day)
        planner.notes.push_back({"day " + std::to_string(day), std::string(4'600'000, 'n'), Instant{1}});
    EXPECT_GT(writeBackup(planner, path), maximumBackupBytes);
    FailingCalls disk;
    EXPECT_EQ(reading(path), "Backups must be smaller than 50 MB.");
    EXPECT_EQ(disk.calls(), std::vector<std::string>());
}

TEST(BackupFile, OfExactlyTheLimitIsReadAndOneByteMoreIsNot) {
    const ScratchFolder folder;
    const auto path = folder / "Orvane.json";
    writeFile(path, backupOf(maximumBackupBytes));
    EXPECT_EQ(readBackup(path), PlannerSnapshot());
    writeFile(path, backupOf(maximumBackupBytes + 1));
    EXPECT_EQ(reading(path), "Backups must be smaller than 50 MB.");
}

TEST(BackupFile, ThatIsNoOrdinaryReadableFileIsTold) {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder / "folder");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    writeFile(folder / "closed", backupOf(100));
    chmod((folder / "closed").c_str(), 0);
    chmod(folder.path().c_str(), 0755);
    EXPECT_EQ(reading(folder / "folder"), "Is a directory");
    EXPECT_EQ(reading(folder / "pipe"), "Operation not supported");
    EXPECT_EQ(reading("/dev/zero"), "Operation not supported");
    EXPECT_EQ(reading(folder / "missing"), "No such file or directory");
    EXPECT_EQ(inChildProcess([&] {
                  becomeNobody();
                  return reading(folder / "closed");
              }),
              "Permission denied");
}

TEST(BackupFile, ThatFailsToBeReadIsTold) {
    const ScratchFolder folder;
    writeFile(folder / "Orvane.json", backupOf(100));
    FailingCalls disk;
    disk.failAt(1, EIO);
    EXPECT_EQ(reading(folder / "Orvane.json"), "Input/output error");
    EXPECT_EQ(disk.calls()[1], "read");
}

TEST(BackupFile, ThatDoesNotKnowItsLengthIsReadToItsEnd) {
    // The system makes these as they are read and gives them no length: it is no backup, but was read.
    EXPECT_EQ(reading("/proc/self/status").find("Operation"), std::string::npos);
    EXPECT_NE(reading("/proc/self/status"), "read");
}
