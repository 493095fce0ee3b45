#pragma once

#include "VirtualFiles.h"

#include <cstddef>
#include <map>
#include <mutex>
#include <string_view>

/// Lets every file operation of SQLite through to the real file system, or makes it fail on demand.
///
///     FaultVfs disk;
///     disk.failWrites(SQLITE_FULL);   // the disk is full
///     disk.heal();                    // there is room again
///
/// It is SQLite's default file system while it lives; destroy whatever has a database open first.
/// Any thread.
class FaultVfs : public VirtualFiles {
public:
    enum class Call { open, read, write, truncate, sync, size, remove, access, lock, memory };

    /// From now on every call that would change something on disk fails with the SQLite result code:
    /// SQLITE_FULL, SQLITE_IOERR, SQLITE_CANTOPEN, SQLITE_BUSY, SQLITE_NOMEM, ...
    void failWrites(int code);
    /// From now on every call fails. SQLITE_BUSY, here and below, fails only calls that take a lock.
    void failEverything(int code);
    /// The call number `call` from now (the next one is 0) fails, and those after it too unless `once`.
    void failAt(std::size_t call, int code, bool once);
    /// Nothing fails any more.
    void heal();

    /// Calls since the start or since `resetCounts`, failed ones too.
    std::size_t calls() const;
    std::size_t calls(Call kind) const;
    /// Whether a call was made to fail since the last `fail...`.
    bool hasFailed() const;
    void resetCounts();

    int open(const char* name, int flags, int* outFlags, std::unique_ptr<VirtualFile>& file) override;
    int remove(const char* name, int syncFolder) override;
    int access(const char* name, int flags, int* result) override;
    int lastError() override;

    /// Counts a call; the code that it must fail with, or SQLITE_OK.
    int begin(Call kind, bool changesDisk);

private:
    enum class Mode { healthy, writes, everything, at };

    mutable std::mutex mutex_;
    Mode mode_ = Mode::healthy;
    int code_ = SQLITE_OK;
    std::size_t at_ = 0;
    bool once_ = false;
    bool hasFailed_ = false;
    std::size_t callsSinceFault_ = 0;
    std::map<Call, std::size_t> counts_;
    int lastError_ = 0;
};
