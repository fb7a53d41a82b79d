#include "language/Vocabulary.h"

namespace klt {

namespace {

struct PrefixRow {
    std::string_view word;
    Section section;
    bool add;
};

// In the order of `kPrefixTags`.
constexpr auto kRows = std::to_array<PrefixRow>({
    {"AD:", Section::Ads, true},
    {"ADS:", Section::Ads, true},
    {"DI:", Section::Disads, true},
    {"DISADS:", Section::Disads, true},
    {"QU:", Section::Quirks, true},
    {"QUIRKS:", Section::Quirks, true},
    {"PO:", Section::Powers, true},
    {"POWERS:", Section::Powers, true},
    {"SK:", Section::Skills, true},
    {"SK_RL:", Section::Other, false},
    {"SP:", Section::Spells, true},
    {"CL:", Section::Other, false},
    {"CO:", Section::Other, false},
    {"COLLEGE:", Section::Other, false},
    {"GR:", Section::Other, false},
    {"ST:", Section::Stats, false},
    {"STAT:", Section::Stats, false},
    {"PA:", Section::Other, true},
});

constexpr bool rowsMatch() {
    for (size_t i = 0; i < kRows.size(); ++i)
        if (kPrefixTags.find(kRows[i].word) != static_cast<int>(i)) return false;
    return kRows.size() == kPrefixTags.words().size();
}
static_assert(rowsMatch(), "a row for each prefix tag, in its order");

template <size_t N>
constexpr bool findsItsOwn(const WordList<N>& list) {
    for (size_t i = 0; i < N; ++i)
        if (list.find(list.words()[i]) != static_cast<int>(i)) return false;
    return true;
}
static_assert(findsItsOwn(kGivesKeywords) && findsItsOwn(kNeedsKeywords) && findsItsOwn(kUptoKeywords) &&
              findsItsOwn(kSkillTypes) && findsItsOwn(kPackageWords));
static_assert(kGivesKeywords.find("MSKILLPOINTS") == 3 && kGivesKeywords.find("MSkullPoints") == -1);
static_assert(findPrefixTag("sk_rl:") == 9 && findPrefixTag("PA:") == -1 && kPrefixTags.find("pa:") == 17);

}  // namespace

Section sectionOfPrefix(int prefix) {
    return prefix < 0 ? Section::Other : kRows[static_cast<size_t>(prefix)].section;
}

bool isAddPrefix(int prefix) {
    return prefix >= 0 && kRows[static_cast<size_t>(prefix)].add;
}

}  // namespace klt
