#include "checker/WordBuffer.h"

#include <gtest/gtest.h>

#include <string>

namespace klt {
namespace {

TEST(WordBuffer, TakesSlicesAndInterruptedWords) {
    const std::string text = "Pre_req";
    WordBuffer word;
    word.append(std::string_view(text).substr(0, 3));
    EXPECT_EQ(word.view().data(), text.data());
    word.append(std::string_view(text).substr(4));
    EXPECT_EQ(word.view(), "Prereq");
    EXPECT_EQ(word.tail(), "req");
    word.clear();
    EXPECT_TRUE(word.empty());
    EXPECT_EQ(word.tail(), "");
}

TEST(WordBuffer, KeepsTheEndOfWhatIsTooLong) {
    for (const size_t piece : {1, 2, 7, 29, 30, 31, 100}) {
        std::string text;
        for (int i = 0; i < 40; ++i) text.append(piece, static_cast<char>('a' + i % 26)).append("_");
        std::string all;
        WordBuffer word;
        for (size_t i = 0; i < text.size(); i += piece + 1) {
            all += text.substr(i, piece);
            word.append(std::string_view(text).substr(i, piece));
            ASSERT_EQ(word.size(), all.size());
            ASSERT_EQ(word.tail(), all.substr(all.size() - std::min<size_t>(3, all.size())));
            if (i > 0) {
                ASSERT_EQ(word.view(), all.size() <= 30 ? all : "") << piece;
            }
        }
    }
}

TEST(WordBuffer, DropsBlanksAtItsEnd) {
    WordBuffer word;
    word.append("Other  ");
    word.removeTrailingBlanks();
    EXPECT_EQ(word.view(), "Other");
}

}  // namespace
}  // namespace klt
