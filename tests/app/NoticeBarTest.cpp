#include "app/window/NoticeBar.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <memory>

using namespace klt;

namespace {

class NoticeBarTest : public testing::Test {
protected:
    NoticeBarTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&bar);
        column->addWidget(&edit);
        column->addStretch(1);
        window.resize(500, 400);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        edit.setFocus();
    }
    QString text() const { return bar.findChild<QLabel*>("NoticeText")->text(); }
    void dismiss() { QTest::mouseClick(bar.findChild<QPushButton*>("NoticeDismiss"), Qt::LeftButton); }

    QToolButton& all() { return *bar.findChild<QToolButton*>("NoticeAll"); }
    QDialog& list() { return *bar.findChild<QDialog*>("NoticeList"); }
    /// What the list shows, row by row.
    std::string listed() {
        std::string rows;
        for (int row = 0;; ++row) {
            const QString at = '(' + QString::number(row) + ')';
            const auto* text = list().isVisible() ? list().findChild<QLabel*>("NoticeText" + at) : nullptr;
            if (!text) return rows;
            rows += text->text().toStdString();
            for (const auto* button : text->parentWidget()->findChildren<QPushButton*>())
                rows += ' ' + button->text().toStdString();
            rows += '|';
        }
    }
    static void press(Qt::Key key) {
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget(); }));
        // What a button has taken away goes when events run.
        QTest::qWait(0);
        QTest::keyClick(QApplication::activePopupWidget()->focusWidget(), key);
        QTest::qWait(0);
    }

    QWidget window;
    NoticeBar bar{&window};
    QLineEdit edit{&window};
};

TEST_F(NoticeBarTest, AClickIsForTheNoticeThatWasPressed) {
    std::string chosen;
    bar.offer("old", {{"NoticeOld", "Old", [&] { chosen += "old"; }}});
    auto* button = bar.findChild<QPushButton*>("NoticeOld");
    QTest::mousePress(button, Qt::LeftButton);
    const auto fresh = bar.offer("new", {{"NoticeNew", "New", [&] { chosen += "new"; }}});
    QTest::mouseRelease(button, Qt::LeftButton);
    EXPECT_EQ(chosen, "");
    bar.withdraw(fresh);
    QTest::mouseClick(bar.findChild<QPushButton*>("NoticeOld"), Qt::LeftButton);
    EXPECT_EQ(chosen, "old");
}

TEST_F(NoticeBarTest, ItShowsTheNewestNoticeAndHowManyThereAre) {
    EXPECT_FALSE(bar.isVisible());
    int dismissed = 0;
    bar.tell("one", [&] { ++dismissed; });
    EXPECT_TRUE(bar.isVisible());
    EXPECT_TRUE(edit.hasFocus());
    EXPECT_FALSE(all().isVisible());
    for (int twice = 0; twice < 2; ++twice) {
        bar.tell("two");
        EXPECT_EQ(text(), "two");
        EXPECT_EQ(all().text(), "A&ll 2 Notices");
    }
    dismiss();
    EXPECT_EQ(text(), "one");
    EXPECT_EQ(dismissed, 0);
    dismiss();
    EXPECT_FALSE(bar.isVisible());
    EXPECT_TRUE(edit.hasFocus());
    EXPECT_EQ(dismissed, 1);
}

TEST_F(NoticeBarTest, AClickOrAKeyListsAllWithTheirButtons) {
    std::string chosen;
    bar.tell("one", [&] { chosen += "one "; });
    bar.offer("two", {{"NoticeYes", "&Yes", [&] { chosen += "yes "; }},
                      {"NoticeNo", "&No", [&] { chosen += "no "; }}});
    bar.tell("three", [&] { chosen += "three "; });
    QTest::qWait(0);
    QTest::mouseClick(bar.findChild<QWidget*>("NoticeText"), Qt::LeftButton);
    EXPECT_EQ(listed(), "three Dismiss|two Yes No|one Dismiss|");
    press(Qt::Key_Escape);
    EXPECT_FALSE(list().isVisible());
    QTest::keyClick(&edit, Qt::Key_L, Qt::AltModifier);
    for (const auto key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space}) press(key);
    EXPECT_EQ(chosen, "no ");
    EXPECT_FALSE(list().isVisible());
    QTest::keyClick(&edit, Qt::Key_L, Qt::AltModifier);
    for (const auto key : {Qt::Key_Tab, Qt::Key_Return}) press(key);
    EXPECT_EQ(chosen, "no one ");
    EXPECT_EQ(listed(), "three Dismiss|");
    EXPECT_EQ(QApplication::focusWidget()->accessibleDescription(), "three");
    press(Qt::Key_Return);
    EXPECT_FALSE(bar.isVisible() || list().isVisible());
    EXPECT_TRUE(edit.hasFocus());
}

