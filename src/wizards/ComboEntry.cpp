#include "wizards/ComboEntry.h"

#include <algorithm>
#include <optional>

#include "text/Unicode.h"

namespace klt {
namespace {

/// How much of `text` is `prefix`, letters compared without regard to case; nothing where it starts
/// otherwise.
std::optional<size_t> startOf(std::string_view text, std::string_view prefix) {
    size_t at = 0;
    for (size_t i = 0; i < prefix.size();) {
        if (at == text.size()) return std::nullopt;
        const auto wanted = characterAt(prefix, i), found = characterAt(text, at);
        if (foldCase(wanted.code) != foldCase(found.code)) return std::nullopt;
        i += wanted.length;
        at += found.length;
    }
    return at;
}

int findWhole(std::span<const std::string> list, std::string_view text) {
    const auto found =
        std::ranges::find_if(list, [text](const std::string& item) { return equalIgnoringCase(item, text); });
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

void choose(ControlState& combo, int item) {
    combo.state = item;
    combo.text = combo.list[static_cast<size_t>(item)];
}

}  // namespace

int FindPrefix(std::span<const std::string> list, std::string_view text) {
    const auto found = std::ranges::find_if(
        list, [text](const std::string& item) { return startOf(item, text).has_value(); });
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

bool AutoComplete(ControlState& combo, ComboSelection& selection, bool keepsParenthesis) {
    if (selection.length == combo.text.size() || (selection.start == 0 && selection.length == 0))
        return false;

    const auto prefix = combo.text.substr(0, selection.start);
    const int item = FindPrefix(combo.list, prefix);
    if (item >= 0) {
        choose(combo, item);
    } else {
        const bool isPaired = keepsParenthesis && combo.text.substr(prefix.size()).starts_with(')');
        combo.text = isPaired ? prefix + ')' : prefix;
        combo.state = -1;
        if (isPaired) {
            selection.length = 0;
            return true;
        }
    }
    // An item's letter may be longer or shorter than the one typed.
    selection.start = *startOf(combo.text, prefix);
    selection.length = combo.text.size() - selection.start;
    return true;
}

void CommitComboEntry(ControlState& combo, EntryMatch match) {
    if (combo.text.empty() || combo.state >= 0) return;
    const int known =
        match == EntryMatch::Prefix ? FindPrefix(combo.list, combo.text) : findWhole(combo.list, combo.text);
    if (known >= 0) return choose(combo, known);
    const auto upper = upperCase(combo.text);
    const auto greater = std::ranges::find_if(
        combo.list, [&upper](const std::string& item) { return upperCase(item) > upper; });
    const auto place = combo.list.insert(greater, combo.text);
    choose(combo, static_cast<int>(place - combo.list.begin()));
}

}  // namespace klt
