#include <PlannerCore/Detail/AtomicFile.h>

#include <PlannerCore/PlannerRepository.h>
#include <PlannerCore/Uuid.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace planner::detail {

namespace {

[[noreturn]] void fail(int error) {
    throw StoreError(std::generic_category().message(error));
}

void check(bool succeeded) {
    if (!succeeded) fail(errno);
}

/// A descriptor that is closed with the object.
class Descriptor {
public:
    Descriptor(const std::filesystem::path& path, int flags)
        : number_(open(path.c_str(), flags | O_CLOEXEC, 0600)) {
        check(number_ >= 0);
    }
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    void write(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto written = ::write(number_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            check(written >= 0);
            bytes.remove_prefix(std::size_t(written));
        }
    }
    /// Fills `room` from `offset` on; returns how much of it there was.
    std::size_t read(char* room, std::size_t count, std::size_t offset) {
        std::size_t done = 0;
        while (done < count) {
            const auto taken = pread(number_, room + done, count - done, off_t(offset + done));
            if (taken < 0 && errno == EINTR) continue;
            check(taken >= 0);
            if (taken == 0) break;
            done += std::size_t(taken);
        }
        return done;
    }
    /// Whether the disk, rather than its cache in memory, gives exactly these bytes.
    bool holds(std::string_view bytes) {
        posix_fadvise(number_, 0, 0, POSIX_FADV_DONTNEED);
        std::string part(std::size_t(1) << 20, '\0');
        for (std::size_t offset = 0;; offset += part.size()) {
            const auto expected = bytes.substr(std::min(offset, bytes.size()), part.size());
            // A part that is not full is the last one; a longer file gives more than is expected.
            const auto found = read(part.data(), part.size(), offset);
            if (std::string_view(part.data(), found) != expected) return false;
            if (found < part.size()) return true;
        }
    }
    /// Some file systems have no permissions to set.
    void setMode(mode_t mode) { check(fchmod(number_, mode) == 0 || errno == EPERM || errno == ENOTSUP); }
    void sync() { check(fsync(number_) == 0); }
    /// Some file systems cannot sync a folder, and say so.
    void syncIfPossible() { check(fsync(number_) == 0 || errno == EINVAL || errno == ENOTSUP); }
    /// Some file systems report a failed write only here.
    void finish() { check(close(std::exchange(number_, -1)) == 0); }
    struct stat status() const {
        struct stat found {};
        check(fstat(number_, &found) == 0);
        return found;
    }

private:
    int number_;
};

/// A name that is taken away with the object unless it is kept.
class Leftover {
public:
    explicit Leftover(std::filesystem::path path) : path_(std::move(path)) {}
    ~Leftover() {
        if (!path_.empty()) unlink(path_.c_str());
    }
    Leftover(const Leftover&) = delete;
    Leftover& operator=(const Leftover&) = delete;

    void renamedTo(const std::filesystem::path& path) { path_ = path; }
    void keep() { path_.clear(); }

private:
    std::filesystem::path path_;
};

std::filesystem::path orCurrent(const std::filesystem::path& folder) {
    return folder.empty() ? "." : folder;
}

/// What the symbolic links at `path`, if any, lead to; it need not exist.
std::filesystem::path withoutLinks(std::filesystem::path path) {
    constexpr int mostLinks = 40;
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code isNone;
        const auto target = std::filesystem::read_symlink(path, isNone);
        if (isNone) return path;
        path = path.parent_path() / target;
    }
    fail(ELOOP);
}

/// The permissions of the file at `path`, nothing when there is none; fails where it must not be replaced.
std::optional<mode_t> replaceableMode(const std::filesystem::path& path) {
    struct stat found {};
    if (stat(path.c_str(), &found) != 0) {
        check(errno == ENOENT);
        return std::nullopt;
    }
    if (S_ISDIR(found.st_mode)) fail(EISDIR);
    if (!S_ISREG(found.st_mode)) fail(ENOTSUP);
    check(access(path.c_str(), W_OK) == 0);
    return found.st_mode & 0777;
}

} // namespace

void writeAtomically(const std::filesystem::path& path, std::string_view bytes) {
    const auto temporary = path.parent_path() / ("." + path.filename().string() + ".part");
    Descriptor file(temporary, O_CREAT | O_EXCL | O_RDWR);
    Leftover leftover(temporary);
    file.write(bytes);
    file.sync();
    if (!file.holds(bytes)) throw StoreError("The copy of the planner does not read back as it was written.");
    file.finish();
    check(rename(temporary.c_str(), path.c_str()) == 0);
    leftover.renamedTo(path);
    syncFolder(path.parent_path());
    leftover.keep();
}

void replaceAtomically(const std::filesystem::path& path, std::string_view bytes) {
    const auto target = withoutLinks(path);
    const auto mode = replaceableMode(target);
    // Beside the target, so that renaming never crosses file systems; a name of its own, since the target's
    // may be as long as names can be.
    const auto temporary = target.parent_path() / (".Orvane-" + Uuid::random().text() + ".part");
    Descriptor file(temporary, O_CREAT | O_EXCL | O_WRONLY);
    Leftover leftover(temporary);
    file.write(bytes);
    if (mode) file.setMode(*mode);
    file.sync();
    file.finish();
    check(rename(temporary.c_str(), target.c_str()) == 0);
    leftover.keep();
    Descriptor(orCurrent(target.parent_path()), O_RDONLY | O_DIRECTORY).syncIfPossible();
}

std::optional<std::string> readUpTo(const std::filesystem::path& path, std::size_t most) {
    const auto tooLarge = [&](const struct stat& file) {
        return S_ISREG(file.st_mode) && std::size_t(file.st_size) > most;
    };
    struct stat found {};
    check(stat(path.c_str(), &found) == 0);
    if (tooLarge(found)) return std::nullopt;
    // A pipe would keep us waiting for its other end.
    Descriptor file(path, O_RDONLY | O_NONBLOCK);
    found = file.status();
    if (S_ISDIR(found.st_mode)) fail(EISDIR);
    if (!S_ISREG(found.st_mode)) fail(ENOTSUP);
    if (tooLarge(found)) return std::nullopt;
    // It may grow while it is read, and some files do not know their size.
    std::string bytes;
    std::size_t room = std::size_t(found.st_size) + 1;
    for (;;) {
        const auto before = bytes.size();
        bytes.resize(before + room);
        bytes.resize(before + file.read(bytes.data() + before, room, before));
        if (bytes.size() > most) return std::nullopt;
        if (bytes.size() < before + room) return bytes;
        room = std::size_t(1) << 16;
    }
}

void syncFolder(const std::filesystem::path& folder) {
    Descriptor(orCurrent(folder), O_RDONLY | O_DIRECTORY).sync();
}

} // namespace planner::detail
