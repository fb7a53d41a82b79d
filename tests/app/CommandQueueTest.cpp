#include "app/commands/CommandQueue.h"

#include <gmock/gmock.h>

#include <QDialog>
#include <QLineEdit>
#include <QMenu>
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
    CommandQueueTest() {
        area.SetText("text");
        area.show();
        dialog.setModal(true);
    }
    /// A command that puts its name into `done`.
    void submit(const char* name, Origin origin = Origin::User) {
        queue.submit(origin, [this, name] { done.emplace_back(name); });
    }
    /// What `work` submits and types is held back, and then comes.
    void held(const std::function<void()>& work) {
        {
            const CommandQueue::Hold hold(queue);
            work();
        }
        letEventsRun();
    }
    static void letEventsRun() { QTest::qWait(1); }

    std::vector<std::string> done;
    CommandQueue queue;
    RichTextBox area;
    RichTextBox field{RichTextBox::Kind::Field};
    QDialog dialog;
    QLineEdit edit{&dialog};
};

TEST_F(CommandQueueTest, HeldCommandsComeInTheirOrderAfterTheLastHold) {
    {
        const CommandQueue::Hold hold(queue);
        submit("a");
        held([this] { submit("b", Origin::Outside); });
        EXPECT_THAT(done, IsEmpty());
        submit("c");
    }
    EXPECT_THAT(done, IsEmpty()) << "not from inside who held them";
    letEventsRun();
    EXPECT_THAT(done, ElementsAre("a", "b", "c"));
}

TEST_F(CommandQueueTest, ACommandThatHoldsStopsTheRest) {
    held([this] {
        queue.submit(Origin::User, [this] {
            const CommandQueue::Hold own(queue);
            letEventsRun();
            EXPECT_THAT(done, IsEmpty());
            done.emplace_back("a");
        });
        submit("b");
    });
    EXPECT_THAT(done, ElementsAre("a", "b"));
}

TEST_F(CommandQueueTest, WhatTheUserAskedForWaitsForADialogOfAnEarlierCommandAndOthersDoNot) {
    held([this] {
        queue.submit(Origin::User, [this] {
            dialog.show();
            letEventsRun();
            done.emplace_back("a");
        });
        submit("b");
        submit("c", Origin::Outside);
    });
    EXPECT_THAT(done, ElementsAre("c", "a"));
    dialog.close();
    letEventsRun();
    dialog.show();
    submit("d");
    EXPECT_THAT(done, ElementsAre("c", "a", "b", "d")) << "a dialog alone holds nothing back";
}

TEST_F(CommandQueueTest, AfterItsEndNothingIsCarriedOut) {
    {
        CommandQueue other;
        const CommandQueue::Hold hold(other);
        other.submit(Origin::Outside, [] { FAIL(); });
    }
    held([this] {
        submit("waiting", Origin::Outside);
        queue.end();
    });
    submit("late");
    letEventsRun();
    EXPECT_THAT(done, IsEmpty());
}

TEST_F(CommandQueueTest, KeysWaitAmongTheCommandsAndReachTheTextAfterwards) {
    auto* gone = new RichTextBox;
    held([&] {
        QTest::keyClicks(&area, "ab");
        queue.submit(Origin::User, [this] { done.emplace_back(area.Text()); });
        QTest::keyClick(gone, 'x');
        delete gone;
        QTest::keyClick(&area, 'c');
        QTest::keyClicks(&field, "f");
        EXPECT_EQ(area.Text(), "text");
        EXPECT_EQ(field.Text(), "f") << "only documents are held back";
    });
    EXPECT_THAT(done, ElementsAre("abtext"));
    EXPECT_EQ(area.Text(), "abctext");
    QTest::keyClick(&area, 'd');
    EXPECT_EQ(area.Text(), "abcdtext");
}

TEST_F(CommandQueueTest, AnOpeningHoldsBackTheWindowsThatStoodBeforeAndNoneThatItRaises) {
    field.show();
    {
        const CommandQueue::Opening opening(queue);
        QTest::keyClick(&field, 'f');
        queue.submit(Origin::User, [this] { done.emplace_back(field.Text()); });
        dialog.show();
        {
            const CommandQueue::Opening next(queue);
            QTest::keyClick(&edit, 'r');
        }
        QTest::keyClick(&field, 'g');
        dialog.close();
        field.windowHandle()->close();
        EXPECT_EQ(field.Text(), "");
        EXPECT_TRUE(field.isVisible()) << "it is not closed before what waits for it";
    }
    EXPECT_EQ(edit.text(), "r");
    QTest::keyClick(&field, 'h');
    letEventsRun();
    EXPECT_THAT(done, ElementsAre("f"));
    EXPECT_EQ(field.Text(), "fg") << "and no key reaches a closed window";
    EXPECT_FALSE(field.isVisible());
}

TEST_F(CommandQueueTest, ABoxThatComesUpAmidAPassIsAnsweredAtOnce) {
    QLineEdit before, amid;
    before.show();
    {
        const CommandQueue::Pass pass(queue, nullptr);
        amid.show();
        QTest::keyClicks(&before, "a");
        QTest::keyClicks(&amid, "b");
        EXPECT_EQ(before.text(), "");
        EXPECT_EQ(amid.text(), "b");
    }
    letEventsRun();
    EXPECT_EQ(before.text(), "a");
}

TEST_F(CommandQueueTest, WhatWaitsForADialogThatStaysUpIsCarriedOutInItsOrder) {
    {
        const CommandQueue::Opening opening(queue);
        submit("for its end");
    }
    dialog.show();
    {
        const CommandQueue::Opening opening(queue);
        QTest::keyClick(&edit, 'a');
        queue.submit(Origin::Outside, [this] {
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

TEST_F(CommandQueueTest, APopupGivesWayToABoxThoughKeysWaitForIt) {
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

TEST_F(CommandQueueTest, AClickMovesTheCaretAfterwards) {
    area.Select(4, 0);
    held([this] {
        QTest::mouseClick(area.viewport(), Qt::LeftButton, {}, QPoint(1, 4));
        EXPECT_EQ(area.SelStart(), 4);
    });
    EXPECT_EQ(area.SelStart(), 0);
}

TEST_F(CommandQueueTest, DroppedTextIsRefusedMeanwhile) {
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

}  // namespace
