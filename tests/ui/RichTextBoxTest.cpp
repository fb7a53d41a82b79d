// What only the widget has: keys, clicks, the clipboard, drops, looks.

#include "ui/RichTextBox.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <functional>

#include "support/Box.h"
#include "text/TextAreaGuards.h"

using namespace klt;
using namespace std::string_literals;
using testing::ElementsAre;
using Kind = RichTextBox::Kind;

namespace {

void setClipboard(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}
QString clipboard() {
    return QGuiApplication::clipboard()->text();
}

TEST(RichTextBox, KeysWriteAndTakeLineEndsAsOne) {
    const struct {
        const char* what;
        const char* text;
        Position caret;
        int key;
        const char* newText;
        Position newCaret;
    } rows[] = {
        {"letter", "ab", 1, Qt::Key_X, "axb", 2},
        {"enter", "ab", 1, Qt::Key_Return, "a\r\nb", 3},
        {"keypad enter", "ab", 1, Qt::Key_Enter, "a\r\nb", 3},
        {"tab", "ab", 1, Qt::Key_Tab, "a\tb", 2},
        {"tab at a line's start", "  ab", 0, Qt::Key_Tab, "\t  ab", 1},
        {"right", "a\r\nb", 1, Qt::Key_Right, "a\r\nb", 3},
        {"left", "a\r\nb", 3, Qt::Key_Left, "a\r\nb", 1},
        {"backspace", "a\r\nb", 3, Qt::Key_Backspace, "ab", 1},
        {"delete", "a\r\nb", 1, Qt::Key_Delete, "ab", 1},
        {"backspace over a character", "\u20ACb", 3, Qt::Key_Backspace, "b", 0},
        {"delete of a lone byte", "\xE2\x82z", 0, Qt::Key_Delete, "\x82z", 0},
        {"backspace at the start", "a", 0, Qt::Key_Backspace, "a", 0},
        {"delete at the end", "a", 1, Qt::Key_Delete, "a", 1},
        {"down", "abc\r\nde", 2, Qt::Key_Down, "abc\r\nde", 7},
    };
    for (const auto& row : rows) {
        Box box(Kind::Document, row.text);
        box.SetSelStart(row.caret);
        box.key(row.key);
        EXPECT_EQ(box.shown(), row.newText) << row.what;
        EXPECT_EQ(box.SelStart(), row.newCaret) << row.what;
        EXPECT_EQ(box.changes, std::string_view(row.text) == row.newText ? 0 : 1) << row.what;
    }
}

TEST(RichTextBox, ChordsDoWhatOneExpects) {
    const struct {
        const char* what;
        int key;
        Qt::KeyboardModifiers modifiers;
        const char* text;
        const char* selected;
    } rows[] = {
        {"select all", Qt::Key_A, kCtrl, "one two three", "one two three"},
        {"cut", Qt::Key_X, kCtrl, "one  three", ""},
        {"cut", Qt::Key_Delete, kShift, "one  three", ""},
        {"paste", Qt::Key_V, kCtrl, "one PASTED three", ""},
        {"paste", Qt::Key_Insert, kShift, "one PASTED three", ""},
        {"copy", Qt::Key_C, kCtrl, "one two three", "two"},
        {"word left", Qt::Key_Left, kCtrl | kShift, "one two three", ""},
        {"word right", Qt::Key_Right, kCtrl | kShift, "one two three", "two "},
        {"to the end", Qt::Key_End, kCtrl | kShift, "one two three", "two three"},
        {"delete the selection", Qt::Key_Delete, kCtrl, "one  three", ""},
        {"delete the selection", Qt::Key_Backspace, kCtrl, "one  three", ""},
    };
    for (const auto& row : rows) {
        setClipboard("PASTED");
        Box box(Kind::Document, "one two three");
        box.Select(4, 3);
        box.key(row.key, row.modifiers);
        EXPECT_EQ(box.shown(), row.text) << row.what;
        EXPECT_EQ(box.SelText(), row.selected) << row.what;
        const std::string_view what = row.what;
        EXPECT_EQ(clipboard(), what == "copy" || what == "cut" ? "two" : "PASTED") << what;
    }
    Box box(Kind::Document, "one two");
    box.SetSelStart(4);
    box.key(Qt::Key_Backspace, kCtrl);
    EXPECT_EQ(box.shown(), "two");
    box.key(Qt::Key_Delete, kCtrl);
    EXPECT_EQ(box.shown(), "");
}

TEST(RichTextBox, ScintillasOwnChordsAreGone) {
    const struct {
        int key;
        Qt::KeyboardModifiers modifiers;
    } rows[] = {
        {Qt::Key_L, kCtrl},
        {Qt::Key_D, kCtrl},
        {Qt::Key_T, kCtrl},
        {Qt::Key_U, kCtrl},
        {Qt::Key_J, kCtrl},
        {Qt::Key_M, kCtrl},
        {Qt::Key_1, kCtrl},
        {Qt::Key_BracketLeft, kCtrl},
        {Qt::Key_Slash, kCtrl},
        {Qt::Key_Backslash, kCtrl},
        {Qt::Key_L, kCtrl | kShift},
        {Qt::Key_T, kCtrl | kShift},
        {Qt::Key_U, kCtrl | kShift},
        {Qt::Key_V, kCtrl | kShift},
        {Qt::Key_Backspace, kCtrl | kShift},
        {Qt::Key_Delete, kCtrl | kShift},
        {Qt::Key_Backspace, Qt::AltModifier},
        {Qt::Key_X, Qt::AltModifier},
        {Qt::Key_Down, Qt::AltModifier | kShift},
        {Qt::Key_Right, Qt::AltModifier | kShift},
        {Qt::Key_X, Qt::MetaModifier},
        {Qt::Key_Backtab, kShift},
        {Qt::Key_Insert, {}},
        {Qt::Key_Escape, {}},
    };
    for (const Kind kind : {Kind::Document, Kind::Preview, Kind::Field}) {
        for (const auto& row : rows) {
            Box box(kind, "one two\r\nthree");
            box.SetSelStart(2);
            box.selChanges = 0;
            box.key(row.key, row.modifiers);
            EXPECT_EQ(box.shown(), "one two\r\nthree") << row.key;
            EXPECT_EQ(box.SelStart(), 2) << row.key;
            EXPECT_EQ(box.changes + box.selChanges, 0) << row.key;
        }
    }
    Box box(Kind::Document, "abc");
    box.key(Qt::Key_Insert);
    box.key(Qt::Key_X);
    EXPECT_EQ(box.shown(), "xabc") << "no overtyping";
}

TEST(RichTextBox, EveryRoadRefusesToTouchAProtectedRun) {
    using Act = std::function<void(Box&)>;
    const auto press = [](int key, Qt::KeyboardModifiers modifiers = {}) -> Act {
        return [=](Box& box) { box.key(key, modifiers); };
    };
    const auto raw = [](unsigned message, unsigned long first = 0, long second = 0) -> Act {
        return [=](Box& box) { box.SendScintilla(message, first, second); };
    };
    using Places = std::vector<std::pair<Position, Position>>;
    // "ab[RUN]cd": in front of the run, inside it, over its edges, over all of it
    const Places inserting = {{2, 0}, {4, 0}, {1, 2}, {2, 5}, {6, 2}, {0, 9}};
    const Places deleting = {{1, 2}, {2, 5}, {6, 2}, {0, 9}, {3, 1}};
    const struct {
        const char* what;
        Act act;
        Places places;
    } rows[] = {
        {"letter", press(Qt::Key_X), inserting},
        {"enter", press(Qt::Key_Return), inserting},
        {"tab", press(Qt::Key_Tab), inserting},
        {"paste", press(Qt::Key_V, kCtrl), inserting},
        {"paste", press(Qt::Key_Insert, kShift), inserting},
        {"input method", [](Box& box) { box.commit("x"); }, inserting},
        {"unfinished input", [](Box& box) { box.commit({}, "x"); }, inserting},
        {"cut", press(Qt::Key_X, kCtrl), deleting},
        {"cut", press(Qt::Key_Delete, kShift), deleting},
        {"backspace", press(Qt::Key_Backspace), {{7, 0}, {4, 0}, {1, 2}, {2, 5}}},
        {"delete", press(Qt::Key_Delete), {{2, 0}, {4, 0}, {1, 2}, {2, 5}}},
        {"backspace a word", press(Qt::Key_Backspace, kCtrl), {{7, 0}, {5, 0}, {1, 2}}},
        {"delete a word", press(Qt::Key_Delete, kCtrl), {{2, 0}, {4, 0}, {1, 2}}},
        {"undo", press(Qt::Key_Z, kCtrl), {{9, 0}}},
        {"property", [](Box& box) { box.setProperty("SelText", QByteArray("x")); }, inserting},
        {"drop in front", [](Box& box) { box.dropText("x", 2); }, {{0, 0}}},
        {"drop inside", [](Box& box) { box.dropText("x", 4); }, {{0, 0}}},
        {"message: delete", raw(Box::SCI_DELETERANGE, 1, 3), {{0, 0}}},
        {"message: clear all", raw(Box::SCI_CLEARALL), {{0, 0}}},
    };
    setClipboard("PASTED");
    for (const auto& row : rows) {
        for (const auto& [start, length] : row.places) {
            Box box(Kind::Document, "b[RUN]cd");
            box.SetSelText("a");
            box.ColourRun(2, 7, 4, true);
            box.Select(start, length);
            box.changes = box.selChanges = 0;
            row.act(box);
            QCoreApplication::processEvents();
            EXPECT_EQ(box.shown(), "ab[RUN]cd") << row.what << " at " << start << "+" << length;
            EXPECT_EQ(box.SelStart(), start) << row.what;
            EXPECT_EQ(box.SelLength(), length) << row.what;
            EXPECT_EQ(box.changes + box.selChanges, 0) << row.what;
            EXPECT_THAT(box.ProtectedRuns(), ElementsAre(TextRange{2, 7})) << row.what;
            EXPECT_FALSE(box.CanUndo()) << row.what;
        }
    }
    EXPECT_EQ(clipboard(), "PASTED") << "nothing was cut";
}

TEST(RichTextBox, AroundAProtectedRunOneEditsFreely) {
    Box box(Kind::Document, "ab[RUN]cd");
    box.ColourRun(2, 7, 4, true);
    box.SetSelStart(2);
    box.key(Qt::Key_Backspace);
    EXPECT_EQ(box.shown(), "a[RUN]cd");
    box.key(Qt::Key_Z, kCtrl);
    EXPECT_EQ(box.shown(), "ab[RUN]cd");
    box.SetSelStart(7);
    box.key(Qt::Key_X);
    box.key(Qt::Key_Y);
    EXPECT_EQ(box.shown(), "ab[RUN]xycd");
    EXPECT_EQ(box.styles(), "00444440000");
    box.key(Qt::Key_Home);
    for (int step = 0; step < 4; ++step) box.key(Qt::Key_Right);
    EXPECT_EQ(box.SelStart(), 4) << "the caret walks through";
    box.key(Qt::Key_End, kShift);
    box.key(Qt::Key_C, kCtrl);
    EXPECT_EQ(clipboard(), "UN]xycd");
    EXPECT_TRUE(box.dropText("D\nE", 0));
    EXPECT_EQ(box.shown(), "D\r\nEab[RUN]xycd");
    EXPECT_THAT(box.ProtectedRuns(), ElementsAre(TextRange{6, 11}));
}

TEST(RichTextBox, WhatIsTypedTakesTheStyleAtTheCaret) {
    Box box(Kind::Document, "abcDEF");
    box.ColourRun(3, 6, 4);
    box.SetSelStart(6);
    box.key(Qt::Key_X);
    box.SetSelStart(3);
    setClipboard("PQ");
    box.key(Qt::Key_V, kCtrl);
    box.SetSelStart(6);
    box.commit("\u00E4");
    EXPECT_EQ(box.shown(), "abcPQD\u00E4EFx");
    EXPECT_EQ(box.styles(), "00000444444");
    box.Select(0, 2);
    box.SetSelStyle(7);
    box.key(Qt::Key_Y);
    EXPECT_EQ(box.styles(), "7000444444");
    box.SetSelStart(0);
    box.dropText("D", box.Length());
    EXPECT_EQ(box.styles(), "70004444444") << "a drop takes that of its place";
}

TEST(RichTextBox, NotifiesOnceWhenItIsDoneWithAnEvent) {
    setClipboard("p\nq");
    const struct {
        const char* what;
        std::function<void(Box&)> act;
        int changes, selChanges;
    } rows[] = {
        {"letter over a selection", [](Box& box) { box.key(Qt::Key_X); }, 1, 1},
        {"paste over a selection", [](Box& box) { box.key(Qt::Key_V, kCtrl); }, 1, 1},
        {"its undo",
         [](Box& box) {
             box.key(Qt::Key_V, kCtrl);
             box.changes = 0;
             box.key(Qt::Key_Z, kCtrl);
         },
         1, 2},
        {"click", [](Box& box) { QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, box.pointOf(1)); }, 0,
         1},
        {"movement", [](Box& box) { box.key(Qt::Key_Home); }, 0, 1},
        {"copy", [](Box& box) { box.key(Qt::Key_C, kCtrl); }, 0, 0},
        {"drop", [](Box& box) { box.dropText("x", 0); }, 1, 1},
        {"input method",
         [](Box& box) {
             box.commit({}, "u");
             box.commit({}, "ue");
             box.commit("\u00FC");
         },
         1, 1},
        {"two messages of others",
         [](Box& box) {
             box.SendScintilla(Box::SCI_INSERTTEXT, 0UL, "x");
             box.SendScintilla(Box::SCI_INSERTTEXT, 0UL, "y");
             EXPECT_EQ(box.changes, 0);
         },
         1, 1},
    };
    for (const auto& row : rows) {
        Box box(Kind::Document, "abcdef");
        box.Select(2, 2);
        box.changes = box.selChanges = 0;
        row.act(box);
        QCoreApplication::processEvents();
        EXPECT_EQ(box.changes, row.changes) << row.what;
        EXPECT_EQ(box.selChanges, row.selChanges) << row.what;
    }
}

