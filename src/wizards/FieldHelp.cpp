#include "wizards/FieldHelp.h"

#include <algorithm>
#include <array>

namespace klt {
namespace {

struct Row {
    /// Or a label.
    std::string_view tag;
    std::string_view help;
};

constexpr std::array kRows = {
    Row{"name(", "The name of the item, as other items call it. It goes in as it is typed."},
    Row{"cost(",
        "What the item costs in points, as 5. With a slash the cost of the first level and of each "
        "further one, as 10/8."},
    Row{"gives(",
        "Bonuses, with commas between. Each is a value, the word to and an item, and may have a "
        "limit: +1 to SK:Knife upto 3."},
    Row{"mods(", "The modifiers that the item may have, in free text."},
    Row{"needs(",
        "What has to be there first. A comma stands for and, | for or: SK:Knife>=12 | AD:Luck. Or "
        "so many of a group: 2 GR:Trades."},
    Row{"notes(", "Anything worth saying, in free text."},
    Row{"page(", "Where to read of the item, in free text, as B23."},
    Row{"upto(",
        "The limit of the level: a number, an @function, or one of Prereq, LowPrereq, Default and "
        "InPlay."},
    Row{"cat(", "Further categories of the item, in free text."},
    Row{"default(", "What the skill defaults to, with commas between: DX-5, SK:Other Skill-2."},
    Row{"castingcost(", "What casting the spell costs, in free text, as 2 or 1 per yard."},
    Row{"duration(", "How long the spell lasts, in free text, as 1 minute."},
    Row{"time(", "How long casting the spell takes, in free text, as 2 seconds."},
    Row{"type(", "The type of the spell, as M/H. Its letters say how it is learned and how hard it is."},
    Row{"stat(",
        "The stat on which the skill is based, as DX. Other names than those of the list may be typed."},
    Row{"basevalue(", "What the stat starts from: a number, or an expression of other stats, as (ST+IQ)/2."},
    Row{"step(", "By how much the stat goes up or down at a time: a number, as 0.25."},
    Row{"maxscore(", "The highest score of the stat: a number or an expression, as ST*2."},
    Row{"minscore(", "The lowest score of the stat: a number or an expression, as 0."},
    Row{"up(", "What one step up costs, as 5, or 5/10 for the first and each further one."},
    Row{"down(", "What one step down costs, as -5. It gives points back."},
    Row{"symbol(", "The short name of the stat, in free text, as BR."},
    Row{"value(", "What the modifier adds to the cost: points, as 5, or a percentage, as -10%."},
};

// What a combo is for, by the label in front of it where that is no tag.
constexpr std::array kCombos = {
    Row{"Type:", "The type of the skill, as P/A. Its letters say how it is learned and how hard it is."},
    Row{"Name:", "The name of the stat. Other names than those of the list may be typed."},
    Row{"", "The @function that is called. What its arguments are stands in front of the fields."},
};

constexpr std::string_view kCategoryHelp =
    "Where the item goes in its section. A name that is not in the list is added to the section.";

}  // namespace

std::string_view fieldHelp(const ControlRow& row) {
    if (row.kind == ControlKind::CategoryCombo) return kCategoryHelp;
    const auto tag = row.tag.empty() && row.label.ends_with('(') ? row.label : row.tag;
    const bool isByLabel = tag.empty() && isCombo(row.kind);
    const std::span<const Row> rows = isByLabel ? std::span<const Row>(kCombos) : kRows;
    const auto found = std::ranges::find(rows, isByLabel ? row.label : tag, &Row::tag);
    return found == rows.end() ? std::string_view() : found->help;
}

}  // namespace klt
