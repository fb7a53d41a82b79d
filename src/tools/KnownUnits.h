#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string_view>
#include <vector>

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

/// The units that one place has. It keeps views, of less than 4 GiB each. Files of nothing but short items
/// have millions: a node for each, as in the library's sets, took six times the files' memory.
class KnownUnits {
public:
    /// The lines above the unit of the same body that came first; nothing if this one is the first.
    std::optional<std::string_view> findOrAdd(const MergeUnit& unit);

private:
    struct Entry {
        const char* lines;
        uint32_t aboveSize, bodySize;
        std::string_view above() const { return {lines, aboveSize}; }
        std::string_view body() const { return {lines + aboveSize, bodySize}; }
    };
    struct Slot {
        uint32_t hash;
        /// Counted from 1; 0 is a free slot.
        uint32_t entry;
    };

    Slot& slotOf(uint32_t hash, std::string_view body);
    void grow();

    std::deque<Entry> entries_;
    /// A power of two of them, at most three quarters taken.
    std::vector<Slot> slots_;
};

}  // namespace klt
