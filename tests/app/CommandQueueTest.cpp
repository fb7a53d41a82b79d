#include "app/commands/CommandQueue.h"

#include <gmock/gmock.h>

#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QWindow>

#include "support/Drop.h"
#include "ui/RichTextBox.h"

using namespace klt;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CommandQueueTest : public testing::Test {
protected:
    CommandQueue::Command note(const char* name) {
        return [this, name] { done.emplace_back(name); };
    }
    static void letEventsRun() { QTest::qWait(1); }

    std::vector<std::string> done;
    CommandQueue queue;
};

TEST_F(CommandQueueTest, HeldCommandsComeInTheirOrderAfterTheLastHold) {
    {
        const CommandQueue::Hold hold(queue);
        queue.submit(Origin::User, note("a"));
        {
            const CommandQueue::Hold inner(queue);
            queue.submit(Origin::Outside, note("b"));
        }
        letEventsRun();
        EXPECT_THAT(done, IsEmpty());
        queue.submit(Origin::User, note("c"));
    }
    EXPECT_THAT(done, IsEmpty()) << "not from inside who held them";
    letEventsRun();
    EXPECT_THAT(done, ElementsAre("a", "b", "c"));
}

TEST_F(CommandQueueTest, ACommandThatHoldsStopsTheRest) {
    {
        const CommandQueue::Hold hold(queue);
        queue.submit(Origin::User, [this] {
            const CommandQueue::Hold own(queue);
            letEventsRun();
            EXPECT_THAT(done, IsEmpty());
            done.emplace_back("a");
        });
        queue.submit(Origin::User, note("b"));
    }
    letEventsRun();
    EXPECT_THAT(done, ElementsAre("a", "b"));
}

TEST_F(CommandQueueTest, ADialogAloneHoldsNothingBack) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    queue.submit(Origin::User, note("a"));
    queue.submit(Origin::Outside, note("b"));
    EXPECT_THAT(done, ElementsAre("a", "b"));
}

TEST_F(CommandQueueTest, WhatTheUserAskedForWaitsForADialogOfAnEarlierCommandAndOthersDoNot) {
    {
        const CommandQueue::Hold hold(queue);
        queue.submit(Origin::User, [this] {
            QDialog dialog;
            dialog.setModal(true);
            dialog.show();
            letEventsRun();
            done.emplace_back("a");
        });
        queue.submit(Origin::User, note("b"));
        queue.submit(Origin::Outside, note("c"));
    }
    letEventsRun();
    EXPECT_THAT(done, ElementsAre("c", "a", "b"));
}

TEST_F(CommandQueueTest, WaitingCommandsGoWithTheQueue) {
    const auto token = std::make_shared<int>(0);
    {
        CommandQueue other;
        const CommandQueue::Hold hold(other);
        other.submit(Origin::Outside, [token] { FAIL(); });
        EXPECT_EQ(token.use_count(), 2);
    }
    EXPECT_EQ(token.use_count(), 1);
}

TEST_F(CommandQueueTest, AfterItsEndNothingIsCarriedOut) {
    {
        const CommandQueue::Hold hold(queue);
        queue.submit(Origin::Outside, note("waiting"));
        queue.end();
    }
    queue.submit(Origin::User, note("late"));
    letEventsRun();
    EXPECT_THAT(done, ElementsAre());
}

class HeldTextTest : public CommandQueueTest {
protected:
    HeldTextTest() {
        area.SetText("text");
        area.show();
    }
    RichTextBox area;
    RichTextBox field{RichTextBox::Kind::Field};
};

TEST_F(HeldTextTest, KeysWaitAmongTheCommandsAndReachTheTextAfterwards) {
    {
        const CommandQueue::Hold hold(queue);
        QTest::keyClicks(&area, "ab");
        queue.submit(Origin::User, [this] { done.emplace_back(area.Text()); });
        QTest::keyClick(&area, 'c');
        QTest::keyClicks(&field, "f");
        EXPECT_EQ(area.Text(), "text");
        EXPECT_EQ(field.Text(), "f") << "only documents are held back";
    }
    letEventsRun();
    EXPECT_THAT(done, ElementsAre("abtext"));
    EXPECT_EQ(area.Text(), "abctext");
    QTest::keyClick(&area, 'd');
    EXPECT_EQ(area.Text(), "abcdtext");
}

