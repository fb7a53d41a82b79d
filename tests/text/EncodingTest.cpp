#include "text/Encoding.h"

#include <gtest/gtest.h>

#include <random>

#include "text/LineEnds.h"

using namespace klt;
using namespace std::string_literals;

static std::string reencoded(const std::string& bytes) {
    const auto read = decode(bytes);
    const auto written = encode(read.text, read.encoding);
    EXPECT_EQ(written.encoding(), read.encoding);
    return std::string(written.bytes());
}

TEST(Encoding, Decode) {
    const std::tuple<const char*, std::string, std::string, Encoding> rows[] = {
        {"empty", "", "", Encoding::Any},
        {"one byte", "a", "a", Encoding::Any},
        {"NUL", "a\0\nb\0"s, "a\0\r\nb\0"s, Encoding::Any},
        {"UTF-8", "ä€😀", "ä€😀", Encoding::Utf8},
        {"UTF-8 with mark", "\xEF\xBB\xBF"s + "a\n", "a\r\n", Encoding::Utf8Bom},
        {"mark alone", "\xEF\xBB\xBF", "", Encoding::Utf8Bom},
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
        {"Windows-1252 beyond Latin-1",
         "\x80\x81\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8D\x8E\x8F"
         "\x90\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9D\x9E\x9F\xFF",
         "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸÿ", Encoding::Windows1252},
    };
    for (const auto& [what, bytes, text, encoding] : rows) {
        const auto read = decode(bytes);
        EXPECT_EQ(read.text, text) << what;
        EXPECT_EQ(read.encoding, encoding) << what;
    }
}

TEST(Encoding, Encode) {
    const std::tuple<const char*, std::string, Encoding, std::string, Encoding> rows[] = {
        {"ASCII stays undecided", "a\r\n", Encoding::Any, "a\r\n", Encoding::Any},
        {"new document", "Häuser €", Encoding::Any, "H\xE4user \x80", Encoding::Windows1252},
        {"new document beyond", "ä😀", Encoding::Any, "ä😀", Encoding::Utf8},
        {"kept", "ä", Encoding::Windows1252, "\xE4", Encoding::Windows1252},
        {"beyond", "ä\u0101", Encoding::Windows1252, "ä\u0101", Encoding::Utf8},
        {"C1 that has a byte of another", "ä\u0080", Encoding::Windows1252, "ä\u0080", Encoding::Utf8},
        {"undefined byte", "\u0081x", Encoding::Windows1252, "\x81x", Encoding::Windows1252},
        {"would be read as UTF-8", "Ã¤", Encoding::Windows1252, "Ã¤", Encoding::Utf8},
        {"would be read as UTF-16", "ÿþab", Encoding::Any, "ÿþab", Encoding::Utf8},
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
    for (const auto& [what, text, wanted, bytes, used] : rows) {
        const auto written = encode(text, wanted);
        EXPECT_EQ(written.bytes(), bytes) << what;
        EXPECT_EQ(written.encoding(), used) << what;
    }
}

TEST(Encoding, WrittenUnchangedTheBytesAreTheSame) {
    std::mt19937 random(7);
    std::string noise(size_t{4} << 20, '\0');
    for (auto& c : noise) c = static_cast<char>(random());
    EXPECT_EQ(reencoded(noise), withCrLf(noise));

    const std::string longLine(size_t{20} << 20, 'x');
    for (const auto* end : {"", "\xE4", "ä"}) EXPECT_EQ(reencoded(longLine + end), longLine + end);
}

TEST(Encoding, LargeTextComesBackInTheSameMemory) {
    std::string bytes;
    while (bytes.size() < (size_t{8} << 20)) bytes += "Skill Climb, 5, Type(Physical)\r\n";
    const void* const memory = bytes.data();
    const auto read = decode(std::move(bytes));
    EXPECT_EQ(read.text.data(), memory);
    EXPECT_EQ(encode(read.text, Encoding::Any).bytes().data(), memory);
}
