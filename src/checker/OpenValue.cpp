#include "checker/OpenValue.h"

#include <string>

#include "text/Ascii.h"

namespace klt {
namespace {

/// The word that opens the parenthesis at `at`, with it.
std::string_view opener(std::string_view text, size_t at) {
    auto start = at;
    while (start > 0 && isLetter(text[start - 1])) --start;
    if (start > 0 && text[start - 1] == '@') --start;
    return text.substr(start, at + 1 - start);
}

void step(std::string_view text, size_t i, std::vector<OpenParenthesis>& open) {
    if (text[i] == '(') open.push_back({i + 1, functionOf(opener(text, i))});
    if (text[i] == ')' && !open.empty()) open.pop_back();
}

}  // namespace

OpenItem openItem(std::string_view item) {
    OpenItem found;
    for (size_t i = 0; i < item.size(); ++i) {
        if (found.open.empty() && item[i] == '(' && found.commas > 0) found.tag = tagOf(opener(item, i));
        step(item, i, found.open);
        if (!found.open.empty()) continue;
        found.tag = Tag::None;
        if (item[i] != ',') continue;
        ++found.commas;
        found.fieldStart = i + 1;
    }
    return found;
}

std::vector<OpenParenthesis> openIn(std::string_view value) {
    std::vector<OpenParenthesis> open;
    for (size_t i = 0; i < value.size(); ++i) step(value, i, open);
    return open;
}

size_t partStart(std::string_view value, std::string_view separators) {
    size_t start = 0, depth = 0;
    for (size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '(') ++depth;
        if (value[i] == ')' && depth > 0) --depth;
        if (depth == 0 && separators.find(value[i]) != separators.npos) start = i + 1;
    }
    return start;
}

bool isOfWord(char c) {
    return isLetter(c) || isDigit(c) || c == '%' || c == '@' || c == '_' || (c & 0x80) != 0;
}

size_t lastWordStart(std::string_view text) {
    auto start = text.size();
    while (start > 0 && isOfWord(text[start - 1])) --start;
    return start;
}

}  // namespace klt
