#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

/// An open file of a VirtualFiles, closed with the object. The functions are those of SQLite's
/// sqlite3_io_methods without the "x": each returns an SQLite result code.
class VirtualFile {
public:
    virtual ~VirtualFile() = default;
    virtual int read(void* buffer, int count, sqlite3_int64 offset) = 0;
    virtual int write(const void* bytes, int count, sqlite3_int64 offset) = 0;
    virtual int truncate(sqlite3_int64 size) = 0;
    virtual int sync(int flags) = 0;
    virtual int fileSize(sqlite3_int64* size) = 0;
    virtual int lock(int level) = 0;
    virtual int unlock(int level) = 0;
    virtual int checkReservedLock(int* reserved) = 0;
    virtual int fileControl(int operation, void* argument) = 0;
    virtual int sectorSize() = 0;
    virtual int deviceCharacteristics() = 0;
    virtual int shmMap(int region, int size, int extend, void volatile** memory) = 0;
    virtual int shmLock(int offset, int count, int flags) = 0;
    virtual void shmBarrier() = 0;
    virtual int shmUnmap(int remove) = 0;
};

/// A file system for SQLite that stands in for the default one while the object lives: whoever opens a
/// database meanwhile goes through it. Every connection must be closed before it is destroyed.
/// They nest, the last one made first. SQLite's waits take no time in it.
class VirtualFiles {
public:
    VirtualFiles(const VirtualFiles&) = delete;
    VirtualFiles& operator=(const VirtualFiles&) = delete;
    virtual ~VirtualFiles();

    /// Opens `name`, which is null for a nameless temporary file; leaves `file` empty when it fails.
    virtual int open(const char* name, int flags, int* outFlags, std::unique_ptr<VirtualFile>& file) = 0;
    virtual int remove(const char* name, int syncFolder) = 0;
    virtual int access(const char* name, int flags, int* result) = 0;
    /// The errno of the last failure, or 0.
    virtual int lastError() = 0;

protected:
    VirtualFiles();
    /// The file system that was the default one before.
    sqlite3_vfs& base() const { return *base_; }

private:
    sqlite3_vfs* base_;
    std::string name_;
    sqlite3_vfs vfs_{};
};
