#pragma once

#include <span>
#include <string_view>

namespace klt {

enum class AidAct : unsigned char {
    Heading,
    /// Opens the sub-menu of the items below it.
    SubMenu,
    /// Asks for a name, which is put behind the tag.
    AskName,
    /// Asks for a number, which is put in front of the tag with a blank between.
    AskNumber,
    /// Inserts the tag.
    Insert,
    /// Puts the tag at the field's end.
    Append,
    OpenFunctions,
    OpenMods,
};

/// One item of a Syntax Aid menu.
struct AidItem {
    /// With its access key.
    std::string_view caption = {};
    AidAct act = AidAct::Heading;
    /// What it stands for in a line.
    std::string_view tag = {};
    /// Whether it belongs to the sub-menu of the item above it that does not.
    bool isSubItem = false;
};

struct AidMenu {
    std::string_view name = {};
    std::span<const AidItem> items;
    /// What is asked where an item asks for a name, and for a number.
    std::string_view namePrompt = {};
    std::string_view numberPrompt = {};
    /// Whether ", " is put in front of an answer where the field holds text.
    bool isSeparated = true;
};

/// Every Syntax Aid menu.
std::span<const AidMenu> aidMenus();
/// The menu of that name; null where there is none.
const AidMenu* aidMenu(std::string_view name);

/// The item at `position` (from 1, all items counted); null for a heading, the name of a sub-menu, and a
/// position that the menu lacks.
const AidItem* choosableItem(const AidMenu& menu, int position);

}  // namespace klt
