#include "text/TextOperations.h"

#include <algorithm>

#include "text/Ascii.h"
#include "text/LargePages.h"
#include "text/TextSearch.h"

namespace klt {

std::string StripEnclosingQuotes(std::string_view text) {
    text = trimBlanks(text);
    const bool isEnclosed = text.size() >= 2 && text.starts_with('"') && text.ends_with('"');
    return std::string(isEnclosed ? text.substr(1, text.size() - 2) : text);
}

std::vector<std::string> SplitText(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    if (!separator.empty()) {
        for (auto found = text.find(separator); found != text.npos; found = text.find(separator)) {
            parts.emplace_back(text.substr(0, found));
            text.remove_prefix(found + separator.size());
        }
    }
    parts.emplace_back(text);
    return parts;
}

std::string FastReplace(std::string_view text, std::string_view find, std::string_view with, bool matchCase,
                        size_t* count) {
    return FastReplace(text, {0, static_cast<Position>(text.size())}, find, with, matchCase, count);
}

std::string FastReplace(std::string_view text, TextRange part, std::string_view find, std::string_view with,
                        bool matchCase, size_t* count) {
    const TextSearch search(find, matchCase);
    const Position end = std::max<Position>(part.end, 0);
    // Counted first: growing a long text step by step costs more than reading it twice.
    size_t replacements = 0, replaced = 0;
    search.each(text, part.start, end, [&](TextRange found) {
        ++replacements;
        replaced += static_cast<size_t>(found.end - found.start);
    });
    std::string result;
    reserveLarge(result, text.size() - replaced + replacements * with.size());
    size_t done = 0;
    search.each(text, part.start, end, [&](TextRange found) {
        result.append(text, done, static_cast<size_t>(found.start) - done).append(with);
        done = static_cast<size_t>(found.end);
    });
    result.append(text, done);
    if (count != nullptr) *count = replacements;
    return result;
}

}  // namespace klt
