#include "tools/FindText.h"

#include "support/MarkedText.h"
#include "support/MemoryTextArea.h"
#include "support/Scratch.h"
#include "tools/FindHistory.h"

namespace klt {
namespace {

using enum FindButton;
using enum FindDirection;

constexpr FindOptions kAny{}, kCase{.matchCase = true}, kWord{.wholeWord = true};
constexpr Position kNone = kNotFound;

// "0123456789-" stands for the characters that no search touches.
const std::tuple<FindButton, FindRequest, const char*, Position, const char*> kRows[] = {
    // ranges
    {FindNext, {"ab"}, "0123456789-<>ab ab", 11, "0123456789-<ab> ab"},
    {FindNext, {"ab"}, "0123456789-<ab> ab", 14, "0123456789-ab <ab>"},
    {FindNext, {"ab"}, "0123456789-ab <ab>", kNone, "<>0123456789-ab ab"},
    {FindNext, {"ab", "", kAny, Up}, "0123456789-ab ab <>ab", 11, "0123456789-<ab> ab ab"},
    {FindNext, {"ab", "", kAny, Up}, "0123456789-<ab> ab ab", 11, "0123456789-<ab> ab ab"},
    {FindNext, {"ab", "", kAny, Up}, "0123456789-a<>b", kNone, "<>0123456789-ab"},
    {FindNext, {"ab", "", kAny, All}, "0123456789-ab <ab>", 11, "0123456789-<ab> ab"},
    {FindNext, {"ab", "", kAny, All, false, false}, "0123456789-ab <ab>", kNone, "<>0123456789-ab ab"},
    {FindNext, {"ab", "", kAny, Down, true}, "0123456789-ab <ab>", 11, "0123456789-<ab> ab"},
    {FindNext, {"ab", "", kAny, Up, true}, "0123456789<>-ab", 11, "0123456789-<ab>"},
    {FindNext, {"ab", "", kAny, Down, true, false}, "0123456789-ab <ab>", kNone, "<>0123456789-ab ab"},
    // the first eleven characters
    {FindNext, {"2"}, "<>Version=2\r\n2", 11, "Version=2\r\n<2>"},
    {FindNext, {"b"}, "<>ab", kNone, "<>ab"},
    {FindNext, {"-a"}, "<>0123456789-ab", kNone, "<>0123456789-ab"},
    {FindNext, {"9"}, "<>éééééé678999", 17, "éééééé67899<9>"},
    {FindNext, {"\r\nb"}, "<>0123456789\r\nb\r\nb", 13, "0123456789\r\nb<\r\nb>"},
    {FindNext, {"ab", "", kAny, Up}, "01234<>56789-ab", kNone, "<>0123456789-ab"},
    {Replace, {"ersi", "x"}, "V<ersi>on=2\r\nersi", 1, "Version=2\r\nx<>"},
    {ReplaceAll, {"1", "x", kAny, All}, "<>1111111111-11", 2, "<>1111111111-xx"},
    {ReplaceAll, {"1", "x", kAny, Up}, "1111<>11111-11", kNone, "1111<>11111-11"},
    // options
    {FindNext, {"AB"}, "0123456789-<>xab ab", 12, "0123456789-x<ab> ab"},
    {FindNext, {"AB", "", kCase}, "0123456789-<>ab AB", 14, "0123456789-ab <AB>"},
    {FindNext, {"AB", "", kWord}, "0123456789-<>xab ab", 15, "0123456789-xab <ab>"},
    {FindNext, {"\u00C4B"}, "0123456789-<>\u00E4b", 11, "0123456789-<\u00E4b>"},
    // replacing
    {Replace, {"AB", "x"}, "0123456789-<ab> ab", 1, "0123456789-x<> ab"},
    {Replace, {"AB", "x"}, "0123456789-<> ab", 1, "0123456789- x<>"},
    {Replace, {"AB", "x", kCase}, "0123456789-<ab> AB", 1, "0123456789-ab x<>"},
    {Replace, {"ab", "x", kWord}, "0123456789-<ab>c", 1, "0123456789-x<>c"},
    {Replace, {"ab", "x"}, "0123456789-<a>b", kNone, "<>0123456789-ab"},
    {ReplaceAll, {"ab", "x"}, "0123456789-<ab> ab AB", 2, "<>0123456789-ab x x"},
    {ReplaceAll, {"ab", "x", kWord}, "0123456789-<>abc ab", 2, "<>0123456789-xc x"},
    {ReplaceAll, {"ab", "x", kCase, All}, "0123456789-ab <ab> AB", 2, "<>0123456789-x x AB"},
    {ReplaceAll, {"ab", "ab", kAny, Up}, "0123456789-ab<> AB", 1, "<>0123456789-ab AB"},
    {ReplaceAll, {"ab", "abab", kAny, Up}, "0123456789-ab a<>b", 1, "<>0123456789-abab ab"},
    {ReplaceAll, {"b", "x"}, "0123456789-a<>\r\n", kNone, "0123456789-a<>\r\n"},
    {ReplaceAll, {"\n", "x"}, "0123456789-<>\r\n", kNone, "0123456789-<>\r\n"},
    {ReplaceAll, {"ab", ""}, "0123456789-<>abab", 2, "0123456789-<>abab"},
};

TEST(FindText, KeepsToItsRules) {
    for (const auto& [button, request, before, result, after] : kRows) {
        MemoryTextArea area;
        setMarkedText(area, before);
        EXPECT_EQ(runFind(area, button, request).result, result) << request.find << " in " << before;
        EXPECT_EQ(markedText(area), after) << request.find << " in " << before;
    }
}

TEST(FindText, ScrollsTheFoundLineToTheTopAndLaysPlainStyle) {
    MemoryTextArea area("Version=2\r\na\r\nb\r\nc b\r\nd");
    area.SetStyles(std::string(static_cast<size_t>(area.Length()), 5));
    area.SetSelStart(15);
    EXPECT_TRUE(runFind(area, FindNext, {"b"}).searchedOn);
    EXPECT_EQ(area.FirstVisibleLine(), 3);
    EXPECT_FALSE(runFind(area, Replace, {"b", "x"}).searchedOn) << "the match is selected";
    EXPECT_EQ(area.StyleAt(19), 5);
    EXPECT_TRUE(runFind(area, ReplaceAll, {"b", "x", {}, All}).isNewText);
    EXPECT_EQ(area.StyleAt(0) + area.StyleAt(19), 0);
    area.Undo();
    EXPECT_EQ(area.Text(), "Version=2\r\na\r\nb\r\nc x\r\nd") << "one step takes it back";
    EXPECT_FALSE(area.isFrozen());
}

TEST(FindText, RefusesToMakeATextTooLong) {
    MemoryTextArea area(std::string(3'000'000, 'a'));
    const auto outcome = runFind(area, ReplaceAll, {"a", std::string(400, 'b'), {}, All});
    EXPECT_EQ(findMessage(ReplaceAll, outcome), "The text would become too long. Nothing was replaced.");
    EXPECT_EQ(area.Length(), 3'000'000);
}

TEST(FindText, TellsWhatCameOfIt) {
    EXPECT_EQ(findMessage(FindNext, {11, true}) + findMessage(Replace, {1, true}), "");
    EXPECT_EQ(findMessage(ReplaceAll, {1, false}), "Done replacing.\r\n1 replacement was made.");
}

TEST(FindHistory, KeepsFourNewestFirst) {
    const ScratchFolder folder;
    Store store(folder / "store.sqlite3");
    const auto load = [&] { return FindHistory::load(store, settings::kSearchStrings); };
    writeSetting(store, settings::kReplaceStrings[0], "another list");
    auto history = load();
    EXPECT_EQ(history.entries(), std::vector<std::string>(4));
    for (const char* text : {"a", "b", "b", "c", "d"}) history.enter(text);
    const std::vector<std::string> kept = {"d", "c", "b", "b"};
    EXPECT_EQ(history.entries(), kept);
    history.save(store, settings::kSearchStrings);
    EXPECT_EQ(load().entries(), kept);
    EXPECT_EQ(GetSetting(store, "KLTEdit", "Search Strings", "3"), "b");
    EXPECT_EQ(readSetting(store, settings::kReplaceStrings[0]), "another list");
}

}  // namespace
}  // namespace klt
