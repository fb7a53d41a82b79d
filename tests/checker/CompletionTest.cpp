#include "checker/Completion.h"

#include <gtest/gtest.h>

#include <map>

#include "checker/DocumentPass.h"
#include "language/Functions.h"

namespace klt {
namespace {

constexpr std::string_view kNames =
    "Version=2\r\n"
    "[ADS]\r\n"
    "Sea Legs, 5\r\n"
    "Contacts (Customs, Guild), 10\r\n"
    "[SKILLS]\r\n"
    "<Boats>\r\n"
    "Rowing, P/E\r\n"
    "rope work, P/A\r\n"
    "Ropes [old], P/A\r\n"
    "Colleges, P/A\r\n"
    "Half-Moon, P/A\r\n"
    "[SPELLS]\r\n"
    "<Tide>\r\n"
    "R\u00E4ucher, type(M/H)\r\n"
    "[STATS]\r\n"
    "Reach, basevalue(10)\r\n"
    "[GROUPS]\r\n"
    "<Rigging>\r\n"
    "SK:Rowing\r\n"
    "[PACKAGES]\r\n"
    "{Rower=Sworn}\r\n"
    "ADD=SK:Rowing\r\n";
constexpr std::string_view kMore = "[SKILLS]\r\nROWING, P/E\r\nRaft, P/E\r\n";
constexpr std::string_view kDocuments[] = {kNames, kMore};

struct Marked {
    std::string text;
    size_t caret;
};
/// "!" is the caret.
Marked marked(std::string_view text) {
    const auto caret = text.find('!');
    return {std::string(text).erase(caret, 1), caret};
}

std::string inSection(std::string_view section, std::string_view lines) {
    return std::string("Version=2\r\n").append(section).append("\r\n").append(lines);
}

Completions at(const Marked& where, CompletionPlace (*placeAt)(std::string_view, size_t) = placeInDocument) {
    return completionsAt(where.text, where.caret, placeAt(where.text, where.caret), kDocuments);
}

std::string shownOf(const Completions& completions, size_t most = 4) {
    std::string all;
    for (size_t i = 0; i < completions.choices.size() && i < most; ++i)
        all += completions.choices[i].shown + ';';
    return all;
}

/// What stands in the text once a choice is taken, "!" being the caret.
std::string taken(const Marked& where, const Completions& completions, const Completion& choice) {
    std::string text = where.text;
    text.replace(completions.start, where.caret + choice.taken - completions.start, choice.text);
    return text.insert(completions.start + choice.caret, "!");
}

TEST(Completion, OffersWhatMayStandAtThePlace) {
    struct Row {
        std::string_view section, line, typed, offered;
    };
    const Row rows[] = {
        {"[ADS]", "[!", "[", "[AUTHOR];[ADS];[DISADS];[QUIRKS];"},
        {"[ADS]", " [sK!", "[sK", "[SKILLS];"},
        {"[ADS]", "![", "", ""},
        {"[ADS]", "Keel!", "", ""},
        {"[ADS]", "Keel (a, !", "", ""},
        {"[ADS]", "Keel, 10, !", "", "gives();mods();needs();notes();"},
        {"[ADS]", "Keel, 10, U!", "U", "upto();"},
        {"[ADS]", "Keel, 10,\r\n\tPa!", "Pa", "page();"},
        {"[ADS]", "Keel, 10,\r\n!", "", "gives();mods();needs();notes();"},
        {"[ADS]", "Keel, 10,\r\n\r\n!", "", ""},
        {"[ADS]", "Keel, 10, de!", "de", ""},
        {"[ADS]", "Keel, 10, page(x!", "", ""},
        {"[ADS]", "Keel, 10, // !", "", ""},
        {"[ADS]", "* Keel, 10, !", "", ""},
        {"[AUTHOR]", "Keel, 10, !", "", ""},
        {"", "Keel, 10, !", "", ""},
        {"[SKILLS]", "Knife, !", "", "P/E;P/A;P/H;M/E;"},
        {"[SKILLS]", "Knife,m/v!", "m/v", "M/VH;"},
        {"[SKILLS]", "Knife, P/E, de!", "de", "default();"},
        {"[SKILLS]", "Knife, P/E, type(S!", "S", "S/H;S/VH;"},
        {"[SPELLS]", "Ray, c!", "c", "cat();castingcost();"},
        {"[STATS]", "ST, display(!", "", "Yes;No;"},
        {"[STATS]", "ST, round(!", "", "Up;Down;No;"},
        {"[MODS]", "Mod, 5, round(d!", "d", "Down;"},
        {"[STATS]", "ST, basevalue(@!", "@",
         "@FAC(value);@FIX(value);@IF(condition THEN value ELSE value);"
         "@INT(value);"},
        {"[STATS]", "ST, basevalue(1+@ma!", "@ma", "@MAX(value, value);"},
        {"[ADS]", "K, 1, upto(I!", "I", "InPlay;"},
        {"[ADS]", "K, 1, upto(@IF(ST !", "", "THEN;AD:;ADS:;DI:;"},
        {"[ADS]", "K, 1, upto(@IF(ST THEN 2 e!", "e", "ELSE;"},
        {"[ADS]", "K, 1, upto(@IF(ST THEN 2 ELSE 3 t!", "t", ""},
        {"[ADS]", "K, 1, needs(!", "", "AD:;ADS:;DI:;DISADS:;"},
        {"[ADS]", "K, 1, needs(2 s!", "s", "SK:;SK_RL:;SP:;Spells;"},
        {"[ADS]", "K, 1, needs(ST>@i!", "@i", "@IF(condition THEN value ELSE value);@INT(value);"},
        {"[ADS]", "K, 1, needs(@i!", "@i", ""},
        {"[ADS]", "K, 1, gives(!", "", "AD:;ADS:;DI:;DISADS:;"},
        {"[ADS]", "K, 1, gives(%l!", "%l", "%level;"},
        {"[ADS]", "K, 1, gives(+1 t!", "t", "To;"},
        {"[ADS]", "K, 1, gives(+1 p!", "p", "pts;PO:;POWERS:;PhysicalSkillPoints;"},
        {"[ADS]", "K, 1, gives(+1 To ST u!", "u", "Upto;"},
        {"[ADS]", "K, 1, gives(+1 To ST Upto 3 u!", "u", ""},
        {"[ADS]", "K, 1, gives(+1 To ST, +2 t!", "t", "To;"},
        {"[SKILLS]", "K, P/E, default(ST-5, sk!", "sk", "SK:;"},
        {"[ADS]", "K, 1, needs(SK:!", "", "Colleges;Half-Moon;Raft;rope work;"},
        {"[ADS]", "K, 1, needs(SK:ro!", "ro", "rope work;Rowing;"},
        {"[ADS]", "K, 1, needs(2 sk_rl:Rope w!", "Rope w", "rope work;"},
        {"[ADS]", "K, 1, needs(SK:Nobody s!", "s", "Spells;"},
        {"[ADS]", "K, 1, needs(SK:x!", "x", ""},
        {"[ADS]", "K, 1, needs(ST:Re!", "Re", ""},
        {"[ADS]", "K, 1, needs(AD:Contacts (Cu!", "Contacts (Cu", "Contacts (Customs, Guild);"},
        {"[ADS]", "K, 1, gives(+1 To CL:!", "", "Tide;"},
        {"[ADS]", "K, 1, gives(+1 To CO:t!", "t", "Tide;"},
        {"[ADS]", "K, 1, gives(+1 To sp:R\u00C4!", "R\u00C4", "R\u00E4ucher;"},
        {"[ADS]", "K, 1, upto(@MAX(2, SK:Ha!", "Ha", "Half-Moon;"},
        {"[GROUPS]", "s!", "s", "SK:;SK_RL:;SP:;"},
        {"[GROUPS]", "AD:!", "", "Sea Legs;"},
        {"[GROUPS]", "<G!", "", ""},
        {"[BONUS]", "!", "", ""},
        {"[BONUS]", "+1 g!", "g", "GR:;"},
        {"[BONUS]", "+1 GR:!", "", "Rigging;"},
        {"[BONUS]", "<SK:raf!", "raf", "Raft;"},
        {"[PACKAGES]", "!", "", "ADD=;CREATE=;MESSAGE=;EMESSAGE=;"},
        {"[PACKAGES]", "{a!", "", ""},
        {"[PACKAGES]", "MESSAGE=!", "", ""},
        {"[PACKAGES]", "ADD=p!", "p", "PO:;POWERS:;PA:;"},
        {"[PACKAGES]", "ADD=s!", "s", "SK:;SP:;ST .AT. ;STAdj .AT. ;"},
        {"[PACKAGES]", "CREATE=s!", "s", "SK:;SP:;ST:;STAT:;"},
        {"[PACKAGES]", "ADD=PA:!", "", "Rower;"},
        {"[PACKAGES]", "CREATE=ST:!", "", "Reach;"},
        {"[PACKAGES]", "ADD=ST:!", "", ""},
        {"[PACKAGES]", "ADD=SK:Rowing .!", ".", ".WITH. ;.AT. ;"},
        {"[PACKAGES]", "ADD=SK:Rowing .AT. 2 .w!", ".w", ".WITH. ;"},
        {"[PACKAGES]", "ADD=SK:Rowing .WITH. Mod, 5, u!", "u", "upto();"},
        {"[PACKAGES]", "ADD=SK:Rowing .WITH. Mod, 5 .a!", ".a", ".AND. ;.AT. ;"},
        {"[PACKAGES]", "ADD=SK:Rowing .AT. 2!", "", "pts;"},
        {"[PACKAGES]", "ADD=SK:Rowing .AT. 2P!", "P", "pts;"},
        {"[PACKAGES]", "ADD=SK:Rowing .AT. x!", "", ""},
        {"[PACKAGES]", "EMESSAGE=Oath .WITH. a ~!", "~", "~P ;"},
        {"[PACKAGES]", "EMESSAGE=Oath .w!", ".w", ".WITH. ;"},
        {"[PACKAGES]", "CREATE=SP:Ray, page(x) .!", ".", ".AT. ;"},
        {"[PACKAGES]", "create=sk:Knots, m/!", "m/", "M/E;M/A;M/H;M/VH;"},
        {"[PACKAGES]", "CREATE=AD:Knots, 5, needs(SK:ra!", "ra", "Raft;"},
    };
    for (const auto& [section, line, typed, offered] : rows) {
        const auto where = marked(inSection(section, line));
        const auto found = at(where);
        EXPECT_EQ(shownOf(found), offered) << section << line;
        if (offered.empty()) continue;
        EXPECT_EQ(where.text.substr(found.start, where.caret - found.start), typed) << section << line;
    }
}

TEST(Completion, OffersTheSameInFieldsByTheirTag) {
    struct Row {
        std::string_view tag, text, offered;
    };
    const Row rows[] = {
        {"needs(", "SK:Raf!", "Raft;"}, {"gives(", "+1 t!", "To;"},   {"upto(", "@INT(Def!", "Default;"},
        {"type(", "S/!", "S/H;S/VH;"},  {"display(", "!", "Yes;No;"}, {"cost(", "!", ""},
        {"name(", "SK:!", ""},          {"notes(", "SK:!", ""},
    };
    for (const auto& [tag, text, offered] : rows) {
        const auto where = marked(text);
        const auto place = placeInField(where.text, where.caret, fieldTag(tag));
        EXPECT_EQ(shownOf(completionsAt(where.text, where.caret, place, kDocuments)), offered) << tag << text;
    }
    const auto box = marked("ADD=SK:Rowing\r\nADD=PA:!");
    const auto place = placeInLines(box.text, box.caret, Section::Packages);
    EXPECT_EQ(shownOf(completionsAt(box.text, box.caret, place, kDocuments)), "Rower;");
}

TEST(Completion, WritesTheWordAndLeavesTheCaretInItsParentheses) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"[SKILLS]\r\nKnife, m/v!", "[SKILLS]\r\nKnife, M/VH!"},
        {"[ADS]\r\nK, 1, GI!", "[ADS]\r\nK, 1, gives(!)"},
        {"[ADS]\r\nK, 1, gi!(+1 To ST)", "[ADS]\r\nK, 1, gives(!+1 To ST)"},
        {"[ADS]\r\nK, 1, gi!ves(+1 To ST)", "[ADS]\r\nK, 1, gives(!+1 To ST)"},
        {"[ADS]\r\nK, 1, upto(@m!)", "[ADS]\r\nK, 1, upto(@MAX(!))"},
        {"[sk!]", "[SKILLS]!"},
        {"[ADS]\r\nK, 1, needs(SK:rOp!)", "[ADS]\r\nK, 1, needs(SK:rope work!)"},
        {"[ADS]\r\nK, 1, needs(SK:Row!ing>2)", "[ADS]\r\nK, 1, needs(SK:Rowing!>2)"},
        {"[ADS]\r\nK, 1, needs(SK:Row!ings)", "[ADS]\r\nK, 1, needs(SK:Rowing!ings)"},
        {"[GROUPS]\r\nsk!:Rowing", "[GROUPS]\r\nSK:!Rowing"},
    };
    for (const auto& [before, after] : rows) {
        const auto where = marked(before);
        const auto found = at(where);
        EXPECT_EQ(taken(where, found, found.choices.at(0)), after) << before;
    }
}

