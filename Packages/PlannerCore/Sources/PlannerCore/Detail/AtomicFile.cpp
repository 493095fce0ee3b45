#include <PlannerCore/Detail/AtomicFile.h>

#include <PlannerCore/PlannerRepository.h>

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace planner::detail {

namespace {

/// A descriptor that is closed with the object.
class Descriptor {
public:
    Descriptor(const std::filesystem::path& path, int flags) : number_(open(path.c_str(), flags, 0600)) {
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
    void sync() { check(fsync(number_) == 0); }
    /// Some file systems report a failed write only here.
    void finish() {
        const int number = number_;
        number_ = -1;
        check(close(number) == 0);
    }
    static void check(bool succeeded) {
        if (!succeeded) throw StoreError(std::generic_category().message(errno));
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

} // namespace

void writeAtomically(const std::filesystem::path& path, std::string_view bytes) {
    const auto temporary = path.parent_path() / ("." + path.filename().string() + ".part");
    Descriptor file(temporary, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC);
    Leftover leftover(temporary);
    file.write(bytes);
    file.sync();
    file.finish();
    Descriptor::check(rename(temporary.c_str(), path.c_str()) == 0);
    leftover.renamedTo(path);
    syncFolder(path.parent_path());
    leftover.keep();
}

void syncFolder(const std::filesystem::path& folder) {
    Descriptor(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC).sync();
}

} // namespace planner::detail
