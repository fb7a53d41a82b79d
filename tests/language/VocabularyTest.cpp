#include "language/Vocabulary.h"

#include <gtest/gtest.h>

#include "language/Functions.h"
#include "language/Tags.h"

namespace klt {
namespace {

template <size_t N>
void expectFound(const WordList<N>& list) {
    for (size_t i = 0; i < N; ++i) {
        std::string word(list.words()[i]);
        EXPECT_EQ(list.find(word), static_cast<int>(i)) << word;
        for (char& c : word) c = toUpper(c);
        EXPECT_EQ(list.find(word), static_cast<int>(i)) << word;
        EXPECT_EQ(list.find(" " + word), -1);
        EXPECT_EQ(list.find(word + "x"), -1);
        word.back() = '~';
        EXPECT_EQ(list.find(word), -1) << word;
    }
    EXPECT_EQ(list.find(""), -1);
    EXPECT_EQ(list.find(std::string(100, 'a')), -1);
}

TEST(Vocabulary, FindsItsWordsInAnyCase) {
    expectFound(kGivesKeywords);
    expectFound(kNeedsKeywords);
    expectFound(kUptoKeywords);
    expectFound(kIfKeywords);
    expectFound(kBonusKeywords);
    expectFound(kPrefixTags);
    expectFound(kSkillTypes);
    expectFound(kPackageWords);
    expectFound(kTagWords);
    expectFound(kFunctionNames);
    EXPECT_EQ(kGivesKeywords.find("%level %count"), -1);
}

TEST(Vocabulary, TagsBelongToSections) {
    struct Row {
        const char* section;
        int tags;
    };
    for (const auto& row : {Row{"[ADS]", 7}, Row{"[POWERS]", 7}, Row{"[SKILLS]", 10}, Row{"[SPELLS]", 9},
                            Row{"[MODS]", 4}, Row{"[STATS]", 10}, Row{"[AUTHOR]", 0}, Row{"[BONUS]", 0},
                            Row{"[GROUPS]", 0}, Row{"[PACKAGES]", 23}, Row{"[x]", 0}}) {
        int valid = 0;
        for (const auto word : kTagWords.words()) valid += IsTagValid(tagOf(word), sectionOf(row.section));
        EXPECT_EQ(valid, row.tags) << row.section;
    }
    EXPECT_TRUE(IsTagValid(Tag::Type, Section::Spells));
    EXPECT_FALSE(IsTagValid(Tag::Default, Section::Ads));
    EXPECT_EQ(fieldTag("cost("), Tag::Cost);
    EXPECT_EQ(fieldTag("GIVES("), Tag::None);
}

TEST(Vocabulary, PrefixTagsNameSections) {
    EXPECT_EQ(findPrefixTag("disads:")->section, Section::Disads);
    EXPECT_EQ(findPrefixTag("STAT:")->section, Section::Stats);
    EXPECT_EQ(findPrefixTag("SK_RL:")->section, Section::Other);
    EXPECT_EQ(findPrefixTag("foo:"), nullptr);
    EXPECT_TRUE(findPrefixTag("PA:")->isAdded);
    EXPECT_FALSE(findPrefixTag("ST:")->isAdded);
    EXPECT_TRUE(findPrefixTag("ST:")->isInPackagesAlone);
}

TEST(Vocabulary, Numbers) {
    for (const auto* text : {"1", " 1 ", "+1", "-1.5", ".5", "5.", "1e3", "1E-3"})
        EXPECT_TRUE(isNumber(text)) << text;
    for (const auto* text : {"", " ", ".", "+", "1.2.3", "1 2", "1e", "x", "1x", "+ 1", "\t1"})
        EXPECT_FALSE(isNumber(text)) << text;
}

TEST(Vocabulary, SectionHeaders) {
    for (const auto* text : {"[ADS]", "[ads]", "[ADS] [DISADS]", "[", "[s"})
        EXPECT_TRUE(isSectionHeader(text)) << text;
    for (const auto* text : {"[ADS]x", "[ADS]  [DISADS]", "[HEROES]", "[ADS]\t"})
        EXPECT_FALSE(isSectionHeader(text)) << text;
}

}  // namespace
}  // namespace klt
