#include <PlannerCore/Detail/StoreFile.h>

#include <PlannerCore/Detail/AtomicFile.h>

#include <sqlite3.h>

#include <cerrno>
#include <fcntl.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace planner::detail {

namespace {

/// "Orvn": bytes 68 to 71 of the file.
constexpr std::int64_t applicationId = 0x4F72766E;
constexpr std::int64_t formatVersion = 1;
constexpr std::string_view modelVersion = "Orvane-v1";

constexpr const char* createMetadata =
    "CREATE TABLE PlannerMetadata(name TEXT PRIMARY KEY NOT NULL, value TEXT NOT NULL)";
/// Not a STRICT table: a row of odd types that another program wrote is told as such when it is read.
constexpr const char* createRecords =
    "CREATE TABLE PlannerRecord(key TEXT PRIMARY KEY NOT NULL, kind TEXT NOT NULL, payload BLOB NOT NULL)";

constexpr const char* foreign = "The file belongs to another program.";
constexpr const char* incompatible = "This planner was created by an incompatible app version.";

/// The SQLite file header (https://www.sqlite.org/fileformat2.html, section 1.3).
namespace header {
constexpr std::size_t size = 100;
constexpr std::string_view magic("SQLite format 3\0", 16);
constexpr std::size_t userVersion = 60;
constexpr std::size_t applicationId = 68;
} // namespace header

/// The rollback journal's header (the same page, section 3): how many pages the file had before.
namespace journal {
constexpr std::size_t size = 20;
constexpr std::string_view magic("\xD9\xD5\x05\xF9\x20\xA1\x63\xD7", 8);
constexpr std::size_t pagesBefore = 16;
} // namespace journal

[[noreturn]] void throwSystemError(int error) {
    throw StoreError(std::generic_category().message(error));
}

std::uint32_t bigEndian32(std::string_view bytes, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t index = 0; index < 4; ++index)
        value = value << 8 | static_cast<unsigned char>(bytes[offset + index]);
    return value;
}

/// Whether a file exists and holds anything.
bool isPresent(const std::string& path) {
    auto* vfs = sqlite3_vfs_find(nullptr);
    int present = 0;
    const int code = vfs->xAccess(vfs, path.c_str(), SQLITE_ACCESS_EXISTS, &present);
    if (code != SQLITE_OK) throwSqliteError(nullptr, code);
    return present != 0;
}

void checkHeader(Database& look) {
    const auto bytes = look.fileBytes(0, header::size);
    if (bytes.size() < header::size || !bytes.starts_with(header::magic))
        throwSqliteError(nullptr, SQLITE_NOTADB);
    if (bigEndian32(bytes, header::applicationId) != applicationId) throw StoreError(foreign);
    if (bigEndian32(bytes, header::userVersion) > formatVersion)
        throw PlannerError::invalidBackup(incompatible);
}

/// Whether `file` was never finished: rolling its journal back leaves it empty. Its first sector may not
/// have reached the disk.
bool isUnfinished(Database& file, const std::string& journalPath) {
    const auto bytes = Database(journalPath, Access::immutable).fileBytes(0, journal::size);
    if (bytes.size() < journal::size || !bytes.starts_with(journal::magic)) return false;
    if (bigEndian32(bytes, journal::pagesBefore) != 0) return false;
    return file.fileBytes(0, header::size).find_first_not_of('\0') == std::string::npos;
}

/// Refuses a database whose tables are not exactly a planner's. SQLite's own tables (its statistics,
/// the indexes of primary keys) are nobody's.
void checkContents(Database& database) {
    if (database.number("PRAGMA application_id") != applicationId) throw StoreError(foreign);
    const auto version = database.number("PRAGMA user_version");
    if (version > formatVersion) throw PlannerError::invalidBackup(incompatible);
    if (version != formatVersion) throw StoreError(foreign);

    std::set<std::string, std::less<>> tables;
    Statement schema(database, "SELECT sql FROM sqlite_schema WHERE substr(name, 1, 7) <> 'sqlite_'");
    while (schema.step()) tables.emplace(schema.text(0).value_or(""));
    if (tables != std::set<std::string, std::less<>>{createMetadata, createRecords})
        throw StoreError(foreign);

    Statement model(database, "SELECT value FROM PlannerMetadata WHERE name = 'modelVersion'");
    if (!model.step() || model.text(0) != modelVersion) throw PlannerError::invalidBackup(incompatible);
}

