// A wizard's field while one types: text, colours, caret and undo.

#include "forms/CheckWizardField.h"

#include <gtest/gtest.h>

#include "settings/Catalogue.h"
#include "settings/Store.h"
#include "support/Box.h"
#include "support/Scratch.h"
#include "ui/modKLTSyntaxHighlighter.h"

using namespace klt;

namespace {

class CheckWizardFieldTest : public testing::Test {
protected:
    CheckWizardFieldTest() { highlighter.state.functionStack.reset(); }  // as a pass leaves it

    ScratchHome home;
    Store store;
    CRegSettings styles{store};
    modKLTSyntaxHighlighter highlighter{styles};
};

TEST_F(CheckWizardFieldTest, ColoursWhatIsTyped) {
    const std::tuple<const char*, const char*, bool, const char*, const char*> rows[] = {
        {"gives(", "+1 to sk:Knife", true, "+1 To SK:Knife",
         "0 1 Math Characters\n3 5 Keywords\n6 9 Prefix Tags"},
        {"gives(", "+1 to sk:Knife", false, "+1 to sk:Knife", ""},
        {"cost(", "10/20", true, "10/20", ""},
        {"cost(", "abc", true, "abc", "0 3 Syntax Error"},
        {"needs(", "SK:Knife (", true, "SK:Knife (", "0 10 Syntax Error"},
        {"needs(", "%level", true, "%level", "0 6 Syntax Error"},
        {"name(", "@FOO(", true, "@FOO(", "0 5 Syntax Error"},
        {"name(", "@foo()", true, "@foo()", ""},
        {"type(", "abc", true, "abc", ""},
    };
    writeSetting(store, settings::kMatchParenthesis, false);
    for (const auto& [tag, typed, checks, text, runs] : rows) {
        writeSetting(store, settings::kWizardSyntaxCheck, checks);
        Box box(RichTextBox::Kind::Field);
        makeWizardField(box, tag, highlighter, store);
        QTest::keyClicks(&box, typed);
        EXPECT_EQ(box.shown(), text) << tag << typed;
        EXPECT_EQ(box.StyleRuns(), runs) << tag << typed;
        EXPECT_EQ(box.SelStart(), box.Length());
    }
}

TEST_F(CheckWizardFieldTest, KeepsWhyTheFieldIsRed) {
    Box box(RichTextBox::Kind::Field);
    makeWizardField(box, "cost(", highlighter, store);
    QTest::keyClicks(&box, "abc");
    EXPECT_EQ(box.errorAt(1), "not a cost: abc");
    QTest::keyClicks(&box, "(");
    box.key(Qt::Key_Delete);
    EXPECT_EQ(box.errorAt(1), "parentheses do not match") << "of what stands there now";
    box.Select(0, box.Length());
    QTest::keyClicks(&box, "5");
    EXPECT_EQ(box.errorAt(0), "");
}

TEST_F(CheckWizardFieldTest, KeepsCaretSelectionAndUndo) {
    Box box(RichTextBox::Kind::Field, "+1 to knife");
    box.SetSelStart(2);
    QTest::keyClicks(&box, "2");
    box.Select(4, 3);
    CheckWizardField(box, "gives(", highlighter, store);
    EXPECT_EQ(box.shown(), "+12 To knife");
    EXPECT_EQ(box.SelText(), "To ");
    ASSERT_TRUE(box.CanUndo());
    box.Undo();
    EXPECT_EQ(box.shown(), "+1 To knife");
    EXPECT_TRUE(highlighter.state.CurrentSection().empty());
}

TEST_F(CheckWizardFieldTest, ComesOutOfErrorWhenTheParenthesesBalance) {
    Box box(RichTextBox::Kind::Field);
    makeWizardField(box, "notes(", highlighter, store);
    writeSetting(store, settings::kMatchParenthesis, true);
    QTest::keyClicks(&box, "a (b");
    EXPECT_EQ(box.shown(), "a (b)");
    EXPECT_FALSE(box.StyleRuns().contains("Syntax Error"));
    box.key(Qt::Key_Delete);
    EXPECT_EQ(box.StyleRuns(), "0 4 Syntax Error");
    box.key(Qt::Key_Z, kCtrl);
    EXPECT_FALSE(box.StyleRuns().contains("Syntax Error"));
}

}  // namespace
