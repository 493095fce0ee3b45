#include "VirtualFiles.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <new>

namespace {

/// What SQLite allots for an open file.
struct OpenFile : sqlite3_file {
    VirtualFile* file;
};

VirtualFile& fileOf(sqlite3_file* file) {
    return *static_cast<OpenFile*>(file)->file;
}

VirtualFiles& filesOf(sqlite3_vfs* vfs) {
    return *static_cast<VirtualFiles*>(vfs->pAppData);
}

int closeFile(sqlite3_file* file) {
    delete static_cast<OpenFile*>(file)->file;
    return SQLITE_OK;
}

const sqlite3_io_methods methods = {
    2,
    closeFile,
    [](sqlite3_file* file, void* buffer, int count, sqlite3_int64 at) {
        return fileOf(file).read(buffer, count, at);
    },
    [](sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
        return fileOf(file).write(bytes, count, at);
    },
    [](sqlite3_file* file, sqlite3_int64 size) { return fileOf(file).truncate(size); },
    [](sqlite3_file* file, int flags) { return fileOf(file).sync(flags); },
    [](sqlite3_file* file, sqlite3_int64* size) { return fileOf(file).fileSize(size); },
    [](sqlite3_file* file, int level) { return fileOf(file).lock(level); },
    [](sqlite3_file* file, int level) { return fileOf(file).unlock(level); },
    [](sqlite3_file* file, int* reserved) { return fileOf(file).checkReservedLock(reserved); },
    [](sqlite3_file* file, int operation, void* argument) {
        return fileOf(file).fileControl(operation, argument);
    },
    [](sqlite3_file* file) { return fileOf(file).sectorSize(); },
    [](sqlite3_file* file) { return fileOf(file).deviceCharacteristics(); },
    [](sqlite3_file* file, int region, int size, int extend, void volatile** memory) {
        return fileOf(file).shmMap(region, size, extend, memory);
    },
    [](sqlite3_file* file, int offset, int count, int flags) {
        return fileOf(file).shmLock(offset, count, flags);
    },
    [](sqlite3_file* file) { fileOf(file).shmBarrier(); },
    [](sqlite3_file* file, int remove) { return fileOf(file).shmUnmap(remove); },
    nullptr,
    nullptr,
};

int openFile(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
    std::unique_ptr<VirtualFile> opened;
    file->pMethods = nullptr;
    const int code = filesOf(vfs).open(name, flags, outFlags, opened);
    if (code != SQLITE_OK) return code;
    static_cast<OpenFile*>(file)->file = opened.release();
    file->pMethods = &methods;
    return SQLITE_OK;
}

} // namespace

VirtualFiles::VirtualFiles() : base_(sqlite3_vfs_find(nullptr)) {
    static std::atomic<int> made = 0;
    name_ = "planner-test-" + std::to_string(++made);
    vfs_.iVersion = 2;
    vfs_.szOsFile = sizeof(OpenFile);
    vfs_.mxPathname = base_->mxPathname;
    vfs_.zName = name_.c_str();
    vfs_.pAppData = this;
    vfs_.xOpen = openFile;
    vfs_.xDelete = [](sqlite3_vfs* vfs, const char* name, int sync) {
        return filesOf(vfs).remove(name, sync);
    };
    vfs_.xAccess = [](sqlite3_vfs* vfs, const char* name, int flags, int* result) {
        return filesOf(vfs).access(name, flags, result);
    };
    vfs_.xFullPathname = [](sqlite3_vfs* vfs, const char* name, int size, char* out) {
        auto& base = filesOf(vfs).base();
        return base.xFullPathname(&base, name, size, out);
    };
    vfs_.xRandomness = [](sqlite3_vfs* vfs, int size, char* out) {
        auto& base = filesOf(vfs).base();
        return base.xRandomness(&base, size, out);
    };
    vfs_.xSleep = [](sqlite3_vfs*, int microseconds) { return microseconds; };
    vfs_.xCurrentTime = [](sqlite3_vfs* vfs, double* time) {
        auto& base = filesOf(vfs).base();
        return base.xCurrentTime(&base, time);
    };
    vfs_.xCurrentTimeInt64 = [](sqlite3_vfs* vfs, sqlite3_int64* time) {
        auto& base = filesOf(vfs).base();
        return base.xCurrentTimeInt64(&base, time);
    };
    vfs_.xGetLastError = [](sqlite3_vfs* vfs, int, char*) { return filesOf(vfs).lastError(); };
    if (sqlite3_vfs_register(&vfs_, 1) != SQLITE_OK) throw std::bad_alloc();
}

VirtualFiles::~VirtualFiles() {
    sqlite3_vfs_register(base_, 1);
    sqlite3_vfs_unregister(&vfs_);
}
