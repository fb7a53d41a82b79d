#include "text/TextSearch.h"

#include <gtest/gtest.h>

#include "text/Unicode.h"

using namespace klt;
using namespace std::string_literals;

TEST(TextSearch, FindsWithinARangeByCaseAndWord) {
    // Whether case and whole words count.
    using Options = std::pair<bool, bool>;
    const Options kExact{true, false}, kWord{false, true}, kBoth{true, true};
    const struct {
        std::string text, find;
        Position from, end;
        Options options;
        TextRange found{kNotFound, kNotFound};
    } rows[] = {
        {"one TWO two", "two", 0, -1, {}, {4, 7}},
        {"one TWO two", "two", 0, -1, kExact, {8, 11}},
        {"one two", "two", 0, 6, {}},
        {"one two", "one", -5, 3, {}, {0, 3}},
        {"one two", "one", 99, -1, {}},
        // an anchor in the middle, with the ends of the range inside the match
        {"xxayy", "xxayy", 1, -1, {}},
        {"xxayy xxayy", "xxayy", 1, 11, {}, {6, 11}},
        {"aXaXaY", "axay", 0, -1, {}, {2, 6}},
        // letters spelled beyond ASCII
        {"\u212Aey \u017FKI", "key", 0, -1, {}, {0, 5}},
        {"k \u212A\u00C4k\u00E4", "k\u00E4", 0, -1, {}, {2, 7}},
        {"k \u212A\u00C4k\u00E4", "k\u00E4", 3, -1, {}, {7, 10}},
        {"\u212Aey \u017FKI", "ski", 0, -1, {}, {6, 10}},
        {"ski \u017Fki SKI", "ski", 1, -1, {}, {4, 8}},
        {"an s\u212AIs kiss", "SKIS", 0, -1, {}, {3, 9}},
        {"sk s\u017Fk", "sSK", 0, -1, {}, {3, 7}},
        {"10 K", "\u212A", 0, -1, {}, {3, 4}},
        {"\u00E4 sisisk", "sisk", 0, -1, {}, {5, 9}},
        {"stra\u1E9Ee", "stra\u00DFe", 0, -1, {}, {0, 8}},
        {"\u0395\u039D\u03A3 \u03B5\u03BD\u03C2", "\u03B5\u03BD\u03C3", 1, -1, {}, {7, 13}},
        // bytes of no character are found, the insides of characters are not
        {"\u20AC\x82", "\x82", 0, -1, kExact, {3, 4}},
        {"\u20AC", "\xE2", 0, 1, {}},
        {"\u20AC\x82", "\x82", 1, -1, {}, {3, 4}},
        {"a\0B\0c"s, "b\0C"s, 0, -1, {}, {2, 5}},
        // words
        {"none one", "one", 0, -1, kWord, {5, 8}},
        {"one_ on\u0065\u0301 \u00E4one one1 ONE one", "one", 0, -1, kBoth, {26, 29}},
        {"one", "one", 0, -1, kWord, {0, 3}},
        {"x[ADS]y", "[ads]", 0, -1, kWord, {1, 6}},
        {"gives(x)", "gives(", 0, -1, kWord, {0, 6}},
        {"aaa aa", "aa", 0, -1, kWord, {4, 6}},
        {"sss ss", "ss", 0, -1, kWord, {4, 6}},
        {"", "a", 0, -1, {}},
        {"a", "", 0, -1, {}},
    };
    for (const auto& row : rows) {
        const TextSearch search(row.find, row.options.first, row.options.second);
        EXPECT_EQ(search.next(row.text, row.from, row.end), row.found) << row.find << " in " << row.text;
    }
}

// The fast lane reads blocks: a match may lie anywhere in one, across two, or behind the last.
TEST(TextSearch, FindsAtEveryDistanceFromBothEnds) {
    for (size_t before = 0; before < 40; ++before) {
        for (size_t after = 0; after < 40; ++after) {
            const std::string text = std::string(before, 'N') + "q@N" + std::string(after, '`');
            const auto start = static_cast<Position>(before), size = static_cast<Position>(text.size());
            for (const char* find : {"Q", "Q@", "q@n", "@n", "@"}) {
                const TextRange found = TextSearch(find, false).next(text);
                const Position offset = find[0] == '@' ? 1 : 0;
                ASSERT_EQ(found.start, start + offset) << find << " behind " << before;
                ASSERT_EQ(TextSearch(find, true).next(text, 0, found.end - 1).start, kNotFound);
            }
            ASSERT_EQ(TextSearch("@n", false).next(text, start + 2, size).start, kNotFound);
        }
    }
}

// The fast lane looks for letters by their ASCII spellings: none but these may have others.
TEST(TextSearch, FindsEveryCharacterThatFoldsToALetter) {
    int found = 0;
    for (char32_t code = 0x80; code <= 0x10FFFF; ++code) {
        const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
        if (isSurrogate || foldCase(code) >= 0x80) continue;
        const char letter = static_cast<char>(foldCase(code));
        std::string text = "#";
        appendCharacter(text, code);
        const auto end = static_cast<Position>(text.size());
        EXPECT_EQ(TextSearch({&letter, 1}, false).next(text), (TextRange{1, end})) << letter;
        ++found;
    }
    EXPECT_GT(found, 1);
}

// Comparing anew at each place would need ages here.
TEST(TextSearch, IsLinearWhateverBothHold) {
    const std::string text(1'000'000, 'a');
    const std::string many(250'000, 'a');
    for (const std::string& find : {"b" + many, many + "b", many.substr(1) + "ba"}) {
        for (const bool matchCase : {true, false})
            EXPECT_EQ(TextSearch(find, matchCase).next(text).start, kNotFound);
    }
    EXPECT_EQ(TextSearch(many, false, true).next(text).start, kNotFound)
        << "each place is a match of no word";
    EXPECT_EQ(TextSearch("ab" + many, false).next(text + "b" + text).start, 999'999);
}
