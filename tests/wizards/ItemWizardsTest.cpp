// The wizards of ads, skills, spells, stats and modifiers, and those of expressions: what their tables make
// of fields.

#include <gtest/gtest.h>

#include "support/MemoryTextArea.h"
#include "support/WizardSteps.h"
#include "wizards/LineLoss.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

constexpr auto kNew = OpeningMode::Insert;
constexpr auto kOld = OpeningMode::Edit;
constexpr auto kOfPackage = OpeningMode::Package;

TEST(ItemWizards, WriteTheirFieldsInTheirOrder) {
    // What is done, what stands in an empty document then (with | for a line end), and the controls that are
    // not as they were at first.
    const std::tuple<const WizardTable&, const char*, const char*, const char*> rows[] = {
        {kAdWizard,
         "optPoType; rtbItemName=N; rtbItemCost=5; rtbItemCat=C; rtbItemUpto=U; rtbItemPage=P; rtbItemNotes= "
         "; rtbItemNeeds=E; rtbItemMods=M; rtbItemGives=G; cmbPoCat=K",
         "[Powers]|||<K>|N, 5, gives(G), mods(M), needs(E), notes( ), page(P), upto(U), cat(C)|",
         "optPoType cmbPoCat rtbItemCat "},
        {kAdWizard, "optQuirkType; rtbItemName=N; cmbQuirkCat=K", "[Quirks]|||<K>|N, -1|",
         "rtbItemCost optQuirkType cmbQuirkCat "},
        {kSkillWizard,
         "rtbItemName=N; cmbItemType=M/A; rtbItemCat=C; rtbItemUpto=U; cmbItemStat=own; rtbItemPage=P; "
         "rtbItemNotes=O; rtbItemNeeds=E; rtbItemMods=M; rtbItemGives=G; rtbItemDefault=D; cmbItemClass=K",
         "[Skills]|||<K>|N, M/A, default(D), gives(G), mods(M), needs(E), notes(O), page(P), stat(own), "
         "upto(U), cat(C)|",
         "cmbItemClass rtbItemCat "},
        {kSkillWizard, "rtbItemName=N; cmbItemType#8; rtbItemDefault=D; cmbItemClass=K",
         "[Skills]|||<K>|N, MA/A, default(D)|", "cmbItemClass "},
        {kSpellWizard,
         "SpellName=N; SpellType=T; SpellDuration=D; CastingCost=C; SpellPrereq=E; SpellNotes=O; "
         "SpellPage=P; SpellTime=S; ItemUpto=U; ItemCat=A; SpellCollege=K",
         "[Spells]|||<K>|N, type(T), duration(D), castingcost(C), needs(E), notes(O), page(P), time(S), "
         "upto(U), cat(A)|",
         "SpellCollege ItemCat "},
        {kStatWizard, "StatName=N", "[Stats]|||N", ""},
        {kStatWizard,
         "StatName=N; StatBaseValue=B; StatStep=S; StatMaxScore=X; StatMinScore=M; StatUpCost=U; "
         "StatDownCost=D; StatSymbol=Y; DoubleInPlay#0; DisplayStat#0; StatRoundNo",
         "[Stats]|||N, basevalue(B), step(S), maxscore(X), minscore(M), up(U), down(D), symbol(Y), "
         "doubleinplay(No), display(No), round(No)",
         ""},
        {kStatWizard, "StatName=N; StatRoundUp", "[Stats]|||N, round(Up)", ""},
        {kModWizard, "ModName=N; ModValue=-10%; ItemUpto=U; ItemGives=G; ModGroup=K; RoundUp",
         "[Mods]|||<K>|N, -10%, upto(U), round(Up), gives(G)|", "ModGroup "},
        {kModWizard, "ModName=it is never broken; ModValue=5; ModGroup=K",
         "[Mods]|||<K>|it is never broken, 5|", "ModGroup "},
    };
    for (const auto& [table, steps, written, kept] : rows) {
        MemoryTextArea document;
        const auto wizard = openWizard(table, document);
        work(*wizard, steps);
        const LineBreakLimits limits{.maximum = &table == &kModWizard ? 9 : 0};
        EXPECT_EQ(wizard->finish(limits),
                  (DoneResult{DoneResult::Kind::StaysOpen, {}, table.line.nameField}));
        EXPECT_EQ(FastReplace(document.Text(), "\r\n", "|"), written);
        const auto fresh = openWizard(table, document);
        std::string changed;
        for (const ControlRow& row : table.controls) {
            const auto &now = wizard->state.control(row.name), &first = fresh->state.control(row.name);
            if (now.text != first.text || now.state != first.state) changed.append(row.name).append(" ");
        }
        EXPECT_EQ(changed, kept);
    }
}