/// A value, and what stands behind a word, for which nothing is to be filled in.
std::string filled(const Completion& choice) {
    static const std::map<std::string_view, std::string> kValues = {{"gives(", "+1 To ST"},
                                                                    {"needs(", "ST>1"},
                                                                    {"type(", "P/E"},
                                                                    {"step(", "1"},
                                                                    {"up(", "1"},
                                                                    {"down(", "-1"},
                                                                    {"display(", "Yes"},
                                                                    {"doubleinplay(", "No"},
                                                                    {"round(", "Up"},
                                                                    {"@IF(", "1 THEN 2"},
                                                                    {"ADD=", "SK:Rowing"},
                                                                    {"CREATE=", "ST:Reach"},
                                                                    {"EMESSAGE=", "a .WITH. b"},
                                                                    {".AT. ", "2"},
                                                                    {".WITH. ", "Mod, 5"},
                                                                    {".AND. ", "Mod, 5"},
                                                                    {"To", " ST"},
                                                                    {"Upto", " 3"},
                                                                    {"THEN", " 2"},
                                                                    {"ELSE", " 3"},
                                                                    {"MESSAGE=", ""}};
    const std::string word = choice.text.substr(0, choice.caret);
    const auto value = kValues.find(word);
    std::string fill = value == kValues.end() ? "" : value->second;
    if (const auto function = functionOf(word); arityOf(function) == Arity::Two) fill = "1, 2";
    if (word.ends_with(':')) fill = "Rowing";
    if (fill.empty() && word.ends_with(".AT. ")) fill = "2";
    if (fill.empty() && word.ends_with('(')) fill = "x";
    return std::string(choice.text).insert(choice.caret, fill);
}

