// Groups, bonuses and packages: lines made on tabs, collected in a box, written as a block and taken back.

#include <gtest/gtest.h>

#include <random>

#include "support/MemoryTextArea.h"
#include "support/Scratch.h"
#include "support/WizardSteps.h"
#include "wizards/LineLoss.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

/// A wizard with its box, and the document that it writes into.
struct Form {
    explicit Form(std::unique_ptr<Wizard> made) : wizard(std::move(made)) { wizard->attach(box); }
    explicit Form(const WizardTable& table, const char* before = "")
        : document(before), wizard(openWizard(table, document)) {
        wizard->attach(box);
    }
    PressResult work(std::string_view steps) { return klt::work(*wizard, steps); }
    const std::string& text(std::string_view control) const { return wizard->state.text(control); }

    MemoryTextArea document, box;
    std::unique_ptr<Wizard> wizard;
};

std::string told(const PressResult& result) {
    std::string all;
    for (const auto& [message, focus] : result.complaints)
        all.append(message).append("@").append(focus).append("|");
    return all;
}

using Rows = std::initializer_list<std::pair<const char*, const char*>>;

/// Of what is done and its outcome: what is told, what stands in the box, what is previewed behind "?", and
/// what has the focus then behind ">".
void expectEach(const WizardTable& table, Rows rows) {
    for (const auto& [steps, outcome] : rows) {
        Form form(table);
        const auto result = form.work(steps);
        std::string seen = told(result).append(form.box.Text());
        if (const auto& preview = result.preview) seen += "?" + preview->text + '|' + preview->title;
        if (!result.focus.empty()) seen.append(">").append(result.focus);
        EXPECT_EQ(seen, outcome) << steps;
    }
}

TEST(GroupWizard, AddsMembers) {
    expectEach(kGroupWizard,
               {{"ItemName=a; Command2", "Invalid Entry!@ItemType|"},
                {"ItemType#4; Command2", "MUST type a name!@ItemName|"},
                {"ItemType#4; ItemName=a; Command2; ItemName=b; Command2", "SK:a\r\nSK:b>ItemName"}});
    Form form(kGroupWizard);
    form.box.SetText("by hand\r\n");
    form.wizard->state.setText("FullGroup", form.box.Text());
    form.work("ItemType#0; ItemName=a; Command2");
    EXPECT_EQ(form.box.Text(), "by hand\r\nAD:a") << "without a blank line between";
    form.box.Undo();
    EXPECT_EQ(form.box.Text(), "by hand\r\n");
}

TEST(BonusWizard, ComposesHeadingAndLines) {
    expectEach(
        kBonusWizard,
        {{"Command1", "MUST choose whether it is a bonus or a penalty!@Bonus|"},
         {"Bonus; Command1", "MUST enter a value!@BonusAmount|"},
         {"Bonus; BonusAmount=-; Command1", "Must be a number!@BonusAmount|"},
         {"Bonus; BonusAmount=.5; Command1", "MUST select an Item Type!@ItemType|"},
         {"Bonus; BonusAmount=1; ItemType#0; Command1", "MUST type a name!@ItemName|"},
         {"Command2",
          "MUST choose whether it is a bonus or a penalty!@Bonus|MUST create the item first!@FullItemLine|"},
         {"Penalty; BonusAmount=2; ItemType#9; ItemName=Strength; Command2", "-2 Strength>ItemName"},
         {"Bonus; BonusAmount=-3; ItemType#1; ItemName=x; Command2", "+-3 DI:x>ItemName"},
         // An earlier preview passes.
         {"Penalty; BonusAmount=2; ItemType#9; ItemName=Strength; Command1; ItemName=; Command2",
          "MUST type a name!@ItemName|-2 Strength>ItemName"},
         {"Command6", "MUST choose a type for the bonus!@BonusItemType|"},
         {"BonusItemType#0; BonusItemName=x; Command6", "Invalid Entry!@Evaluation|"}});
    Form form(kBonusWizard);
    form.wizard->fillCombos("[BONUS]\r\n<SK:A>=12>\r\n<ST>=120>\r\n");
    form.work("BonusItemType#5; BonusItemName=st; Evaluation#0; Score=12; Command6");
    EXPECT_EQ(form.text("FullBonusLine"), "st>=12") << "the beginning of another is none";
    EXPECT_EQ(form.wizard->state.control("FullBonusLine").state, 1);
    form.work("Score=120; Command6");
    EXPECT_EQ(form.text("FullBonusLine"), "ST>=120") << "an equal one is it";
}

