#pragma once

#include <cstddef>
#include <string_view>

namespace klt {

/// How the restarted walk over the fields of a line ends.
enum class RestartEnd : unsigned char {
    /// At an opening parenthesis, before which no word is a tag here.
    TagMet,
    /// At a closing parenthesis.
    ClosedBeforeOpened,
    /// At the end of the text.
    TextEnds,
    /// Where it has already been restarted.
    ComesBack,
};

/// In a section whose bare fields have no scanner the walk over the fields restarts at each of them, behind
/// as many characters as were passed over on the way to it. Tells how this ends when the first restart is
/// behind `first` characters, in time linear in the text's length however often the walk is restarted.
RestartEnd walkRestarts(std::string_view text, size_t first);

}  // namespace klt
