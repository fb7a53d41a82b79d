#include "platform/Database.h"

#include <sqlite3.h>

#include <array>
#include <chrono>
#include <thread>

namespace klt {

namespace {

DatabaseStatus statusOf(int code) {
    switch (code & 0xff) {
        case SQLITE_OK:
        case SQLITE_DONE:
            return DatabaseStatus::Done;
        case SQLITE_ROW:
            return DatabaseStatus::Row;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return DatabaseStatus::Busy;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return DatabaseStatus::Damaged;
        case SQLITE_READONLY:
            return DatabaseStatus::ReadOnly;
        case SQLITE_TOOBIG:
            return DatabaseStatus::TooBig;
        case SQLITE_ERROR:
            return DatabaseStatus::Invalid;
        default:
            return DatabaseStatus::Failed;
    }
}

// SQLite takes a null pointer for NULL, and an empty view may have one.
const char* dataOf(std::string_view text) {
    return text.data() ? text.data() : "";
}

}  // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

void Statement::bind(int parameter, std::int64_t value) {
    sqlite3_bind_int64(statement_.get(), parameter, value);
}

void Statement::bind(int parameter, std::string_view text) {
    sqlite3_bind_text64(statement_.get(), parameter, dataOf(text), text.size(), SQLITE_TRANSIENT,
                        SQLITE_UTF8);
}

void Statement::bind(int parameter, std::span<const std::byte> bytes) {
    if (bytes.empty())
        sqlite3_bind_zeroblob(statement_.get(), parameter, 0);
    else
        sqlite3_bind_blob64(statement_.get(), parameter, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
}

void Statement::bindNothing(int parameter) {
    sqlite3_bind_null(statement_.get(), parameter);
}

DatabaseStatus Statement::step() {
    return statement_ ? statusOf(sqlite3_step(statement_.get())) : DatabaseStatus::Invalid;
}

void Statement::reset() {
    if (!statement_) return;
    sqlite3_reset(statement_.get());
    sqlite3_clear_bindings(statement_.get());
}

Statement::Kind Statement::kind(int column) const {
    switch (sqlite3_column_type(statement_.get(), column)) {
        case SQLITE_INTEGER:
            return Kind::Integer;
        case SQLITE_FLOAT:
            return Kind::Real;
        case SQLITE_TEXT:
            return Kind::Text;
        case SQLITE_BLOB:
            return Kind::Blob;
        default:
            return Kind::Nothing;
    }
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

std::string_view Statement::text(int column) const {
    const auto* data = sqlite3_column_text(statement_.get(), column);
    if (!data) return {};
    const int size = sqlite3_column_bytes(statement_.get(), column);
    return {reinterpret_cast<const char*>(data), static_cast<size_t>(size)};
}

std::span<const std::byte> Statement::bytes(int column) const {
    const void* data = sqlite3_column_blob(statement_.get(), column);
    if (!data) return {};
    const int size = sqlite3_column_bytes(statement_.get(), column);
    return {static_cast<const std::byte*>(data), static_cast<size_t>(size)};
}

void Database::Close::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

DatabaseStatus Database::open(const std::string& path) {
    sqlite3* opened = nullptr;
    // SQLite falls back to reading alone by itself where the file can't be opened for writing.
    const int code =
        sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    database_.reset(opened);
    if (code != SQLITE_OK) database_.reset();
    return statusOf(code);
}

DatabaseStatus Database::execute(const std::string& sql) {
    return statusOf(sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr));
}

DatabaseStatus Database::prepare(std::string_view sql, Statement& statement) {
    sqlite3_stmt* prepared = nullptr;
    const int code = sqlite3_prepare_v3(database_.get(), sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    statement.statement_.reset(prepared);
    return statusOf(code);
}

void Database::setWait(int milliseconds) {
    // SQLite's own waiting sleeps ever longer, and starves beside a process that writes without a pause.
    const auto wait = [](void* most, int waited) {
        if (waited >= *static_cast<int*>(most)) return 0;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return 1;
    };
    *wait_ = milliseconds;
    sqlite3_busy_handler(database_.get(), wait, wait_.get());
}

void Database::limitLength(int bytes) {
    sqlite3_limit(database_.get(), SQLITE_LIMIT_LENGTH, bytes);
}

void Database::distrustSchema() {
    for (const int part :
         {SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(database_.get(), part, 0, nullptr);
}

std::int64_t Database::lastInsertedRow() const {
    return sqlite3_last_insert_rowid(database_.get());
}

int Database::changes() const {
    return sqlite3_changes(database_.get());
}

bool Database::fileHasMoved() const {
    int moved = 0;
    const int code = sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return code == SQLITE_OK && moved != 0;
}

std::optional<std::uint32_t> Database::changeCounter() const {
    // Through SQLite's own handle: closing a second one would drop this process's locks on the file.
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
        !file || !file->pMethods)
        return std::nullopt;
    constexpr sqlite3_int64 kCounterInHeader = 24;
    std::array<std::uint8_t, 4> counter{};
    if (file->pMethods->xRead(file, counter.data(), counter.size(), kCounterInHeader) != SQLITE_OK)
        return std::nullopt;
    std::uint32_t number = 0;
    for (const auto byte : counter) number = number << 8 | byte;
    return number;
}

Transaction::Transaction(Database& database, For purpose)
    : database_(database),
      status_(database.execute(purpose == For::Reading   ? "BEGIN"
                               : purpose == For::Writing ? "BEGIN IMMEDIATE"
                                                         : "BEGIN EXCLUSIVE")),
      open_(status_ == DatabaseStatus::Done) {}

Transaction::~Transaction() {
    if (open_) database_.execute("ROLLBACK");
}

DatabaseStatus Transaction::commit() {
    const auto status = open_ ? database_.execute("COMMIT") : DatabaseStatus::Failed;
    if (status == DatabaseStatus::Done) open_ = false;
    return status;
}

}  // namespace klt