TEST(BonusWizard, TakesNumbersAsTheyAreTyped) {
    Form form(kBonusWizard);
    for (const std::string_view text : {"", "+", "-1.", ".5", "x", "1-", "1.2.3"}) {
        const bool passes = text != "x" && text != "1-" && text != "1.2.3";
        form.wizard->state.setText("BonusAmount", text);
        const auto complaint = form.wizard->changed("BonusAmount").complaint.value_or(Complaint());
        EXPECT_EQ(complaint.message, passes ? "" : "Must be a number!") << text;
        EXPECT_EQ(form.text("BonusAmount"), passes ? text : "");
    }
}

TEST(PackageWizard, ComposesAndAddsLines) {
    expectEach(
        kPackWizard,
        {{"AddItemType#4; ItemName=Name; AddLevel=12; Check1; Command9", "ADD=SK:Name .AT. 12pts>Command9"},
         {"AddItemType#0; ItemName=Name; AddLevel=2; AddMods(0)=mod; Command9",
          "ADD=AD:Name .AT. 2 .WITH. mod>Command9"},
         {"AddItemType#2; ItemName=Name; AddMods(0)=mod; Command9", "ADD=PO:Name .WITH. mod>Command9"},
         // A package loses what it can't have.
         {"AddItemType#0; AddLevel=2; Check1; AddMods(0)=m; AddItemType#6; ItemName=P; Command9",
          "ADD=PA:P>Command9"},
         {"AddItemType#7; AddLevel=1; AtrDX; Command9", "ADD=DXAdj .AT. 1>Command9"},
         {"AddItemType#8; AddLevel=1; AtrHT; Command9", "ADD=HT .AT. 1>Command9"},
         {"AddItemType#0; ItemName=A long name, and more of it, (a, b); AddMods(0)=mod, -10%; Command9",
          "ADD=AD:A long name, and more of it,\r\n\t(a, b) .WITH. mod, -10%>Command9"},
         {"CreateItemType#6; RichTextBox1=S, step(1); Command10", "CREATE=ST:S, step(1)>Command10"},
         {"CreateItemType#4; CreateLevel=1; CreateItemType#3; RichTextBox1=Q, -1; Command10",
          "CREATE=QU:Q, -1>Command10"},
         {"Message=hi; Command13", "MESSAGE=hi>Command13"},
         {"RaceName=Elf; Command11", "ADD=Race .AT. Elf>Command11"},
         {"DialogCaption=Cap; EMessage=one\r\ntwo\r\nthree\r\n; Command14",
          "EMESSAGE=Cap .WITH. one ~P two ~P three>Command14"},
         {"Command9", "MUST select an Item Type!@AddItemType|"},
         {"AddItemType#0; Command9", "MUST select an Item Name!@ItemName|"},
         {"AddItemType#5; ItemName=x; Command9", "MUST select a level!@AddLevel|"},
         // A caption counts only while its frame shows.
         {"AddItemType#5; AddItemType#3; ItemName=x; Command9", "ADD=QU:x>Command9"},
         {"AddItemType#7; AddLevel=1; Command9", "MUST select an Attribute!@AddItemType|"},
         // What was composed earlier is not added.
         {"AddItemType#3; ItemName=x; Command7; ItemName=; Command9", "MUST select an Item Name!@ItemName|"},
         {"Command10", "MUST create item first!@Command6|"},
         {"RichTextBox1=x; Command10", "MUST select an Item Type!@CreateItemType|"},
         {"RichTextBox1=x; CreateItemType#4; Command10", "Invalid Entry!@CreateLevel|"},
         {"Command6", "MUST select an Item Type!@CreateItemType|"},
         {"Command13", "Invalid Message!@Message|"},
         {"Command11", "Invalid Race!@RaceName|"},
         {"Command14", "Invalid caption!@DialogCaption|"},
         {"DialogCaption=x; Command15", "Invalid message!@EMessage|"},
         {"Command12", "MUST enter a name for the package!@PackName|"},
         {"PackName=P; Message=hi; Command12", "?hi|P"},
         {"DialogCaption=Cap; EMessage=a\r\nb; Command15", "?a\r\nb|Cap>EMessage"},
         {"PackName=x; Command12", "Invalid Message!@Message|"}});
}

