#pragma once

#include <sqlite3.h>

#include <cstddef>

/// Makes SQLite's allocations fail on demand while it lives. Make it, and destroy it, while no database
/// is open. One at a time, one thread.
class FaultMemory {
public:
    FaultMemory();
    ~FaultMemory();
    FaultMemory(const FaultMemory&) = delete;
    FaultMemory& operator=(const FaultMemory&) = delete;

    /// The allocation number `allocation` from now (the next one is 0) fails, and those after it too
    /// unless `once`.
    void failAt(std::size_t allocation, bool once);
    void heal();
    /// Allocations since the start or since the last `failAt`.
    std::size_t allocations() const;
};
