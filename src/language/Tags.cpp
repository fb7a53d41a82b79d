#include "language/Tags.h"

#include <cstdint>
#include <initializer_list>

namespace klt {

static_assert(tagWord(Tag::Round) == "round(" && tagWord(Tag::Value) == "value(");
static_assert(tagOf("GIVES(") == Tag::Gives && tagOf("cost(") == Tag::None);

namespace {

using TagSet = uint32_t;

constexpr TagSet bit(Tag tag) {
    return TagSet{1} << static_cast<unsigned char>(tag);
}

constexpr TagSet setOf(std::initializer_list<Tag> tags) {
    TagSet set = 0;
    for (const auto tag : tags) set |= bit(tag);
    return set;
}

constexpr TagSet kTrait =
    setOf({Tag::Gives, Tag::Mods, Tag::Needs, Tag::Notes, Tag::Page, Tag::Upto, Tag::Cat});
constexpr TagSet kSkill = kTrait | setOf({Tag::Default, Tag::Stat, Tag::Type});
constexpr TagSet kSpell = setOf({Tag::Needs, Tag::Notes, Tag::Page, Tag::Upto, Tag::Cat, Tag::Type,
                                 Tag::Duration, Tag::CastingCost, Tag::Time});
constexpr TagSet kMod = setOf({Tag::Gives, Tag::Upto, Tag::Round, Tag::Page});
constexpr TagSet kStat = setOf({Tag::BaseValue, Tag::Step, Tag::MaxScore, Tag::MinScore, Tag::Up, Tag::Down,
                                Tag::Symbol, Tag::DoubleInPlay, Tag::Display, Tag::Round});
constexpr TagSet kAll = ~TagSet{0};

constexpr TagSet tagsOf(Section section) {
    switch (section) {
        case Section::Ads:
        case Section::Disads:
        case Section::Quirks:
        case Section::Powers:
            return kTrait;
        case Section::Skills:
            return kSkill;
        case Section::Spells:
            return kSpell;
        case Section::Mods:
            return kMod;
        case Section::Stats:
            return kStat;
        case Section::Packages:
            return kAll;
        case Section::Author:
        case Section::Bonus:
        case Section::Groups:
        case Section::Other:
            break;
    }
    return 0;
}

}  // namespace

Tag fieldTag(std::string_view word) {
    for (auto i = static_cast<unsigned char>(Tag::Gives); i <= static_cast<unsigned char>(Tag::Value); ++i)
        if (tagWord(static_cast<Tag>(i)) == word) return static_cast<Tag>(i);
    return Tag::None;
}

bool IsTagValid(Tag tag, Section section) {
    return (tagsOf(section) & bit(tag)) != 0;
}

}  // namespace klt
