// What only the widget has: keys, clicks, the clipboard, drops, looks.

#include "ui/RichTextBox.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <functional>

#include "support/Box.h"

using namespace klt;
using namespace std::string_literals;
using testing::ElementsAre;
using Kind = RichTextBox::Kind;
using Act = std::function<void(Box&)>;

namespace {

TEST(RichTextBox, KeysDoWhatOneExpectsAndTakeLineEndsAsOne) {
    const Qt::KeyboardModifiers none, ctrl = kCtrl, shift = kShift, both = kCtrl | kShift;
    const std::tuple<std::string, Qt::KeyboardModifiers, int, const char*, const char*> rows[] = {
        {"letter", none, Qt::Key_X, "a<>b", "ax<>b"},
        {"enter", none, Qt::Key_Return, "a<>b", "a\r\n<>b"},
        {"keypad enter", none, Qt::Key_Enter, "a<>b", "a\r\n<>b"},
        {"tab", none, Qt::Key_Tab, "a<>b", "a\t<>b"},
        {"tab at a line's start", none, Qt::Key_Tab, "<>  ab", "\t<>  ab"},
        {"right", none, Qt::Key_Right, "a<>\r\nb", "a\r\n<>b"},
        {"left", none, Qt::Key_Left, "a\r\n<>b", "a<>\r\nb"},
        {"down", none, Qt::Key_Down, "ab<>c\r\nde", "abc\r\nde<>"},
        {"backspace", none, Qt::Key_Backspace, "a\r\n<>b", "a<>b"},
        {"backspace over a character", none, Qt::Key_Backspace, "\u20AC<>b", "<>b"},
        {"backspace at the start", none, Qt::Key_Backspace, "<>a", "<>a"},
        {"delete", none, Qt::Key_Delete, "a<>\r\nb", "a<>b"},
        {"delete of a lone byte", none, Qt::Key_Delete, "<>\xE2\x82z", "<>\x82z"},
        {"delete at the end", none, Qt::Key_Delete, "a<>", "a<>"},
        {"select all", ctrl, Qt::Key_A, "one <two> three", "<one two three>"},
        {"cut", ctrl, Qt::Key_X, "one <two> three", "one <> three"},
        {"cut", shift, Qt::Key_Delete, "one <two> three", "one <> three"},
        {"paste", ctrl, Qt::Key_V, "one <two> three", "one PASTED<> three"},
        {"paste", shift, Qt::Key_Insert, "one <two> three", "one PASTED<> three"},
        {"copy", ctrl, Qt::Key_C, "one <two> three", "one <two> three"},
        {"word left", both, Qt::Key_Left, "one <two> three", "one <>two three"},
        {"word right", both, Qt::Key_Right, "one <two> three", "one <two >three"},
        {"to the end", both, Qt::Key_End, "one <two> three", "one <two three>"},
        {"delete the selection", ctrl, Qt::Key_Delete, "one <two> three", "one <> three"},
        {"delete the selection", ctrl, Qt::Key_Backspace, "one <two> three", "one <> three"},
        {"delete a word", ctrl, Qt::Key_Backspace, "one <>two", "<>two"},
        {"delete a word", ctrl, Qt::Key_Delete, "<>two", "<>"},
    };
    for (const auto& [what, modifiers, key, before, after] : rows) {
        Box::setClipboard("PASTED");
        Box box;
        setMarkedText(box, before);
        const auto text = box.shown();
        box.changes = 0;
        box.key(key, modifiers);
        EXPECT_EQ(markedText(box), after) << what;
        EXPECT_EQ(box.changes, box.Text() == text ? 0 : 1) << what;
        EXPECT_EQ(Box::clipboard(), what == "copy" || what == "cut" ? "two" : "PASTED") << what;
    }
}

TEST(RichTextBox, ScintillasOwnChordsAreGone) {
    using namespace Qt;
    const std::pair<KeyboardModifiers, std::vector<int>> rows[] = {
        {kCtrl, {Key_L, Key_D, Key_T, Key_U, Key_J, Key_M, Key_1, Key_BracketLeft, Key_Slash, Key_Backslash}},
        {kCtrl | kShift, {Key_L, Key_T, Key_U, Key_V, Key_Backspace, Key_Delete}},
        {AltModifier, {Key_Backspace, Key_X}},
        {AltModifier | kShift, {Key_Down, Key_Right}},
        {MetaModifier, {Key_X}},
        {kShift, {Key_Backtab}},
        {NoModifier, {Key_Insert, Key_Escape}},
    };
    for (const Kind kind : {Kind::Document, Kind::Preview, Kind::Field}) {
        Box box(kind, "one two\r\nthree");
        box.SetSelStart(2);
        box.selChanges = 0;
        for (const auto& [modifiers, keys] : rows) {
            for (const int key : keys) {
                box.key(key, modifiers);
                EXPECT_EQ(markedText(box), "on<>e two\r\nthree") << key;
                EXPECT_EQ(box.changes + box.selChanges, 0) << key;
            }
        }
        box.key(Key_X);
        EXPECT_EQ(markedText(box), "onx<>e two\r\nthree") << "no overtyping";
    }
}

TEST(RichTextBox, EveryRoadRefusesToTouchAProtectedRun) {
    const auto press = [](int key, Qt::KeyboardModifiers modifiers = {}) -> Act {
        return [=](Box& box) { box.key(key, modifiers); };
    };
    using Places = std::vector<std::pair<Position, Position>>;
    // "ab[RUN]cd": in front of the run, inside it, over its edges, over all of it
    const Places inserting = {{2, 0}, {4, 0}, {1, 2}, {2, 5}, {6, 2}, {0, 9}};
    const Places deleting = {{1, 2}, {2, 5}, {6, 2}, {0, 9}, {3, 1}};
    const std::tuple<const char*, Act, Places> rows[] = {
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
        {"message: delete", [](Box& box) { box.SendScintilla(Box::SCI_DELETERANGE, 1UL, 3L); }, {{0, 0}}},
        {"message: clear all", [](Box& box) { box.SendScintilla(Box::SCI_CLEARALL); }, {{0, 0}}},
    };
    Box::setClipboard("PASTED");
    for (const auto& [what, act, places] : rows) {
        for (const auto& [start, length] : places) {
            Box box(Kind::Document, "b[RUN]cd");
            box.SetSelText("a");
            box.ColourRun(2, 7, 4, true);
            box.Select(start, length);
            box.changes = box.selChanges = 0;
            const auto before = markedText(box);
            act(box);
            QCoreApplication::processEvents();
            EXPECT_EQ(markedText(box), before) << what;
            EXPECT_EQ(box.changes + box.selChanges, 0) << what << " at " << before;
            EXPECT_THAT(box.ProtectedRuns(), ElementsAre(TextRange{2, 7})) << what;
            EXPECT_FALSE(box.CanUndo()) << what;
        }
    }
    EXPECT_EQ(Box::clipboard(), "PASTED") << "nothing was cut";
}

TEST(RichTextBox, AroundAProtectedRunOneEditsFreely) {
    Box box(Kind::Document, "ab[RUN]cd");
    box.ColourRun(2, 7, 4, true);
    box.SetSelStart(2);
    box.key(Qt::Key_Backspace);
    EXPECT_EQ(markedText(box), "a<>[RUN]cd");
    box.key(Qt::Key_Z, kCtrl);
    EXPECT_EQ(box.Text(), "ab[RUN]cd");
    box.SetSelStart(7);
    QTest::keyClicks(&box, "xy");
    EXPECT_EQ(styleDigits(box), "00444440000");
    box.key(Qt::Key_Home);
    for (int step = 0; step < 4; ++step) box.key(Qt::Key_Right);
    box.key(Qt::Key_End, kShift);
    EXPECT_EQ(markedText(box), "ab[R<UN]xycd>") << "the caret walks through";
    box.key(Qt::Key_C, kCtrl);
    EXPECT_EQ(Box::clipboard(), "UN]xycd");
    EXPECT_TRUE(box.dropText("D\nE", 0));
    EXPECT_EQ(box.Text(), "D\r\nEab[RUN]xycd");
    EXPECT_THAT(box.ProtectedRuns(), ElementsAre(TextRange{6, 11}));
}

TEST(RichTextBox, WhatIsTypedTakesTheStyleAtTheCaret) {
    Box box(Kind::Document, "abcDEF");
    box.ColourRun(3, 6, 4);
    box.SetSelStart(6);
    box.key(Qt::Key_X);
    box.SetSelStart(3);
    Box::setClipboard("PQ");
    box.key(Qt::Key_V, kCtrl);
    box.SetSelStart(6);
    box.commit("\u00E4");
    EXPECT_EQ(box.Text(), "abcPQD\u00E4EFx");
    EXPECT_EQ(styleDigits(box), "00000444444");
    box.Select(0, 2);
    box.SetSelStyle(7);
    box.key(Qt::Key_Y);
    EXPECT_EQ(styleDigits(box), "7000444444");
    box.SetSelStart(0);
    box.dropText("D", box.Length());
    EXPECT_EQ(styleDigits(box), "70004444444") << "a drop takes that of its place";
}

TEST(RichTextBox, NotifiesOnceWhenItIsDoneWithAnEvent) {
    Box::setClipboard("p\nq");
    Box box(Kind::Document, "abcdef");
    const auto others = [&](const char* text) { box.SendScintilla(Box::SCI_INSERTTEXT, 0UL, text); };
    const std::tuple<const char*, std::function<void()>, int, int> rows[] = {
        {"letter over a selection", [&] { box.key(Qt::Key_X); }, 1, 1},
        {"paste over a selection", [&] { box.key(Qt::Key_V, kCtrl); }, 1, 1},
        {"its undo", [&] { box.key(Qt::Key_V, kCtrl), box.key(Qt::Key_Z, kCtrl); }, 2, 2},
        {"click", [&] { QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, box.pointOf(1)); }, 0, 1},
        {"movement", [&] { box.key(Qt::Key_Home); }, 0, 1},
        {"copy", [&] { box.key(Qt::Key_C, kCtrl); }, 0, 0},
        {"drop", [&] { box.dropText("x", 0); }, 1, 1},
        {"input method", [&] { box.commit({}, "u"), box.commit({}, "ue"), box.commit("\u00FC"); }, 1, 1},
        {"two messages of others", [&] { others("x"), others("y"); }, 1, 1},
    };
    for (const auto& [what, act, changes, selChanges] : rows) {
        box.SetText("abcdef");
        box.Select(2, 2);
        box.changes = box.selChanges = 0;
        act();
        QCoreApplication::processEvents();
        EXPECT_EQ(box.changes, changes) << what;
        EXPECT_EQ(box.selChanges, selChanges) << what;
    }
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
        EXPECT_EQ(box.Text(), text);
    }
    EXPECT_FALSE(box.CanUndo());
    box.key(Qt::Key_Z, kCtrl | kShift);
    box.key(Qt::Key_Y, kCtrl);
    EXPECT_EQ(box.Text(), "ab\r\ncd");
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

    EXPECT_NEAR(field->height(), next->sizeHint().height() + 2, 2) << "as high as a line edit";
    QTest::keyClicks(field, "one");
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(field, Qt::Key_Enter);
    EXPECT_EQ(pressed, 2);
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    QTest::keyClick(next, Qt::Key_Backtab, kShift);
    EXPECT_TRUE(field->hasFocus());
    Box::setClipboard("a\r\nb\nc\rd\te");
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
    const std::pair<QString, std::string> rows[] = {
        {"a\nb\r\nc\rd", "a\r\nb\r\nc\r\nd"},
        {QString::fromUtf8("x\0y", 3), "x\0y"s},
        {"\u00E4\u20AC", "\u00E4\u20AC"},
        {"", "old"},
    };
    for (const auto& [in, out] : rows) {
        auto* const data = new QMimeData;
        if (!in.isEmpty()) data->setText(in);
        data->setHtml("<b>bold</b>");
        QGuiApplication::clipboard()->setMimeData(data);
        Box box(Kind::Document, "old");
        box.Select(0, 3);
        box.Paste();
        EXPECT_EQ(box.Text(), out);
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

TEST(RichTextBox, AllOfOneSortZoomTogether) {
    Box document(Kind::Document, "text"), other(Kind::Document, "text");
    Box preview(Kind::Preview, "text"), field(Kind::Field, "text");
    const auto zoom = [](const Box& box) { return box.SendScintilla(Box::SCI_GETZOOM); };
    const int height = field.height();
    const std::tuple<Box*, Box*, Box*> rows[] = {
        {&document, &other, &field}, {&preview, &field, &other}, {&field, &preview, &document}};
    for (const auto& [used, same, apart] : rows) {
        const auto wheel = [&, box = used](int delta) {
            QWheelEvent event({5, 5}, box->mapToGlobal(QPointF(5, 5)), {}, {0, delta}, {}, kCtrl,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(box->viewport(), &event);
        };
        for (int step = 0; step < 6; ++step) used->key(Qt::Key_Plus, kCtrl);
        used->key(Qt::Key_Equal, kCtrl);
        wheel(120);
        EXPECT_EQ(zoom(*used), 8);
        EXPECT_EQ(zoom(*same), 8);
        EXPECT_EQ(zoom(*apart), 0);
        EXPECT_EQ(field.height() > height, used != &document) << "a field is as high as its line";
        used->key(Qt::Key_Minus, kCtrl);
        wheel(-120);
        EXPECT_EQ(zoom(*used), 6);
        EXPECT_EQ(zoom(Box(used->kind())), 6) << "a later one";
        used->key(Qt::Key_0, kCtrl);
        EXPECT_EQ(zoom(*used) + zoom(*same), 0);
        EXPECT_EQ(field.height(), height);
    }
}

TEST(RichTextBox, FieldsAndPreviewsAreWrittenNoSmallerThanTheDesktop) {
    const auto size = [](const Box& box) {
        return box.SendScintilla(Box::SCI_STYLEGETSIZE, static_cast<unsigned long>(Box::STYLE_DEFAULT));
    };
    const QScopeGuard back([font = QApplication::font()] { QApplication::setFont(font); });
    Box document, preview(Kind::Preview), field(Kind::Field);
    for (const auto& [desktop, previews, fields] : {std::tuple(6, 10, 9), {20, 20, 20}, {6, 10, 9}}) {
        QFont font = QApplication::font();
        font.setPointSize(desktop);
        QApplication::setFont(font);
        QCoreApplication::processEvents();
        EXPECT_EQ(size(document), 10);
        EXPECT_EQ(size(preview), previews);
        EXPECT_EQ(size(field), fields);
    }
}

TEST(RichTextBox, ASelectionKeepsThePalettesColours) {
    Box box(Kind::Document, "     ");
    QPalette palette = box.palette();
    palette.setColor(QPalette::Active, QPalette::Highlight, Qt::red);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, Qt::green);
    box.setPalette(palette);
    box.Select(0, 5);
    const auto shown = [&] { return box.viewport()->grab().toImage().pixelColor(box.pointOf(2)); };
    for (const bool hasFocus : {true, false, true}) {
        box.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        hasFocus ? box.setFocus() : box.clearFocus();
        ASSERT_EQ(box.hasFocus(), hasFocus);
        const QColor colour = hasFocus ? Qt::red : Qt::green;
        EXPECT_EQ(shown(), colour);
        // Another program has selected something.
        emit QGuiApplication::clipboard()->selectionChanged();
        EXPECT_EQ(shown(), colour);
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
}

TEST(RichTextBox, IsReadThroughPropertiesAndByAssistiveTools) {
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
    EXPECT_EQ(box.Text(), "x\0y"s);
    EXPECT_EQ(box.changes, 1);
    EXPECT_EQ(box.StyleRuns(), "");

    box.setAccessibleName("Item Name");
    const QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&box);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->text(QAccessible::Name), "Item Name");
    EXPECT_EQ(seen->role(), QAccessible::EditableText);
}

}  // namespace
