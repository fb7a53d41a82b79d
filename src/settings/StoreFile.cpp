#include "settings/StoreFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <utility>

#include "platform/Descriptor.h"
#include "platform/FileCalls.h"
#include "platform/Paths.h"

namespace klt {

namespace {

namespace fs = std::filesystem;

constexpr int kPatience = 2000;                 // milliseconds that the first operation waits for a lock
constexpr int kImpatience = 20;                 // and those behind one that waited in vain
constexpr off_t kCheckedSize = off_t{4} << 20;  // a larger file shows its damage when it is read

constexpr std::string_view kBranch =
    "WITH RECURSIVE branch(id) AS (SELECT ?1 UNION SELECT keys.id FROM keys JOIN branch "
    "ON keys.parent = branch.id) ";

constexpr std::array<std::pair<StoreSql, std::string_view>, kStoreSqlCount> kSql = {{
    {StoreSql::FindRoot, "SELECT id FROM keys WHERE parent IS NULL AND name = ?1"},
    {StoreSql::FindKey, "SELECT id FROM keys WHERE parent = ?1 AND name = ?2"},
    {StoreSql::AddKey, "INSERT INTO keys (parent, name) VALUES (?1, ?2)"},
    {StoreSql::ReadEntry, "SELECT type, data FROM entries WHERE key = ?1 AND name = ?2"},
    {StoreSql::WriteEntry,
     "INSERT INTO entries (key, name, type, data) VALUES (?1, ?2, ?3, ?4) "
     "ON CONFLICT (key, name) DO UPDATE SET type = excluded.type, data = excluded.data"},
    {StoreSql::RemoveEntry, "DELETE FROM entries WHERE key = ?1 AND name = ?2"},
    {StoreSql::EntryNames, "SELECT name FROM entries WHERE key = ?1 ORDER BY rowid LIMIT ?2"},
    {StoreSql::KeyNames, "SELECT name FROM keys WHERE parent = ?1 ORDER BY id LIMIT ?2"},
    {StoreSql::RemoveBranchEntries, "DELETE FROM entries WHERE key IN (SELECT id FROM branch)"},
    {StoreSql::RemoveBranch, "DELETE FROM keys WHERE id IN (SELECT id FROM branch)"},
}};

// AUTOINCREMENT: a new key never gets the number of a removed one, under which entries may have been left.
constexpr const char* kTables =
    "CREATE TABLE IF NOT EXISTS keys (id INTEGER PRIMARY KEY AUTOINCREMENT, "
    "parent INTEGER REFERENCES keys (id), name TEXT NOT NULL COLLATE NOCASE, UNIQUE (parent, name));"
    "CREATE UNIQUE INDEX IF NOT EXISTS roots ON keys (name) WHERE parent IS NULL;"
    "CREATE TABLE IF NOT EXISTS entries (key INTEGER NOT NULL REFERENCES keys (id), "
    "name TEXT NOT NULL COLLATE NOCASE, type INTEGER NOT NULL, data, UNIQUE (key, name));"
    "INSERT OR IGNORE INTO keys (parent, name) VALUES (NULL, 'HKEY_CURRENT_USER'), (NULL, "
    "'HKEY_CLASSES_ROOT');";

std::string sqlText(StoreSql sql, std::string_view text) {
    const bool ofBranch = sql == StoreSql::RemoveBranch || sql == StoreSql::RemoveBranchEntries;
    return (ofBranch ? std::string(kBranch) : std::string()).append(text);
}

bool isPlainFile(const std::string& path) {
    struct stat found {};
    return stat(path.c_str(), &found) == 0 && S_ISREG(found.st_mode);
}

/// `path` with the time behind it, and a number where that is taken.
std::string asideName(const std::string& path) {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    std::array<char, 32> stamp{};
    std::strftime(stamp.data(), stamp.size(), ".aside-%Y%m%d-%H%M%S", &parts);
    const std::string base = path + stamp.data();
    std::string name = base;
    std::error_code error;
    for (int number = 2; fs::exists(fs::symlink_status(name, error)); ++number)
        name = base + "-" + std::to_string(number);
    return name;
}

/// The logs go first: one that stayed would be taken for the next file's own.
bool renameWithLogs(const std::string& from, const std::string& to) {
    for (const char* log : {"-journal", "-wal", "-shm"})
        if (rename((from + log).c_str(), (to + log).c_str()) != 0 && errno != ENOENT) return false;
    return rename(from.c_str(), to.c_str()) == 0;
}

}  // namespace

StoreConnection* StoreFile::current() {
    if (connection_ && connection_->database.fileHasMoved()) connection_.reset();
    return connection_.get();
}

StoreConnection* StoreFile::connect(Purpose purpose) {
    // After a damaged file has been moved aside, another round makes a new one.
    for (int round = 0; round < 3 && !givenUp_; ++round) {
        if (purpose == Purpose::Writing && !makePrivateFolder(folderOf(path_))) return nullptr;
        if (!share()) return nullptr;
        if (current()) return connection_.get();
        if (!isPlainFile(path_) && (purpose == Purpose::Reading || !make())) return nullptr;
        auto connection = std::make_unique<StoreConnection>();
        const auto health = openOrLay(*connection, purpose);
        if (health == Health::Sound) connection_ = std::move(connection);
        if (health != Health::Damaged) return connection_.get();
        connection.reset();
        setAside();
    }
    return nullptr;
}

void StoreFile::note(DatabaseStatus status) {
    setPatience(status != DatabaseStatus::Busy);
    if (status != DatabaseStatus::Damaged) return;
    connection_.reset();
    setAside();
}

int StoreFile::wait() const {
    return patient_ ? kPatience : kImpatience;
}

void StoreFile::setPatience(bool patient) {
    if (patient_ == patient) return;
    patient_ = patient;
    if (connection_) connection_->database.setWait(wait());
}

/// False where another process claims the folder. Where folders can't be locked the file is used without.
bool StoreFile::share() {
    const auto answer = lock_.share(folderOf(path_), wait());
    if (answer == FolderLock::Answer::Busy) setPatience(false);
    return answer != FolderLock::Answer::Busy;
}

/// Makes an empty file for SQLite to fill: one that SQLite makes could be read by everybody.
bool StoreFile::make() const {
    const Descriptor made(::open(path_.c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NONBLOCK, 0600));
    return made && isPlainFile(path_);
}

StoreFile::Health StoreFile::open(StoreConnection& connection) {
    auto& database = connection.database;
    if (!database.isOpen()) {
        if (database.open(path_) != DatabaseStatus::Done) return Health::Unknown;
        database.setWait(wait());
        database.distrustSchema();
    }
    const auto health = examine(database);
    // What is committed is on the disk, the removal of the journal from its folder included.
    if (health != Health::Unknown) database.execute("PRAGMA synchronous = EXTRA");
    return health == Health::Sound ? prepareStatements(connection) : health;
}

StoreFile::Health StoreFile::openOrLay(StoreConnection& connection, Purpose purpose) {
    const auto health = open(connection);
    if (health != Health::Empty || purpose == Purpose::Reading) return health;
    setPatience(layTables(connection.database) != DatabaseStatus::Busy);
    return open(connection);
}

StoreFile::Health StoreFile::prepareStatements(StoreConnection& connection) {
    auto& database = connection.database;
    for (const auto& [sql, text] : kSql) {
        const auto status =
            database.prepare(sqlText(sql, text), connection.statements[static_cast<size_t>(sql)]);
        // The statements don't fit its tables: it is another program's database.
        if (status == DatabaseStatus::Invalid || status == DatabaseStatus::Damaged) return Health::Damaged;
        if (status != DatabaseStatus::Done) return Health::Unknown;
    }
    Statement mode;
    connection.counted = database.prepare("PRAGMA journal_mode = DELETE", mode) == DatabaseStatus::Done &&
                         mode.step() == DatabaseStatus::Row && mode.text(0) == "delete";
    database.limitLength(kLongestEntry + 4 * kLongestName);
    return Health::Sound;
}

StoreFile::Health StoreFile::examine(Database& database) {
    Statement statement;
    auto status = database.prepare("SELECT count(*) FROM sqlite_schema", statement);
    if (status == DatabaseStatus::Done) status = statement.step();
    if (status == DatabaseStatus::Row) {
        if (statement.integer(0) == 0) return Health::Empty;
        struct stat found {};
        if (stat(path_.c_str(), &found) == 0 && found.st_size > kCheckedSize) return Health::Sound;
        status = database.prepare("PRAGMA quick_check(1)", statement);
        if (status == DatabaseStatus::Done) status = statement.step();
        if (status == DatabaseStatus::Row) return statement.text(0) == "ok" ? Health::Sound : Health::Damaged;
    }
    setPatience(status != DatabaseStatus::Busy);
    return status == DatabaseStatus::Damaged ? Health::Damaged : Health::Unknown;
}

DatabaseStatus StoreFile::layTables(Database& database) {
    Transaction transaction(database, Transaction::For::Writing);
    if (!transaction.begun()) return transaction.status();
    const auto status = database.execute(kTables);
    return status == DatabaseStatus::Done ? transaction.commit() : status;
}

/// Moves the damaged file aside, unless another process has done so or works in it just now.
void StoreFile::setAside() {
    const auto claimed = lock_.claim(wait());
    if (claimed == FolderLock::Answer::Busy) return setPatience(false);
    // Whoever came first may have put a good one in its place.
    StoreConnection again;
    if (open(again) != Health::Damaged) return;
    // Kept to the end: a program that knows nothing of our lock doesn't commit while the file changes its
    // name. What is no database can't be locked, and takes no commits either.
    const Transaction alone(again.database, Transaction::For::Alone);
    if (alone.status() == DatabaseStatus::Busy) return setPatience(false);
    const auto name = asideName(path_);
    givenUp_ = claimed != FolderLock::Answer::Held || !renameWithLogs(path_, name);
    const std::string fate = givenUp_ ? "and can't be moved aside" : "and kept as " + name;
    std::fprintf(stderr, "klt-editor: %s is damaged, %s; all settings have their defaults\n", path_.c_str(),
                 fate.c_str());
}

}  // namespace klt
