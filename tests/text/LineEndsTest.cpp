#include "text/LineEnds.h"

#include <gtest/gtest.h>

using namespace klt;
using namespace std::string_literals;

TEST(LineEnds, AreMadeCrLf) {
    for (const auto& [in, out] : {std::pair(""s, ""s),
                                  {"a\r\nb\r\n", "a\r\nb\r\n"},
                                  {"\n\r", "\r\n\r\n"},
                                  {"\r\r\n", "\r\n\r\n"},
                                  {"a\0\n\0b\r\n"s, "a\0\r\n\0b\r\n"s},
                                  {"a\r\nb\n", "a\r\nb\r\n"},
                                  {"a\nb\r\n", "a\r\nb\r\n"},
                                  {"a\r\nb\r", "a\r\nb\r\n"}}) {
        EXPECT_EQ(withCrLf(in), out);
        EXPECT_EQ(hasOnlyCrLf(in), in == out) << in;
    }
}

// One lone line end at every place around the blocks that are looked at as one.
TEST(LineEnds, EveryLoneLineEndIsSeen) {
    for (size_t place = 0; place < 200; ++place) {
        for (const char end : {'\r', '\n'}) {
            std::string text(200, 'x');
            text[place] = end;
            const auto expected = text.substr(0, place) + "\r\n" + text.substr(place + 1);
            EXPECT_FALSE(hasOnlyCrLf(text)) << place;
            EXPECT_EQ(withCrLf(text), expected) << place;
            EXPECT_TRUE(hasOnlyCrLf(expected)) << place;
        }
    }
}