TEST(ItemWizards, AskForWhatIsRequired) {
    // What is asked for; each is filled before the next.
    const std::tuple<const WizardTable&, OpeningMode, const char*, const char*> rows[] = {
        {kAdWizard, kNew, "", "rtbItemName rtbItemCost You MUST select an rtbItem Type!@ cmbDisadCat "},
        {kAdWizard, kNew, "optAdType", "rtbItemName rtbItemCost cmbAdCat "},
        {kAdWizard, kNew, "optQuirkType", "rtbItemName cmbQuirkCat "},
        {kAdWizard, kOld, "optAdType", "rtbItemName rtbItemCost "},
        {kSkillWizard, kNew, "", "rtbItemName cmbItemType cmbItemClass "},
        {kSkillWizard, kNew, "cmbItemType=MA/H", "rtbItemName cmbItemClass "},
        {kSkillWizard, kOfPackage, "cmbItemType#8", "rtbItemName rtbItemDefault "},
        {kSpellWizard, kNew, "", "SpellName SpellCollege "},
        {kSpellWizard, kOld, "", "SpellName "},
        {kStatWizard, kNew, "", "MUST enter a name!@StatName "},
        {kModWizard, kNew, "", "ModGroup ModName ModValue "},
        {kModWizard, kOld, "", "ModName ModValue "},
        {kGivesWizard, kNew, "Check2", "GivesValue GivesTarget MaximumGives "},
        {kGivesWizard, kNew, "Check2; Check3#0", "GivesValue GivesTarget "},
        {kFunctionsWizard, kNew, "", "Invalid @Function!@Combo1 "},
    };
    for (const auto& [table, mode, steps, expected] : rows) {
        MemoryTextArea area;
        const auto wizard = openWizard(table, area, mode);
        work(*wizard, steps);
        std::string asked;
        std::optional<Complaint> last;
        for (auto next = wizard->check(); next && next != last; next = wizard->check()) {
            if (next->message != kInvalidEntry) asked.append(next->message).append("@");
            asked.append(next->focus).append(" ");
            work(*wizard, next->focus.empty() ? "optDisadType" : std::string(next->focus) + "= ");
            last = next;
        }
        EXPECT_EQ(asked, expected) << table.form << steps;
    }
}

TEST(ItemWizards, EnableAndShowByWhatIsChosen) {
    // What is disabled and what is hidden then.
    const std::tuple<const WizardTable&, OpeningMode, bool, const char*, const char*, const char*> rows[] = {
        {kAdWizard, kNew, false, "", "", "fraCategory "},
        {kAdWizard, kNew, false, "optQuirkType",
         "rtbItemCost rtbItemGives cmdGivesWizard rtbItemMods rtbItemUpto cmdUpto ",
         "cmbAdCat cmbDisadCat cmbPoCat "},
        {kAdWizard, kNew, false, "optQuirkType; optAdType", "", "cmbDisadCat cmbPoCat cmbQuirkCat "},
        {kAdWizard, kOld, false, "optQuirkType", "rtbItemCost rtbItemGives rtbItemMods rtbItemUpto ",
         "fraType fraCategory "},
        {kAdWizard, kOfPackage, false, "optQuirkType; optPoType", "", "fraType fraCategory "},
        {kSpellWizard, kNew, false, "", "", ""},
        {kSpellWizard, kNew, true, "", "fraUpto ", ""},
        {kSpellWizard, kOld, true, "", "fraUpto ", "fraCollege "},
        {kSpellWizard, kOfPackage, true, "", "", "fraCollege "},
        {kGivesWizard, kNew, false, "", "MaximumGives Command5 ", ""},
        {kGivesWizard, kNew, false, "Check2", "", ""},
        {kGivesWizard, kNew, false, "Check2; Check3#0", "MaximumGives Command5 ", ""},
    };
    for (const auto& [table, mode, isHostOld, steps, disabled, hidden] : rows) {
        MemoryTextArea area;
        const auto wizard = openWizard(table, area, mode, isHostOld);
        work(*wizard, steps);
        std::string off, unseen;
        const auto look = [&](std::string_view name, const auto& part) {
            if (!part.isEnabled) off.append(name).append(" ");
            if (!part.isVisible) unseen.append(name).append(" ");
        };
        for (const FrameRow& row : table.frames) look(row.name, wizard->state.frame(row.name));
        for (const ControlRow& row : table.controls) look(row.name, wizard->state.control(row.name));
        EXPECT_EQ(off, disabled) << table.form << steps;
        EXPECT_EQ(unseen, hidden) << table.form << steps;
    }
}