TEST(RichTextBox, HandlersOfAKeyMayEditAndSeeItDone) {
    Box box;
    std::string seen;
    QObject::connect(&box, &RichTextBox::Change, [&] {
        seen = box.shown();
        const NotificationMask mask(box);
        if (seen == "(") box.SetSelText(")");
    });
    box.key('(');
    EXPECT_EQ(seen, "(");
    EXPECT_EQ(box.shown(), "()");
    EXPECT_EQ(box.changes, 1);
}

TEST(RichTextBox, UndoStepsEndAtEnterAndWhereTheCaretMoved) {
    Box box;
    QTest::keyClicks(&box, "ab");
    box.key(Qt::Key_Return);
    QTest::keyClicks(&box, "cd");
    box.key(Qt::Key_Left);
    box.key(Qt::Key_Right);
    QTest::keyClicks(&box, "ef");
    for (const char* const text : {"ab\r\ncd", "ab\r\n", ""}) {
        box.key(Qt::Key_Z, kCtrl);
        EXPECT_EQ(box.shown(), text);
    }
    EXPECT_FALSE(box.CanUndo());
    box.key(Qt::Key_Z, kCtrl | kShift);
    box.key(Qt::Key_Y, kCtrl);
    EXPECT_EQ(box.shown(), "ab\r\ncd");
}

