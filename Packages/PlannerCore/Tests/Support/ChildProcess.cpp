#include "ChildProcess.h"

#include <array>
#include <cerrno>
#include <exception>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace {

std::string outcome(const std::function<std::string()>& action) {
    try {
        return action();
    } catch (const std::exception& error) {
        return std::string("threw: ") + error.what();
    }
}

void check(bool succeeded) {
    if (!succeeded) throw std::system_error(errno, std::generic_category());
}

} // namespace

std::string inChildProcess(const std::function<std::string()>& action) {
    std::array<int, 2> ends{};
    check(pipe(ends.data()) == 0);
    const pid_t child = fork();
    check(child >= 0);
    if (child == 0) {
        const auto text = outcome(action);
        _exit(write(ends[1], text.data(), text.size()) == ssize_t(text.size()) ? 0 : 1);
    }
    close(ends[1]);
    std::string text;
    std::array<char, 512> buffer{};
    for (ssize_t count = 0; (count = read(ends[0], buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), std::size_t(count));
    close(ends[0]);
    int status = 0;
    check(waitpid(child, &status, 0) == child);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? text : "died";
}

void becomeNobody() {
    constexpr uid_t nobody = 65534;
    if (getuid() == 0) check(setgid(nobody) == 0 && setuid(nobody) == 0);
}
