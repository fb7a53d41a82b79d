#include "ui/RichTextBox.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace klt;

namespace {

TEST(RichTextBox, TakesTypedText) {
    RichTextBox box;
    box.show();
    QTest::keyClicks(&box, "abc");
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_EQ(box.Text(), "abc\r\n\t");
    QTest::keyClick(&box, Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "abc\r\n\t");
}

}  // namespace
