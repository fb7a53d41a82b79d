#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace klt {

namespace detail {

constexpr std::array<char, 256> foldTable() {
    std::array<char, 256> table{};
    for (size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char>(i >= 'A' && i <= 'Z' ? i + ('a' - 'A') : i);
    return table;
}

inline constexpr auto kFold = foldTable();

}  // namespace detail

/// The letter in lower case; anything but an ASCII capital as it is. Lengths never change here, so letters
/// beyond ASCII are left alone.
constexpr char toLower(char c) {
    return detail::kFold[static_cast<unsigned char>(c)];
}
constexpr char toUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}
constexpr bool isLetter(char c) {
    return toLower(c) >= 'a' && toLower(c) <= 'z';
}
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Whether both are the same but for the case of ASCII letters.
constexpr bool equalIgnoringAsciiCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (toLower(a[i]) != toLower(b[i])) return false;
    return true;
}

/// Without the blanks (32 alone) at both ends.
constexpr std::string_view trimBlanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

inline constexpr std::string_view kBlanksAndTabs = " \t";

/// Without the blanks and tabs at both ends: of these alone the end of them is left.
constexpr std::string_view trimBlanksAndTabs(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanksAndTabs);
    text.remove_prefix(first == text.npos ? text.size() : first);
    return text.substr(0, text.find_last_not_of(kBlanksAndTabs) + 1);
}

/// The offset of `what` in `text` at or behind `from`, in any case; npos if there is none.
constexpr size_t findIgnoringAsciiCase(std::string_view text, std::string_view what, size_t from = 0) {
    for (size_t i = from; i + what.size() <= text.size(); ++i)
        if (equalIgnoringAsciiCase(text.substr(i, what.size()), what)) return i;
    return std::string_view::npos;
}

/// Whether the whole of `text` is a decimal number: blanks around, a sign, digits with at most one point, an
/// exponent. An empty text is none.
constexpr bool isNumber(std::string_view text) {
    text = trimBlanks(text);
    size_t i = 0;
    const auto sign = [&] {
        if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    };
    const auto digits = [&] {
        const auto first = i;
        while (i < text.size() && isDigit(text[i])) ++i;
        return i - first;
    };
    sign();
    auto count = digits();
    if (i < text.size() && text[i] == '.') {
        ++i;
        count += digits();
    }
    if (count == 0) return false;
    if (i < text.size() && toLower(text[i]) == 'e') {
        ++i;
        sign();
        if (digits() == 0) return false;
    }
    return i == text.size();
}

}  // namespace klt
