#include "Platform/Linux/XdgDataFolder.h"

#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orvane {
namespace {

std::filesystem::path folder() {
    const auto data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return std::filesystem::path(QFile::encodeName(data).toStdString()) / "Orvane";
}

/// A planner in use is no failure of the system: its text is for the user, who can end the other program.
class PlannerInUse : public std::error_category {
public:
    const char* name() const noexcept override { return "planner"; }
    std::string message(int) const override { return "Another program is using this planner"; }
    std::error_condition default_error_condition(int) const noexcept override {
        return std::errc::resource_unavailable_try_again;
    }
};

[[noreturn]] void failInUse() {
    static const PlannerInUse category;
    throw std::system_error(1, category);
}

[[noreturn]] void fail(int error, const std::string& what) {
    throw std::system_error(error, std::generic_category(), what);
}

void create(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error) fail(error.value(), "The folder " + path.parent_path().string() + " cannot be created");
    if (::mkdir(path.c_str(), 0700) != 0) {
        const auto failure = errno;
        if (failure != EEXIST || !std::filesystem::is_directory(path, error))
            fail(failure == EEXIST ? ENOTDIR : failure, "The folder " + path.string() + " cannot be created");
    }
}

} // namespace

XdgDataFolder::~XdgDataFolder() {
    if (lock_ >= 0) ::close(lock_);
}

std::filesystem::path XdgDataFolder::open() {
    const auto path = folder();
    if (lock_ >= 0) return path;
    create(path);
    const auto file = path / ".lock";
    const int lock = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (lock < 0) fail(errno, "The folder " + path.string() + " cannot be written");
    if (::flock(lock, LOCK_EX | LOCK_NB) != 0) {
        const auto failure = errno;
        ::close(lock);
        if (failure == EWOULDBLOCK) failInUse();
        fail(failure, "The folder " + path.string() + " cannot be locked");
    }
    lock_ = lock;
    return path;
}

} // namespace orvane
