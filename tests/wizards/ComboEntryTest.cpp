#include "wizards/ComboEntry.h"

#include <gtest/gtest.h>

using namespace klt;

namespace {

using Strings = std::vector<std::string>;
const Strings kList = {"Mental", "Mind", "\u00c4rger"};

TEST(ComboEntry, CompletesWhatStandsInFrontOfTheCaret) {
    const struct {
        const char *name, *text;
        size_t start, length;
        const char* completed;
        int item;
        const char* selected;
        bool keepsParenthesis = false;
    } rows[] = {
        {"the first that starts so", "mi", 2, 0, "Mind", 1, "nd"},
        {"any case, beyond ASCII too", "\u00e4", 2, 0, "\u00c4rger", 2, "rger"},
        {"no hit cuts the rest off", "mx-rest", 2, 0, "mx", -1, ""},
        {"all selected", "mi", 0, 2, "mi", -1, "mi"},
        {"at the start", "mi", 0, 0, "mi", -1, ""},
        {"its own parenthesis", "x(a)b", 3, 0, "x(a)", -1, "", true},
        {"none behind the caret", "x(ab", 3, 0, "x(a", -1, "", true},
        {"not in front of an item", "mi)", 2, 0, "Mind", 1, "nd", true},
    };
    for (const auto& row : rows) {
        ControlState combo{.text = row.text, .state = -1, .list = kList};
        ComboSelection selection{row.start, row.length};
        EXPECT_EQ(AutoComplete(combo, selection, row.keepsParenthesis),
                  row.completed != std::string(row.text))
            << row.name;
        EXPECT_EQ(combo.text, row.completed) << row.name;
        EXPECT_EQ(combo.state, row.item) << row.name;
        EXPECT_EQ(combo.text.substr(selection.start, selection.length), row.selected) << row.name;
    }
}

TEST(ComboEntry, CommitsATextThatIsNoItem) {
    const struct {
        const char *name, *text;
        Strings list;
        int item;
        Strings after;
    } rows[] = {
        {"a prefix is the item", "men", kList, 0, kList},
        {"in its order", "body", {"Arm", "Mind"}, 1, {"Arm", "body", "Mind"}},
        {"behind the last", "z", {"A", "B"}, 2, {"A", "B", "z"}},
        {"an empty list", "a", {}, 0, {"a"}},
        {"nothing typed", "", {"A"}, -1, {"A"}},
    };
    for (const auto& row : rows) {
        ControlState combo{.text = row.text, .state = -1, .list = row.list};
        CommitComboEntry(combo);
        EXPECT_EQ(combo.list, row.after) << row.name;
        EXPECT_EQ(combo.state, row.item) << row.name;
        EXPECT_EQ(combo.text, row.item < 0 ? "" : row.after[static_cast<size_t>(row.item)]) << row.name;
    }
}

}  // namespace
