// What typing a parenthesis, pointing and dropping bring beyond the text itself.

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QUrl>

#include "settings/Catalogue.h"
#include "settings/Store.h"
#include "support/Box.h"
#include "support/Scratch.h"
#include "ui/CloseParenthesis.h"

using namespace klt;
using Kind = RichTextBox::Kind;

namespace {

/// "[" and "]" stand around the selection, "|" at an empty one.
std::string marked(const RichTextBox& box) {
    std::string text(box.Text());
    const auto start = static_cast<size_t>(box.SelStart());
    if (box.SelLength() == 0) return text.insert(start, "|");
    return text.insert(start + static_cast<size_t>(box.SelLength()), "]").insert(start, "[");
}

TEST(CloseParenthesis, FollowsATypedOne) {
    const ScratchHome home;
    Store store;
    const struct {
        const char* what;
        bool matches;
        const char* text;
        TextRange selected;
        const char* typed;
        const char* after;
        int changes;
    } rows[] = {
        {"alone", true, "ab", {1, 1}, "(", "a(|)b", 1},
        {"nothing skips over it", true, "ab", {1, 1}, "()", "a()|)b", 2},
        {"the selection goes first", true, "abc", {1, 2}, "(", "a(|)c", 1},
        {"switched off", false, "abc", {1, 2}, "(", "a(|c", 1},
        {"other characters", true, "ab", {1, 1}, ")[", "a)[|b", 2},
        {"on after a letter", true, "", {0, 0}, "x(y", "x(y|)", 3},
        {"protected", true, "PPab", {1, 3}, "(", "P[Pa]b", 0},
        {"behind what is protected", true, "PPab", {2, 2}, "(", "PP(|)ab", 1},
    };
    for (const auto& row : rows) {
        writeSetting(store, settings::kMatchParenthesis, row.matches);
        for (const auto kind : {Kind::Document, Kind::Field}) {
            Box box(kind, row.text);
            pairTypedParentheses(box, store);
            if (*row.text == 'P') box.ColourRun(0, 2, 1, true);
            box.Select(row.selected.start, row.selected.end - row.selected.start);
            box.changes = 0;
            QTest::keyClicks(&box, row.typed);
            EXPECT_EQ(marked(box), row.after) << row.what;
            EXPECT_EQ(box.changes, row.changes) << row.what;
            int steps = 0;
            for (; box.CanUndo(); ++steps) box.Undo();
            EXPECT_EQ(std::string(box.Text()), row.text) << row.what;
            if (row.changes == 1) {
                EXPECT_EQ(steps, 1) << row.what;
            }
        }
    }
    Box box;
    pairTypedParentheses(box, store);
    box.commit("(");
    EXPECT_EQ(marked(box), "(|)") << "from an input method";
}

TEST(RichTextBoxPopup, IsWantedWhereTheRightButtonWasReleased) {
    const struct {
        Kind kind;
        TextRange selected;
        const char* after;
    } rows[] = {
        {Kind::Document, {0, 0}, "one |two"},
        {Kind::Document, {1, 2}, "o[n]e two"},
        {Kind::Field, {0, 0}, "|one two"},
    };
    for (const auto& row : rows) {
        Box box(row.kind, "one two");
        std::vector<std::string> seen;
        QPoint wanted;
        QObject::connect(&box, &RichTextBox::popupWanted, [&](QPoint global) {
            seen.push_back(marked(box));
            wanted = box.viewport()->mapFromGlobal(global);
        });
        box.Select(row.selected.start, row.selected.end - row.selected.start);
        QTest::mousePress(box.viewport(), Qt::RightButton, {}, box.pointOf(4));
        EXPECT_TRUE(seen.empty());
        QTest::mouseRelease(box.viewport(), Qt::RightButton, {}, box.pointOf(4));
        EXPECT_EQ(seen, std::vector<std::string>{row.after});
        EXPECT_EQ(wanted, box.pointOf(4));
    }
}

TEST(RichTextBoxPopup, StandsBelowTheCaretForTheKeyboard) {
    Box box(Kind::Document, "one\r\ntwo\r\nthree");
    std::vector<QPoint> wanted;
    QObject::connect(&box, &RichTextBox::popupWanted,
                     [&](QPoint global) { wanted.push_back(box.viewport()->mapFromGlobal(global)); });
    box.SetSelStart(7);
    box.key(Qt::Key_F10, kShift);
    for (const auto reason : {QContextMenuEvent::Keyboard, QContextMenuEvent::Mouse}) {
        QContextMenuEvent event(reason, {1, 1}, {1, 1});
        QApplication::sendEvent(box.viewport(), &event);
        EXPECT_TRUE(event.isAccepted());
    }
    const QPoint below =
        box.pointOf(7) + QPoint(0, static_cast<int>(box.SendScintilla(Box::SCI_TEXTHEIGHT, 0UL)) - 2);
    EXPECT_EQ(wanted, (std::vector<QPoint>{below, below}));
}

TEST(RichTextBox, FilesAreLeftToTheWindow) {
    for (const bool isProtected : {false, true}) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/a.klt")});
        data.setText("/a.klt");
        Box box(Kind::Document, "text");
        if (isProtected) box.ColourRun(0, 2, 1, true);
        EXPECT_FALSE(box.drop(data, 3));
        QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(box.viewport(), &enter);
        EXPECT_FALSE(enter.isAccepted());
        EXPECT_EQ(box.shown(), "text");
    }
}

TEST(RichTextBox, AWebLinkDropsAsText) {
    QMimeData data;
    data.setUrls({QUrl("http://example.org/x")});
    data.setText("http://example.org/x");
    for (const bool isProtected : {false, true}) {
        Box box(Kind::Document, "text");
        if (isProtected) box.ColourRun(2, 4, 1, true);
        EXPECT_EQ(box.drop(data, 3), !isProtected);
        EXPECT_EQ(box.shown(), isProtected ? "text" : "texhttp://example.org/xt");
        EXPECT_EQ(box.changes, isProtected ? 0 : 1);
    }
}

}  // namespace
