// From fields to a line in a document, and from there back to the fields.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>

#include "support/MemoryTextArea.h"
#include "support/WizardSteps.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

/// What a wizard's line comes from, by the names of the controls: texts, and marks as "on" and "off".
using Fields = std::map<std::string, std::string>;

const WizardTable* const kTables[] = {&kAdWizard, &kSkillWizard, &kSpellWizard, &kStatWizard, &kModWizard};

/// Where its lines go, and what is clicked for it.
const PlaceRow& placeOf(const WizardTable& table) {
    return table.places[table.places.size() > 1 ? 1 : 0];
}

bool isText(const ControlRow& row) {
    return row.kind == ControlKind::TextField || row.kind == ControlKind::AutoCombo ||
           row.kind == ControlKind::FixedCombo;
}
bool isMark(const WizardTable& table, const ControlRow& row) {
    return (row.kind == ControlKind::Option || row.kind == ControlKind::Check) &&
           placeOf(table).option.empty();
}

Fields fieldsOf(const Wizard& wizard) {
    Fields fields;
    for (const ControlRow& row : wizard.table().controls) {
        const auto& control = wizard.state.control(row.name);
        if (isText(row) && !control.text.empty()) fields.emplace(row.name, control.text);
        if (isMark(wizard.table(), row)) fields.emplace(row.name, control.state == kOn ? "on" : "off");
    }
    return fields;
}

/// Fills the fields, writes them as a new line, breaks it, and gives back what Edit Line finds.
std::unique_ptr<Wizard> thereAndBack(const WizardTable& table, MemoryTextArea& document,
                                     const std::function<void(Wizard&)>& fill, LineBreakLimits limits = {}) {
    const PlaceRow& place = placeOf(table);
    const bool hasSubsections = !place.combo.empty();
    const std::string head = hasSubsections ? "\r\n<A>\r\ny, 1\r\n<B>\r\nz, 1\r\n" : "\r\nz, 1\r\n";
    document.SetText("Version=2\r\n[BONUS]\r\n<A>\r\nx, 1\r\n" + std::string(place.section) + head +
                     "[GROUPS]\r\n");
    const auto wizard = openWizard(table, document);
    wizard->fillCombos(document.Text());
    wizard->SelectSubsection(place, "B");
    fill(*wizard);
    EXPECT_EQ(wizard->finish(limits).kind, DoneResult::Kind::StaysOpen);
    const std::string_view heading = hasSubsections ? "<B>" : place.section;
    return edited(document, static_cast<Position>(document.Text().rfind(heading) + heading.size() + 2));
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
    Fields fields(const WizardTable& table) {
        Fields fields;
        bool isOptionOn = false;
        for (const ControlRow& row : table.controls) {
            auto& field = fields[std::string(row.name)];
            if (row.kind == ControlKind::FixedCombo) {
                field = row.items[below(row.items.size())];
            } else if (isText(row) && below(3) > 0) {
                field = value();
            } else if (row.kind == ControlKind::Option && !isOptionOn && isMark(table, row) &&
                       below(2) == 0) {
                field = "on";
                isOptionOn = true;
            } else if (row.kind == ControlKind::Check && below(2) == 0) {
                field = "off";
            }
        }
        fields[std::string(table.line.nameField)] = "N" + value();
        const std::string second(table.line.secondField);
        if (second == "rtbItemCost" || second == "ModValue")
            fields[second] = std::to_string(below(99)) + "/-5";
        // A limit of a spell is not read back.
        if (&table == &kSpellWizard) fields.erase("ItemUpto");
        std::erase_if(fields, [](const auto& field) { return field.second.empty(); });
        return fields;
    }

private:
    std::mt19937 random_{1};
};

TEST(RoundTrip, FieldsComeBack) {
    Random random;
    for (const WizardTable* table : kTables) {
        for (int run = 0; run < 1'000; ++run) {
            const auto fields = random.fields(*table);
            const LineBreakLimits limits{.maximum = static_cast<int>(random.below(3) * 40), .tolerance = 10};
            MemoryTextArea document;
            const auto fill = [&fields](Wizard& wizard) {
                for (const auto& [name, value] : fields)
                    work(wizard, name + (value == "on" ? "#1" : value == "off" ? "#0" : '=' + value));
            };
            const auto wizard = thereAndBack(*table, document, fill, limits);
            ASSERT_NE(wizard, nullptr);
            const auto back = fieldsOf(*wizard);
            ASSERT_TRUE(std::ranges::includes(back, fields)) << document.Text();
            const auto combo = placeOf(*table).combo;
            EXPECT_TRUE(combo.empty() || wizard->state.control(combo).state == 1);
            EXPECT_EQ(wizard->loss(), "");
            const std::string before(document.Text());
            EXPECT_EQ(wizard->finish(limits).kind, DoneResult::Kind::Closes);
            ASSERT_EQ(document.Text(), before) << "it is broken at the same places again";
            document.SetText("[ADS]");
            EXPECT_EQ(wizard->finish(limits), (DoneResult{DoneResult::Kind::Refused, {kTextHasChanged}}));
            EXPECT_EQ(document.Text(), "[ADS]");
        }
    }
}

TEST(RoundTrip, WhatDoesNotComeBack) {
    const std::tuple<const char*, const WizardTable&, const char*, const char*> rows[] = {
        {"blanks and tabs in a row are one blank", kAdWizard,
         "rtbItemName=N  a; rtbItemCost=5; rtbItemNotes=b\t c",
         "rtbItemCost=5; rtbItemName=N a; rtbItemNotes=b c; "},
        {"a tag in a value is read as a tag", kAdWizard,
         "rtbItemName=N; rtbItemCost=5; rtbItemNotes=a b cat(c) d",
         "rtbItemCat=c) d; rtbItemCost=5; rtbItemName=N; rtbItemNotes=a; "},
        {"also in a longer word", kStatWizard, "StatName=N; StatSymbol=a setup(b)",
         "StatName=N; StatSymbol=a ; StatUpCost=b); "},
        {"blanks around the second field go", kSkillWizard, "rtbItemName=N; cmbItemType= M/A ",
         "cmbItemType=M/A; rtbItemName=N; "},
        {"a comma in it parts it", kAdWizard, "rtbItemName=N; rtbItemCost=5, 6",
         "rtbItemCost=6; rtbItemName=N, 5; "},
        {"what stands behind a // is a comment", kAdWizard, "rtbItemName=N // a; rtbItemCost=5",
         "rtbItemName=N; "},
        {"the limit of a spell stays in the tag in front of it", kSpellWizard,
         "SpellName=N; SpellTime=2; ItemUpto=5", "SpellName=N; SpellTime=2), upto(5; "},
        {"and in its name without one", kSpellWizard, "SpellName=N; ItemUpto=5", "SpellName=N, upto(5); "},
    };
    for (const auto& [name, table, in, out] : rows) {
        MemoryTextArea document;
        std::string back;
        for (const auto& [field, value] :
             fieldsOf(*thereAndBack(table, document, [&](Wizard& wizard) { work(wizard, in); })))
            if (value != "on" && value != "off") back += field + '=' + value + "; ";
        EXPECT_EQ(back, out) << name;
    }
}

}  // namespace
