#include "FailingCalls.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <unistd.h>

namespace {

FailingCalls* current = nullptr;

} // namespace

FailingCalls::FailingCalls() {
    current = this;
}

FailingCalls::~FailingCalls() {
    current = nullptr;
}

bool FailingCalls::fails(const char* name) {
    if (!current) return false;
    current->calls_.emplace_back(name);
    if (current->failing_ != current->calls_.size() - 1) return false;
    errno = current->error_;
    return true;
}

std::size_t FailingCalls::writable(std::size_t bytes) {
    return current ? std::min(bytes, current->longestWrite_) : bytes;
}

void FailingCalls::corrupt(void* bytes, std::size_t count, std::size_t offset) {
    if (!current || !current->corrupt_) return;
    const auto place = *current->corrupt_;
    if (place >= offset && place < offset + count) ++static_cast<char*>(bytes)[place - offset];
}

extern "C" {
int __real_open(const char* path, int flags, mode_t mode);
ssize_t __real_write(int file, const void* bytes, std::size_t count);
ssize_t __real_pread(int file, void* bytes, std::size_t count, off_t offset);
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

ssize_t __wrap_pread(int file, void* bytes, std::size_t count, off_t offset) {
    if (FailingCalls::fails("read")) return -1;
    const auto taken = __real_pread(file, bytes, count, offset);
    if (taken > 0) FailingCalls::corrupt(bytes, std::size_t(taken), std::size_t(offset));
    return taken;
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
