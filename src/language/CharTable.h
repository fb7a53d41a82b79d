#pragma once

#include <array>
#include <initializer_list>
#include <string_view>

namespace klt {

/// One row of a scanner's table: what to do at any of these characters.
template <class Action>
struct CharRow {
    std::string_view characters;
    Action action;
};

/// A scanner's table as an array over all bytes. The first row that names a character wins; a character that
/// no row names gets `other`.
template <class Action>
class CharTable {
public:
    consteval CharTable(Action other, std::initializer_list<CharRow<Action>> rows) : other_(other) {
        actions_.fill(other);
        std::array<bool, 256> taken{};
        for (const auto& row : rows)
            for (const char c : row.characters) {
                const auto i = static_cast<unsigned char>(c);
                if (taken[i]) throw "a character stands in two rows";
                taken[i] = true;
                actions_[i] = row.action;
            }
    }

    constexpr Action operator[](char c) const { return actions_[static_cast<unsigned char>(c)]; }

    /// What a character gets that no row names.
    constexpr Action other() const { return other_; }

    /// The offset of the first character at or behind `from` that does not get `action`; the text's length if
    /// there is none.
    constexpr size_t skip(std::string_view text, size_t from, Action action) const {
        while (from < text.size() && (*this)[text[from]] == action) ++from;
        return from;
    }

private:
    Action other_;
    std::array<Action, 256> actions_{};
};

}  // namespace klt
