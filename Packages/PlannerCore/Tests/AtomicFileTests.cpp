#include <PlannerCore/Detail/AtomicFile.h>

#include <PlannerCore/PlannerRepository.h>

#include "ChildProcess.h"
#include "FailingCalls.h"
#include "ScratchFolder.h"
#include "SmallDisk.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <set>
#include <sys/stat.h>

using namespace planner;

namespace {

PlannerSnapshot plannerOf(int tasks) {
    PlannerSnapshot planner;
    for (int index = 0; index < tasks; ++index)
        planner.tasks.push_back({Uuid::random(), std::string(400, 't'), Instant{1}, index});
    return planner;
}

std::size_t openFiles() {
    return namesIn("/proc/self/fd").size();
}

/// What a safety copy of `planner` came to: "written", or its failure and what it left behind.
std::string preserved(PlannerRepository& repository, const PlannerSnapshot& planner) {
    const auto before = namesIn(repository.directory());
    std::string told = "written";
    try {
        repository.preserveBackup(planner);
        return told;
    } catch (const StoreError& error) {
        told = error.what();
    }
    for (const auto& name : namesIn(repository.directory()))
        if (!before.contains(name)) told += "; left " + name;
    return told;
}

} // namespace

TEST(AtomicFile, WhicheverCallFailsItIsToldAndNothingIsLeft) {
    const ScratchFolder folder;
    const auto path = folder / "Copy.json";
    std::vector<std::string> calls;
    {
        FailingCalls disk;
        detail::writeAtomically(path, "bytes");
        calls = disk.calls();
    }
    // The last one is that of the folder's descriptor, which holds nothing that could be lost.
    EXPECT_EQ(calls, (std::vector<std::string>{"open", "write", "fsync", "read", "read", "close", "rename",
                                               "open", "fsync", "close"}));
    std::filesystem::remove(path);
    const auto opened = openFiles();
    for (const auto& [error, text] :
         {std::pair(EIO, "Input/output error"), std::pair(ENOSPC, "No space left on device"),
          std::pair(EACCES, "Permission denied")})
        for (std::size_t call = 0; call + 1 < calls.size(); ++call) {
            SCOPED_TRACE(calls[call] + ", call " + std::to_string(call));
            std::string told;
            {
                FailingCalls disk;
                disk.failAt(call, error);
                try {
                    detail::writeAtomically(path, "bytes");
                } catch (const StoreError& failure) {
                    told = failure.what();
                }
            }
            EXPECT_EQ(told, text);
            EXPECT_EQ(namesIn(folder.path()), std::set<std::string>());
            EXPECT_EQ(openFiles(), opened);
        }
}

TEST(AtomicFile, WritesThatTakePartOfTheBytesAreGoneOnWith) {
    const ScratchFolder folder;
    const std::string bytes = "The bytes of a file that the disk takes in small parts.";
    FailingCalls disk;
    disk.shortenWrites(7);
    // The second write is interrupted before it has written anything.
    disk.failAt(2, EINTR);
    detail::writeAtomically(folder / "Copy.json", bytes);
    EXPECT_EQ(fileBytes(folder / "Copy.json"), bytes);
}

TEST(AtomicFile, AWriteThatFailsHalfwayLeavesNothing) {
    const ScratchFolder folder;
    FailingCalls disk;
    disk.shortenWrites(2);
    disk.failAt(3, ENOSPC);
    EXPECT_THROW(detail::writeAtomically(folder / "Copy.json", "bytes"), StoreError);
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>());
}