TEST_F(HeldTextTest, AnOpeningHoldsBackTheWindowsThatStoodBeforeAndNoneThatItRaises) {
    field.show();
    QDialog raised;
    QLineEdit inIt(&raised);
    {
        const CommandQueue::Opening opening(queue);
        QTest::keyClick(&field, 'f');
        queue.submit(Origin::User, [this] { done.emplace_back(field.Text()); });
        raised.setModal(true);
        raised.show();
        {
            const CommandQueue::Opening next(queue);
            QTest::keyClick(&inIt, 'r');
        }
        QTest::keyClick(&field, 'g');
        raised.close();
        field.windowHandle()->close();
        EXPECT_EQ(field.Text(), "");
        EXPECT_TRUE(field.isVisible()) << "it is not closed before what waits for it";
    }
    EXPECT_EQ(inIt.text(), "r");
    QTest::keyClick(&field, 'h');
    letEventsRun();
    EXPECT_THAT(done, ElementsAre("f"));
    EXPECT_EQ(field.Text(), "fg") << "and no key reaches a closed window";
    EXPECT_FALSE(field.isVisible());
}

TEST_F(HeldTextTest, WhatWaitsForADialogThatStaysUpIsCarriedOutInItsOrder) {
    QDialog dialog;
    QLineEdit edit(&dialog);
    dialog.setModal(true);
    {
        const CommandQueue::Opening opening(queue);
        queue.submit(Origin::User, note("for its end"));
    }
    dialog.show();
    {
        const CommandQueue::Opening opening(queue);
        QTest::keyClick(&edit, 'a');
        queue.submit(Origin::Outside, [&] {
            const CommandQueue::Opening next(queue);
            done.push_back(edit.text().toStdString());
            QTest::keyClick(&edit, 'c');
        });
        QTest::keyClick(&edit, 'b');
    }
    letEventsRun();
    EXPECT_EQ(edit.text(), "abc");
    QTest::keyClick(&edit, 'd');
    EXPECT_EQ(edit.text(), "abcd") << "what waits for its end does not stop it";
    EXPECT_THAT(done, ElementsAre("a"));
    dialog.close();
    letEventsRun();
    EXPECT_THAT(done, ElementsAre("a", "for its end"));
}

TEST_F(HeldTextTest, APopupGivesWayToABoxThoughKeysWaitForIt) {
    QMenu menu;
    menu.addAction("&x");
    menu.popup({});
    const CommandQueue::Opening opening(queue);
    QTest::keyClick(&menu, Qt::Key_X);
    EXPECT_TRUE(menu.isVisible());
    QDialog box;
    box.show();
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(HeldTextTest, AClickMovesTheCaretAfterwards) {
    area.Select(4, 0);
    {
        const CommandQueue::Hold hold(queue);
        QTest::mouseClick(area.viewport(), Qt::LeftButton, {}, QPoint(1, 4));
        EXPECT_EQ(area.SelStart(), 4);
    }
    letEventsRun();
    EXPECT_EQ(area.SelStart(), 0);
}

TEST_F(HeldTextTest, DroppedTextIsRefusedMeanwhile) {
    QMimeData data;
    data.setText("dropped");
    std::optional<CommandQueue::Hold> hold;
    dropOnto(*area.viewport(), data, [&] { hold.emplace(queue); });
    EXPECT_EQ(area.Text(), "text");
    hold.reset();
    letEventsRun();
    dropOnto(*area.viewport(), data);
    EXPECT_EQ(area.Length(), 11);
}

TEST_F(HeldTextTest, KeysForATextThatIsGoneAreDropped) {
    auto* gone = new RichTextBox;
    {
        const CommandQueue::Hold hold(queue);
        QTest::keyClick(gone, 'a');
        delete gone;
        queue.submit(Origin::User, note("a"));
    }
    letEventsRun();
    EXPECT_THAT(done, ElementsAre("a"));
}

}  // namespace
