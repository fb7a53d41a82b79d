#include "text/Encoding.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "text/LineEnds.h"

using namespace klt;
using namespace std::string_literals;

namespace {

std::string all256() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<char>(i));
    return bytes;
}

// A number, for the memory itself may be gone.
std::uintptr_t placeOf(std::string_view text) {
    return reinterpret_cast<std::uintptr_t>(text.data());
}

std::string reencoded(const std::string& bytes) {
    const auto read = decode(bytes);
    const auto written = encode(read.text, read.encoding);
    EXPECT_EQ(written.encoding(), read.encoding);
    return std::string(written.bytes());
}

}  // namespace

TEST(Encoding, Decode) {
    const struct {
        const char* what;
        std::string bytes, text;
        Encoding encoding;
    } rows[] = {
        {"empty", "", "", Encoding::Any},
        {"one byte", "a", "a", Encoding::Any},
        {"one byte, no ASCII", "\xE4", "ä", Encoding::Windows1252},
        {"no line end at the end", "a\r\nb", "a\r\nb", Encoding::Any},
        {"LF", "a\n\nb\n", "a\r\n\r\nb\r\n", Encoding::Any},
        {"CR", "\ra\rb\r", "\r\na\r\nb\r\n", Encoding::Any},
        {"mixed", "a\r\r\nb\n\rc\r\n", "a\r\n\r\nb\r\n\r\nc\r\n", Encoding::Any},
        {"NUL", "a\0\nb\0"s, "a\0\r\nb\0"s, Encoding::Any},
        {"UTF-8", "ä€😀", "ä€😀", Encoding::Utf8},
        {"UTF-8 with mark", "\xEF\xBB\xBF"s + "ä\n", "ä\r\n", Encoding::Utf8Bom},
        {"mark alone", "\xEF\xBB\xBF", "", Encoding::Utf8Bom},
        {"mark of ASCII", "\xEF\xBB\xBF"s + "a", "a", Encoding::Utf8Bom},
        {"mark not borne out", "\xEF\xBB\xBF\xE4", "ï»¿ä", Encoding::Windows1252},
        {"UTF-16LE", "\xFF\xFE\xE4\0\x3D\xD8\0\xDE\n\0"s, "ä😀\r\n", Encoding::Utf16LE},
        {"UTF-16BE", "\xFE\xFF\0\xE4\xD8\x3D\xDE\0\0\n"s, "ä😀\r\n", Encoding::Utf16BE},
        {"UTF-16 mark alone", "\xFF\xFE", "", Encoding::Utf16LE},
        {"UTF-16 of odd length", "\xFF\xFE\x41\0\x42"s, "ÿþA\0B"s, Encoding::Windows1252},
        {"UTF-16 lone lead", "\xFF\xFE\x3D\xD8"s, "ÿþ=Ø", Encoding::Windows1252},
        {"UTF-16 lone trail", "\xFE\xFF\xDE\0"s, "þÿÞ\0"s, Encoding::Windows1252},
        {"UTF-16 two leads", "\xFE\xFF\xD8\x3D\xD8\x3D"s, "þÿØ=Ø=", Encoding::Windows1252},
        {"UTF-32LE", "\xFF\xFE\0\0\xE4\0\0\0\0\xF6\x01\0\n\0\0\0"s, "ä😀\r\n", Encoding::Utf32LE},
        {"UTF-32BE", "\0\0\xFE\xFF\0\0\0\xE4\0\x01\xF6\0\0\0\0\n"s, "ä😀\r\n", Encoding::Utf32BE},
        {"UTF-32 mark alone", "\xFF\xFE\0\0"s, "", Encoding::Utf32LE},
        {"UTF-32 cut: UTF-16", "\xFF\xFE\0\0A\0"s, "\0A"s, Encoding::Utf16LE},
        {"UTF-32 too large: UTF-16", "\xFF\xFE\0\0\0\0\x11\0"s, "\0\0\x11"s, Encoding::Utf16LE},
        {"UTF-32 surrogate", "\xFF\xFE\0\0\0\xD8\0\0"s, "ÿþ\0\0\0Ø\0\0"s, Encoding::Windows1252},
        {"UTF-32 surrogate pair", "\0\0\xFE\xFF\0\0\xD8\0\0\0\xDC\0"s, "\0\0þÿ\0\0Ø\0\0\0Ü\0"s,
         Encoding::Windows1252},
        {"cut UTF-8", "a\xE2\x82", "aâ‚", Encoding::Windows1252},
        {"overlong UTF-8", "\xC0\xAF", "À¯", Encoding::Windows1252},
        {"undefined bytes", "\x81\x8D\x8F\x90\x9D", "\u0081\u008D\u008F\u0090\u009D", Encoding::Windows1252},
        {"Windows-1252", "\x80\x9Furo\xFF", "€Ÿuroÿ", Encoding::Windows1252},
    };
    for (const auto& row : rows) {
        const auto read = decode(row.bytes);
        EXPECT_EQ(read.text, row.text) << row.what;
        EXPECT_EQ(read.encoding, row.encoding) << row.what;
    }
}