TEST(PackageWizard, AsksForItems) {
    Form form(kPackWizard);
    form.work("DialogCaption=Cap; EMessage=a\r\nb; Command15");
    EXPECT_EQ(form.text("FullEMessage"), "EMESSAGE=Cap .WITH. a ~P b");
    const auto call = form.work("CreateItemType#5; Command1").call;
    EXPECT_TRUE(call && call->section == Section::Spells && call->field == "RichTextBox1" && call->isFilled);
    EXPECT_FALSE(form.work("Command6").call->isFilled);
}

TEST(CollectingWizards, PutALineBackOnItsTab) {
    const struct {
        const WizardTable& table;
        const char* line;
        /// What the fields hold then, and what adds the line again; null where no tab takes it.
        const char *fields, *button = "Command9";
    } rows[] = {
        {kGroupWizard, "sk:a: b", "ItemType=Skill; ItemName=a: b", "Command2"},
        {kGroupWizard, "no colon", nullptr},
        {kGroupWizard, "// note: x", nullptr},
        {kPackWizard, "MESSAGE=Hello,", nullptr},
        {kPackWizard, "CREATE=ST:S, step(1) .AT. 3pts .WITH. m",
         "CreateLevel=3pts .WITH. m; AddMods(1)=", "Command10"},
        {kBonusWizard, " +1 GR:Rope Work", "BonusAmount=1; ItemType=Group; ItemName=Rope Work", "Command2"},
        {kBonusWizard, "-2 Hit Points", "BonusAmount=2; ItemType=Stat; ItemName=Hit Points", "Command2"},
        {kBonusWizard, "x +1 AD:y", nullptr},
        {kBonusWizard, "+1", nullptr},
        {kPackWizard, "ADD=SK:Name .AT. 12PTS", "ItemName=Name; AddLevel=12"},
        {kPackWizard, "add=powers:Lamp .with. Needs Salt", "AddItemType=Power; AddMods(0)=Needs Salt"},
        {kPackWizard, "ADD=SK:Scripts", nullptr},
        {kPackWizard, "ADD=QU:Scripts", "ItemName=Scripts"},
        {kPackWizard, "ADD=STAdj .AT. 1", "AddItemType=Attribute Adjust; AddLevel=1"},
        {kPackWizard, "ADD=AdjST .AT. 1", nullptr},
        {kPackWizard, "ADD=race .at. Elf", "RaceName=Elf", "Command11"},
        {kPackWizard, "ADD=Racer .AT. 1", nullptr},
        {kPackWizard, "CREATE=AD:A, 10,\r\n\tnotes(b) .AT. 1 .WITH. m",
         "RichTextBox1=A, 10, notes(b); CreateLevel=1; AddMods(1)=m", "Command10"},
        {kPackWizard, "CREATE=STAT:Glow, step(1) .AT. 3", "CreateItemType=Stat; CreateLevel=3", "Command10"},
        {kPackWizard, "MESSAGE=hi = ho", "Message=hi = ho", "Command13"},
        {kPackWizard, "MESSAGE=", nullptr},
        {kPackWizard, "EMESSAGE=Cap .WITH. a ~P b~Pc", "DialogCaption=Cap; EMessage=a\r\nb\r\nc",
         "Command14"},
        {kPackWizard, "EMESSAGE=no text", nullptr},
        {kPackWizard, "OTHER=x", nullptr},
        {kPackWizard, "* a comment", nullptr},
    };
    for (const auto& row : rows) {
        Form form(row.table);
        const std::string before = "first\r\n" + std::string(row.line) + "\r\nlast";
        form.box.SetText(before);
        form.work("ItemName=old");
        form.box.SetSelStart(static_cast<Position>(form.box.Text().find(row.line)));
        EXPECT_EQ(form.wizard->takeBack() != nullptr, row.fields != nullptr) << row.line;
        if (row.fields == nullptr) {
            EXPECT_EQ(form.box.Text(), before);
            EXPECT_EQ(form.text("ItemName"), "old") << "nothing is changed";
            continue;
        }
        EXPECT_EQ(form.box.Text(), "first\r\nlast");
        EXPECT_EQ(form.box.SelStart(), 7) << "at the start of what was taken";
        for (const auto& field : SplitText(row.fields, "; ")) {
            const auto equals = field.find('=');
            EXPECT_EQ(form.text(field.substr(0, equals)), field.substr(equals + 1)) << row.line;
        }
        EXPECT_EQ(told(form.work(row.button)), "");
        EXPECT_TRUE(form.box.Text().starts_with("first\r\nlast\r\n")) << form.box.Text();
    }
}

