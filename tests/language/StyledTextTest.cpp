#include "language/StyledText.h"

#include <gtest/gtest.h>

using namespace klt;

TEST(StyledText, LaysRunsCutToTheText) {
    StyledText text("abcdef");
    text.colour(-3, 2, StyleCategory::Keywords);
    text.colour(4, 99, StyleCategory::Comments);
    text.colour(3, 3, StyleCategory::SyntaxError);
    text.colour(99, 3, StyleCategory::SyntaxError);
    EXPECT_EQ(text.styles(), std::string_view("\2\2\0\0\5\5", 6));
    text.clearStyles();
    EXPECT_EQ(text.styles(), std::string(6, '\0'));
    StyledText inside("aéb");
    inside.colour(2, 3, StyleCategory::Keywords);
    EXPECT_EQ(inside.styles(), std::string_view("\0\2\2\0", 4));
}

TEST(StyledText, RewritesTheCaseOfLettersAlone) {
    StyledText text("gi ves(É");
    text.rewrite(0, "gives(");
    text.rewrite(3, "VES(");
    text.rewrite(6, "(é");
    text.rewrite(8, "long");
    text.rewrite(-1, "x");
    EXPECT_EQ(text.text(), "gi VES(É");
    EXPECT_EQ(text.takeText(), "gi VES(É");
    std::string others = "gives(";
    StyledText over{std::span(others)};
    over.rewrite(0, "GIVES(");
    EXPECT_EQ(over.text(), "GIVES(");
    EXPECT_EQ(others, "GIVES(");
}
