#include "wizards/ComboEntry.h"

#include <gtest/gtest.h>

using namespace klt;

namespace {

using Strings = std::vector<std::string>;
const Strings kList = {"Mental", "Mind", "\u00c4rger"};

TEST(ComboEntry, CompletesWhatStandsInFrontOfTheCaret) {
    // The text, where it is selected, and then the text, the item and what is selected.
    const std::tuple<const char*, const char*, ComboSelection, const char*, int, const char*, bool> rows[] = {
        {"the first that starts so", "mi", {2, 0}, "Mind", 1, "nd", false},
        {"any case, beyond ASCII too", "\u00e4", {2, 0}, "\u00c4rger", 2, "rger", false},
        {"no hit cuts the rest off", "mx-rest", {2, 0}, "mx", -1, "", false},
        {"all selected", "mi", {0, 2}, "mi", -1, "mi", false},
        {"at the start", "mi", {0, 0}, "mi", -1, "", false},
        {"its own parenthesis", "x(a)b", {3, 0}, "x(a)", -1, "", true},
        {"none behind the caret", "x(ab", {3, 0}, "x(a", -1, "", true},
        {"not in front of an item", "mi)", {2, 0}, "Mind", 1, "nd", true},
    };
    for (auto [name, text, selection, completed, item, selected, keepsParenthesis] : rows) {
        ControlState combo{.text = text, .state = -1, .list = kList};
        EXPECT_EQ(AutoComplete(combo, selection, keepsParenthesis), completed != std::string(text)) << name;
        EXPECT_EQ(combo.text, completed) << name;
        EXPECT_EQ(combo.state, item) << name;
        EXPECT_EQ(combo.text.substr(selection.start, selection.length), selected) << name;
    }
}

TEST(ComboEntry, CommitsATextThatIsNoItem) {
    const std::tuple<const char*, const char*, Strings, int, Strings> rows[] = {
        {"a prefix is the item", "men", kList, 0, kList},
        {"in its order", "body", {"Arm", "Mind"}, 1, {"Arm", "body", "Mind"}},
        {"behind the last", "z", {"A", "B"}, 2, {"A", "B", "z"}},
        {"an empty list", "a", {}, 0, {"a"}},
        {"nothing typed", "", {"A"}, -1, {"A"}},
    };
    for (const auto& [name, text, list, item, after] : rows) {
        ControlState combo{.text = text, .state = -1, .list = list};
        CommitComboEntry(combo);
        EXPECT_EQ(combo.list, after) << name;
        EXPECT_EQ(combo.state, item) << name;
        EXPECT_EQ(combo.text, item < 0 ? "" : after[static_cast<size_t>(item)]) << name;
    }
}

}  // namespace
