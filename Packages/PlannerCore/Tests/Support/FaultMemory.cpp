#include "FaultMemory.h"

#include <stdexcept>

namespace {

/// SQLite's allocator takes no context.
struct State {
    sqlite3_mem_methods real{};
    std::size_t allocations = 0;
    std::size_t failAt = 0;
    bool fails = false;
    bool once = false;
} state;

bool isRefused() {
    const auto number = state.allocations++;
    return state.fails && (state.once ? number == state.failAt : number >= state.failAt);
}

void* allocate(int size) {
    return isRefused() ? nullptr : state.real.xMalloc(size);
}

void* reallocate(void* memory, int size) {
    return isRefused() ? nullptr : state.real.xRealloc(memory, size);
}

void configure(const sqlite3_mem_methods& methods) {
    sqlite3_shutdown();
    if (sqlite3_config(SQLITE_CONFIG_MALLOC, &methods) != SQLITE_OK || sqlite3_initialize() != SQLITE_OK)
        throw std::logic_error("a database is open");
}

} // namespace

FaultMemory::FaultMemory() {
    state = {};
    sqlite3_shutdown();
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &state.real);
    auto methods = state.real;
    methods.xMalloc = allocate;
    methods.xRealloc = reallocate;
    configure(methods);
}

FaultMemory::~FaultMemory() {
    sqlite3_shutdown();
    sqlite3_config(SQLITE_CONFIG_MALLOC, &state.real);
    sqlite3_initialize();
}

void FaultMemory::failAt(std::size_t allocation, bool once) {
    state.allocations = 0;
    state.failAt = allocation;
    state.once = once;
    state.fails = true;
}

void FaultMemory::heal() {
    state.fails = false;
}

std::size_t FaultMemory::allocations() const {
    return state.allocations;
}
