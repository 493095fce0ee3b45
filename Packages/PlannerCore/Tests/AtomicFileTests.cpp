#include <PlannerCore/Detail/AtomicFile.h>

#include <PlannerCore/PlannerRepository.h>

#include "ChildProcess.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <optional>
#include <sched.h>
#include <set>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

using namespace planner;

namespace {

/// Stands between the program and the system while it is alive: the linker sends each call here.
class FailingCalls {
public:
    FailingCalls() { current = this; }
    ~FailingCalls() { current = nullptr; }
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    /// The call with this number, counted from 0 over all of them, fails with `error`.
    void failAt(std::size_t call, int error) {
        failing_ = call;
        error_ = error;
    }
    /// Each write takes this many bytes at most.
    void shortenWrites(std::size_t bytes) { longestWrite_ = bytes; }

    const std::vector<std::string>& calls() const { return calls_; }

    static bool fails(const char* name) {
        if (!current) return false;
        current->calls_.emplace_back(name);
        if (current->failing_ != current->calls_.size() - 1) return false;
        errno = current->error_;
        return true;
    }
    static std::size_t writable(std::size_t bytes) {
        return current ? std::min(bytes, current->longestWrite_) : bytes;
    }

private:
    static FailingCalls* current;
    std::vector<std::string> calls_;
    std::optional<std::size_t> failing_;
    int error_ = 0;
    std::size_t longestWrite_ = std::size_t(-1);
};

FailingCalls* FailingCalls::current = nullptr;

} // namespace

extern "C" {
int __real_open(const char* path, int flags, mode_t mode);
ssize_t __real_write(int file, const void* bytes, std::size_t count);
int __real_fsync(int file);
int __real_close(int file);
int __real_rename(const char* from, const char* to);

int __wrap_open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return FailingCalls::fails("open") ? -1 : __real_open(path, flags, mode);
}

ssize_t __wrap_write(int file, const void* bytes, std::size_t count) {
    return FailingCalls::fails("write") ? -1 : __real_write(file, bytes, FailingCalls::writable(count));
}

int __wrap_fsync(int file) {
    return FailingCalls::fails("fsync") ? -1 : __real_fsync(file);
}

/// A close that fails has closed the file all the same.
int __wrap_close(int file) {
    const bool fails = FailingCalls::fails("close");
    const int error = errno;
    const int result = __real_close(file);
    if (fails) errno = error;
    return fails ? -1 : result;
}

int __wrap_rename(const char* from, const char* to) {
    return FailingCalls::fails("rename") ? -1 : __real_rename(from, to);
}
}

namespace {

PlannerSnapshot plannerOf(int tasks) {
    PlannerSnapshot planner;
    for (int index = 0; index < tasks; ++index)
        planner.tasks.push_back({Uuid::random(), std::string(400, 't'), Instant{1}, index});
    return planner;
}

std::set<std::string> namesIn(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename());
    return names;
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

void check(bool succeeded) {
    if (!succeeded) throw std::system_error(errno, std::generic_category());
}

void limitFilesTo(rlim_t bytes) {
    // Past the limit the write itself is to fail, not the process.
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    check(setrlimit(RLIMIT_FSIZE, &limit) == 0);
}

/// Mounts a file system of one megabyte that only this process sees; false where that is not allowed.
bool mountSmallDisk(const std::filesystem::path& folder) {
    if (unshare(geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
    return mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=1m") == 0;
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
    EXPECT_EQ(calls, (std::vector<std::string>{"open", "write", "fsync", "close", "rename", "open", "fsync",
                                               "close"}));
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