/// What a look at a file found, when it did not refuse it.
enum class Found { perhapsNothing, planner };

Found look(const std::string& path) {
    if (!isPresent(path)) return Found::perhapsNothing;
    Database bytes(path, Access::immutable);
    const bool hasJournal = isPresent(path + "-journal");
    if (hasJournal && isUnfinished(bytes, path + "-journal")) return Found::perhapsNothing;
    checkHeader(bytes);
    // Tables that are being made, or were not, can be told only once the journal has been rolled back.
    if (hasJournal) return Found::perhapsNothing;
    if (!isPresent(path + "-wal")) {
        // SQLite takes what is missing of the last page for zeroes.
        if (bytes.fileSize() % bytes.number("PRAGMA page_size") != 0)
            throwSqliteError(nullptr, SQLITE_CORRUPT);
        checkContents(bytes);
        return Found::planner;
    }
    // A run that was cut off left its log: what the planner holds is the file and the log together.
    Database both(path, Access::readOnly);
    both.keepLogOnClose(true);
    checkContents(both);
    return Found::planner;
}

/// Makes an empty file for its owner alone, whose permissions SQLite gives to its companions.
void createFile(const std::filesystem::path& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) {
        if (!S_ISREG(status.st_mode)) throwSystemError(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
        return;
    }
    const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
    if (file < 0) throwSystemError(errno);
    close(file);
}

void createContents(Database& database) {
    // While the tables are made the file keeps a rollback journal, so that a cut leaves nothing or all.
    Transaction transaction(database, Transaction::Kind::write);
    database.execute(createMetadata);
    database.execute(createRecords);
    database.execute(("PRAGMA application_id = " + std::to_string(applicationId)).c_str());
    database.execute(("PRAGMA user_version = " + std::to_string(formatVersion)).c_str());
    Statement model(database, "INSERT INTO PlannerMetadata(name, value) VALUES('modelVersion', ?)");
    model.bindText(1, modelVersion);
    model.run();
    transaction.commit();
}

} // namespace

void createFolder(const std::filesystem::path& directory) {
    if (directory.empty()) throwSystemError(ENOENT);
    struct stat status {};
    if (stat(directory.c_str(), &status) == 0) {
        if (!S_ISDIR(status.st_mode)) throwSystemError(ENOTDIR);
        return;
    }
    if (errno != ENOENT) throwSystemError(errno);
    const auto parent = directory.parent_path();
    if (!parent.empty() && parent != directory) createFolder(parent);
    if (mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST) throwSystemError(errno);
    // The planner's files are as safe as the name of the folder that holds them.
    syncFolder(parent);
}

Database openStore(const std::filesystem::path& path) {
    createFile(path);
    const auto found = look(path.string());
    Database database(path.string(), Access::readWrite);
    database.keepLogOnClose(true);
    // EXTRA also waits for the removal of a journal, so that none comes back after a power cut.
    database.execute("PRAGMA synchronous = EXTRA");
    if (found == Found::perhapsNothing && database.number("PRAGMA application_id") == 0)
        createContents(database);
    checkContents(database);
    database.keepLogOnClose(false);
    return database;
}

void writeThroughLog(Database& database) {
    database.execute("PRAGMA journal_mode = WAL");
    // The log of a large save, a restore above all, is not kept at its size.
    database.execute("PRAGMA journal_size_limit = 4194304");
    // Keys come in no order: while a large save fills their index, all of that (some 60 bytes a record) is
    // to stay in memory instead of going into the log and back again and again. In kibibytes.
    database.execute("PRAGMA cache_size = -16384");
}

} // namespace planner::detail
