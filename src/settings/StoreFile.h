#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "platform/Database.h"
#include "platform/FolderLock.h"
#include "settings/StoredValue.h"

namespace klt {

/// The statements that are compiled once for each opening of the store.
enum class StoreSql {
    FindRoot,
    FindKey,
    AddKey,
    ReadEntry,
    WriteEntry,
    RemoveEntry,
    EntryNames,
    KeyNames,
    RemoveBranchEntries,
    RemoveBranch
};
inline constexpr size_t kStoreSqlCount = static_cast<size_t>(StoreSql::RemoveBranch) + 1;

/// An open store file with its statements.
struct StoreConnection {
    Database database;
    std::array<Statement, kStoreSqlCount> statements;
    /// Whether `Database::changeCounter` tells of every commit: not so where a write-ahead log is kept.
    bool counted = false;
    /// What was read while the counter stood at `knownAt`.
    std::unordered_map<std::string, std::optional<StoredValue>> known;
    std::optional<std::uint32_t> knownAt;

    StatementUse use(StoreSql sql) { return StatementUse(statements[static_cast<size_t>(sql)]); }
};

/// The file behind the store: found at each use, made when it is first written, and moved aside when it is
/// damaged or not a store. A file that is merely locked, unreadable or read-only is left alone.
class StoreFile {
public:
    enum class Purpose { Reading, Writing };

    /// While one stands, no process moves the file aside but this one. Every use of the connection that goes
    /// to the file stands in one.
    class Visit {
    public:
        explicit Visit(StoreFile& file) : file_(file) {}
        ~Visit() { file_.lock_.release(); }
        Visit(const Visit&) = delete;
        Visit& operator=(const Visit&) = delete;

        /// The open file, or null where there is none to be had now: absent (when reading), empty (when
        /// reading), locked for longer than the wait, not accessible, or damaged and not movable.
        StoreConnection* connect(Purpose purpose) { return file_.connect(purpose); }
        /// Takes note of what an operation came to: after `Busy` the next ones wait only briefly, until one
        /// succeeds; after `Damaged` the file is examined anew, and moved aside if it is so indeed. The
        /// connection may be closed then.
        void note(DatabaseStatus status) { file_.note(status); }

    private:
        StoreFile& file_;
    };

    explicit StoreFile(std::string path) : path_(std::move(path)) {}

    /// The connection as long as the path leads to its file, else null. Opens nothing.
    StoreConnection* current();

private:
    enum class Health { Sound, Empty, Damaged, Unknown };

    StoreConnection* connect(Purpose purpose);
    void note(DatabaseStatus status);
    bool share();
    bool make() const;
    Health open(StoreConnection& connection);
    Health openOrLay(StoreConnection& connection, Purpose purpose);
    Health examine(Database& database);
    Health prepareStatements(StoreConnection& connection);
    DatabaseStatus layTables(Database& database);
    void setAside();
    void setPatience(bool patient);
    int wait() const;

    std::string path_;
    std::unique_ptr<StoreConnection> connection_;
    FolderLock lock_;
    bool patient_ = true;
    bool givenUp_ = false;
};

}  // namespace klt
