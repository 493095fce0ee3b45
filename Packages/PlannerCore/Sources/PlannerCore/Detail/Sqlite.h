#pragma once

#include <PlannerCore/PlannerRepository.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_file;
struct sqlite3_stmt;

namespace planner::detail {

/// Throws StoreError with SQLite's text for `code`, followed by the system's own where it has one.
/// `database` may be null: the text is then the code's general one.
[[noreturn]] void throwSqliteError(sqlite3* database, int code);

/// How a database file is opened.
enum class Access {
    /// Reading and writing; the file is made where it is missing.
    readWrite,
    /// Reading alone, beside whoever writes. Companion files may be made.
    readOnly,
    /// Reading the file's bytes alone: no lock is taken, no companion is read, made or removed.
    immutable,
};

/// An open connection, closed with the object. One thread at a time.
class Database {
public:
    /// Opens the file at `path`; SQLite's default file system is asked for it. Throws StoreError.
    Database(const std::string& path, Access access);
    ~Database();
    Database(Database&& other) noexcept;
    Database& operator=(Database&&) = delete;
    Database(const Database&) = delete;

    sqlite3* handle() const { return handle_; }

    /// Runs statements that return nothing of interest. Throws StoreError.
    void execute(const char* sql);
    /// The first column of the first row as a number. Throws StoreError, also when there is no row.
    std::int64_t number(const char* sql);
    /// Rows changed by the most recent statement.
    std::int64_t changes() const;
    /// Whether a transaction is open.
    bool inTransaction() const;
    /// While set, closing leaves a write-ahead log as it is instead of carrying it into the file.
    void keepLogOnClose(bool keep);

    /// Size in bytes of the file itself, without its companions. Throws StoreError.
    std::int64_t fileSize();
    /// Up to `count` bytes of the file itself from `offset`; fewer where it ends. Throws StoreError.
    std::string fileBytes(std::int64_t offset, std::size_t count);

private:
    sqlite3_file* file();
    sqlite3* handle_ = nullptr;
};

/// A prepared statement, which must not outlive its database. Texts and bytes bound to it must stay
/// alive and unchanged until it is run.
class Statement {
public:
    /// Throws StoreError for a statement that cannot be prepared.
    Statement(Database& database, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Parameters are numbered from 1. All three throw StoreError.
    void bindText(int parameter, std::string_view text);
    void bindBlob(int parameter, std::string_view bytes);
    void bindNumber(int parameter, std::int64_t number);

    /// Goes to the next row; false when there is none. Throws StoreError.
    bool step();
    /// Runs a statement without rows to its end and makes it ready for the next run. Throws StoreError.
    void run();
    /// Ends the current run, so that it holds no lock.
    void reset();

    /// Columns are numbered from 0. A value of another type than the one asked for gives nothing; the
    /// bytes are valid until the next step. Both throw StoreError when memory does not suffice.
    std::optional<std::string_view> text(int column) const;
    std::optional<std::string_view> blob(int column) const;
    std::int64_t number(int column) const;

private:
    std::string_view bytes(const void* data, int column) const;
    void check(int code);
    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
};

/// Ends a statement's run with the object, also when reading its rows throws.
class StatementRun {
public:
    explicit StatementRun(Statement& statement) : statement_(statement) {}
    ~StatementRun() { statement_.reset(); }
    StatementRun(const StatementRun&) = delete;
    StatementRun& operator=(const StatementRun&) = delete;

private:
    Statement& statement_;
};

/// A transaction that is rolled back with the object unless it was committed.
class Transaction {
public:
    enum class Kind {
        /// Sees one state of the store throughout.
        read,
        /// Takes the write lock at once.
        write,
    };
    /// Throws StoreError.
    Transaction(Database& database, Kind kind);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Returns once everything is on disk. Throws StoreError; nothing is changed then.
    void commit();

private:
    Database& database_;
};

} // namespace planner::detail
