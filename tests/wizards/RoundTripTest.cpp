// From fields to a line in a document, and from there back to the fields.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <random>
#include <sstream>

#include "language/EditedLine.h"
#include "language/LogicalLine.h"
#include "language/Section.h"
#include "support/MemoryTextArea.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

/// What a wizard's line comes from, by the names of the controls: texts, and marks as "on" and "off".
using Fields = std::map<std::string, std::string>;

struct Kind {
    const WizardTable& table;
    /// Where its lines go, and what is clicked for it.
    PlaceRow place;
};

const Kind kKinds[] = {{kAdWizard, kAdWizard.places[1]},
                       {kSkillWizard, kSkillWizard.places[0]},
                       {kSpellWizard, kSpellWizard.places[0]},
                       {kStatWizard, kStatWizard.places[0]},
                       {kModWizard, kModWizard.places[0]}};

bool isText(const ControlRow& row) {
    return row.kind == ControlKind::TextField || row.kind == ControlKind::AutoCombo ||
           row.kind == ControlKind::FixedCombo;
}
bool isMark(const Kind& kind, const ControlRow& row) {
    return (row.kind == ControlKind::Option || row.kind == ControlKind::Check) && kind.place.option.empty();
}

Fields fieldsOf(const Kind& kind, const Wizard& wizard) {
    Fields fields;
    for (const ControlRow& row : kind.table.controls) {
        const auto& control = wizard.state.control(row.name);
        if (isText(row) && !control.text.empty()) fields.emplace(row.name, control.text);
        if (isMark(kind, row)) fields.emplace(row.name, control.state == kOn ? "on" : "off");
    }
    return fields;
}

/// The wizard that Edit Line opens at `place`; null where none edits what stands there.
std::unique_ptr<Wizard> edited(MemoryTextArea& document, Position place) {
    document.SetSelStart(place);
    const auto found = EditLine(document);
    return wizardOfItem(
        document, [&document] { return &document; }, found);
}

/// Writes the fields as a new line, breaks it, and gives back what Edit Line finds.
std::unique_ptr<Wizard> thereAndBack(const Kind& kind, MemoryTextArea& document, const Fields& fields,
                                     LineBreakLimits limits) {
    const bool hasSubsections = !kind.place.combo.empty();
    const std::string head = hasSubsections ? "\r\n<A>\r\ny, 1\r\n<B>\r\nz, 1\r\n" : "\r\nz, 1\r\n";
    document.SetText("Version=2\r\n[BONUS]\r\n<A>\r\nx, 1\r\n" + std::string(kind.place.section) + head +
                     "[GROUPS]\r\n");
    const auto wizard = makeWizard(kind.table, {.target = [&document] { return &document; }});
    wizard->fillCombos(document.Text());
    wizard->SelectSubsection(kind.place, "B");
    for (const auto& [name, value] : fields) {
        if (value == "on" || value == "off") {
            wizard->click(name, value == "on" ? kOn : kOff);
        } else {
            wizard->state.setText(name, value);
        }
    }
    EXPECT_EQ(wizard->finish(limits).kind, DoneResult::Kind::StaysOpen);
    const auto heading = hasSubsections ? std::string("<B>") : std::string(kind.place.section);
    const auto line = document.Text().rfind(heading) + heading.size() + 2;
    return edited(document, static_cast<Position>(line));
}

class Random {
public:
    size_t below(size_t count) { return random_() % count; }
    std::string value() {
        constexpr const char* kWords[] = {"a",     "Sea Legs", "(x, y)",    "|",   "_",     "<3>", "[z]",
                                          "\"q\"", "+1",       "gr\u00fcn", "b,c", "{d}",   "*2",  "/e",
                                          "@F(",   ")",        "@INT(4)",   "To",  "Upto 4"};
        std::string text;
        for (auto left = below(12); left > 0; --left)
            text += (text.empty() ? "" : " ") + std::string(kWords[below(std::size(kWords))]);
        return text;
    }
    Fields fields(const Kind& kind) {
        Fields fields;
        bool isOptionOn = false;
        for (const ControlRow& row : kind.table.controls) {
            if (row.kind == ControlKind::FixedCombo) {
                fields[std::string(row.name)] = row.items[below(row.items.size())];
            } else if (isText(row) && below(3) > 0) {
                fields[std::string(row.name)] = value();
            } else if (row.kind == ControlKind::Option && isMark(kind, row) && !isOptionOn && below(2) == 0) {
                fields[std::string(row.name)] = "on";
                isOptionOn = true;
            } else if (row.kind == ControlKind::Check && below(2) == 0) {
                fields[std::string(row.name)] = "off";
            }
        }
        fields[std::string(kind.table.line.nameField)] = "N" + value();
        const std::string second(kind.table.line.secondField);
        if (second == "rtbItemCost" || second == "ModValue")
            fields[second] = std::to_string(below(99)) + "/-5";
        // A limit of a spell is not read back.
        if (&kind.table == &kSpellWizard) fields.erase("ItemUpto");
        std::erase_if(fields, [](const auto& field) { return field.second.empty(); });
        return fields;
    }

private:
    std::mt19937 random_{1};
};