TEST(AtomicFile, AFileThatReadsBackDifferentlyIsToldAndNotLeft) {
    const ScratchFolder folder;
    const std::string bytes(3'000'000, 'b');
    // In the first, a middle and the last of the parts that are compared.
    for (const std::size_t place : {std::size_t(0), std::size_t(1'500'000), bytes.size() - 1}) {
        SCOPED_TRACE(place);
        std::string told;
        {
            FailingCalls disk;
            disk.corruptRead(place);
            try {
                detail::writeAtomically(folder / "Copy.json", bytes);
            } catch (const StoreError& failure) {
                told = failure.what();
            }
        }
        EXPECT_EQ(told, "The copy of the planner does not read back as it was written.");
        EXPECT_EQ(namesIn(folder.path()), std::set<std::string>());
    }
}

TEST(AtomicFile, OfAnySizeIsReadBackWhole) {
    const ScratchFolder folder;
    constexpr std::size_t part = std::size_t(1) << 20;
    for (const std::size_t size : {std::size_t(0), std::size_t(1), part - 1, part, part + 1, 2 * part}) {
        SCOPED_TRACE(size);
        const std::string bytes(size, 'b');
        detail::writeAtomically(folder / std::to_string(size), bytes);
        EXPECT_EQ(fileBytes(folder / std::to_string(size)), bytes);
    }
}

TEST(AtomicFile, AFileThatSomebodyElseLeftIsNeitherWrittenNorRemoved) {
    const ScratchFolder folder;
    writeFile(folder / ".Copy.json.part", "somebody's");
    EXPECT_THROW(detail::writeAtomically(folder / "Copy.json", "bytes"), StoreError);
    EXPECT_EQ(fileBytes(folder / ".Copy.json.part"), "somebody's");
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{".Copy.json.part"});
}

TEST(PreserveBackup, OnAFullDiskLeavesNothingAndSucceedsWithLess) {
    const ScratchFolder folder;
    const auto told = inChildProcess([&]() -> std::string {
        if (!mountSmallDisk(folder.path())) return "not allowed";
        PlannerRepository repository(folder.path());
        const auto first = preserved(repository, plannerOf(4000));
        return first + ", then " + preserved(repository, plannerOf(100));
    });
    if (told == "not allowed") GTEST_SKIP() << "mounting a small file system is not allowed here";
    EXPECT_EQ(told, "No space left on device, then written");
}

TEST(PreserveBackup, PastTheLimitOfAFilesSizeLeavesNothing) {
    const ScratchFolder folder;
    const auto told = inChildProcess([&] {
        PlannerRepository repository(folder.path());
        limitFilesTo(100'000);
        const auto first = preserved(repository, plannerOf(4000));
        return first + ", then " + preserved(repository, plannerOf(100));
    });
    EXPECT_EQ(told, "File too large, then written");
}

TEST(PreserveBackup, InAFolderThatMayNotBeWrittenIsToldAndLeavesNothing) {
    const ScratchFolder folder;
    const auto told = inChildProcess([&] {
        // Opened before the folder was closed: opening needs it writable too.
        PlannerRepository repository(folder.path());
        chmod(folder.path().c_str(), 0555);
        becomeNobody();
        return preserved(repository, plannerOf(1));
    });
    chmod(folder.path().c_str(), 0700);
    EXPECT_EQ(told, "Permission denied");
}

TEST(PreserveBackup, ThatReadsBackDifferentlyIsToldAndNotLeft) {
    const ScratchFolder folder;
    PlannerRepository repository(folder.path());
    FailingCalls disk;
    disk.corruptRead(1000);
    EXPECT_EQ(preserved(repository, plannerOf(10)),
              "The copy of the planner does not read back as it was written.");
}

TEST(PreserveBackup, InAFolderThatIsGoneIsTold) {
    const ScratchFolder scratch;
    PlannerRepository repository(scratch / "Orvane");
    std::filesystem::rename(scratch / "Orvane", scratch / "Elsewhere");
    try {
        repository.preserveBackup(plannerOf(1));
        ADD_FAILURE() << "written";
    } catch (const StoreError& error) {
        EXPECT_STREQ(error.what(), "No such file or directory");
    }
    EXPECT_EQ(namesIn(scratch.path()), std::set<std::string>{"Elsewhere"});
}