TEST_F(NoticeBarTest, WhatANoticeIsAboutTakesItAlong) {
    QObject saved;
    auto closed = std::make_unique<QObject>();
    bar.tell("of the program");
    bar.tell("of the one", {}, &saved);
    bar.offer("of the other", {{"NoticeYes", "&Yes", {}}}, closed.get());
    closed.reset();
    EXPECT_EQ(text(), "of the one");
    bar.withdrawAbout(&saved);
    EXPECT_EQ(text(), "of the program");
    bar.withdrawAbout(nullptr);
    EXPECT_TRUE(bar.isVisible());
}

TEST_F(NoticeBarTest, ANoticeOffersChoicesUntilItIsWithdrawn) {
    std::string chosen;
    const auto offered = [&] {
        std::string captions;
        for (const auto* button : bar.findChildren<QPushButton*>())
            if (button->isVisible()) captions += button->text().toStdString() + '|';
        return captions;
    };
    const auto first = bar.offer("one", {{"NoticeYes", "&Yes", [&] { chosen += "yes "; }},
                                         {"NoticeNo", "&No", [&] { chosen += "no "; }}});
    EXPECT_EQ(offered(), "&Yes|&No|");
    bar.tell("two");
    EXPECT_EQ(offered(), "&Dismiss|");
    dismiss();
    QTest::mouseClick(bar.findChild<QPushButton*>("NoticeNo"), Qt::LeftButton);
    EXPECT_EQ(chosen, "no ");
    EXPECT_FALSE(bar.isVisible());
    const auto third = bar.offer("three", {{"NoticeYes", "&Yes", {}}});
    EXPECT_NE(third, first);
    bar.withdraw(first);
    EXPECT_EQ(text(), "three");
    bar.withdraw(third);
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(chosen, "no ");
}

TEST_F(NoticeBarTest, ALongTextIsBrokenIntoAFewLinesAndListedWhole) {
    bar.tell("short");
    QTest::qWait(0);
    const int height = bar.height(), width = window.minimumSizeHint().width();
    const int line = bar.fontMetrics().height();
    for (const auto& [length, lines] : {std::pair(150, 2), {5000, 3}}) {
        bar.tell(std::string(static_cast<size_t>(length), 'a') + "\n\t<b>end");
        EXPECT_TRUE(text().endsWith("  <b>end"));
        window.resize(bar.fontMetrics().horizontalAdvance('a') * 110 + width, window.height());
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return bar.findChild<QLabel*>("NoticeText")->height() >= lines * line; }));
        EXPECT_LE(bar.height(), height + lines * line);
        EXPECT_LT(window.minimumSizeHint().width(), width + 400);
        dismiss();
    }
    dismiss();
    bar.tell(std::string(5000, 'a') + " end");
    EXPECT_TRUE(QTest::qWaitFor([&] { return all().isVisible(); }));
    EXPECT_EQ(all().text(), "Fu&ll Text");
    QTest::keyClick(&edit, Qt::Key_L, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return list().isVisible(); }));
    const auto* whole = list().findChild<QLabel*>("NoticeText(0)");
    EXPECT_EQ(whole->text(), text());
    EXPECT_TRUE(QTest::qWaitFor([&] { return whole->height() > 10 * line; }));
    press(Qt::Key_Escape);
}

}  // namespace
