// The wizards of skills, spells, stats and modifiers: what their tables make of fields.

#include <gtest/gtest.h>

#include "support/MemoryTextArea.h"
#include "wizards/LineLoss.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

struct Field {
    const char* name;
    const char* text;
};

std::unique_ptr<Wizard> open(const WizardTable& table, MemoryTextArea& area,
                             OpeningMode mode = OpeningMode::Insert, bool isHostOld = false) {
    return makeWizard(table, {.mode = mode, .target = [&area] { return &area; }, .isHostOld = isHostOld});
}

void fill(Wizard& wizard, const std::vector<Field>& fields) {
    for (const auto& [name, text] : fields) wizard.state.setText(name, text);
}

TEST(ItemWizards, WriteTheirFieldsInTheirOrder) {
    const struct {
        const WizardTable& table;
        std::vector<Field> fields;
        std::vector<const char*> clicks;
        const char* written;
        /// What still holds a text afterwards.
        std::vector<std::string> kept;
    } rows[] = {
        {kSkillWizard,
         {{"rtbItemName", "N"},
          {"cmbItemType", "M/A"},
          {"rtbItemCat", "C"},
          {"rtbItemUpto", "U"},
          {"cmbItemStat", "own"},
          {"rtbItemPage", "P"},
          {"rtbItemNotes", "O"},
          {"rtbItemNeeds", "E"},
          {"rtbItemMods", "M"},
          {"rtbItemGives", "G"},
          {"rtbItemDefault", "D"},
          {"cmbItemClass", "K"}},
         {},
         "[Skills]\r\n\r\n\r\n<K>\r\nN, M/A, default(D), gives(G), mods(M), needs(E), notes(O), page(P), "
         "stat(own), upto(U), cat(C)\r\n",
         {"cmbItemClass", "rtbItemCat"}},
        {kSpellWizard,
         {{"SpellName", "N"},
          {"SpellType", "T"},
          {"SpellDuration", "D"},
          {"CastingCost", "C"},
          {"SpellPrereq", "E"},
          {"SpellNotes", "O"},
          {"SpellPage", "P"},
          {"SpellTime", "S"},
          {"ItemUpto", "U"},
          {"ItemCat", "A"},
          {"SpellCollege", "K"}},
         {},
         "[Spells]\r\n\r\n\r\n<K>\r\nN, type(T), duration(D), castingcost(C), needs(E), notes(O), page(P), "
         "time(S), upto(U), cat(A)\r\n",
         {"SpellCollege", "ItemCat"}},
        {kSpellWizard,
         {{"SpellName", "N"}, {"SpellCollege", "K"}},
         {},
         "[Spells]\r\n\r\n\r\n<K>\r\nN\r\n",
         {"SpellCollege"}},
        {kStatWizard, {{"StatName", "N"}}, {}, "[Stats]\r\n\r\n\r\nN", {}},
        {kStatWizard,
         {{"StatName", "N"},
          {"StatBaseValue", "B"},
          {"StatStep", "S"},
          {"StatMaxScore", "X"},
          {"StatMinScore", "M"},
          {"StatUpCost", "U"},
          {"StatDownCost", "D"},
          {"StatSymbol", "Y"}},
         {"DoubleInPlay", "DisplayStat", "StatRoundNo"},
         "[Stats]\r\n\r\n\r\nN, basevalue(B), step(S), maxscore(X), minscore(M), up(U), down(D), symbol(Y), "
         "doubleinplay(No), display(No), round(No)",
         {}},
        {kStatWizard, {{"StatName", "N"}}, {"StatRoundUp"}, "[Stats]\r\n\r\n\r\nN, round(Up)", {}},
        {kModWizard,
         {{"ModName", "N"}, {"ModValue", "-10%"}, {"ItemUpto", "U"}, {"ItemGives", "G"}, {"ModGroup", "K"}},
         {"RoundUp"},
         "[Mods]\r\n\r\n\r\n<K>\r\nN, -10%, upto(U), round(Up), gives(G)\r\n",
         {"ModGroup"}},
    };
    for (const auto& row : rows) {
        MemoryTextArea document;
        const auto wizard = open(row.table, document);
        fill(*wizard, row.fields);
        for (const char* name : row.clicks)
            wizard->click(name, wizard->state.control(name).state == kOn ? kOff : kOn);
        const auto result = wizard->finish({});
        EXPECT_EQ(result.kind, DoneResult::Kind::StaysOpen);
        EXPECT_EQ(result.focus, row.table.line.nameField);
        EXPECT_EQ(document.Text(), row.written);
        std::vector<std::string> kept;
        for (const ControlRow& control : row.table.controls)
            if (!wizard->state.text(control.name).empty()) kept.emplace_back(control.name);
        EXPECT_EQ(kept, row.kept);
        // Marks are again what they were at first.
        const auto fresh = open(row.table, document);
        for (const ControlRow& control : row.table.controls)
            EXPECT_EQ(wizard->state.control(control.name).state, fresh->state.control(control.name).state)
                << control.name;
    }
}