TEST(ItemWizards, SetTextsAndLabelsByWhatIsChosen) {
    const std::tuple<const WizardTable&, const char*, const char*, const char*> rows[] = {
        {kAdWizard, "rtbItemCost=7; optQuirkType", "rtbItemCost", "Cost:-1"},
        {kAdWizard, "rtbItemCost=7; optQuirkType; optAdType", "rtbItemCost", "Cost:"},
        {kAdWizard, "rtbItemCost=-10; optDisadType", "rtbItemCost", "Cost:-10"},
        {kGivesWizard, "", "MaximumGives", ""},
        {kGivesWizard, "Check2", "MaximumGives", " upto "},
        {kGivesWizard, "Check2; Check3#0", "MaximumGives", ""},
    };
    for (const auto& [table, steps, name, shown] : rows) {
        const auto wizard = makeWizard(table, {});
        work(*wizard, steps);
        const ControlState& control = wizard->state.control(name);
        EXPECT_EQ(control.label + control.text, shown) << steps;
    }
}

TEST(SkillWizard, RequiresADefaultByAClickedType) {
    const auto wizard = makeWizard(kSkillWizard, {});
    for (size_t i = 0; const auto& type : std::vector(wizard->state.control("cmbItemType").list)) {
        wizard->click("cmbItemType", static_cast<int>(i++));
        const std::string required = type.starts_with("MA/") ? " (Required)" : "";
        EXPECT_EQ(wizard->state.frame("fraDefault").caption, "Skill Default" + required) << type;
    }
}

TEST(ItemWizards, WriteIntoTheFieldOfAnotherForm) {
    const std::tuple<const WizardTable&, const char*, const char*, const char*> rows[] = {
        {kAdWizard, "an older line",
         "optPoType; rtbItemName=Keel; rtbItemCost=5; rtbItemNotes=it is never broken",
         "Keel, 5, notes(it is never broken)"},
        {kModWizard, "", "ModName=N; ModValue=5", "N, 5"},
        {kModWizard, "N, 5", "ModName=N; ModValue=5", "N, 5 .AND. N, 5"},
        {kGivesWizard, "", "Option1; Check1; Check3; GivesValue=2; GivesTarget=SK:Climbing",
         "+2 to \"SK:Climbing\""},
        {kGivesWizard, "", "Option2; GivesValue=%level; GivesTarget=ST", "=-\"%level\" \"ST\""},
        {kGivesWizard, "", "Option1; Option4; Check1; Check2; GivesValue=1; GivesTarget=DX; MaximumGives=5",
         "+1pts to \"DX\" upto 5"},
        {kGivesWizard, "+1 to ST, ", "Option1; Option3; GivesValue=\"2\"; GivesTarget=DX",
         "+1 to ST, , =\"\"2\"\" \"DX\""},
        {kGivesWizard, "", "Option2; Check1; GivesValue=3; GivesTarget=DX", "-3 \"DX\""},
        {kGivesWizard, "", "Check1; GivesValue=3; GivesTarget=DX", "3 \"DX\""},
    };
    for (const auto& [table, held, steps, result] : rows) {
        MemoryTextArea field(held);
        const auto wizard = openWizard(table, field, kOfPackage);
        work(*wizard, steps);
        EXPECT_EQ(wizard->finish({.maximum = 3}), DoneResult{DoneResult::Kind::Closes});
        EXPECT_EQ(field.Text(), result);
    }
}

