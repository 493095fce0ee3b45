#pragma once

#include "VirtualFiles.h"

#include <map>
#include <string>
#include <vector>

/// The bytes of each file of a disk, by name.
using DiskContents = std::map<std::string, std::string>;

/// Something that was done to a disk.
struct DiskOperation {
    enum class Kind { create, write, truncate, sync, remove };
    Kind kind;
    std::string name;
    /// Where a write begins, or the size that a truncation leaves.
    std::size_t offset = 0;
    std::string bytes;
    /// Whether a removal waited until the folder was on disk.
    bool syncedFolder = false;
};

/// A disk in memory that keeps a record of what is done to it. It is SQLite's default file system while
/// it lives. One thread. Files are locked as in SQLite's own file system; the log's finer locks are always
/// granted, so that one connection at a time may be in a transaction.
class MemoryDisk : public VirtualFiles {
public:
    struct File;

    explicit MemoryDisk(const DiskContents& contents = {});
    ~MemoryDisk() override;

    DiskContents contents() const;
    /// Everything done so far that matters after a power cut, in order.
    const std::vector<DiskOperation>& record() const { return record_; }

    int open(const char* name, int flags, int* outFlags, std::unique_ptr<VirtualFile>& file) override;
    int remove(const char* name, int syncFolder) override;
    int access(const char* name, int flags, int* result) override;
    int lastError() override { return 0; }

private:
    friend class MemoryFile;
    std::map<std::string, std::shared_ptr<File>> files_;
    std::vector<DiskOperation> record_;
};
