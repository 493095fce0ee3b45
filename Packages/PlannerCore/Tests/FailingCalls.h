#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// Stands between the program and the system while it is alive: the linker sends each call here that opens,
/// writes, reads, syncs, closes or renames a file outside SQLite. One at a time; main thread.
class FailingCalls {
public:
    FailingCalls();
    ~FailingCalls();
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    /// The call with this number, counted from 0 over all of them, fails with `error`.
    void failAt(std::size_t call, int error) {
        failing_ = call;
        error_ = error;
    }
    /// Each write takes this many bytes at most.
    void shortenWrites(std::size_t bytes) { longestWrite_ = bytes; }
    /// Reading gives another byte in this place of the file.
    void corruptRead(std::size_t offset) { corrupt_ = offset; }

    /// What was called, "open", "write" …, in order.
    const std::vector<std::string>& calls() const { return calls_; }

    // What the calls ask; without an object nothing fails.

    static bool fails(const char* name);
    static std::size_t writable(std::size_t bytes);
    static void corrupt(void* bytes, std::size_t count, std::size_t offset);

private:
    std::vector<std::string> calls_;
    std::optional<std::size_t> failing_;
    int error_ = 0;
    std::size_t longestWrite_ = std::size_t(-1);
    std::optional<std::size_t> corrupt_;
};
