#include "tools/FindText.h"

#include <algorithm>

#include "text/LineEnds.h"
#include "text/TextAreaGuards.h"
#include "text/TextOperations.h"
#include "text/TextSearch.h"
#include "text/Unicode.h"

namespace klt {
namespace {

Position untouchedEnd(const TextArea& text) {
    constexpr Position kLongestCharacter = 4;
    // One more, for a line feed behind the last.
    const auto head = text.Slice(0, kUntouchedCharacters * kLongestCharacter + 1);
    size_t end = 0;
    for (int n = 0; n < kUntouchedCharacters && end < head.size(); ++n) end += characterAt(head, end).length;
    return static_cast<Position>(unitEnd(head, end));
}

TextRange rangeOf(const TextArea& text, const FindRequest& request) {
    const Position caret = text.SelStart() + text.SelLength();
    const bool whole = request.startFromBeginning || request.direction == FindDirection::All;
    TextRange range{caret, text.Length()};
    if (whole && request.beginsAfresh) {
        range.start = 0;
    } else if (request.direction == FindDirection::Up) {
        range = {0, caret};
    }
    range.start = std::max(range.start, untouchedEnd(text));
    return range;
}

bool isMatchSelected(const TextArea& text, const FindRequest& request) {
    if (request.find.empty() || text.SelStart() < untouchedEnd(text)) return false;
    const auto selected = text.Slice(text.SelStart(), text.SelStart() + text.SelLength());
    return request.options.matchCase ? selected == request.find : equalIgnoringCase(selected, request.find);
}

FindOutcome findOn(TextArea& text, FindButton button, const FindRequest& request) {
    const TextRange range = rangeOf(text, request);
    const Position found = text.Find(request.find, range.start, range.end, request.options);
    if (found == kNotFound) {
        text.SetSelStart(0);
        return {.searchedOn = true};
    }
    text.ScrollToLine(text.GetLineFromChar(found));
    if (button == FindButton::Replace) text.SetSelText(request.with);
    // Behind the caret of a long line the match would be out of view.
    text.ScrollCaret();
    return {.result = button == FindButton::FindNext ? found : 1, .searchedOn = true};
}

FindOutcome replaceSelected(TextArea& text, const FindRequest& request) {
    text.SetSelText(request.with);
    text.ScrollCaret();
    return {.result = 1};
}

/// Sets the text anew, but as an edit, so that one step takes it back. A part alone would take longer.
void setWhole(TextArea& text, std::string_view whole) {
    const RedrawFreeze freeze(text);
    text.ReplaceText(whole);
    text.ScrollToLine(0);
}

/// Whether the text with all replacements would be more than a gibibyte.
bool becomesTooLong(std::string_view old, TextRange part, const FindRequest& request) {
    constexpr size_t kLongest = size_t{1} << 30;
    // Even a match at every byte would stay within the limit: nothing need be counted.
    if (request.with.empty() || old.size() * request.with.size() <= kLongest) return false;
    size_t length = old.size();
    TextSearch(request.find, request.options.matchCase).each(old, part.start, part.end, [&](TextRange) {
        length += request.with.size() - 1;
    });
    return length > kLongest;
}

FindOutcome replaceAll(TextArea& text, const FindRequest& request) {
    if (tearsLineEnd(request.find)) return {};
    const TextRange part = rangeOf(text, request);
    size_t count = 0;
    const auto old = text.Text();
    if (becomesTooLong(old, part, request)) return {.isTooLong = true};
    const std::string whole =
        FastReplace(old, part, request.find, request.with, request.options.matchCase, &count);
    if (count == 0) return {};
    const bool remains = whole.size() > old.size() - static_cast<size_t>(part.end - part.start);
    if (remains) setWhole(text, whole);
    return {.result = static_cast<Position>(count), .isNewText = remains};
}

}  // namespace

FindOutcome runFind(TextArea& text, FindButton button, const FindRequest& request) {
    if (button == FindButton::ReplaceAll) return replaceAll(text, request);
    if (button == FindButton::Replace && isMatchSelected(text, request))
        return replaceSelected(text, request);
    return findOn(text, button, request);
}

std::string findMessage(FindButton button, const FindOutcome& outcome) {
    if (outcome.isTooLong) return "The text would become too long. Nothing was replaced.";
    if (outcome.result == kNotFound) return "Can't find any matches.";
    if (button != FindButton::ReplaceAll) return {};
    const char* const verb = outcome.result == 1 ? " replacement was" : " replacements were";
    return "Done replacing.\r\n" + std::to_string(outcome.result) + verb + " made.";
}

}  // namespace klt