TEST(GivesWizard, NamesItsLimitWhereItHasOne) {
    const auto wizard = makeWizard(kGivesWizard, {});
    for (const auto& [steps, label] : {std::pair("", ""), {"Check2", " upto "}, {"Check3#0", ""}}) {
        work(*wizard, steps);
        EXPECT_EQ(wizard->state.control("MaximumGives").label, label) << steps;
    }
}

TEST(FunctionWizard, WritesEachFunctionBehindWhatTheFieldHolds) {
    MemoryTextArea field;
    std::string expected;
    for (int i = 0;
         const char* shape : {"@FAC(a)", "@FIX(a)", "@IF(a THEN b ELSE c)", "@INT(a)", "@LOG(a, b)",
                              "@MAX(a, b)", "@MIN(a, b)", "@NLOG(a)", "@POWER(a, b)", "@SQR(a)"}) {
        const auto wizard = openWizard(kFunctionsWizard, field);
        wizard->click("Combo1", 2);
        wizard->click("Combo1", i++);
        for (const auto& [name, text] : {std::pair("Text(0)", "a"), {"Text(1)", "b"}, {"Text(2)", "c"}}) {
            const bool isArgument = wizard->state.control(name).isEnabled;
            EXPECT_EQ(wizard->state.control(name).label.empty(), !isArgument);
            EXPECT_EQ(wizard->check() == Complaint(kInvalidEntry, name), isArgument);
            wizard->state.setText(name, text);
        }
        field.SetSelStart(0);
        EXPECT_EQ(wizard->finish({}).kind, DoneResult::Kind::Closes);
        EXPECT_EQ(field.Text(), expected += (expected.empty() ? "" : ", ") + std::string(shape));
    }
}

TEST(LineLoss, TellsWhatTheFormDoesNotKeep) {
    const std::tuple<const WizardTable&, const char*, const char*> rows[] = {
        {kSkillWizard, "Knife, P/E, page(1), default(DX-4)", ""},
        {kSkillWizard, "knife ,  p/e, Page( 1 )  ", ""},
        {kSkillWizard, "Knife, P/E, notes()", ""},
        {kSkillWizard, "Knife, 5, needs(ST 12", "needs(ST 12. It writes: needs(ST 1)."},
        {kSkillWizard, "Knife, P/E; page(1)", "Knife, P/E;. It writes: Knife, P/E."},
        {kSkillWizard, "Knife, P/E, notes(a cat(b) c)", "notes(a."},
        {kSkillWizard, "Knife, P/E, page(1), notes(\"a (b\")", ""},
        {kSkillWizard,
         "Knife, P/E, needs(Anna Berta, Cäsar Dora, Emil Friedrich, Gustav Heinrich, Ida Julius, Kaufmann",
         "needs(… Ida Julius, Kaufmann. It writes: needs(… Ida Julius, Kaufman)."},
        {kSkillWizard, "Knife, page(1)", ""},
        {kSpellWizard, "Fog, time(2), upto(4)", ""},
        {kStatWizard, "Tide, round(Down), display( yes ), DoubleInPlay(Yes), step(1)", ""},
        {kStatWizard, "Tide, round(U), display(Maybe)", "round(U), display(Maybe)."},
        {kStatWizard, "Tide, round(Down) extra, display(No)", "round(Down) extra."},
        {kStatWizard, "Tide, round(up), display(no)", ""},
        {kStatWizard, "Tide, gives(1)", ""},
        {kModWizard, "Sea, -10%, round(No), gives(1)", "round(No)."},
        {kModWizard, "Sea, -10%, ROUND(down)", ""},
        {kModWizard, "Sea, -10%, notes(x)", ""},
    };
    for (const auto& [table, line, told] : rows) {
        MemoryTextArea area;
        const auto wizard = openWizard(table, area, OpeningMode::Edit);
        wizard->load(line);
        const auto lost = wizard->loss();
        EXPECT_EQ(lost, *told == '\0' ? "" : std::string("This form does not keep: ") + told)
            << line << " -> " << wizard->text();
    }
}

}  // namespace
