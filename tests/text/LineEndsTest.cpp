#include "text/LineEnds.h"

#include <gtest/gtest.h>

using namespace klt;
using namespace std::string_literals;

TEST(LineEnds, AreMadeCrLf) {
    const struct {
        std::string in, out;
    } rows[] = {
        {"", ""},
        {"a", "a"},
        {"\r\n", "\r\n"},
        {"a\r\nb\r\n", "a\r\nb\r\n"},
        {"\n", "\r\n"},
        {"\r", "\r\n"},
        {"\n\r", "\r\n\r\n"},
        {"\r\r\n", "\r\n\r\n"},
        {"a\0\n\0b\r\n"s, "a\0\r\n\0b\r\n"s},
        {"a\r\nb\n", "a\r\nb\r\n"},
        {"a\nb\r\n", "a\r\nb\r\n"},
        {"a\r\nb\r", "a\r\nb\r\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(withCrLf(row.in), row.out);
        EXPECT_EQ(hasOnlyCrLf(row.in), row.in == row.out) << row.in;
    }
}