TEST(RichTextBox, AFieldLeavesItsWindowsKeysAlone) {
    QDialog dialog;
    auto* const layout = new QVBoxLayout(&dialog);
    auto* const field = new RichTextBox(Kind::Field);
    auto* const next = new QLineEdit;
    auto* const ok = new QPushButton;
    for (QWidget* const widget : std::initializer_list<QWidget*>{field, next, ok}) layout->addWidget(widget);
    ok->setDefault(true);
    int pressed = 0;
    QObject::connect(ok, &QPushButton::clicked, [&] { ++pressed; });
    dialog.show();
    dialog.activateWindow();
    field->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return field->hasFocus(); }));

    EXPECT_EQ(field->height(), std::max(next->sizeHint().height(), field->height()));
    EXPECT_LE(field->height(), next->sizeHint().height() + 4) << "as high as a line edit";
    QTest::keyClicks(field, "one");
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(field, Qt::Key_Enter);
    EXPECT_EQ(pressed, 2);
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    QTest::keyClick(next, Qt::Key_Backtab, kShift);
    EXPECT_TRUE(field->hasFocus());
    setClipboard("a\r\nb\nc\rd\te");
    QTest::keyClick(field, Qt::Key_End);
    QTest::keyClick(field, Qt::Key_V, kCtrl);
    EXPECT_EQ(field->Text(), "onea b c d\te");
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(RichTextBox, AFieldShowsItsTextFromTheStart) {
    Box box(Kind::Field);
    box.resize(80, box.height());
    QTest::keyClicks(&box, "a text that is much longer than the field");
    EXPECT_GT(box.SendScintilla(Box::SCI_GETXOFFSET), 0);
    box.SetText("short");
    EXPECT_EQ(box.SendScintilla(Box::SCI_GETXOFFSET), 0);
}