TEST(Encoding, Encode) {
    const struct {
        const char* what;
        std::string text;
        Encoding wanted;
        std::string bytes;
        Encoding used;
    } rows[] = {
        {"ASCII stays undecided", "a\r\n", Encoding::Any, "a\r\n", Encoding::Any},
        {"new document", "Häuser €", Encoding::Any, "H\xE4user \x80", Encoding::Windows1252},
        {"new document beyond", "ä😀", Encoding::Any, "ä😀", Encoding::Utf8},
        {"kept", "ä", Encoding::Windows1252, "\xE4", Encoding::Windows1252},
        {"beyond", "ä\u0101", Encoding::Windows1252, "ä\u0101", Encoding::Utf8},
        {"C1 that has a byte of another", "ä\u0080", Encoding::Windows1252, "ä\u0080", Encoding::Utf8},
        {"undefined byte", "\u0081x", Encoding::Windows1252, "\x81x", Encoding::Windows1252},
        {"would be read as UTF-8", "Ã¤", Encoding::Windows1252, "Ã¤", Encoding::Utf8},
        {"would be read as UTF-16", "ÿþab", Encoding::Any, "ÿþab", Encoding::Utf8},
        {"kept UTF-8", "ä", Encoding::Utf8, "ä", Encoding::Utf8},
        {"mark", "ä", Encoding::Utf8Bom, "\xEF\xBB\xBF"s + "ä", Encoding::Utf8Bom},
        {"mark of its own", "\uFEFFx", Encoding::Utf8, "\xEF\xBB\xBF\xEF\xBB\xBFx", Encoding::Utf8Bom},
        {"UTF-16LE", "ä😀", Encoding::Utf16LE, "\xFF\xFE\xE4\0\x3D\xD8\0\xDE"s, Encoding::Utf16LE},
        {"UTF-16BE", "ä😀", Encoding::Utf16BE, "\xFE\xFF\0\xE4\xD8\x3D\xDE\0"s, Encoding::Utf16BE},
        {"would be read as UTF-32", "\0A\0"s, Encoding::Utf16LE, "\0A\0"s, Encoding::Utf8},
        {"NUL first", "\0A"s, Encoding::Utf16LE, "\xFF\xFE\0\0A\0"s, Encoding::Utf16LE},
        {"UTF-32LE", "ä😀", Encoding::Utf32LE, "\xFF\xFE\0\0\xE4\0\0\0\0\xF6\x01\0"s, Encoding::Utf32LE},
        {"UTF-32BE", "ä😀", Encoding::Utf32BE, "\0\0\xFE\xFF\0\0\0\xE4\0\x01\xF6\0"s, Encoding::Utf32BE},
        {"line ends", "ä\nb\r", Encoding::Windows1252, "\xE4\r\nb\r\n", Encoding::Windows1252},
        {"empty", "", Encoding::Utf8Bom, "\xEF\xBB\xBF", Encoding::Utf8Bom},
    };
    for (const auto& row : rows) {
        const auto written = encode(row.text, row.wanted);
        EXPECT_EQ(written.bytes(), row.bytes) << row.what;
        EXPECT_EQ(written.encoding(), row.used) << row.what;
    }
}

TEST(Encoding, WrittenUnchangedTheBytesAreTheSame) {
    EXPECT_EQ(reencoded(all256()), withCrLf(all256()));

    std::mt19937 random(7);
    std::string noise(size_t{4} << 20, '\0');
    for (auto& c : noise) c = static_cast<char>(random());
    EXPECT_EQ(reencoded(noise), withCrLf(noise));

    const std::string longLine(size_t{20} << 20, 'x');
    EXPECT_EQ(reencoded(longLine), longLine);
    EXPECT_EQ(reencoded(longLine + "\xE4"), longLine + "\xE4");
    EXPECT_EQ(reencoded(longLine + "ä"), longLine + "ä");
}

TEST(Encoding, LargeTextComesBackInTheSameMemory) {
    std::string bytes;
    while (bytes.size() < (size_t{8} << 20)) bytes += "Skill Climb, 5, Type(Physical)\r\n";
    const auto memory = placeOf(bytes);
    const auto read = decode(std::move(bytes));
    EXPECT_EQ(placeOf(read.text), memory);
    EXPECT_EQ(placeOf(encode(read.text, Encoding::Any).bytes()), memory);
}

// One lone line end at every place around the blocks that are looked at as one.
TEST(Encoding, EveryLoneLineEndIsSeen) {
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
