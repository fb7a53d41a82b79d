// Message boxes: whatever their text, all of it can be reached on the screen.

#include "ui/MessageBox.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

#include "ui/QtStrings.h"

using namespace klt;

namespace {

std::string repeated(int times, const char* piece) {
    return QByteArray(piece).repeated(times).toStdString();
}

TEST(MessageBoxTest, StaysInsideTheScreenWithItsWholeText) {
    const std::tuple<const char*, std::string, bool> rows[] = {
        {"short", "Invalid Entry!", false},
        {"some lines", repeated(12, "a line\n"), false},
        {"no place to break", repeated(20'000, "x"), true},
        {"places to break", "/" + repeated(2'000, "abcdefghi/"), true},
        {"as much as is handed over", repeated(50'000, "abcdefghi/"), true},
        {"many lines", repeated(400, "a line\n"), true},
    };
    for (const auto& [name, text, scrolls] : rows) {
        SCOPED_TRACE(name);
        QWidget owner;
        owner.setGeometry(100, 100, 400, 300);
        owner.show();
        bool answered = false;
        QTimer::singleShot(0, [&, &text = text, scrolls = scrolls] {
            auto& box = dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
            EXPECT_EQ(box.text(), toQString(text));
            const QRect screen = box.screen()->availableGeometry();
            EXPECT_TRUE(screen.contains(box.frameGeometry()));
            auto* const button = box.button(QMessageBox::Ok);
            EXPECT_TRUE(box.rect().contains({button->mapTo(&box, QPoint()), button->size()}));
            EXPECT_EQ(box.focusWidget(), button);
            const auto* const view = box.findChild<QTextEdit*>();
            EXPECT_EQ(box.findChild<QLabel*>("qt_msgbox_label")->isVisible(), view == nullptr);
            EXPECT_EQ(view != nullptr, scrolls);
            if (view) {
                EXPECT_EQ(view->toPlainText().remove('\n'), box.text().remove('\n'));
                EXPECT_GT(view->verticalScrollBar()->maximum(), 0);
                EXPECT_EQ(view->horizontalScrollBar()->maximum(), 0);
            }
            QTest::keyClick(box.focusWidget(), Qt::Key_Enter);
            answered = true;
        });
        EXPECT_EQ(MessageBox(&owner, text, MessageIcon::Exclamation, "title"), QMessageBox::Ok);
        EXPECT_TRUE(answered);
    }
}

TEST(MessageBoxTest, IsAsWideAsItsTitleAtAnyFont) {
    const QFont before = QApplication::font();
    const std::string title = "Preview of a line of " + repeated(3, "many words ");
    for (const int points : {8, 20}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        font.setBold(true);
        QTimer::singleShot(0, [&] {
            auto* const box = QApplication::activeModalWidget();
            const int needed = QFontMetrics(font).horizontalAdvance(box->windowTitle());
            EXPECT_GT(box->width(), std::min(needed, box->screen()->availableSize().width() / 2));
            QTest::keyClick(box, Qt::Key_Escape);
        });
        MessageBox(nullptr, "text", MessageIcon::Information, title);
    }
    QApplication::setFont(before);
}

TEST(MessageBoxTest, EscapeSkipsNothing) {
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_EQ(MessageBox(nullptr, "text", MessageIcon::None, "title", QMessageBox::Ok | kSkipTheRest),
              QMessageBox::Ok);
}

}  // namespace
