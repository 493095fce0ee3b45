#include "MemoryDisk.h"

#include <algorithm>
#include <cstring>

class MemoryFile;

/// A file's bytes, and what those who have it open share.
struct MemoryDisk::File {
    std::string bytes;
    std::vector<std::unique_ptr<char[]>> regions;
    int regionUsers = 0;
    std::vector<const MemoryFile*> openings;
};

/// An open file. One without a name is kept out of the disk's record.
class MemoryFile final : public VirtualFile {
public:
    MemoryFile(MemoryDisk& disk, std::string name, std::shared_ptr<MemoryDisk::File> file, bool writable)
        : disk_(disk), name_(std::move(name)), file_(std::move(file)), writable_(writable) {
        file_->openings.push_back(this);
    }
    ~MemoryFile() override {
        shmUnmap(0);
        std::erase(file_->openings, this);
    }

    int read(void* buffer, int count, sqlite3_int64 offset) override {
        const auto& bytes = file_->bytes;
        const auto start = std::min(std::size_t(offset), bytes.size());
        const auto available = std::min(std::size_t(count), bytes.size() - start);
        std::memcpy(buffer, bytes.data() + start, available);
        std::memset(static_cast<char*>(buffer) + available, 0, std::size_t(count) - available);
        return available == std::size_t(count) ? SQLITE_OK : SQLITE_IOERR_SHORT_READ;
    }
    int write(const void* data, int count, sqlite3_int64 offset) override {
        if (!writable_) return SQLITE_READONLY;
        const std::string bytes(static_cast<const char*>(data), std::size_t(count));
        auto& old = file_->bytes;
        if (old.size() < std::size_t(offset) + bytes.size()) old.resize(std::size_t(offset) + bytes.size());
        old.replace(std::size_t(offset), bytes.size(), bytes);
        record({DiskOperation::Kind::write, name_, std::size_t(offset), bytes});
        return SQLITE_OK;
    }
    int truncate(sqlite3_int64 size) override {
        if (!writable_) return SQLITE_READONLY;
        file_->bytes.resize(std::size_t(size));
        record({DiskOperation::Kind::truncate, name_, std::size_t(size), {}});
        return SQLITE_OK;
    }
    int sync(int) override {
        record({DiskOperation::Kind::sync, name_, 0, {}});
        return SQLITE_OK;
    }
    int fileSize(sqlite3_int64* size) override {
        *size = sqlite3_int64(file_->bytes.size());
        return SQLITE_OK;
    }
    int lock(int level) override {
        const auto bar = level == SQLITE_LOCK_SHARED      ? SQLITE_LOCK_PENDING
                         : level == SQLITE_LOCK_EXCLUSIVE ? SQLITE_LOCK_SHARED
                                                          : SQLITE_LOCK_RESERVED;
        if (highestOther() >= bar) return SQLITE_BUSY;
        level_ = std::max(level_, level);
        return SQLITE_OK;
    }
    int unlock(int level) override {
        level_ = std::min(level_, level);
        return SQLITE_OK;
    }
    int checkReservedLock(int* reserved) override {
        *reserved = std::max(level_, highestOther()) >= SQLITE_LOCK_RESERVED;
        return SQLITE_OK;
    }
    int fileControl(int, void*) override { return SQLITE_NOTFOUND; }
    int sectorSize() override { return 4096; }
    int deviceCharacteristics() override { return SQLITE_IOCAP_POWERSAFE_OVERWRITE; }
    int shmMap(int region, int size, int extend, void volatile** memory) override {
        if (!usesRegions_) ++file_->regionUsers;
        usesRegions_ = true;
        auto& regions = file_->regions;
        *memory = nullptr;
        while (int(regions.size()) <= region) {
            if (!extend) return SQLITE_OK;
            regions.push_back(std::make_unique<char[]>(std::size_t(size)));
        }
        *memory = regions[std::size_t(region)].get();
        return SQLITE_OK;
    }
    int shmLock(int, int, int) override { return SQLITE_OK; }
    void shmBarrier() override {}
    int shmUnmap(int) override {
        if (usesRegions_ && --file_->regionUsers == 0) file_->regions.clear();
        usesRegions_ = false;
        return SQLITE_OK;
    }

private:
    int highestOther() const {
        int highest = SQLITE_LOCK_NONE;
        for (const auto* other : file_->openings)
            if (other != this) highest = std::max(highest, other->level_);
        return highest;
    }
    void record(DiskOperation operation) {
        if (!name_.empty()) disk_.record_.push_back(std::move(operation));
    }

    MemoryDisk& disk_;
    std::string name_;
    std::shared_ptr<MemoryDisk::File> file_;
    bool writable_;
    int level_ = SQLITE_LOCK_NONE;
    bool usesRegions_ = false;
};

MemoryDisk::MemoryDisk(const DiskContents& contents) {
    for (const auto& [name, bytes] : contents) {
        files_[name] = std::make_shared<File>();
        files_[name]->bytes = bytes;
    }
}

MemoryDisk::~MemoryDisk() = default;

DiskContents MemoryDisk::contents() const {
    DiskContents contents;
    for (const auto& [name, file] : files_) contents[name] = file->bytes;
    return contents;
}

int MemoryDisk::open(const char* name, int flags, int* outFlags, std::unique_ptr<VirtualFile>& file) {
    if (outFlags) *outFlags = flags;
    const bool writable = (flags & SQLITE_OPEN_READWRITE) != 0;
    if (!name) {
        file = std::make_unique<MemoryFile>(*this, "", std::make_shared<File>(), true);
        return SQLITE_OK;
    }
    auto& found = files_[name];
    if (!found) {
        if ((flags & SQLITE_OPEN_CREATE) == 0) {
            files_.erase(name);
            return SQLITE_CANTOPEN;
        }
        found = std::make_shared<File>();
        record_.push_back({DiskOperation::Kind::create, name, 0, {}});
    }
    file = std::make_unique<MemoryFile>(*this, name, found, writable);
    return SQLITE_OK;
}

int MemoryDisk::remove(const char* name, int syncFolder) {
    if (files_.erase(name) == 0) return SQLITE_IOERR_DELETE_NOENT;
    record_.push_back({DiskOperation::Kind::remove, name, 0, {}, syncFolder != 0});
    return SQLITE_OK;
}

int MemoryDisk::access(const char* name, int, int* result) {
    // As SQLite's own file system does, an empty file counts as none.
    const auto found = files_.find(name);
    *result = found != files_.end() && !found->second->bytes.empty();
    return SQLITE_OK;
}