TEST(RichTextBox, PastesPlainTextByLengthWithCrLf) {
    const struct {
        QString in;
        std::string out;
    } rows[] = {
        {"a\nb\r\nc\rd", "a\r\nb\r\nc\r\nd"},
        {QString::fromUtf8("x\0y", 3), "x\0y"s},
        {"\u00E4\u20AC", "\u00E4\u20AC"},
        {"", "old"},
    };
    for (const auto& row : rows) {
        auto* const data = new QMimeData;
        if (!row.in.isEmpty()) data->setText(row.in);
        data->setHtml("<b>bold</b>");
        QGuiApplication::clipboard()->setMimeData(data);
        Box box(Kind::Document, "old");
        box.Select(0, 3);
        box.Paste();
        EXPECT_EQ(box.shown(), row.out);
    }
}

TEST(RichTextBox, NoModifierMakesTheMouseSelectRectangles) {
    for (const auto modifiers : {Qt::KeyboardModifiers(kCtrl), Qt::KeyboardModifiers(Qt::AltModifier)}) {
        Box box(Kind::Document, "abcdef\r\nghijkl");
        QTest::mousePress(box.viewport(), Qt::LeftButton, modifiers, box.pointOf(1));
        QMouseEvent move(QEvent::MouseMove, box.pointOf(11), box.viewport()->mapToGlobal(box.pointOf(11)),
                         Qt::NoButton, Qt::LeftButton, modifiers);
        QApplication::sendEvent(box.viewport(), &move);
        QTest::mouseRelease(box.viewport(), Qt::LeftButton, modifiers, box.pointOf(11));
        EXPECT_EQ(box.SelText(), "bcdef\r\nghi");
        EXPECT_EQ(box.SendScintilla(Box::SCI_GETSELECTIONS), 1);
    }
}

