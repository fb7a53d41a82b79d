#include "wizards/ItemLine.h"

#include <gtest/gtest.h>

#include "wizards/Wizards.h"

using namespace klt;

namespace {

TEST(ItemLine, LoadsByItsTags) {
    // The name, the cost, the notes and the category that are read.
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"all", "N, 5, notes(a, b), cat(c)", "N|5|a, b|c|"},
        {"in any order and case", "N, 5, CAT(c), Notes(a (b))", "N|5|a (b)|c|"},
        {"the name alone", "N", "N|old|old|old|"},
        {"a comma in the name", "N (a, b)", "N (a|b)|old|old|"},
        {"two of them", "N, a,  5 , cat(c)", "N, a|5|old|c|"},
        {"the head is not trimmed, the second is", " N , 5 ", " N |5|old|old|"},
        {"a tag in a value takes its end", "N, 5, notes(a b cat(c) d)", "N|5|a|c) d|"},
        {"in a longer word", "N, 5, scat(x)", "N, 5||old|x|"},
        {"two characters in front go, whatever they are", "N, 5ücat(x)", "N||old|x|"},
        {"nothing in front", "cat(x)", "|old|old|x|"},
        {"one character in front", " cat(x)", "|old|old|x|"},
        {"the last character is no matter", "N, 5, cat(x]y \t", "N|5|old|x]|"},
        {"a whole character", "N, 5, cat(x\u00fc", "N|5|old|x|"},
        {"nothing behind the tag", "N, 5, cat(", "N|5|old||"},
        {"one tag glued to another", "N, notes(cat(x", "N|old|||"},
        {"blanks and tabs", "N,\t\t5,   cat(x\ty)", "N, 5||old|x y|"},
        {"a tag that is not known", "N, 5, notes(a), step(3)", "N|5|a), step(3|old|"},
        {"nothing", "", "|old|old|old|"},
    };
    for (const auto& [name, line, expected] : rows) {
        WizardState state(kAdWizard);
        for (const char* field : {"rtbItemCost", "rtbItemNotes", "rtbItemCat"}) state.setText(field, "old");
        LoadLineIntoWizard(kAdWizard.line, line, state);
        std::string read;
        for (const char* field : {"rtbItemName", "rtbItemCost", "rtbItemNotes", "rtbItemCat"})
            read += state.text(field) + '|';
        EXPECT_EQ(read, expected) << name;
    }
}

TEST(ItemLine, MapsChoicesBothWays) {
    const std::pair<const char*, const char*> rows[] = {
        {"N, round( UP ), display(no)", "N, display(No), round(Up)"},
        {"N, round(No), display(Yes)", "N, round(No)"},
        {"N, round(x), display(x)", "N"},
        {"N, step( ), doubleinplay(NO)", "N, step( ), doubleinplay(No)"},
    };
    for (const auto& [line, written] : rows) {
        const auto wizard = makeWizard(kStatWizard, {});
        wizard->load(line);
        EXPECT_EQ(wizard->text(), written);
    }
}

}  // namespace
