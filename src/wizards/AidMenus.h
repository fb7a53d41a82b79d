#pragma once

#include <span>
#include <string_view>

namespace klt {

/// One item of a Syntax Aid menu.
struct AidItem {
    /// With its access key. One that begins with "-" is a heading, the rest its text.
    std::string_view caption = {};
    /// What it stands for in a line.
    std::string_view tag = {};
    /// Whether it belongs to the sub-menu of the item above it that does not.
    bool isSubItem = false;
};

enum class AidAct : unsigned char {
    /// Asks for a name, which is put behind the tag.
    AskName,
    /// Asks for a number, which is put in front of the tag with a blank between.
    AskNumber,
    /// Inserts the tag.
    Insert,
    OpenFunctions,
};

/// What the items up to a position do.
struct AidRule {
    /// From 1, all items counted. The first rule that reaches as far as the item is the one.
    int last;
    AidAct act;
    std::string_view prompt = {};
    /// Whether ", " is put in front where the field holds text.
    bool isSeparated = false;
};

/// A menu and what its items do.
struct AidMenu {
    std::string_view name = {};
    std::span<const AidItem> items;
    std::span<const AidRule> rules;
};

/// Every Syntax Aid menu. "PackMods" has no rules: its items belong to the form that shows it.
std::span<const AidMenu> aidMenus();
/// The menu of that name; null where there is none.
const AidMenu* aidMenu(std::string_view name);

/// Whether an item, counted from 1, is neither a heading nor the name of a sub-menu.
bool isChoosable(const AidMenu& menu, int position);

}  // namespace klt
