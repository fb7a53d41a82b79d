#include "wizards/FieldHelp.h"

#include <algorithm>
#include <array>

namespace klt {
namespace {

struct Row {
    /// Or the control's name.
    std::string_view of;
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

constexpr std::string_view kArgument =
    "An argument of the @function: a number, an item with its prefix, or another @function.";

// What is checked as no tag, by its name.
constexpr std::array kNamed = {
    Row{"cmbItemType",
        "The type of the skill, as P/A. Its letters say how it is learned and how hard it is."},
    Row{"StatName", "The name of the stat. Other names than those of the list may be typed."},
    Row{"Combo1", "The @function that is called. What its arguments are stands in front of the fields."},
    Row{"Text(0)", kArgument},
    Row{"Text(1)", kArgument},
    Row{"Text(2)", kArgument},
    Row{"GivesValue", "How much is given: a number, or an item whose level counts, as SK:Knife."},
    Row{"GivesTarget", "What gets it: an item with its prefix, as SK:Knife, a stat, or a keyword as Skills."},
    Row{"MaximumGives", "What the bonus never exceeds: a number, or an item whose level counts."},
    Row{"ItemType", "What the item is. The line gets the prefix of the type, as SK: of a skill."},
    Row{"ItemName", "The name of the item, as it is called where it is made."},
    Row{"FullGroup",
        "The members of the group, one a line, as SK:Climbing. Ctrl+L puts a line back on its tab."},
    Row{"BonusItemType", "What the item is on which the bonus depends."},
    Row{"BonusItemName", "The name of the item on which the bonus depends."},
    Row{"Evaluation", "How the item's level is compared with the score."},
    Row{"Score", "The score with which the item's level is compared, as 12."},
    Row{"FullBonusLine", "When the bonus holds, as SK:Climbing>=12. Preview makes it from the fields."},
    Row{"BonusAmount", "How much the item gains or loses: a number."},
    Row{"FullItemLine", "The line as it is added."},
    Row{"FullBonus", "The bonuses, one a line, as +1 SK:Climbing. Ctrl+L puts a line back on its tab."},
    Row{"PackName", "The name of the package."},
    Row{"PackDescription", "What the package is, in free text. It stands behind the name in the header."},
    Row{"AddItemType",
        "What the package adds: an item that there is, another package, or a change of an attribute."},
    Row{"AddLevel", "The level that the item gets, as 12, or the points that go into it."},
    Row{"AddMods(0)", "The modifiers that the item gets, with .AND. between them."},
    Row{"AddMods(1)", "The modifiers that the item gets, with .AND. between them."},
    Row{"CreateItemType", "What the package makes: an item that there was not before."},
    Row{"CreateLevel", "The level that the new item gets, as 12, or the points that go into it."},
    Row{"RichTextBox1",
        "The line of the new item. Create New and Edit Current make it in the item's own wizard."},
    Row{"FullCreateItem", "The line as it is added."},
    Row{"Message", "A message that the host shows when the package is chosen, in one line."},
    Row{"FullMessageLine", "The line as it is added."},
    Row{"DialogCaption", "The caption of the box in which the host shows the message."},
    Row{"EMessage", "A message of several lines, which the host shows when the package is chosen."},
    Row{"FullEMessage", "The line as it is added."},
    Row{"RaceName", "The race that the character gets."},
    Row{"FullRaceLine", "The line as it is added."},
    Row{"FullPackage", "The lines of the package. Ctrl+L puts a line back on its tab."},
};

constexpr std::string_view kCategoryHelp =
    "Where the item goes in its section. A name that is not in the list is added to the section.";

}  // namespace

std::string_view fieldHelp(const ControlRow& row) {
    const auto named = std::ranges::find(kNamed, row.name, &Row::of);
    if (named != kNamed.end()) return named->help;
    if (row.kind == ControlKind::CategoryCombo) return kCategoryHelp;
    const auto tag = row.tag.empty() && row.label.ends_with('(') ? row.label : row.tag;
    const auto found = std::ranges::find(kRows, tag, &Row::of);
    return found == kRows.end() ? std::string_view() : found->help;
}

}  // namespace klt
