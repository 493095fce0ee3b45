#include <PlannerCore/Detail/Sqlite.h>

#include <sqlite3.h>

#include <algorithm>
#include <system_error>
#include <utility>

namespace planner::detail {

namespace {

/// A reader from outside (a shell, a backup program) holds its locks for moments only.
constexpr int busyTimeoutMilliseconds = 2000;

std::string uriEscaped(const std::string& path) {
    std::string escaped;
    for (const char byte : path) {
        if (byte == '%')
            escaped += "%25";
        else if (byte == '?')
            escaped += "%3f";
        else if (byte == '#')
            escaped += "%23";
        else
            escaped += byte;
    }
    return escaped;
}

std::string uri(const std::string& path, Access access) {
    // An authority of no characters keeps a path that begins with two slashes a path.
    const auto name = (path.starts_with('/') ? "file://" : "file:") + uriEscaped(path);
    switch (access) {
    case Access::readWrite:
        return name + "?mode=rwc";
    case Access::readOnly:
        return name + "?mode=ro";
    case Access::immutable:
        break;
    }
    return name + "?mode=ro&immutable=1";
}

/// Which failures come from a system call whose errno tells more than SQLite's text.
bool isSystemFailure(int code) {
    const int primary = code & 0xFF;
    return primary == SQLITE_CANTOPEN || primary == SQLITE_IOERR;
}

/// SQLite takes a null pointer for NULL, not for an empty value.
const char* present(std::string_view bytes) {
    return bytes.data() ? bytes.data() : "";
}

} // namespace

void throwSqliteError(sqlite3* database, int code) {
    std::string text = sqlite3_errstr(code);
    if (database && (sqlite3_extended_errcode(database) & 0xFF) == (code & 0xFF))
        text = sqlite3_errmsg(database);
    const int system = database && isSystemFailure(code) ? sqlite3_system_errno(database) : 0;
    if (system != 0) text += ": " + std::generic_category().message(system);
    throw StoreError(text);
}

Database::Database(const std::string& path, Access access) {
    const int code = sqlite3_open_v2(uri(path, access).c_str(), &handle_,
                                     SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READWRITE |
                                         (access == Access::readWrite ? SQLITE_OPEN_CREATE : 0),
                                     nullptr);
    try {
        if (code != SQLITE_OK) throwSqliteError(handle_, code);
        sqlite3_extended_result_codes(handle_, 1);
        sqlite3_busy_timeout(handle_, busyTimeoutMilliseconds);
        // The file may come from anywhere: nothing in its schema is to run.
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
        execute("PRAGMA cell_size_check = ON");
    } catch (...) {
        sqlite3_close_v2(handle_);
        throw;
    }
}

Database::~Database() {
    sqlite3_close_v2(handle_);
}

Database::Database(Database&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

void Database::execute(const char* sql) {
    const int code = sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) throwSqliteError(handle_, code);
}

std::int64_t Database::number(const char* sql) {
    Statement statement(*this, sql);
    if (!statement.step()) throwSqliteError(nullptr, SQLITE_CORRUPT);
    return statement.number(0);
}

std::int64_t Database::changes() const {
    return sqlite3_changes64(handle_);
}

bool Database::inTransaction() const {
    return sqlite3_get_autocommit(handle_) == 0;
}

void Database::keepLogOnClose(bool keep) {
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, keep ? 1 : 0, nullptr);
}

sqlite3_file* Database::file() {
    sqlite3_file* file = nullptr;
    const int code = sqlite3_file_control(handle_, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (code != SQLITE_OK || !file || !file->pMethods) throwSqliteError(nullptr, SQLITE_CANTOPEN);
    return file;
}

std::int64_t Database::fileSize() {
    auto* opened = file();
    sqlite3_int64 size = 0;
    const int code = opened->pMethods->xFileSize(opened, &size);
    if (code != SQLITE_OK) throwSqliteError(nullptr, code);
    return size;
}

std::string Database::fileBytes(std::int64_t offset, std::size_t count) {
    const auto size = fileSize();
    if (offset >= size) return {};
    std::string bytes(std::size_t(std::min<std::int64_t>(size - offset, std::int64_t(count))), '\0');
    auto* opened = file();
    const int code = opened->pMethods->xRead(opened, bytes.data(), int(bytes.size()), offset);
    if (code != SQLITE_OK) throwSqliteError(nullptr, code);
    return bytes;
}

Statement::Statement(Database& database, std::string_view sql) : database_(database.handle()) {
    check(sqlite3_prepare_v3(database_, sql.data(), int(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement_,
                             nullptr));
}

Statement::~Statement() {
    sqlite3_finalize(statement_);
}

void Statement::check(int code) {
    if (code != SQLITE_OK) throwSqliteError(database_, code);
}

void Statement::bindText(int parameter, std::string_view text) {
    check(sqlite3_bind_text64(statement_, parameter, present(text), text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::bindBlob(int parameter, std::string_view bytes) {
    check(sqlite3_bind_blob64(statement_, parameter, present(bytes), bytes.size(), SQLITE_STATIC));
}

void Statement::bindNumber(int parameter, std::int64_t number) {
    check(sqlite3_bind_int64(statement_, parameter, number));
}

bool Statement::step() {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) throwSqliteError(database_, code);
    return false;
}

void Statement::run() {
    const int code = sqlite3_step(statement_);
    // Resetting keeps the failure's text.
    reset();
    if (code != SQLITE_DONE && code != SQLITE_ROW) throwSqliteError(database_, code);
}

void Statement::reset() {
    sqlite3_reset(statement_);
}

std::optional<std::string_view> Statement::text(int column) const {
    if (sqlite3_column_type(statement_, column) != SQLITE_TEXT) return std::nullopt;
    return bytes(sqlite3_column_text(statement_, column), column);
}

std::optional<std::string_view> Statement::blob(int column) const {
    if (sqlite3_column_type(statement_, column) != SQLITE_BLOB) return std::nullopt;
    return bytes(sqlite3_column_blob(statement_, column), column);
}

std::string_view Statement::bytes(const void* data, int column) const {
    const auto size = std::size_t(sqlite3_column_bytes(statement_, column));
    // Null stands for an empty value, and for a row that memory did not suffice to read.
    if (!data && sqlite3_errcode(database_) == SQLITE_NOMEM) throwSqliteError(database_, SQLITE_NOMEM);
    return data ? std::string_view(static_cast<const char*>(data), size) : std::string_view("");
}

std::int64_t Statement::number(int column) const {
    return sqlite3_column_int64(statement_, column);
}

Transaction::Transaction(Database& database, Kind kind) : database_(database) {
    database.execute(kind == Kind::write ? "BEGIN IMMEDIATE" : "BEGIN");
}

Transaction::~Transaction() {
    // SQLite itself has already rolled back after some failures. Where this fails too, the next BEGIN
    // says so.
    if (database_.inTransaction()) sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
    database_.execute("COMMIT");
}

} // namespace planner::detail