TEST(ItemWizards, AskForWhatIsRequired) {
    const struct {
        const WizardTable& table;
        OpeningMode mode;
        /// The field that is asked for, and what is told; each is filled before the next.
        std::vector<std::pair<const char*, const char*>> asked;
    } rows[] = {
        {kSkillWizard,
         OpeningMode::Insert,
         {{"rtbItemName", "Invalid Entry!"},
          {"cmbItemType", "Invalid Entry!"},
          {"cmbItemClass", "Invalid Entry!"}}},
        {kSkillWizard,
         OpeningMode::Package,
         {{"rtbItemName", "Invalid Entry!"}, {"cmbItemType", "Invalid Entry!"}}},
        {kSpellWizard,
         OpeningMode::Insert,
         {{"SpellName", "Invalid Entry!"}, {"SpellCollege", "Invalid Entry!"}}},
        {kStatWizard, OpeningMode::Insert, {{"StatName", "MUST enter a name!"}}},
        {kModWizard,
         OpeningMode::Insert,
         {{"ModGroup", "Invalid Entry!"}, {"ModName", "Invalid Entry!"}, {"ModValue", "Invalid Entry!"}}},
        {kModWizard, OpeningMode::Edit, {{"ModName", "Invalid Entry!"}, {"ModValue", "Invalid Entry!"}}},
    };
    for (const auto& row : rows) {
        MemoryTextArea area;
        const auto wizard = open(row.table, area, row.mode);
        for (const auto& [field, message] : row.asked) {
            EXPECT_EQ(wizard->check(), (Complaint{message, field}));
            wizard->state.setText(field, " ");
        }
        EXPECT_EQ(wizard->check(), std::nullopt);
    }
}

TEST(SkillWizard, RequiresADefaultByAClickedType) {
    MemoryTextArea document;
    const auto wizard = open(kSkillWizard, document);
    const auto caption = [&] { return wizard->state.frame("fraDefault").caption; };
    fill(*wizard, {{"rtbItemName", "N"}, {"cmbItemType", "MA/H"}, {"cmbItemClass", "K"}});
    EXPECT_EQ(wizard->check(), std::nullopt) << "a typed one does not";
    const auto types = wizard->state.control("cmbItemType").list;
    for (size_t i = 0; i < types.size(); ++i) {
        wizard->click("cmbItemType", static_cast<int>(i));
        const bool isRequired = types[i].starts_with("MA/");
        EXPECT_EQ(caption(), isRequired ? "Skill Default (Required)" : "Skill Default") << types[i];
        EXPECT_EQ(wizard->check().has_value(), isRequired);
    }
    wizard->click("cmbItemType", 8);
    fill(*wizard, {{"rtbItemDefault", "D"}});
    EXPECT_EQ(wizard->finish({}).kind, DoneResult::Kind::StaysOpen);
    EXPECT_EQ(caption(), "Skill Default") << "no type is chosen then";
    EXPECT_EQ(wizard->state.control("cmbItemType").state, -1);
}

