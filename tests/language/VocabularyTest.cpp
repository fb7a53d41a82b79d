#include "language/Vocabulary.h"

#include <gtest/gtest.h>

#include "language/Functions.h"
#include "language/Tags.h"

using namespace klt;

template <size_t N>
static void expectFound(const WordList<N>& list) {
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
    const auto expectAll = [](const auto&... lists) { (expectFound(lists), ...); };
    expectAll(kGivesKeywords, kNeedsKeywords, kUptoKeywords, kIfKeywords, kBonusKeywords, kPrefixTags,
              kSkillTypes, kPackageWords, kTagWords, kFunctionNames);
    EXPECT_EQ(kGivesKeywords.find("%level %count"), -1);
}

TEST(Vocabulary, TagsBelongToSections) {
    const std::pair<const char*, int> rows[] = {{"[ADS]", 7},       {"[POWERS]", 7}, {"[SKILLS]", 10},
                                                {"[SPELLS]", 9},    {"[MODS]", 4},   {"[STATS]", 10},
                                                {"[AUTHOR]", 0},    {"[BONUS]", 0},  {"[GROUPS]", 0},
                                                {"[PACKAGES]", 23}, {"[x]", 0}};
    for (const auto& [section, tags] : rows) {
        int valid = 0;
        for (const auto word : kTagWords.words()) valid += IsTagValid(tagOf(word), sectionOf(section));
        EXPECT_EQ(valid, tags) << section;
    }
    EXPECT_EQ(fieldTag("cost("), Tag::Cost);
    EXPECT_EQ(fieldTag("GIVES("), Tag::None);
}

TEST(Vocabulary, PrefixTagsNameSections) {
    EXPECT_EQ(findPrefixTag("disads:")->section, Section::Disads);
    EXPECT_EQ(findPrefixTag("STAT:")->section, Section::Stats);
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
