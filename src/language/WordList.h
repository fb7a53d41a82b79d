#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "text/Ascii.h"

namespace klt {

/// The words of a table's rows, for a list.
template <class Row, size_t N>
consteval std::array<std::string_view, N> wordsOf(const std::array<Row, N>& rows) {
    std::array<std::string_view, N> words;
    for (size_t i = 0; i < N; ++i) words[i] = rows[i].word;
    return words;
}

/// A list of words in the order and spelling in which the system holds them, found in any case by one probe
/// of a table without collisions that is made while compiling. A word holds no blank, and so no text with a
/// blank is ever found.
template <size_t N>
class WordList {
public:
    consteval explicit WordList(const std::array<std::string_view, N>& words) : words_(words) {
        for (const auto word : words)
            if (word.empty() || word.size() >= 32 || word.find(' ') != std::string_view::npos)
                throw "no word for a list";
        while (!fill()) seed_ += 2;
    }

    /// The index of `word`, in any case; -1 if it is not in the list.
    constexpr int find(std::string_view word) const {
        if (word.empty() || word.size() >= 32) return -1;
        if ((lengths_[firstOf(word)] >> word.size() & 1U) == 0) return -1;
        const int i = slots_[slotOf(word)];
        return i >= 0 && equalIgnoringAsciiCase(words_[static_cast<size_t>(i)], word) ? i : -1;
    }

    /// How many characters the longest word has.
    constexpr size_t longest() const {
        size_t most = 0;
        for (const auto word : words_) most = word.size() > most ? word.size() : most;
        return most;
    }

    constexpr std::string_view operator[](int index) const { return words_[static_cast<size_t>(index)]; }
    constexpr const std::array<std::string_view, N>& words() const { return words_; }

private:
    static constexpr size_t kSlots = N <= 4 ? 16 : N <= 16 ? 64 : 128;

    static constexpr size_t firstOf(std::string_view word) {
        return static_cast<unsigned char>(toLower(word[0])) % 64;
    }

    constexpr size_t slotOf(std::string_view word) const {
        uint32_t hash = 0;
        for (const char c : word) hash = hash * seed_ + static_cast<unsigned char>(toLower(c));
        return (hash ^ hash >> 15) & (kSlots - 1);
    }

    consteval bool fill() {
        slots_.fill(-1);
        lengths_.fill(0);
        for (size_t i = 0; i < N; ++i) {
            auto& slot = slots_[slotOf(words_[i])];
            if (slot >= 0) return false;
            slot = static_cast<int8_t>(i);
            lengths_[firstOf(words_[i])] |= 1U << words_[i].size();
        }
        return true;
    }

    std::array<std::string_view, N> words_;
    std::array<int8_t, kSlots> slots_{};
    std::array<uint32_t, 64> lengths_{};
    uint32_t seed_ = 31;
};

}  // namespace klt
