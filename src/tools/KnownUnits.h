#pragma once

#include <memory_resource>
#include <optional>
#include <string_view>
#include <unordered_set>

namespace klt {

/// Lines that stay together when texts are merged: an item, a package, a header, with the comments and blank
/// lines above it.
struct MergeUnit {
    std::string_view lines;
    /// The bytes of the comments and blank lines.
    size_t aboveSize = 0;

    std::string_view above() const { return lines.substr(0, aboveSize); }
    std::string_view body() const { return lines.substr(aboveSize); }
};

/// The units that have been seen, by the places that they belong to. It keeps views.
class KnownUnits {
public:
    /// The unit of the same body that came first at this place; null if this one is the first.
    const MergeUnit* findOrAdd(const void* place, const MergeUnit& unit);
    /// Forgets all and gives the memory back.
    void clear();

private:
    struct Entry {
        const void* place;
        MergeUnit unit;
        bool operator==(const Entry& other) const {
            return place == other.place && unit.body() == other.unit.body();
        }
    };
    struct Hash {
        size_t operator()(const Entry& entry) const {
            return std::hash<std::string_view>()(entry.unit.body()) ^ std::hash<const void*>()(entry.place);
        }
    };
    using Entries = std::pmr::unordered_set<Entry, Hash>;

    // One allocation for each entry took as long as all the rest.
    std::pmr::monotonic_buffer_resource memory_;
    std::optional<Entries> entries_{std::in_place, &memory_};
};

}  // namespace klt
