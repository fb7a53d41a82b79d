#include "wizards/FieldHelp.h"

#include <algorithm>
#include <array>

namespace klt {
namespace {

struct Row {
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
};

}  // namespace

std::string_view fieldHelp(std::string_view tag) {
    const auto* const found = std::ranges::find(kRows, tag, &Row::tag);
    return found == kRows.end() ? std::string_view() : found->help;
}

}  // namespace klt
