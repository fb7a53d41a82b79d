#include "wizards/ItemLine.h"

#include <gtest/gtest.h>

#include "wizards/ControlRows.h"
#include "wizards/Wizard.h"

using namespace klt;

namespace {

// A wizard of its own, with everything that a shape can hold.
constexpr auto kSteps = std::to_array<std::string_view>({"One", "Two"});
constexpr auto kControls = std::to_array<ControlRow>({
    field("f", "Name", "Name:", "name("),
    field("f", "Cost", "Cost:", "cost("),
    tagField("f", "Notes", "notes("),
    tagField("f", "Cat", "cat("),
    tagField("f", "Upto", "upto("),
    option("f", "RoundUp", "Up"),
    option("f", "RoundNo", "No"),
    option("f", "RoundDown", "Down"),
    check("f", "Shown", "Shown"),
    {.frame = "f", .name = "Kind", .kind = ControlKind::FixedCombo, .items = kSteps},
});
constexpr Choice kRound[] = {{"Up", "RoundUp"}, {"No", "RoundNo"}, {"", "RoundDown"}};
constexpr Choice kShown[] = {{"No", "Shown", kOff}, {"", "Shown"}};
constexpr Choice kKind[] = {{"1", "Kind", 0}, {"2", "Kind", 1}};
constexpr TagRow kWritten[] = {{"upto(", "Upto"},    {"notes(", "Notes"},      {"cat(", "Cat"},
                               {"kind(", {}, kKind}, {"display(", {}, kShown}, {"round(", {}, kRound}};
constexpr TagRow kLoaded[] = {{"notes(", "Notes"},
                              {"cat(", "Cat"},
                              {"kind(", {}, kKind},
                              {"display(", {}, kShown},
                              {"round(", {}, kRound}};
constexpr ItemShape kShape = {
    .heads = "Name Cost", .written = kWritten, .loaded = kLoaded, .nameField = "Name", .secondField = "Cost"};
constexpr FrameRow kFrames[] = {{"f", "Notes"}};
constexpr Effect kEffects[] = {{"Kind", kAnyState, Act::SetCaption, "f", "Notes"},
                               {"Kind", 1, Act::SetCaption, "f", "Notes (Required)"},
                               {"Shown", kOff, Act::HideFrame, "f"},
                               {"Shown", kOn, Act::ShowFrame, "f"}};
constexpr CheckRule kRules[] = {{"Notes", "No notes!", kEveryMode, isCaption("f", "Notes (Required)")},
                                {"Cat", kInvalidEntry, kEdit, isFrameShown("f")},
                                {"RoundUp RoundNo", "No rounding!", kEveryMode, {}, "RoundNo"}};
constexpr WizardTable kTable = {.form = "frm",
                                .frames = kFrames,
                                .controls = kControls,
                                .effects = kEffects,
                                .rules = kRules,
                                .line = kShape};

TEST(ItemLine, LoadsByItsTags) {
    const struct {
        const char *name, *line, *head, *cost, *notes, *cat;
    } rows[] = {
        {"all", "N, 5, notes(a, b), cat(c)", "N", "5", "a, b", "c"},
        {"in any order and case", "N, 5, CAT(c), Notes(a (b))", "N", "5", "a (b)", "c"},
        {"the name alone", "N", "N", "old", "old", "old"},
        {"a comma in the name", "N (a, b)", "N (a", "b)", "old", "old"},
        {"two of them", "N, a,  5 , cat(c)", "N, a", "5", "old", "c"},
        {"the head is not trimmed, the second is", " N , 5 ", " N ", "5", "old", "old"},
        {"a tag in a value takes its end", "N, 5, notes(a b cat(c) d)", "N", "5", "a", "c) d"},
        {"in a longer word", "N, 5, scat(x)", "N, 5", "", "old", "x"},
        {"two characters in front go, whatever they are", "N, 5ücat(x)", "N", "", "old", "x"},
        {"nothing in front", "cat(x)", "", "old", "old", "x"},
        {"one character in front", " cat(x)", "", "old", "old", "x"},
        {"the last character is no matter", "N, 5, cat(x]y \t", "N", "5", "old", "x]"},
        {"a whole character", "N, 5, cat(x\u00fc", "N", "5", "old", "x"},
        {"nothing behind the tag", "N, 5, cat(", "N", "5", "old", ""},
        {"one tag glued to another", "N, notes(cat(x", "N", "old", "", ""},
        {"blanks and tabs", "N,\t\t5,   cat(x\ty)", "N, 5", "", "old", "x y"},
        {"a tag that is not known", "N, 5, notes(a), upto(3)", "N", "5", "a), upto(3", "old"},
        {"nothing", "", "", "old", "old", "old"},
    };
    for (const auto& row : rows) {
        WizardState state(kTable);
        for (const char* name : {"Cost", "Notes", "Cat"}) state.setText(name, "old");
        LoadLineIntoWizard(kShape, row.line, state);
        EXPECT_EQ(state.text("Name"), row.head) << row.name;
        EXPECT_EQ(state.text("Cost"), row.cost) << row.name;
        EXPECT_EQ(state.text("Notes"), row.notes) << row.name;
        EXPECT_EQ(state.text("Cat"), row.cat) << row.name;
    }
}

TEST(ItemLine, MapsChoicesBothWays) {
    const struct {
        const char *line, *written;
    } rows[] = {
        {"N, 5, round( UP ), display(no), kind(2)", "N, 5, kind(2), display(No), round(Up)"},
        {"N, 5, round(No), display(Yes)", "N, 5, round(No)"},
        {"N, 5, round(x), display(x), kind(3)", "N, 5"},
        {"N, 5, cat( )", "N, 5, cat( ), display(No)"},
    };
    for (const auto& row : rows) {
        WizardState state(kTable);
        LoadLineIntoWizard(kShape, row.line, state);
        EXPECT_EQ(itemText(kShape, state), row.written);
    }
}

TEST(Wizard, AsksItsConditions) {
    Wizard wizard(kTable, {.mode = OpeningMode::Edit});
    wizard.click("Kind", 1);
    EXPECT_EQ(wizard.check(), (Complaint{"No notes!", "Notes"}));
    wizard.click("Kind", 0);
    EXPECT_EQ(wizard.check(), (Complaint{kInvalidEntry, "Cat"}));
    wizard.click("Shown", kOff);
    EXPECT_EQ(wizard.check(), (Complaint{"No rounding!", "RoundNo"}));
    wizard.click("RoundNo", kOn);
    EXPECT_EQ(wizard.check(), std::nullopt);
    wizard.click("Shown", kOn);
    EXPECT_EQ(wizard.check(), (Complaint{kInvalidEntry, "Cat"}));
}

}  // namespace
