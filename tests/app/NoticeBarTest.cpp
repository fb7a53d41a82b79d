#include "app/window/NoticeBar.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

using namespace klt;

namespace {

class NoticeBarTest : public testing::Test {
protected:
    NoticeBarTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&bar);
        column->addWidget(&edit);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        edit.setFocus();
    }
    QString text() const { return bar.findChild<QLabel*>("NoticeText")->text(); }
    void dismiss() { QTest::mouseClick(bar.findChild<QPushButton*>("NoticeDismiss"), Qt::LeftButton); }

    QWidget window;
    NoticeBar bar{&window};
    QLineEdit edit{&window};
};

TEST_F(NoticeBarTest, ItShowsTheNewestNoticeAndHowManyAreBehindIt) {
    EXPECT_FALSE(bar.isVisible());
    const auto* count = bar.findChild<QLabel*>("NoticeCount");
    int dismissed = 0;
    bar.tell("one", [&] { ++dismissed; });
    EXPECT_TRUE(bar.isVisible());
    EXPECT_TRUE(edit.hasFocus());
    EXPECT_FALSE(count->isVisible());
    for (int twice = 0; twice < 2; ++twice) {
        bar.tell("two");
        EXPECT_EQ(text(), "two");
        EXPECT_EQ(count->text(), "and 1 more");
    }
    dismiss();
    EXPECT_EQ(text(), "one");
    EXPECT_EQ(dismissed, 0);
    dismiss();
    EXPECT_FALSE(bar.isVisible());
    EXPECT_TRUE(edit.hasFocus());
    EXPECT_EQ(dismissed, 1);
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

TEST_F(NoticeBarTest, ALongPathWithLineBreaksStaysOnOneLineAndDoesNotWidenTheWindow) {
    const int height = bar.sizeHint().height(), width = window.minimumSizeHint().width();
    bar.tell(std::string(5000, 'a') + "\n\t<b>end");
    QTest::qWait(0);
    EXPECT_TRUE(text().endsWith("  <b>end"));
    EXPECT_EQ(bar.sizeHint().height(), height);
    EXPECT_LT(window.minimumSizeHint().width(), width + 400);
}

}  // namespace
