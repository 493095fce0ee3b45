#include "FaultVfs.h"

#include <cerrno>
#include <cstddef>
#include <vector>

namespace {

using Call = FaultVfs::Call;

/// The errno that goes with a result code.
int systemError(int code) {
    switch (code & 0xFF) {
    case SQLITE_FULL:
        return ENOSPC;
    case SQLITE_IOERR:
        return EIO;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_READONLY:
        return EACCES;
    case SQLITE_NOMEM:
        return ENOMEM;
    case SQLITE_BUSY:
        return EAGAIN;
    default:
        return 0;
    }
}

/// A file of the real file system behind the gate.
class GatedFile final : public VirtualFile {
public:
    GatedFile(FaultVfs& gate, int size)
        : gate_(gate),
          storage_((std::size_t(size) + sizeof(std::max_align_t) - 1) / sizeof(std::max_align_t)) {}
    ~GatedFile() override {
        if (real().pMethods) real().pMethods->xClose(&real());
    }
    sqlite3_file& real() { return *reinterpret_cast<sqlite3_file*>(storage_.data()); }

    int read(void* buffer, int count, sqlite3_int64 offset) override {
        if (const int code = gate_.begin(Call::read, false)) return code;
        return methods().xRead(&real(), buffer, count, offset);
    }
    int write(const void* bytes, int count, sqlite3_int64 offset) override {
        if (const int code = gate_.begin(Call::write, true)) return code;
        return methods().xWrite(&real(), bytes, count, offset);
    }
    int truncate(sqlite3_int64 size) override {
        if (const int code = gate_.begin(Call::truncate, true)) return code;
        return methods().xTruncate(&real(), size);
    }
    int sync(int flags) override {
        if (const int code = gate_.begin(Call::sync, true)) return code;
        return methods().xSync(&real(), flags);
    }
    int fileSize(sqlite3_int64* size) override {
        if (const int code = gate_.begin(Call::size, false)) return code;
        return methods().xFileSize(&real(), size);
    }
    int lock(int level) override {
        if (const int code = gate_.begin(Call::lock, false)) return code;
        return methods().xLock(&real(), level);
    }
    // Giving a lock back does not fail: a file system that cannot do that has no fault to recover from.
    int unlock(int level) override { return methods().xUnlock(&real(), level); }
    int checkReservedLock(int* reserved) override {
        if (const int code = gate_.begin(Call::lock, false)) return code;
        return methods().xCheckReservedLock(&real(), reserved);
    }
    int fileControl(int operation, void* argument) override {
        return methods().xFileControl(&real(), operation, argument);
    }
    int sectorSize() override { return methods().xSectorSize(&real()); }
    int deviceCharacteristics() override { return methods().xDeviceCharacteristics(&real()); }
    int shmMap(int region, int size, int extend, void volatile** memory) override {
        if (const int code = gate_.begin(Call::memory, extend != 0)) {
            *memory = nullptr;
            return code;
        }
        return methods().xShmMap(&real(), region, size, extend, memory);
    }
    int shmLock(int offset, int count, int flags) override {
        if ((flags & SQLITE_SHM_LOCK) != 0)
            if (const int code = gate_.begin(Call::lock, false)) return code;
        return methods().xShmLock(&real(), offset, count, flags);
    }
    void shmBarrier() override { methods().xShmBarrier(&real()); }
    int shmUnmap(int remove) override { return methods().xShmUnmap(&real(), remove); }

private:
    const sqlite3_io_methods& methods() { return *real().pMethods; }

    FaultVfs& gate_;
    std::vector<std::max_align_t> storage_;
};

} // namespace

void FaultVfs::failWrites(int code) {
    const std::lock_guard lock(mutex_);
    mode_ = Mode::writes;
    code_ = code;
    hasFailed_ = false;
}

void FaultVfs::failEverything(int code) {
    const std::lock_guard lock(mutex_);
    mode_ = Mode::everything;
    code_ = code;
    hasFailed_ = false;
}

void FaultVfs::failAt(std::size_t call, int code, bool once) {
    const std::lock_guard lock(mutex_);
    mode_ = Mode::at;
    code_ = code;
    at_ = call;
    once_ = once;
    hasFailed_ = false;
    callsSinceFault_ = 0;
}

void FaultVfs::heal() {
    const std::lock_guard lock(mutex_);
    mode_ = Mode::healthy;
}

std::size_t FaultVfs::calls() const {
    const std::lock_guard lock(mutex_);
    std::size_t sum = 0;
    for (const auto& [kind, count] : counts_) sum += count;
    return sum;
}

std::size_t FaultVfs::calls(Call kind) const {
    const std::lock_guard lock(mutex_);
    const auto found = counts_.find(kind);
    return found == counts_.end() ? 0 : found->second;
}

bool FaultVfs::hasFailed() const {
    const std::lock_guard lock(mutex_);
    return hasFailed_;
}

void FaultVfs::resetCounts() {
    const std::lock_guard lock(mutex_);
    counts_.clear();
}

int FaultVfs::begin(Call kind, bool changesDisk) {
    const std::lock_guard lock(mutex_);
    ++counts_[kind];
    const auto number = callsSinceFault_++;
    const bool fails = mode_ == Mode::everything || (mode_ == Mode::writes && changesDisk) ||
                       (mode_ == Mode::at && (once_ ? number == at_ : number >= at_));
    // A read or a sync is never "busy", and SQLite relies on that.
    if (!fails || (code_ == SQLITE_BUSY && kind != Call::lock)) return SQLITE_OK;
    hasFailed_ = true;
    lastError_ = systemError(code_);
    return code_;
}

int FaultVfs::open(const char* name, int flags, int* outFlags, std::unique_ptr<VirtualFile>& file) {
    if (const int code = begin(Call::open, false)) return code;
    auto opened = std::make_unique<GatedFile>(*this, base().szOsFile);
    const int code = base().xOpen(&base(), name, &opened->real(), flags, outFlags);
    if (code != SQLITE_OK) {
        const std::lock_guard lock(mutex_);
        lastError_ = base().xGetLastError ? base().xGetLastError(&base(), 0, nullptr) : 0;
        return code;
    }
    file = std::move(opened);
    return SQLITE_OK;
}

int FaultVfs::remove(const char* name, int syncFolder) {
    if (const int code = begin(Call::remove, true)) return code;
    return base().xDelete(&base(), name, syncFolder);
}

int FaultVfs::access(const char* name, int flags, int* result) {
    if (const int code = begin(Call::access, false)) return code;
    return base().xAccess(&base(), name, flags, result);
}

int FaultVfs::lastError() {
    const std::lock_guard lock(mutex_);
    return lastError_;
}