std::string squeezed(std::string_view text) {
    std::string rest(text);
    std::erase_if(rest,
                  [](char c) { return std::string_view(" \t\r\n_").find(c) != std::string_view::npos; });
    return rest;
}

/// Edits what stands at each line of those sections, writes it back at once, and looks at what was changed.
int expectUntouched(const MemoryTextArea& original) {
    int blocks = 0;
    for (Position line = 0; line < original.LineCount(); ++line) {
        MemoryTextArea document(original.Text());
        auto wizard = edited(document, original.LineIndex(line));
        if (wizard == nullptr || wizard->opening().item.block.empty()) continue;
        ++blocks;
        const Position start = document.SelStart(), behind = document.Length() - start - document.SelLength();
        const auto old = document.SelText();
        Form form(std::move(wizard));
        EXPECT_EQ(form.wizard->loss(), "");
        EXPECT_FALSE(form.wizard->hasUnwritten());
        EXPECT_EQ(form.wizard->finish({}).kind, DoneResult::Kind::Closes);
        EXPECT_EQ(document.Slice(0, start), original.Slice(0, start));
        EXPECT_EQ(document.Slice(document.Length() - behind, document.Length()),
                  original.Slice(original.Length() - behind, original.Length()));
        EXPECT_EQ(squeezed(document.Slice(start, document.Length() - behind)), squeezed(old));
    }
    return blocks;
}

/// Lines of words that mean something to a package.
class RandomLines {
public:
    /// A file of blocks, some of them empty.
    std::string file() {
        std::string text = "Version=2";
        for (int lines = 0; lines < 40; ++lines)
            text += "\r\n" + (random_() % 3 == 0 ? oneOf({"[GROUPS]", "[BONUS]", "[PACKAGES]", "<a>", " <b>",
                                                          "{P=d}", "{Q}", "{R=x _\r\n\ty}"})
                                                 : line());
        return text + oneOf({"\r\n", ""});
    }
    std::string line() {
        std::string text = oneOf({"ADD=SK:", "ADD=AD:", "ADD=PA:", "ADD=ST", "ADD=Race .AT. ",
                                  "CREATE=QU:", "CREATE=ST:", "MESSAGE=", "EMESSAGE=", "* ", "+1 "});
        for (auto left = random_() % 6; left > 0; --left)
            text += oneOf({" .AT. ", " .WITH. ", "pts", " ~P ", "Adj", "a (b)", "c, d", "grün", "=", "12",
                           ":", ",\r\n\t", "_\r\n\t", "//", "\"q\""});
        return text;
    }

private:
    std::string oneOf(std::initializer_list<const char*> texts) {
        return texts.begin()[random_() % texts.size()];
    }

    std::mt19937 random_{1};
};

TEST(CollectingWizards, LeaveABlockOfAFileAsItIs) {
    for (const auto& [name, blocks] : std::vector<std::pair<std::string, int>>{
             {"harbor", 80}, {"coast", 0}, {"errors", 0}, {"inland", 0}, {"legacy", 0}, {"case", 0}}) {
        const auto bytes = readBytes(KLT_TEST_DATA "/golden/" + name + ".klt");
        EXPECT_GE(expectUntouched(MemoryTextArea(bytes)), blocks) << name;
    }
    RandomLines random;
    int blocks = 0;
    for (int run = 0; run < 50; ++run) blocks += expectUntouched(MemoryTextArea(random.file()));
    EXPECT_GT(blocks, 500);
}

