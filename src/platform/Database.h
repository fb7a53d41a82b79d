#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace klt {

/// What an operation on a database came to.
enum class DatabaseStatus {
    Done,      ///< finished; a query has no further row
    Row,       ///< a row stands ready
    Busy,      ///< another process held it for longer than the wait
    Damaged,   ///< not a database, or one with broken insides
    ReadOnly,  ///< it can be read, not written
    TooBig,    ///< a value beyond the limit of length
    Invalid,   ///< the statement doesn't fit the tables
    Failed     ///< not to be opened, read or written for any other reason
};

/// A compiled statement. Parameters and columns count as SQLite's do: from 1 and from 0.
class Statement {
public:
    enum class Kind { Nothing, Integer, Real, Text, Blob };

    Statement() = default;

    void bind(int parameter, std::int64_t value);
    void bind(int parameter, std::string_view text);
    void bind(int parameter, std::span<const std::byte> bytes);
    void bindNothing(int parameter);
    /// Runs to the next row. Text and bytes of a row are good until the next step or reset.
    DatabaseStatus step();
    void reset();

    Kind kind(int column) const;
    std::int64_t integer(int column) const;
    std::string_view text(int column) const;
    std::span<const std::byte> bytes(int column) const;

private:
    friend class Database;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// One use of a kept statement. At its end the statement is reset, and with it goes its lock.
class StatementUse {
public:
    explicit StatementUse(Statement& statement) : statement_(statement) {}
    ~StatementUse() { statement_.reset(); }
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;
    Statement* operator->() const { return &statement_; }

private:
    Statement& statement_;
};

/// An open SQLite file. It makes no file, and throws nothing. For one thread.
class Database {
public:
    Database() = default;

    /// Opens an existing file, for reading alone where it can't be written. What it holds is looked at by the
    /// first statement, not here: damage shows there.
    DatabaseStatus open(const std::string& path);
    bool isOpen() const { return database_ != nullptr; }

    /// Runs one or more statements without results.
    DatabaseStatus execute(const std::string& sql);
    /// Compiles `sql` into `statement`, to be kept and used again. The statement must go before the database.
    DatabaseStatus prepare(std::string_view sql, Statement& statement);

    /// How long an operation waits for other processes.
    void setWait(int milliseconds);
    /// Longer values are neither read nor written: `TooBig`.
    void limitLength(int bytes);
    /// Nothing in the file's schema runs by itself: no trigger, no view, no function with side effects.
    void distrustSchema();

    std::int64_t lastInsertedRow() const;
    /// How many rows the last statement changed.
    int changes() const;
    /// Whether the path no longer leads to the file that is open: renamed, removed or replaced.
    bool fileHasMoved() const;
    /// A number that every commit of any process changes, read from the file without taking a lock; nothing
    /// when it can't be read. Holds for files with a rollback journal, not for write-ahead logs.
    std::optional<std::uint32_t> changeCounter() const;

private:
    struct Close {
        void operator()(sqlite3* database) const;
    };
    /// SQLite keeps a pointer to it, which stays good when the database is moved.
    std::unique_ptr<int> wait_ = std::make_unique<int>(0);
    std::unique_ptr<sqlite3, Close> database_;
};

/// A transaction that is rolled back at the end of its scope unless it was committed.
class Transaction {
public:
    enum class For { Reading, Writing, Alone };

    /// `Writing` takes the write lock at once, `Alone` keeps readers out too.
    Transaction(Database& database, For purpose);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// `Done` if it was begun.
    DatabaseStatus status() const { return status_; }
    bool begun() const { return status_ == DatabaseStatus::Done; }
    DatabaseStatus commit();

private:
    Database& database_;
    DatabaseStatus status_;
    bool open_;
};

}  // namespace klt
