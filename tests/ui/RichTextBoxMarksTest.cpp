// The parenthesis at the caret and its partner, as one types and moves.

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QVBoxLayout>
#include <memory>

#include "support/Box.h"

using namespace klt;
using Kind = RichTextBox::Kind;

namespace {

/// The text with a "+" behind each parenthesis that is marked with its partner, a "?" behind a lone one.
std::string marks(const RichTextBox& box) {
    std::string shown;
    const auto has = [&](Position mark, Position at) {
        return box.SendScintilla(RichTextBox::SCI_INDICATORVALUEAT, static_cast<unsigned long>(mark),
                                 static_cast<long>(at)) != 0;
    };
    for (Position at = 0; at < box.Length(); ++at) {
        shown += box.Text()[static_cast<size_t>(at)];
        if (has(RichTextBox::kPairMark, at)) shown += '+';
        if (has(RichTextBox::kLoneMark, at)) shown += '?';
    }
    return shown;
}

std::unique_ptr<Box> focusedBox(Kind kind, const char* text) {
    auto box = std::make_unique<Box>(kind);
    setMarkedText(*box, text);
    box->activateWindow();
    box->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return box->hasFocus(); }));
    return box;
}

TEST(RichTextBoxMarks, FollowTheCaretAndWhatIsTyped) {
    const struct {
        const char* what;
        Kind kind;
        const char* text;
        std::vector<int> keys;
        const char* marked;
    } rows[] = {
        {"as it stands", Kind::Document, "a(<>b)", {}, "a(+b)+"},
        {"over lines", Kind::Document, "a(<>b,\r\nc)\r\nd)", {}, "a(+b,\r\nc)+\r\nd)"},
        {"in a preview", Kind::Preview, "a(<>b\r\nc)", {}, "a(?b\r\nc)"},
        {"a comment's end", Kind::Document, "a(<> // b)", {}, "a(? // b)"},
        {"no comment in a field", Kind::Field, "a(<> // b)", {}, "a(+ // b)+"},
        {"moved away", Kind::Document, "a(<>bc)", {Qt::Key_Right}, "a(bc)"},
        {"moved there", Kind::Field, "a(b)<>c", {Qt::Key_End, Qt::Key_Left}, "a(+b)+c"},
        {"to another", Kind::Document, "<>(a)(b)", {Qt::Key_End}, "(a)(+b)+"},
        {"typed", Kind::Field, "a<>", {Qt::Key_ParenLeft}, "a(?"},
        {"and its partner", Kind::Document, "a<>", {Qt::Key_ParenLeft, Qt::Key_ParenRight}, "a(+)+"},
        {"deleted", Kind::Document, "a(b)<>)", {Qt::Key_Delete, Qt::Key_Home}, "a(b)"},
        {"its partner deleted", Kind::Field, "(<>)", {Qt::Key_Delete}, "(?"},
        {"a selection's caret", Kind::Document, "a(b)<c>)", {}, "a(b)c)?"},
    };
    for (const auto& row : rows) {
        const auto box = focusedBox(row.kind, row.text);
        box->ColourRun(0, box->Length(), 5);
        for (const int key : row.keys) {
            const bool isLetter = key == Qt::Key_ParenLeft || key == Qt::Key_ParenRight;
            if (isLetter)
                QTest::keyClick(box.get(), static_cast<char>(key));
            else
                box->key(key);
        }
        EXPECT_EQ(marks(*box), row.marked) << row.what;
        EXPECT_EQ(styleDigits(*box), std::string(static_cast<size_t>(box->Length()), '5')) << row.what;
    }
}

TEST(RichTextBoxMarks, GoWithTheFocusAndWithoutNotification) {
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    auto* const box = new Box(Kind::Field);
    auto* const other = new QLineEdit;
    layout->addWidget(box);
    layout->addWidget(other);
    window.show();
    window.activateWindow();
    other->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return other->hasFocus(); }));
    setMarkedText(*box, "a(<>)");
    EXPECT_EQ(marks(*box), "a()") << "it shows no caret";
    box->changes = box->selChanges = 0;
    box->setFocus();
    EXPECT_EQ(marks(*box), "a(+)+");
    other->setFocus();
    EXPECT_EQ(marks(*box), "a()");
    EXPECT_EQ(box->changes + box->selChanges, 0);
    EXPECT_FALSE(box->CanUndo());

    const auto document = focusedBox(Kind::Document, "a(<>)");
    other->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !document->hasFocus(); }));
    EXPECT_EQ(marks(*document), "a(+)+") << "seen while another window is used";
}

TEST(RichTextBoxMarks, StandBelowTheLettersInTwoColours) {
    const Box box;
    const auto ask = [&](unsigned message, Position mark) {
        return box.SendScintilla(message, static_cast<unsigned long>(mark));
    };
    for (const Position mark : {RichTextBox::kPairMark, RichTextBox::kLoneMark}) {
        EXPECT_EQ(ask(Box::SCI_INDICGETUNDER, mark), 1);
        EXPECT_NE(ask(Box::SCI_INDICGETSTYLE, mark), Box::INDIC_TEXTFORE);
    }
    EXPECT_NE(ask(Box::SCI_INDICGETFORE, RichTextBox::kPairMark),
              ask(Box::SCI_INDICGETFORE, RichTextBox::kLoneMark));
}

TEST(RichTextBoxMarks, NothingIsSaidOfAPartnerFurtherAwayThanAMegabyte) {
    for (const bool isFar : {false, true}) {
        const auto box = focusedBox(Kind::Document, "<>");
        std::string text = "a(";
        while (text.size() < (isFar ? 1'100'000 : 1'000'000)) text += "an item's piece, which goes on _\r\n";
        box->SetText(text + ")");
        box->SetSelStart(2);
        EXPECT_EQ(marks(*box).substr(0, 3), isFar ? "a(a" : "a(+");
        box->SetSelStart(box->Length());
        EXPECT_TRUE(marks(*box).ends_with(isFar ? "\r\n)" : "\r\n)+"));
    }
}

}  // namespace