TEST(CollectingWizards, WriteWhereTheirHeadingIs) {
    const std::tuple<const WizardTable&, const char*, const char*, const char*> rows[] = {
        {kGroupWizard, "GroupName=B; ItemType#0; ItemName=x; Command2", "[GROUPS]\r\n<A>\r\n<B>\r\nSK:y\r\n",
         "[GROUPS]\r\n<A>\r\n<B>\r\nAD:x\r\nSK:y\r\n"},
        {kBonusWizard, "FullBonusLine=ST>=1; Bonus; BonusAmount=1; ItemType#4; ItemName=x; Command2", "",
         "[Bonus]\r\n\r\n\r\n<ST>=1>\r\n+1 SK:x\r\n"},
        {kPackWizard, "PackName=P; PackDescription=d=e; PackCat=C; RaceName=x; Command11", "",
         "[Packages]\r\n\r\n\r\n<C>\r\n{P=d=e}\r\nADD=Race .AT. x\r\n"},
        {kPackWizard, "PackName=P; PackCat=C; Message=x; Command13", "",
         "[Packages]\r\n\r\n\r\n<C>\r\n{P}\r\nMESSAGE=x\r\n"},
    };
    for (const auto& [table, steps, before, after] : rows) {
        Form form(table, before);
        const auto& document = form.document;
        form.wizard->fillCombos(document.Text());
        EXPECT_TRUE(form.wizard->check().has_value());
        form.work(steps);
        form.box.ColourRun(0, 3, 7);
        const auto first = std::string(form.box.Text().substr(0, 3));
        EXPECT_EQ(form.wizard->finish({}).kind, DoneResult::Kind::StaysOpen);
        EXPECT_EQ(document.Text(), after);
        EXPECT_EQ(document.StyleAt(static_cast<Position>(document.Text().find(first))), 7)
            << "its colours come along";
        EXPECT_EQ(form.wizard->text(), "");
        EXPECT_FALSE(form.text(table.places[0].combo).empty()) << "the heading stays";
    }
}

TEST(PackageWizard, EditsItsHeader) {
    MemoryTextArea document("[PACKAGES]\r\n{P=a=b} // c\r\nMESSAGE=x\r\n{Q=}\r\nMESSAGE=y\r\n<A>");
    Form form(edited(document, 14));
    EXPECT_EQ(form.text("PackName") + '|' + form.text("PackDescription"), "P|a=b");
    form.work("PackName=N; PackDescription=");
    EXPECT_TRUE(form.wizard->hasUnwritten());
    EXPECT_EQ(form.wizard->finish({}).kind, DoneResult::Kind::Closes);
    EXPECT_EQ(document.Text(), "[PACKAGES]\r\n{N} // c\r\nMESSAGE=x\r\n{Q=}\r\nMESSAGE=y\r\n<A>");
    EXPECT_EQ(edited(document, document.Length() - 8)->loss(), "") << "a sign that says nothing";
}

TEST(PackageWizard, LosesNoLineOnTheWayBack) {
    RandomLines random;
    int taken = 0;
    for (int run = 0; run < 3'000; ++run) {
        Form form(kPackWizard);
        const auto line = random.line();
        form.box.SetText(line);
        form.box.SetSelStart(0);
        const LineTab* const tab = form.wizard->takeBack();
        if (tab == nullptr) {
            EXPECT_EQ(form.box.Text(), line);
            continue;
        }
        ++taken;
        const std::string left(form.box.Text());
        EXPECT_EQ(told(form.wizard->press(tab->add, {})), "") << line;
        const auto whole = squeezed(std::string(form.box.Text().substr(left.size())) + left);
        EXPECT_TRUE(equalIgnoringAsciiCase(whole, squeezed(line))) << line << " -> " << form.box.Text();
    }
    Form form(kPackWizard);
    form.box.SetText("MESSAGE=Hello,");
    EXPECT_NE(form.wizard->takeBack(), nullptr) << "no line follows";
    EXPECT_EQ(form.text("Message"), "Hello,");
    EXPECT_GT(taken, 700);
}

}  // namespace