TEST(RichTextBox, OnlyDocumentsZoom) {
    for (const auto& [kind, zooms] :
         {std::pair(Kind::Document, true), {Kind::Preview, false}, {Kind::Field, false}}) {
        Box box(kind, "text");
        const auto zoom = [&box = box] { return box.SendScintilla(Box::SCI_GETZOOM); };
        const auto wheel = [&box = box](int delta) {
            QWheelEvent event({5, 5}, box.mapToGlobal(QPointF(5, 5)), {}, {0, delta}, {}, kCtrl,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(box.viewport(), &event);
        };
        box.key(Qt::Key_Plus, kCtrl);
        box.key(Qt::Key_Equal, kCtrl);
        wheel(120);
        EXPECT_EQ(zoom(), zooms ? 3 : 0);
        box.key(Qt::Key_Minus, kCtrl);
        wheel(-120);
        EXPECT_EQ(zoom(), zooms ? 1 : 0);
        box.key(Qt::Key_0, kCtrl);
        EXPECT_EQ(zoom(), 0);
        EXPECT_EQ(box.shown(), "text");
    }
}

TEST(RichTextBox, StaysBlackOnWhiteOnADarkDesktop) {
    Box box(Kind::Document, "text");
    QPalette dark(Qt::black);
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    box.setPalette(dark);
    const QImage image = box.viewport()->grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() - 5, image.height() - 5), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(image.width() / 2, 5), QColor(Qt::white));
    EXPECT_EQ(box.SendScintilla(Box::SCI_STYLEGETFORE, 0UL), 0);
    EXPECT_EQ(box.SendScintilla(Box::SCI_GETCARETFORE), 0);
}

