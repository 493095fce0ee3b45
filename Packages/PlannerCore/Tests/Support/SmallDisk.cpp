#include "SmallDisk.h"

#include <cerrno>
#include <csignal>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <system_error>
#include <unistd.h>

void limitFilesTo(std::uint64_t bytes) {
    // Past the limit the write itself is to fail, not the process.
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::system_error(errno, std::generic_category());
}

bool mountSmallDisk(const std::filesystem::path& folder) {
    if (unshare(geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
    return mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=1m") == 0;
}
