#include "language/Parentheses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace klt;

namespace {

/// The text with "<" and ">" around the parenthesis at the caret, which `|` stands for, and its partner; "?"
/// behind it where it has none, and "!" at the end where none can be told.
std::string paired(std::string text, auto pairOf, TextWindow window = {}) {
    const size_t caret = text.find('|');
    text.erase(caret, 1);
    const auto own = parenthesisAt(text, caret);
    if (!own) return text;
    window.text = text;
    const auto pair = pairOf(window, *own);
    if (!pair) return text + '!';
    if (!pair->partner) return text.insert(pair->own + 1, "?");
    const auto [first, second] = std::minmax(pair->own, *pair->partner);
    for (const size_t at : {second, first}) text.insert(at + 1, ">").insert(at, "<");
    return text;
}

TEST(Parentheses, PairInALogicalLine) {
    const std::pair<const char*, const char*> rows[] = {
        {"a|b()", "ab()"},
        {"a|(b)", "a<(>b<)>"},
        {"a(|b)", "a<(>b<)>"},
        {"(a)|(b)", "<(>a<)>(b)"},
        {"|(a(b)(c))", "<(>a(b)(c)<)>"},
        {"(a(b)(c))|", "<(>a(b)(c)<)>"},
        {"(a(b|)(c))", "(a<(>b<)>(c))"},
        {"(|a", "(?a"},
        {"a|)", "a)?"},
        {"(|(a)", "(?(a)"},
        {"a(|b,\r\nc _\r\nd)", "a<(>b,\r\nc _\r\nd<)>"},
        {"a(b|\r\nc)", "a(b\r\nc)"},
        {"a(|b\r\nc)", "a(?b\r\nc)"},
        {"a(b,\r\nc)|\r\nd)", "a<(>b,\r\nc<)>\r\nd)"},
        {"(x\r\na,\r\nc)|", "(x\r\na,\r\nc)?"},
        {"a(|b,\r\n\r\nc)", "a(?b,\r\n\r\nc)"},
        // In comments and headers a line ends where it ends.
        {"* a(|b,\r\nc)", "* a(?b,\r\nc)"},
        {"* a(b,\r\nc)|", "* a(b,\r\nc)?"},
        {"* a(|b)", "* a<(>b<)>"},
        {"a,\r\n* b(c)|", "a,\r\n* b<(>c<)>"},
        {"a(b,\r\n* c)|", "a<(>b,\r\n* c<)>"},
        {"[a(|,\r\nb)", "[a(?,\r\nb)"},
        // Of packages alone a brace is the header.
        {"[PACKAGES]\r\n{a(|,\r\nb)", "[PACKAGES]\r\n{a(?,\r\nb)"},
        {"[PACKAGES]\r\n{a(|_\r\nb)", "[PACKAGES]\r\n{a<(>_\r\nb<)>"},
        {"[PACKAGES]\r\n{a(| // b)", "[PACKAGES]\r\n{a<(> // b<)>"},
        {" [ads] \r\n{a(|,\r\nb)", " [ads] \r\n{a<(>,\r\nb<)>"},
        {"{a(|,\r\nb)", "{a<(>,\r\nb<)>"},
        // A comment behind an item is no part of it.
        {"a(| // b)", "a(? // b)"},
        {"a( // b(c)|)", "a( // b<(>c<)>)"},
        {"a( // b)|", "a( // b)?"},
        {"a(| // b,\r\n)", "a(? // b,\r\n)"},
        {"a(|,\r\nb // c)", "a<(>,\r\nb // c<)>"},
    };
    for (const auto& [text, marked] : rows) EXPECT_EQ(paired(text, pairInLine), marked) << text;
    EXPECT_FALSE(parenthesisAt("", 0));
}

TEST(Parentheses, AFieldIsOneLineWhateverItHolds) {
    EXPECT_EQ(paired("a(| // b)", pairInField), "a<(> // b<)>");
    EXPECT_EQ(paired("* a(b)|)", pairInField), "* a<(>b<)>)");
    EXPECT_EQ(paired("(a)|)", pairInField), "<(>a<)>)");
    EXPECT_EQ(paired("(a))|", pairInField), "(a))?");
}

TEST(Parentheses, NothingIsSaidOfAPartnerBeyondACut) {
    constexpr TextWindow kBoth{.isCutInFront = true, .isCutBehind = true};
    const std::pair<const char*, const char*> rows[] = {
        {"x\r\na(|b", "x\r\na(b!"},
        {"x\r\na(|b)", "x\r\na<(>b<)>"},
        {"x\r\na(|b\r\n", "x\r\na(b\r\n!"},
        {"x\r\na(|b,\r\n", "x\r\na(b,\r\n!"},
        {"x\r\na(|b\r\ny", "x\r\na(?b\r\ny"},
        {"x\r\na)|b", "x\r\na)?b"},
        {"a(|b)\r\n", "a(b)\r\n!"},
        {"x,\r\na(|b)\r\ny", "x,\r\na(b)\r\ny!"},
        {"  \r\na(|b)\r\ny", "  \r\na(b)\r\ny!"},
        {"x\r\n{a(|,\r\nb)\r\ny", "x\r\n{a(,\r\nb)\r\ny!"},
        {"x\r\n{a(|b)\r\ny", "x\r\n{a<(>b<)>\r\ny"},
        {"[ADS]\r\n{a(|,\r\nb)\r\ny", "[ADS]\r\n{a(,\r\nb)\r\ny!"},
        {"x\r\n[ADS]\r\n{a(|,\r\nb)\r\ny", "x\r\n[ADS]\r\n{a<(>,\r\nb<)>\r\ny"},
    };
    for (const auto& [text, marked] : rows) EXPECT_EQ(paired(text, pairInLine, kBoth), marked) << text;
    EXPECT_EQ(paired("a)|b", pairInField, kBoth), "a)b!");
    EXPECT_EQ(paired("a(|b", pairInField, kBoth), "a(b!");
    EXPECT_EQ(paired("a(|b", pairInField, {.isCutInFront = true}), "a(?b");
}

}  // namespace
