#include "wizards/Categories.h"

#include "language/LogicalLine.h"
#include "text/Ascii.h"
#include "text/TextSearch.h"

namespace klt {
namespace {

/// The next `sign` at or behind `from` that starts a line; npos if there is none.
size_t nextLineStart(std::string_view text, char sign, size_t from) {
    auto place = text.find(sign, from);
    while (place != text.npos && !startsLine(text, place)) place = text.find(sign, place + 1);
    return place;
}

/// The line around `place` without the blanks at its ends and the character at each of them.
std::string_view insideOfLine(std::string_view text, size_t place) {
    const auto start = place - (text[place - 1] == ' ' ? 1 : 0);
    const auto line = trimBlanks(text.substr(start, lineEnd(text, start) - start));
    return line.size() < 2 ? std::string_view() : line.substr(1, line.size() - 2);
}

}  // namespace

bool startsLine(std::string_view text, size_t place) {
    const auto before = text.substr(0, place);
    return before.ends_with("\r\n") || before.ends_with("\r\n ");
}

std::vector<std::string> FillCategories(std::string_view text, std::string_view section) {
    const auto found = TextSearch(section, false).next(text);
    if (found.start == kNotFound) return {};
    const auto header = static_cast<size_t>(found.start);
    const auto end = nextLineStart(text, '[', header + 1);
    const auto inside = text.substr(0, end);

    std::vector<std::string> names;
    for (auto place = nextLineStart(inside, '<', header); place != inside.npos;
         place = nextLineStart(inside, '<', place + 1))
        names.emplace_back(insideOfLine(inside, place));
    return names;
}

}  // namespace klt
