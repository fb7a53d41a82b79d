// From fields to a line in a document, and from there back to the fields.

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>

#include "language/EditedLine.h"
#include "language/LogicalLine.h"
#include "language/Section.h"
#include "support/MemoryTextArea.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

constexpr const char* kFields[] = {"rtbItemName", "rtbItemCost",  "rtbItemGives",
                                   "rtbItemMods", "rtbItemNeeds", "rtbItemNotes",
                                   "rtbItemPage", "rtbItemUpto",  "rtbItemCat"};
using Fields = std::vector<std::string>;

Fields fieldsOf(const Wizard& wizard) {
    Fields fields;
    for (const char* name : kFields) fields.push_back(wizard.state.text(name));
    return fields;
}

/// The wizard that Edit Line opens at `place`, as an item must stand there.
std::unique_ptr<Wizard> edited(MemoryTextArea& document, Position place) {
    document.SetSelStart(place);
    const auto found = EditLine(document);
    return wizardOfItem(
        document, [&document] { return &document; }, found);
}

/// Writes the fields as a new disadvantage, breaks it, and gives back what Edit Line finds.
std::unique_ptr<Wizard> thereAndBack(MemoryTextArea& document, const Fields& fields, LineBreakLimits limits) {
    document.SetText(
        "Version=2\r\n[ADS]\r\n<A>\r\nx, 1\r\n[DISADS]\r\n<A>\r\ny, 1\r\n<B>\r\nz, 1\r\n[MODS]\r\n");
    Wizard wizard(kAdWizard, {.target = [&document] { return &document; }});
    wizard.fillCombos(document.Text());
    wizard.click("optDisadType", kOn);
    wizard.click("cmbDisadCat", 1);
    for (size_t i = 0; i < std::size(kFields); ++i) wizard.state.setText(kFields[i], fields[i]);
    EXPECT_EQ(wizard.finish(limits).kind, DoneResult::Kind::StaysOpen);
    return edited(document, static_cast<Position>(document.Text().rfind("<B>") + 5));
}

TEST(RoundTrip, FieldsComeBack) {
    std::mt19937 random(1);
    const auto below = [&random](size_t count) { return random() % count; };
    const char* words[] = {"a",     "Sea Legs", "(x, y)",    "|",   "_",     "<3>", "[z]",
                           "\"q\"", "+1",       "gr\u00fcn", "b,c", "{d}",   "*2",  "/e",
                           "@F(",   ")",        "@INT(4)",   "To",  "Upto 4"};
    const auto value = [&] {
        std::string text;
        for (auto left = below(12); left > 0; --left)
            text += (text.empty() ? "" : " ") + std::string(words[below(std::size(words))]);
        return text;
    };
    for (int run = 0; run < 2'000; ++run) {
        Fields fields;
        for (size_t i = 0; i < std::size(kFields); ++i) fields.push_back(below(3) == 0 ? "" : value());
        fields[0] = "N" + fields[0];
        fields[1] = std::to_string(below(99)) + "/-5";
        const LineBreakLimits limits{.maximum = static_cast<int>(below(3) * 40), .tolerance = 10};

        MemoryTextArea document;
        const auto wizard = thereAndBack(document, fields, limits);
        ASSERT_NE(wizard, nullptr);
        ASSERT_EQ(fieldsOf(*wizard), fields) << document.Text();
        EXPECT_EQ(wizard->state.control("cmbDisadCat").state, 1);
        const std::string before(document.Text());
        EXPECT_EQ(wizard->finish(limits).kind, DoneResult::Kind::Closes);
        ASSERT_EQ(document.Text(), before) << "it is broken at the same places again";
    }
}

TEST(RoundTrip, WhatDoesNotComeBack) {
    const struct {
        const char* name;
        Fields in;
        Fields out;
    } rows[] = {
        {"blanks and tabs in a row are one blank",
         {"N  a", "5", "", "", "", "b\t c"},
         {"N a", "5", "", "", "", "b c"}},
        {"a tag in a value is read as a tag",
         {"N", "5", "", "", "", "a b cat(c) d"},
         {"N", "5", "", "", "", "a", "", "", "c) d"}},
        {"blanks around the cost go", {"N", " 5 "}, {"N", "5"}},
        {"a comma in the cost parts it", {"N", "5, 6"}, {"N, 5", "6"}},
        {"what stands behind a // is a comment", {"N // a", "5"}, {"N", ""}},
    };
    for (const auto& row : rows) {
        auto in = row.in, out = row.out;
        in.resize(std::size(kFields));
        out.resize(std::size(kFields));
        MemoryTextArea document;
        EXPECT_EQ(fieldsOf(*thereAndBack(document, in, {})), out) << row.name;
    }
}

/// The places where the items of the wizard's sections begin.
std::vector<Position> itemPlaces(std::string_view text) {
    std::vector<Position> places;
    Section section = Section::Other;
    for (size_t start = 0; start < text.size();) {
        const auto line = text.substr(start, lineEnd(text, start) - start);
        const auto kind = classifyLine(line, section);
        if (kind == LineKind::SectionHeader) section = sectionOf(line);
        const bool isOurs = section == Section::Ads || section == Section::Disads ||
                            section == Section::Powers || section == Section::Quirks;
        const auto place = static_cast<Position>(start);
        start += line.size() + 2;
        if (kind != LineKind::Item || !isOurs) continue;
        places.push_back(place);
        start = static_cast<size_t>(GetLogicalLine(text, place).range.end);
    }
    return places;
}

TEST(RoundTrip, EveryItemOfAFileStaysAsItIs) {
    std::ifstream file(KLT_TEST_DATA "/golden/harbor.klt", std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    const MemoryTextArea original(bytes.str());
    const auto places = itemPlaces(original.Text());
    EXPECT_EQ(places.size(), 30U);
    for (const Position place : places) {
        MemoryTextArea document(original.Text());
        const auto wizard = edited(document, place);
        ASSERT_NE(wizard, nullptr);
        const ControlState& combo = wizard->state.control(wizard->place()->combo);
        EXPECT_GE(combo.state, 0) << wizard->state.text("rtbItemName");
        const auto before = GetLogicalLine(original.Text(), place);
        EXPECT_EQ(wizard->finish({.maximum = 80, .tolerance = 10}).kind, DoneResult::Kind::Closes);

        const auto after = GetLogicalLine(document.Text(), place);
        EXPECT_EQ(joinItemLine(after.text), joinItemLine(before.text));
        EXPECT_EQ(document.Slice(0, place), original.Slice(0, place));
        EXPECT_EQ(document.Slice(after.range.end, document.Length()),
                  original.Slice(before.range.end, original.Length()));
    }
}

}  // namespace
