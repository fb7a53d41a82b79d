#include "settings/Store.h"

#include "platform/Paths.h"

namespace klt {

namespace {

constexpr int kDeepest = 512;       // names in a path
constexpr int kMostNames = 10'000;  // that are listed of one key
constexpr size_t kMostKnown = 512;  // values that are remembered
constexpr size_t kLongestKnown = 4096;

std::string_view rootName(std::int32_t root) {
    switch (root) {
        case HKEY_CLASSES_ROOT:
            return "HKEY_CLASSES_ROOT";
        case HKEY_CURRENT_USER:
            return "HKEY_CURRENT_USER";
        default:
            return {};
    }
}

/// Takes the next name off the front of `path`; empty at its end.
std::string_view takeName(std::string_view& path) {
    const auto start = path.find_first_not_of('\\');
    if (start == std::string_view::npos) return path = {};
    path.remove_prefix(start);
    const auto name = path.substr(0, path.find('\\'));
    path.remove_prefix(name.size());
    return name;
}

std::string knownName(NodePath key, std::string_view name) {
    const std::uint64_t sizes[] = {static_cast<std::uint32_t>(key.root), key.path.size()};
    std::string known;
    known.reserve(sizeof sizes + key.path.size() + name.size());
    known.append(reinterpret_cast<const char*>(sizes), sizeof sizes);
    return known.append(key.path).append(name);
}

size_t lengthOf(const StoredValue& value) {
    if (const auto* text = std::get_if<std::string>(&value.data)) return text->size();
    if (const auto* bytes = std::get_if<Bytes>(&value.data)) return bytes->size();
    return sizeof(std::int64_t);
}

/// Keeps a value for the next reads. Called inside the transaction that read it, so that the counter is still
/// that of the value.
void remember(StoreConnection& connection, std::string known, const std::optional<StoredValue>& value) {
    const auto counter = connection.database.changeCounter();
    if (!connection.counted || !counter) return;
    if (connection.knownAt != counter || connection.known.size() >= kMostKnown) connection.known.clear();
    connection.knownAt = counter;
    if (!value || lengthOf(*value) <= kLongestKnown)
        connection.known.insert_or_assign(std::move(known), value);
}

}  // namespace

std::string textOf(const StoredValue& value) {
    if (const auto* text = std::get_if<std::string>(&value.data)) return *text;
    if (const auto* number = std::get_if<std::int64_t>(&value.data)) return std::to_string(*number);
    const auto& bytes = std::get<Bytes>(value.data);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string defaultStorePath() {
    return configFolder() + "/store.sqlite3";
}

/// Marks a transaction as running, for what is called inside it.
class Store::Running {
public:
    Running(Store& store, StoreConnection& connection) : store_(store) { store_.running_ = &connection; }
    ~Running() { store_.running_ = nullptr; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    Store& store_;
};

std::optional<StoredValue> Store::read(NodePath key, std::string_view name) {
    auto known = knownName(key, name);
    if (!running_) {
        const auto* connection = file_.current();
        if (connection && connection->knownAt && connection->knownAt == connection->database.changeCounter())
            if (const auto found = connection->known.find(known); found != connection->known.end())
                return found->second;
    }
    std::optional<StoredValue> value;
    reading([&](StoreConnection& connection) {
        if (const auto id = resolve(connection, key, IfMissing::Nothing))
            value = readEntry(connection, *id, name);
        if (!running_ && failure_ == DatabaseStatus::Done) remember(connection, std::move(known), value);
    });
    return value;
}

bool Store::write(NodePath key, std::string_view name, const StoredValue& value) {
    if (!canHold(name, value)) return false;
    if (read(key, name) == value) return true;
    return together([&] {
        const auto id = resolve(*running_, key, IfMissing::Make);
        return id && writeEntry(*running_, *id, name, value);
    });
}

bool Store::canHold(std::string_view name, const StoredValue& value) {
    return lengthOf(value) <= kLongestEntry && name.size() <= kLongestName && name.find('\0') == name.npos;
}

bool Store::removeValue(NodePath key, std::string_view name) {
    return together([&] {
        const auto id = resolve(*running_, key, IfMissing::Nothing);
        if (!id) return false;
        const auto statement = running_->use(StoreSql::RemoveEntry);
        statement->bind(2, name);
        statement->bind(1, *id);
        return step(statement) == DatabaseStatus::Done && running_->database.changes() > 0;
    });
}

bool Store::hasKey(NodePath key) {
    bool exists = false;
    reading([&](StoreConnection& connection) {
        exists = resolve(connection, key, IfMissing::Nothing).has_value();
    });
    return exists;
}

bool Store::makeKey(NodePath key) {
    return hasKey(key) || together([&] { return resolve(*running_, key, IfMissing::Make).has_value(); });
}

bool Store::removeKey(NodePath key) {
    auto path = key.path;
    if (takeName(path).empty()) return false;
    return together([&] {
        const auto id = resolve(*running_, key, IfMissing::Nothing);
        return id && changeOf(*running_, StoreSql::RemoveBranchEntries, *id) &&
               changeOf(*running_, StoreSql::RemoveBranch, *id);
    });
}

std::vector<std::string> Store::valueNames(NodePath key) {
    return names(key, StoreSql::EntryNames);
}

std::vector<std::string> Store::keyNames(NodePath key) {
    return names(key, StoreSql::KeyNames);
}

bool Store::together(const std::function<bool()>& work) {
    if (running_) return work();
    // What was written to a file that has been replaced meanwhile is lost: it is done again in the new one.
    for (int round = 0; round < 3; ++round) {
        StoreFile::Visit visit(file_);
        auto* connection = visit.connect(StoreFile::Purpose::Writing);
        if (!connection) return false;
        const auto fate = attempt(*connection, work);
        visit.note(failure_);
        if (fate != Fate::Moved) return fate == Fate::Kept;
    }
    return false;
}

Store::Fate Store::attempt(StoreConnection& connection, const std::function<bool()>& work) {
    failure_ = DatabaseStatus::Done;
    Transaction transaction(connection.database, Transaction::For::Writing);
    if (!transaction.begun()) {
        failure_ = transaction.status();
        return Fate::Dropped;
    }
    {
        const Running running(*this, connection);
        if (!work() || failure_ != DatabaseStatus::Done) return Fate::Dropped;
    }
    if (const auto status = transaction.commit(); status != DatabaseStatus::Done) {
        failure_ = status;
        return Fate::Dropped;
    }
    return connection.database.fileHasMoved() ? Fate::Moved : Fate::Kept;
}

void Store::reading(const std::function<void(StoreConnection&)>& work) {
    if (running_) return work(*running_);
    StoreFile::Visit visit(file_);
    auto* connection = visit.connect(StoreFile::Purpose::Reading);
    if (!connection) return;
    failure_ = DatabaseStatus::Done;
    {
        const Transaction transaction(connection->database, Transaction::For::Reading);
        if (transaction.begun()) work(*connection);
    }
    visit.note(failure_);
}

DatabaseStatus Store::step(const StatementUse& statement) {
    // After a failure the transaction may be rolled back already, and what came now would be kept alone.
    if (running_ && failure_ != DatabaseStatus::Done) return failure_;
    const auto status = statement->step();
    if (status != DatabaseStatus::Done && status != DatabaseStatus::Row && status != DatabaseStatus::TooBig)
        failure_ = status;
    return status;
}

std::optional<Store::KeyId> Store::resolve(StoreConnection& connection, NodePath key, IfMissing ifMissing) {
    const auto root = rootName(key.root);
    if (root.empty()) return std::nullopt;
    auto id = child(connection, std::nullopt, root, ifMissing);
    auto path = key.path;
    for (int depth = 0; id; ++depth) {
        const auto name = takeName(path);
        if (name.empty()) return id;
        if (depth == kDeepest || name.size() > kLongestName) return std::nullopt;
        id = child(connection, id, name, ifMissing);
    }
    return std::nullopt;
}

std::optional<Store::KeyId> Store::child(StoreConnection& connection, std::optional<KeyId> parent,
                                         std::string_view name, IfMissing ifMissing) {
    {
        const auto find = connection.use(parent ? StoreSql::FindKey : StoreSql::FindRoot);
        if (parent) find->bind(1, *parent);
        find->bind(parent ? 2 : 1, name);
        const auto status = step(find);
        if (status == DatabaseStatus::Row) return find->integer(0);
        if (status != DatabaseStatus::Done || ifMissing == IfMissing::Nothing) return std::nullopt;
    }
    const auto add = connection.use(StoreSql::AddKey);
    if (parent)
        add->bind(1, *parent);
    else
        add->bindNothing(1);
    add->bind(2, name);
    if (step(add) != DatabaseStatus::Done) return std::nullopt;
    return connection.database.lastInsertedRow();
}

std::optional<StoredValue> Store::readEntry(StoreConnection& connection, KeyId key, std::string_view name) {
    const auto entry = connection.use(StoreSql::ReadEntry);
    entry->bind(1, key);
    entry->bind(2, name);
    if (step(entry) != DatabaseStatus::Row) return std::nullopt;
    StoredValue value{entry->integer(0), {}};
    switch (entry->kind(1)) {
        case Statement::Kind::Nothing:
            return std::nullopt;
        case Statement::Kind::Integer:
            value.data = entry->integer(1);
            break;
        case Statement::Kind::Blob: {
            const auto bytes = entry->bytes(1);
            value.data = Bytes(bytes.begin(), bytes.end());
            break;
        }
        case Statement::Kind::Real:
        case Statement::Kind::Text:
            value.data = std::string(entry->text(1));
            break;
    }
    if (lengthOf(value) > kLongestEntry) return std::nullopt;
    return value;
}

bool Store::writeEntry(StoreConnection& connection, KeyId key, std::string_view name,
                       const StoredValue& value) {
    const auto entry = connection.use(StoreSql::WriteEntry);
    entry->bind(1, key);
    entry->bind(2, name);
    entry->bind(3, value.type);
    std::visit([&](const auto& data) { entry->bind(4, data); }, value.data);
    return step(entry) == DatabaseStatus::Done;
}

bool Store::changeOf(StoreConnection& connection, StoreSql sql, KeyId key) {
    const auto statement = connection.use(sql);
    statement->bind(1, key);
    return step(statement) == DatabaseStatus::Done;
}

std::vector<std::string> Store::names(NodePath key, StoreSql sql) {
    std::vector<std::string> names;
    reading([&](StoreConnection& connection) {
        const auto id = resolve(connection, key, IfMissing::Nothing);
        if (!id) return;
        const auto statement = connection.use(sql);
        statement->bind(1, *id);
        statement->bind(2, std::int64_t{kMostNames});
        while (step(statement) == DatabaseStatus::Row) names.emplace_back(statement->text(0));
    });
    return names;
}

}  // namespace klt