TEST(RoundTrip, FieldsComeBack) {
    Random random;
    for (const Kind& kind : kKinds) {
        for (int run = 0; run < 1'000; ++run) {
            const auto fields = random.fields(kind);
            const LineBreakLimits limits{.maximum = static_cast<int>(random.below(3) * 40), .tolerance = 10};
            MemoryTextArea document;
            const auto wizard = thereAndBack(kind, document, fields, limits);
            ASSERT_NE(wizard, nullptr);
            const auto back = fieldsOf(kind, *wizard);
            for (const auto& [name, value] : fields) {
                ASSERT_EQ(back.count(name), 1U) << name << ": " << document.Text();
                ASSERT_EQ(back.at(name), value) << document.Text();
            }
            if (!kind.place.combo.empty()) {
                EXPECT_EQ(wizard->state.control(kind.place.combo).state, 1);
            }
            EXPECT_EQ(wizard->loss(), "");
            const std::string before(document.Text());
            EXPECT_EQ(wizard->finish(limits).kind, DoneResult::Kind::Closes);
            ASSERT_EQ(document.Text(), before) << "it is broken at the same places again";
        }
    }
}

TEST(RoundTrip, WhatDoesNotComeBack) {
    const Kind& ad = kKinds[0];
    const Kind& skill = kKinds[1];
    const Kind& spell = kKinds[2];
    const Kind& stat = kKinds[3];
    const struct {
        const char* name;
        const Kind& kind;
        Fields in, out;
    } rows[] = {
        {"blanks and tabs in a row are one blank",
         ad,
         {{"rtbItemName", "N  a"}, {"rtbItemCost", "5"}, {"rtbItemNotes", "b\t c"}},
         {{"rtbItemName", "N a"}, {"rtbItemCost", "5"}, {"rtbItemNotes", "b c"}}},
        {"a tag in a value is read as a tag",
         ad,
         {{"rtbItemName", "N"}, {"rtbItemCost", "5"}, {"rtbItemNotes", "a b cat(c) d"}},
         {{"rtbItemName", "N"}, {"rtbItemCost", "5"}, {"rtbItemNotes", "a"}, {"rtbItemCat", "c) d"}}},
        {"also in a longer word",
         stat,
         {{"StatName", "N"}, {"StatSymbol", "a setup(b)"}},
         {{"StatName", "N"}, {"StatSymbol", "a "}, {"StatUpCost", "b)"}}},
        {"blanks around the second field go",
         skill,
         {{"rtbItemName", "N"}, {"cmbItemType", " M/A "}},
         {{"rtbItemName", "N"}, {"cmbItemType", "M/A"}}},
        {"a comma in it parts it",
         ad,
         {{"rtbItemName", "N"}, {"rtbItemCost", "5, 6"}},
         {{"rtbItemName", "N, 5"}, {"rtbItemCost", "6"}}},
        {"what stands behind a // is a comment",
         ad,
         {{"rtbItemName", "N // a"}, {"rtbItemCost", "5"}},
         {{"rtbItemName", "N"}}},
        {"the limit of a spell stays in the tag in front of it",
         spell,
         {{"SpellName", "N"}, {"SpellTime", "2"}, {"ItemUpto", "5"}},
         {{"SpellName", "N"}, {"SpellTime", "2), upto(5"}}},
        {"and in its name without one",
         spell,
         {{"SpellName", "N"}, {"ItemUpto", "5"}},
         {{"SpellName", "N, upto(5)"}}},
    };
    for (const auto& row : rows) {
        MemoryTextArea document;
        auto back = fieldsOf(row.kind, *thereAndBack(row.kind, document, row.in, {}));
        std::erase_if(back, [](const auto& field) { return field.second == "on" || field.second == "off"; });
        EXPECT_EQ(back, row.out) << row.name;
    }
}

/// The places where the items begin that a wizard edits.
std::vector<Position> itemPlaces(std::string_view text) {
    std::vector<Position> places;
    Section section = Section::Other;
    for (size_t start = 0; start < text.size();) {
        const auto line = text.substr(start, lineEnd(text, start) - start);
        const auto kind = classifyLine(line, section);
        if (kind == LineKind::SectionHeader) section = sectionOf(line);
        const auto place = static_cast<Position>(start);
        start += line.size() + 2;
        const PlaceRow* const row = wizardOfSection(section).place;
        if (kind != LineKind::Item || row == nullptr || row->step != ItemStep::SingleLine) continue;
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
    EXPECT_EQ(places.size(), 75U);
    for (const Position place : places) {
        MemoryTextArea document(original.Text());
        const auto wizard = edited(document, place);
        ASSERT_NE(wizard, nullptr);
        const auto before = GetLogicalLine(original.Text(), place);
        EXPECT_EQ(wizard->loss(), "");
        const auto combo = wizard->place()->combo;
        EXPECT_TRUE(combo.empty() || wizard->state.control(combo).state >= 0) << before.text;
        EXPECT_EQ(wizard->finish({.maximum = 80, .tolerance = 10}).kind, DoneResult::Kind::Closes);

        const auto after = GetLogicalLine(document.Text(), place);
        EXPECT_EQ(joinItemLine(after.text), joinItemLine(before.text));
        EXPECT_EQ(document.Slice(0, place), original.Slice(0, place));
        EXPECT_EQ(document.Slice(after.range.end, document.Length()),
                  original.Slice(before.range.end, original.Length()));
    }
}

}  // namespace
