// What typing a parenthesis, pointing and dropping bring beyond the text itself.

#include <gmock/gmock.h>

#include <QContextMenuEvent>
#include <QUrl>

#include "settings/Catalogue.h"
#include "settings/Store.h"
#include "support/Box.h"
#include "support/Scratch.h"
#include "ui/CloseParenthesis.h"

using namespace klt;
using testing::ElementsAre;
using testing::Pair;
using Kind = RichTextBox::Kind;

namespace {

TEST(CloseParenthesis, FollowsATypedOne) {
    const ScratchHome home;
    Store store;
    const std::tuple<const char*, bool, const char*, const char*, const char*, int> rows[] = {
        {"alone", true, "a<>b", "(", "a(<>)b", 1},
        {"nothing skips over it", true, "a<>b", "()", "a()<>)b", 2},
        {"the selection goes first", true, "a<b>c", "(", "a(<>)c", 1},
        {"switched off", false, "a<b>c", "(", "a(<>c", 1},
        {"other characters", true, "a<>b", ")[", "a)[<>b", 2},
        {"on after a letter", true, "<>", "x(y", "x(y<>)", 3},
        {"protected", true, "P<Pa>b", "(", "P<Pa>b", 0},
        {"behind what is protected", true, "PP<>ab", "(", "PP(<>)ab", 1},
    };
    for (const auto& [what, matches, before, typed, after, changes] : rows) {
        writeSetting(store, settings::kMatchParenthesis, matches);
        for (const auto kind : {Kind::Document, Kind::Field}) {
            Box box(kind);
            pairTypedParentheses(box, store);
            setMarkedText(box, before);
            const std::string text(box.Text());
            if (*before == 'P') box.ColourRun(0, 2, 1, true);
            box.changes = 0;
            QTest::keyClicks(&box, typed);
            EXPECT_EQ(markedText(box), after) << what;
            EXPECT_EQ(box.changes, changes) << what;
            int steps = 0;
            for (; box.CanUndo(); ++steps) box.Undo();
            EXPECT_EQ(box.Text(), text) << what;
            EXPECT_TRUE(changes != 1 || steps == 1) << what;
        }
    }
    Box box;
    pairTypedParentheses(box, store);
    box.commit("(");
    EXPECT_EQ(markedText(box), "(<>)") << "from an input method";
}

TEST(RichTextBoxPopup, IsWantedWhereTheRightButtonWasReleased) {
    const std::tuple<Kind, const char*, const char*> rows[] = {
        {Kind::Document, "<>one two", "one <>two"},
        {Kind::Document, "o<n>e two", "o<n>e two"},
        {Kind::Field, "<>one two", "<>one two"},
    };
    for (const auto& [kind, before, after] : rows) {
        Box box(kind);
        std::vector<std::pair<std::string, QPoint>> seen;
        QObject::connect(&box, &RichTextBox::popupWanted, [&](QPoint global) {
            seen.emplace_back(markedText(box), box.viewport()->mapFromGlobal(global));
        });
        setMarkedText(box, before);
        QTest::mousePress(box.viewport(), Qt::RightButton, {}, box.pointOf(4));
        EXPECT_TRUE(seen.empty());
        QTest::mouseRelease(box.viewport(), Qt::RightButton, {}, box.pointOf(4));
        EXPECT_THAT(seen, ElementsAre(Pair(after, box.pointOf(4))));
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

TEST(RichTextBox, TakesADroppedWebLinkAsTextAndLeavesFilesToTheWindow) {
    for (const char* link : {"http://example.org/x", "file:///a.klt"}) {
        QMimeData data;
        data.setUrls({QUrl(link)});
        data.setText(link);
        for (const bool isProtected : {false, true}) {
            const bool isTaken = *link == 'h' && !isProtected;
            Box box(Kind::Document, "text");
            if (isProtected) box.ColourRun(2, 4, 1, true);
            EXPECT_EQ(box.drop(data, 3), isTaken);
            EXPECT_EQ(box.Text(), isTaken ? "texhttp://example.org/xt" : "text");
            EXPECT_EQ(box.changes, isTaken ? 1 : 0);
            if (*link == 'h') continue;
            QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(box.viewport(), &enter);
            EXPECT_FALSE(enter.isAccepted());
        }
    }
}

}  // namespace
