#include "checker/WordBuffer.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

TEST(WordBuffer, IsASliceOfTheTextUntilAWordIsInterrupted) {
    constexpr std::string_view kText = "Pre_req  ";
    WordBuffer word;
    word.append(kText.substr(0, 3));
    EXPECT_EQ(word.view().data(), kText.data());
    word.append(kText.substr(4));
    word.removeTrailingBlanks();
    EXPECT_EQ(word.view(), "Prereq");
    word.clear();
    EXPECT_EQ(word.tail(), "");
}

TEST(WordBuffer, KeepsTheEndOfWhatIsTooLong) {
    for (const size_t piece : {1, 2, 7, 29, 30, 31, 100}) {
        std::string text, all;
        for (int i = 0; i < 40; ++i) text.append(piece, static_cast<char>('a' + i % 26)).append("_");
        WordBuffer word;
        for (size_t i = 0; i < text.size(); i += piece + 1) {
            all += text.substr(i, piece);
            word.append(std::string_view(text).substr(i, piece));
            ASSERT_EQ(word.size(), all.size());
            ASSERT_EQ(word.tail(), all.substr(all.size() - std::min<size_t>(3, all.size())));
            ASSERT_TRUE(i == 0 || word.view() == (all.size() <= 30 ? all : "")) << piece;
        }
    }
}

}  // namespace
}  // namespace klt
