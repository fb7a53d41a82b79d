#include "language/Vocabulary.h"

namespace klt {

namespace {

template <size_t N>
constexpr bool findsItsOwn(const WordList<N>& list) {
    for (size_t i = 0; i < N; ++i)
        if (list.find(list.words()[i]) != static_cast<int>(i)) return false;
    return true;
}
static_assert(findsItsOwn(kGivesKeywords) && findsItsOwn(kNeedsKeywords) && findsItsOwn(kUptoKeywords) &&
              findsItsOwn(kPrefixTags) && findsItsOwn(kSkillTypes) && findsItsOwn(kPackageWords));
static_assert(kGivesKeywords.find("MSKILLPOINTS") == 3 && kGivesKeywords.find("MSkullPoints") == -1);

}  // namespace

}  // namespace klt
