#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "language/Outline.h"

namespace klt {

/// The headers and items of a text that hold what a person types. It keeps views: the text must stay where it
/// is and as it is.
class OutlineFilter {
public:
    /// All are listed at first.
    explicit OutlineFilter(std::string_view text);

    /// Lists those whose shown text holds each word of `typed` anywhere, in any case, beyond ASCII too. Words
    /// are what stands between blanks; without one all are listed.
    void filter(std::string_view typed);

    size_t size() const { return rows_.size(); }
    const OutlineEntry& operator[](size_t row) const { return entries_[rows_[row]]; }
    /// Where the shown text of a row stands.
    TextRange placeOf(size_t row) const;
    /// The last row that begins at `position` or in front of it; nothing where none does.
    std::optional<size_t> rowAt(Position position) const;

private:
    void listAll();
    Position startOf(const OutlineEntry& entry) const { return entry.shown.data() - text_.data(); }

    std::string_view text_;
    std::vector<OutlineEntry> entries_;
    std::vector<uint32_t> rows_;
    std::string typed_;
};

/// The number of a line, from 1, that is typed: digits alone, with blanks around. One that no number holds is
/// the greatest. Nothing for any other text.
std::optional<Position> typedLine(std::string_view typed);

}  // namespace klt