TEST(SpellWizard, HasNoLimitForAnOldHost) {
    MemoryTextArea area;
    for (const auto mode : {OpeningMode::Insert, OpeningMode::Edit, OpeningMode::Package})
        for (const bool isHostOld : {false, true})
            EXPECT_EQ(open(kSpellWizard, area, mode, isHostOld)->state.frame("fraUpto").isEnabled,
                      !isHostOld || mode == OpeningMode::Package);
}

TEST(ModWizard, AppendsToAPackagesField) {
    MemoryTextArea field;
    for (const char* expected : {"N, 5", "N, 5 .AND. N, 5"}) {
        const auto wizard = open(kModWizard, field, OpeningMode::Package);
        fill(*wizard, {{"ModName", "N"}, {"ModValue", "5"}});
        field.SetSelStart(0);
        EXPECT_EQ(wizard->finish({.maximum = 3}).kind, DoneResult::Kind::Closes);
        EXPECT_EQ(field.Text(), expected);
    }
    MemoryTextArea document("[Mods]\r\n<A>\r\n");
    const auto wizard = open(kModWizard, document);
    fill(*wizard, {{"ModName", "A long name of a modifier"}, {"ModValue", "5"}, {"ModGroup", "A"}});
    wizard->finish({.maximum = 10, .tolerance = 5});
    EXPECT_EQ(document.Text(), "[Mods]\r\n<A>\r\nA long name of a modifier, 5\r\n") << "it is never broken";
}

TEST(LineLoss, TellsWhatTheFormDoesNotKeep) {
    const struct {
        const WizardTable& table;
        const char *line, *told;
    } rows[] = {
        {kSkillWizard, "Knife, P/E, page(1), default(DX-4)", ""},
        {kSkillWizard, "knife ,  p/e, Page( 1 )  ", ""},
        {kSkillWizard, "Knife, P/E, notes()", ""},
        {kSkillWizard, "Knife, 5, needs(ST 12",
         "This form does not keep: needs(ST 12. It writes: needs(ST 1)."},
        {kSkillWizard, "Knife, P/E; page(1)", "This form does not keep: Knife, P/E;. It writes: Knife, P/E."},
        {kSkillWizard, "Knife, P/E, notes(a cat(b) c)", "This form does not keep: notes(a."},
        {kSkillWizard, "Knife, P/E, page(1), notes(\"a (b\")", ""},
        {kSkillWizard,
         "Knife, P/E, needs(Anna Berta, Cäsar Dora, Emil Friedrich, Gustav Heinrich, Ida Julius, Kaufmann",
         "This form does not keep: needs(… Ida Julius, Kaufmann. It writes: needs(… Ida Julius, Kaufman)."},
        {kSkillWizard, "Knife, page(1)", ""},
        {kSpellWizard, "Fog, time(2), upto(4)", ""},
        {kStatWizard, "Tide, round(Down), display( yes ), DoubleInPlay(Yes), step(1)", ""},
        {kStatWizard, "Tide, round(U), display(Maybe)", "This form does not keep: round(U), display(Maybe)."},
        {kStatWizard, "Tide, round(Down) extra, display(No)", "This form does not keep: round(Down) extra."},
        {kStatWizard, "Tide, round(up), display(no)", ""},
        {kStatWizard, "Tide, gives(1)", ""},
        {kModWizard, "Sea, -10%, round(No), gives(1)", "This form does not keep: round(No)."},
        {kModWizard, "Sea, -10%, ROUND(down)", ""},
        {kModWizard, "Sea, -10%, notes(x)", ""},
    };
    for (const auto& row : rows) {
        MemoryTextArea area;
        const auto wizard = open(row.table, area, OpeningMode::Edit);
        wizard->load(row.line);
        EXPECT_EQ(wizard->loss(), row.told) << row.line << " -> " << wizard->text();
    }
}

}  // namespace