TEST(RichTextBox, TakesFontsAndLooks) {
    Box box;
    StyleFormats formats;
    formats[11] = {QColor(255, 0, 0), true, true};
    box.setStyleFormats(formats);
    box.setTextFont(fieldFont());
    const auto ask = [&](unsigned message, unsigned long style) { return box.SendScintilla(message, style); };
    EXPECT_EQ(ask(Box::SCI_STYLEGETFORE, 11), 0x0000FF);
    EXPECT_EQ(ask(Box::SCI_STYLEGETBOLD, 11) + ask(Box::SCI_STYLEGETITALIC, 11), 2);
    EXPECT_EQ(ask(Box::SCI_STYLEGETBOLD, 0) + ask(Box::SCI_STYLEGETITALIC, 0), 0);
    EXPECT_EQ(ask(Box::SCI_STYLEGETSIZEFRACTIONAL, 11), 900);
    box.setTextFont(documentFont());
    EXPECT_EQ(ask(Box::SCI_STYLEGETSIZEFRACTIONAL, 0), 1000);
    EXPECT_EQ(ask(Box::SCI_STYLEGETFORE, 11), 0x0000FF);
}

TEST(RichTextBox, IsReadThroughProperties) {
    Box box(Kind::Document, "a\0 [ADS] bad"s);
    box.ColourRun(3, 8, 7);
    box.ColourRun(9, 12, 11);
    EXPECT_EQ(box.property("Text").toByteArray(), QByteArray("a\0 [ADS] bad", 12));
    EXPECT_TRUE(box.setProperty("SelStart", 3));
    EXPECT_TRUE(box.setProperty("SelLength", 5));
    EXPECT_EQ(box.property("SelText").toByteArray(), "[ADS]");
    QString runs;
    EXPECT_TRUE(QMetaObject::invokeMethod(&box, "StyleRuns", Q_RETURN_ARG(QString, runs)));
    EXPECT_EQ(runs, "3 8 Sections\n9 12 Syntax Error");
    EXPECT_TRUE(box.setProperty("Text", QByteArray("x\0y", 3)));
    EXPECT_EQ(box.shown(), "x\0y"s);
    EXPECT_EQ(box.changes, 1);
    EXPECT_EQ(box.StyleRuns(), "");
}

TEST(RichTextBox, HasAnAccessibleName) {
    Box box(Kind::Field, "text");
    box.setAccessibleName("Item Name");
    const QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&box);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->text(QAccessible::Name), "Item Name");
    EXPECT_EQ(seen->role(), QAccessible::EditableText);
}

}  // namespace