std::string errorsOf(const std::string& text) {
    StyledText styled(text);
    CheckerState state;
    ErrorRuns errors;
    CheckDocument(styled, state, nullptr, &errors);
    return errors.empty() ? "" : std::string(errorReason(errors.front().reason).text);
}

TEST(Completion, OffersNothingThatTheCheckerRefuses) {
    struct Row {
        std::string_view section, line;
    };
    const Row rows[] = {
        {"", "[!"},
        {"[ADS]", "Keel, !, 10, page(x)"},
        {"[DISADS]", "Keel, 10, !"},
        {"[QUIRKS]", "Keel, 10, !"},
        {"[POWERS]", "Keel, 10, !, page(x)"},
        {"[SKILLS]", "Knife, !"},
        {"[SKILLS]", "Knife, P/E, !"},
        {"[SPELLS]", "Ray, !"},
        {"[STATS]", "ST, !"},
        {"[MODS]", "Mod, 5, !"},
        {"[SKILLS]", "Knife, P/E, type(!)"},
        {"[STATS]", "ST, display(!)"},
        {"[STATS]", "ST, doubleinplay(!)"},
        {"[STATS]", "ST, round(!)"},
        {"[MODS]", "Mod, 5, round(!)"},
        {"[STATS]", "ST, basevalue(!)"},
        {"[SKILLS]", "Knife, P/E, default(!)"},
        {"[SKILLS]", "Knife, P/E, default(ST-2, !)"},
        {"[ADS]", "Keel, 10, upto(!)"},
        {"[ADS]", "Keel, 10, upto(@MAX(!, 2))"},
        {"[ADS]", "Keel, 10, upto(@IF(1 ! THEN 2))"},
        {"[ADS]", "Keel, 10, upto(@IF(1 THEN 2 !))"},
        {"[ADS]", "Keel, 10, needs(!)"},
        {"[ADS]", "Keel, 10, needs(2 !)"},
        {"[ADS]", "Keel, 10, needs(ST>10 | !)"},
        {"[ADS]", "Keel, 10, needs(ST>!)"},
        {"[ADS]", "Keel, 10, needs(ST>@INT(!))"},
        {"[ADS]", "Keel, 10, gives(! To ST)"},
        {"[ADS]", "Keel, 10, gives(+1 !)"},
        {"[ADS]", "Keel, 10, gives(+1 To !)"},
        {"[ADS]", "Keel, 10, gives(+1 To ST !)"},
        {"[ADS]", "Keel, 10, gives(@INT(!) To ST)"},
        {"[GROUPS]", "!"},
        {"[BONUS]", "+1 !"},
        {"[PACKAGES]", "!"},
        {"[PACKAGES]", "ADD=!"},
        {"[PACKAGES]", "CREATE=!"},
        {"[PACKAGES]", "ADD=SK:Rowing .!"},
        {"[PACKAGES]", "ADD=SK:Rowing .AT. 2 .!"},
        {"[PACKAGES]", "ADD=SK:Rowing .WITH. Mod, 5 .!"},
        {"[PACKAGES]", "ADD=ST .!"},
        {"[PACKAGES]", "EMESSAGE=a .!"},
        {"[PACKAGES]", "EMESSAGE=a .WITH. b !"},
        {"[PACKAGES]", "ADD=SK:Rowing .AT. 5!"},
        {"[PACKAGES]", "CREATE=AD:Keel, 5 .!"},
        {"[PACKAGES]", "CREATE=SP:Ray, page(x) .!"},
        {"[PACKAGES]", "CREATE=SK:Knots, !"},
        {"[PACKAGES]", "CREATE=SK:Knots, P/E, !"},
        {"[PACKAGES]", "ADD=SK:Rowing .WITH. Mod, 5, !"},
        {"[ADS]", "Keel, 10, needs(SK:!)"},
        {"[ADS]", "Keel, 10, needs(AD:!>1)"},
        {"[ADS]", "Keel, 10, needs(ST>SK:!)"},
        {"[ADS]", "Keel, 10, needs(ST>@INT(AD:!))"},
        {"[ADS]", "Keel, 10, gives(AD:! To ST)"},
        {"[ADS]", "Keel, 10, gives(+1 To SK:!)"},
        {"[ADS]", "Keel, 10, gives(+1 To AD:!)"},
        {"[ADS]", "Keel, 10, upto(SK:!)"},
        {"[ADS]", "Keel, 10, upto(@INT(AD:!))"},
        {"[SKILLS]", "Knife, P/E, default(SK:!-2)"},
        {"[GROUPS]", "AD:!"},
        {"[BONUS]", "+1 SK:!"},
        {"[PACKAGES]", "ADD=AD:!"},
        {"[PACKAGES]", "CREATE=ST:!"},
    };
    for (const auto& [section, line] : rows) {
        const auto where = marked(inSection(section, line));
        ASSERT_EQ(errorsOf(inSection(section, "")), "");
        const auto found = at(where);
        EXPECT_FALSE(found.choices.empty()) << section << line;
        for (auto choice : found.choices) {
            const bool isUnit = choice.text == kPointsWord && section != "[PACKAGES]";
            choice.text = isUnit ? "pts To ST" : filled(choice);
            auto text = taken(where, found, choice);
            text.erase(found.start + choice.caret, 1);
            EXPECT_EQ(errorsOf(text), "") << text.substr(11);
        }
    }
}

TEST(Completion, OffersTheFirstThousandNamesInTheOrderOfLetters) {
    std::string text = "[SKILLS]\r\n";
    for (int i = 30'000; i > 0; --i) text += "Skill " + std::to_string(100'000 + i) + ", P/E\r\n";
    const std::string_view documents[] = {text, text};
    const auto where = marked(inSection("[GROUPS]", "SK:s!"));
    const auto found =
        completionsAt(where.text, where.caret, placeInDocument(where.text, where.caret), documents);
    ASSERT_EQ(found.choices.size(), kMostCompletions);
    for (size_t i = 0; i < kMostCompletions; ++i)
        EXPECT_EQ(found.choices[i].text, "Skill " + std::to_string(100'001 + i));
}

}  // namespace
}  // namespace klt
