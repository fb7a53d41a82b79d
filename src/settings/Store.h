#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "settings/StoreFile.h"
#include "settings/StoredValue.h"

namespace klt {

/// A key of the store: one of the two roots, and the names below it with "\" between them. Empty names are
/// passed over, and letters are compared without regard to case (ASCII).
struct NodePath {
    std::int32_t root = HKEY_CURRENT_USER;
    std::string_view path;
};

/// `$XDG_CONFIG_HOME/klt-editor/store.sqlite3`.
std::string defaultStorePath();

/// Everything that is remembered between runs: a tree of keys, each with named values ("" is the key's
/// default value). Other processes may use the same file: no lock is held between calls, and each read gives
/// what is committed at that moment. A write that returned true is on the disk. Where the store can't be
/// used, reads find nothing and writes return false. Values longer than `kLongestEntry` are neither read nor
/// written. For one thread.
class Store {
public:
    explicit Store(std::string path = defaultStorePath()) : file_(std::move(path)) {}

    /// The value, or nothing where there is none.
    std::optional<StoredValue> read(NodePath key, std::string_view name);
    /// Writes a value, making the keys on the way. A key and a value keep the spelling of their first use.
    bool write(NodePath key, std::string_view name, const StoredValue& value);
    /// Whether name and value are within what a store takes.
    static bool canHold(std::string_view name, const StoredValue& value);
    /// True if the value was there and is gone.
    bool removeValue(NodePath key, std::string_view name);

    bool hasKey(NodePath key);
    /// True if the key is there now. A root that isn't one of the two can't be made.
    bool makeKey(NodePath key);
    /// Removes a key with all below it; true if it was there. The roots stay.
    bool removeKey(NodePath key);

    /// The names of a key's values, and of the keys below it, in the order of their making; empty for a key
    /// that isn't there, and bounded in number.
    std::vector<std::string> valueNames(NodePath key);
    std::vector<std::string> keyNames(NodePath key);

    /// Runs `work` in one transaction: all that it writes is kept, or nothing, and no other process writes in
    /// between. Its writes are on the disk when this returns true. False if the transaction could not be
    /// begun (`work` hasn't run then), if `work` returned false, or if it could not be kept. `work` runs
    /// again if the file was replaced meanwhile; called inside another `together` it is a part of that.
    bool together(const std::function<bool()>& work);

private:
    using KeyId = std::int64_t;
    enum class IfMissing { Nothing, Make };
    enum class Fate { Kept, Dropped, Moved };
    class Running;

    std::optional<KeyId> resolve(StoreConnection& connection, NodePath key, IfMissing ifMissing);
    std::optional<KeyId> child(StoreConnection& connection, std::optional<KeyId> parent,
                               std::string_view name, IfMissing ifMissing);
    std::optional<StoredValue> readEntry(StoreConnection& connection, KeyId key, std::string_view name);
    bool writeEntry(StoreConnection& connection, KeyId key, std::string_view name, const StoredValue& value);
    bool changeOf(StoreConnection& connection, StoreSql sql, KeyId key);
    std::vector<std::string> names(NodePath key, StoreSql sql);
    DatabaseStatus step(const StatementUse& statement);
    void reading(const std::function<void(StoreConnection&)>& work);
    Fate attempt(StoreConnection& connection, const std::function<bool()>& work);

    StoreFile file_;
    /// The connection of the transaction that is running.
    StoreConnection* running_ = nullptr;
    /// The last failure of the operation under way.
    DatabaseStatus failure_ = DatabaseStatus::Done;
};

}  // namespace klt
