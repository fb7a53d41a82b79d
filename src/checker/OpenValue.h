#pragma once

#include <string_view>
#include <vector>

#include "language/Functions.h"
#include "language/Tags.h"

namespace klt {

/// A parenthesis that is not closed, with the @function that it opens, if any.
struct OpenParenthesis {
    /// Behind it.
    size_t inside = 0;
    AtFunction function = AtFunction::None;
};

/// How far an item has come at its end: which field it is in, and what is open there.
struct OpenItem {
    /// The commas outside parentheses.
    size_t commas = 0;
    /// Where the last field begins, behind its comma.
    size_t fieldStart = 0;
    /// The tag whose value the end is in; `None` outside, and in parentheses of another word.
    Tag tag = Tag::None;
    /// The outermost first.
    std::vector<OpenParenthesis> open = {};
};
OpenItem openItem(std::string_view item);

/// What is open at the end of a value, which begins behind the parenthesis of its tag.
std::vector<OpenParenthesis> openIn(std::string_view value);

/// Where the part of a value begins that its end is in: behind the last of `separators` outside the
/// parentheses that stand in the value itself.
size_t partStart(std::string_view value, std::string_view separators);

/// Whether it may stand in a word, a name's letters counted.
bool isOfWord(char c);

/// Where the word begins that the text ends in; its length where it ends in none.
size_t lastWordStart(std::string_view text);

}  // namespace klt
