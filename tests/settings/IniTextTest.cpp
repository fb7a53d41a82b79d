#include "settings/IniText.h"

#include <gmock/gmock.h>

using namespace klt;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Optional;

namespace {

/// ASCII as UTF-16, its mark in front.
std::string wide(std::string_view text, bool isBigEndian = false) {
    std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text)
        bytes.append(isBigEndian ? 1 : 0, '\0').append(1, c).append(isBigEndian ? 0 : 1, '\0');
    return bytes;
}

}  // namespace

TEST(IniText, ChangesNothingButTheEntry) {
    // The value "ä" of the key "K" in the section "S".
    const std::string trail = "\n\n;end \x1A";
    const std::tuple<const char*, std::string, std::string> rows[] = {
        {"no file", "", "[S]\r\nK=\xE4\r\n"},
        {"another value", "[s]\n k\t=  x y \t\nl=1\n", "[s]\n k\t=  \xE4 \t\nl=1\n"},
        {"no value, no line end", "[S]\r\nk=", "[S]\r\nk=\xE4"},
        {"blanks for a value", "[S]\nk = \t\n", "[S]\nk = \t\xE4\n"},
        {"the first of double ones", "[S]\nk=1\nK=2\n[s]\nk=3", "[S]\nk=\xE4\nK=2\n[s]\nk=3"},
        {"a comment is none", "[S]\n;k=1\n ; K=2\n", "[S]\nK=\xE4\n;k=1\n ; K=2\n"},
        {"in another section", "k=0\n[R]\nk=1\n", "k=0\n[R]\nk=1\n[S]\nK=\xE4\n"},
        {"behind the last row", "[S]\na=1\njunk\nb=2\n" + trail, "[S]\na=1\njunk\nb=2\nK=\xE4\n" + trail},
        {"behind an empty section", "[S] \r\r[T]\rk=1", "[S] \rK=\xE4\r\r[T]\rk=1"},
        {"behind what has no line end", "[S]\na=1", "[S]\na=1\nK=\xE4"},
        {"a header alone", "[S]", "[S]\r\nK=\xE4"},
        {"a new section behind no line end", "[R]\na", "[R]\na\n[S]\nK=\xE4"},
        {"the line end of the line before", "a\n[S]\r\na=1\rb\n", "a\n[S]\r\na=1\rK=\xE4\rb\n"},
        {"no end of a header", "[S\n[S]\n[T\nk=1\n", "[S\n[S]\n[T\nk=\xE4\n"},
        {"Windows-1252", "; \x80\x81\xFF\n[S]\n", "; \x80\x81\xFF\n[S]\nK=\xE4\n"},
        {"UTF-8", "; \u00E9\n[S]\n", "; \u00E9\n[S]\nK=\u00E4\n"},
        {"UTF-8 with a mark", "\uFEFF[S]\n", "\uFEFF[S]\nK=\u00E4\n"},
        {"UTF-16", wide("[s]\rk=x\r\r[t]"), wide("[s]\rk=\xE4\r\r[t]")},
        {"UTF-16, big-endian", wide("[R]\na", true), wide("[R]\na\n[S]\nK=\xE4", true)},
    };
    for (const auto& [name, before, after] : rows) {
        IniText ini(before);
        EXPECT_EQ(ini.put("S", "K", "\u00E4"), std::nullopt) << name;
        EXPECT_EQ(ini.bytes(), after) << name;
        EXPECT_EQ(ini.put("s", "k", "\u00E4"), std::nullopt) << name;
        EXPECT_EQ(ini.bytes(), after) << name << ", again";
    }
}

TEST(IniText, KeepsItsEncodingFromEntryToEntry) {
    IniText ini("[S]\nk=\u00E4\n");
    for (const auto* value : {"x", "\u0142"}) EXPECT_EQ(ini.put("S", "k", value), std::nullopt);
    EXPECT_EQ(ini.bytes(), "[S]\nk=\u0142\n");
}

TEST(IniText, AnErrorChangesNothing) {
    constexpr const char *kLacks = "lacks a character", *kEntry = "can't stand",
                         *kFaulty = "unknown or faulty";
    const std::tuple<std::string, std::string, std::string, std::string, const char*> rows[] = {
        {"", "S", "k", "\u0142", kLacks},
        {"[\xE9]", "S", "k", "\u0142", kLacks},
        {"[\xE9]", "S", "k", "\xFF", kLacks},
        {"[\u00E9]", "S", "k", "\xFF", kLacks},
        {wide("[S]"), "S", "k", "\xFF", kLacks},
        {"[S]\n", "S", "k", "1\n[T]", kEntry},
        {"[S]\n", "S", "k", " 1", kEntry},
        {"[S]\n", "S", "k=", "1", kEntry},
        {"[S]\n", "S", ";k", "1", kEntry},
        {"[S]\n", "S", "k\n", "1", kEntry},
        {"[S]\n", "T]", "k", "1", kEntry},
        {"[S]\n\0"s, "S", "k", "1", kFaulty},
        {"\xFF\xFE\0\0[\0\0\0"s, "S", "k", "1", kFaulty},
        {wide("[S]") + "x", "S", "k", "1", kFaulty},
        {wide("[S]").substr(2), "S", "k", "1", kFaulty},
    };
    for (const auto& [before, section, key, value, error] : rows) {
        IniText ini(before);
        EXPECT_THAT(ini.put(section, key, value), Optional(HasSubstr(error)))
            << before << section << key << value;
        EXPECT_EQ(ini.bytes(), before);
    }
}

TEST(IniText, RowsAreTheLinesWithAnEqualsSign) {
    const IniText ini("[R]\na=0\n[ S]\na=00\n[s] x\nA = 1=2\n;b=3\nno\n\xC4=4\n\xE4=5\n=6\n[S]\nc=7\n");
    EXPECT_THAT(ini.rows("S"), ElementsAre(IniRow{"A", "1=2"}, IniRow{"\u00C4", "4"}, IniRow{"\u00E4", "4"},
                                           IniRow{"", "6"}));
    EXPECT_THAT(ini.rows("T"), ElementsAre());
    EXPECT_EQ(ini.value("S", "a"), "1=2");
    EXPECT_EQ(ini.value("S", "c"), std::nullopt);
    EXPECT_EQ(ini.value("T", "a"), std::nullopt);

    std::string value;
    for (int i = 0; i < 300; ++i) value += "\xE4";
    const IniText longest("[S]\nk=" + value);
    EXPECT_EQ(longest.value("s", "K")->size(), 2 * kLongestIniValue);
    EXPECT_EQ(longest.rows("s")[0].value, longest.value("s", "K"));
}
