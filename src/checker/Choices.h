#pragma once

#include <algorithm>
#include <array>

#include "checker/Completion.h"
#include "language/Functions.h"

namespace klt {

// How the words of the vocabulary are offered.

/// The word as it stands.
Completion wordChoice(std::string_view word);
/// A tag word or the name of an @function with its closing parenthesis, the caret between the two.
Completion closedChoice(std::string_view opening, std::string shown);
Completion tagChoice(Tag tag);
/// Shown with what the @function takes.
Completion functionChoice(const FunctionRow& function);

template <size_t N>
void addWords(std::vector<Completion>& choices, const std::array<std::string_view, N>& words) {
    for (const auto word : words) choices.push_back(wordChoice(word));
}

/// Those of the prefix tags that `takes` says yes to.
template <class Predicate>
void addPrefixes(std::vector<Completion>& choices, Predicate takes) {
    for (const auto& row : kPrefixRows)
        if (takes(row)) choices.push_back(wordChoice(row.word));
}

}  // namespace klt
