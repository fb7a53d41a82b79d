#include "ui/Combo.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <functional>

using namespace klt;

namespace {

class ComboTest : public testing::Test {
protected:
    ComboTest() {
        // Within it a click in the list belongs to what has opened the list.
        QApplication::setDoubleClickInterval(0);
        auto* column = new QVBoxLayout(&window);
        for (Combo* each : {&combo, &list}) {
            column->addWidget(each);
            each->addItems({"one", "two", "three"});
            each->setCurrentIndex(-1);
            QObject::connect(each, &QComboBox::activated,
                             [this](int item) { chosen += std::to_string(item); });
        }
        column->addWidget(&other);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        combo.setFocus();
    }
    ~ComboTest() override { QApplication::clipboard()->clear(); }

    void key(Qt::Key which) { QTest::keyClick(&combo, which); }
    void type(const char* text) { QTest::keyClicks(&combo, text); }
    static void wheel(Combo& over) {
        QWheelEvent turn({5, 5}, over.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                         false);
        QApplication::sendEvent(&over, &turn);
    }
    void paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&combo, Qt::Key_V, Qt::ControlModifier);
    }

    QWidget window;
    Combo combo{TypedText::Lines};
    Combo list{TypedText::None};
    QLineEdit other;
    std::string chosen;
};

TEST_F(ComboTest, TellsOfChoicesInTheListAlone) {
    const auto clickInList = [&](int item) {
        combo.showPopup();
        const auto place = combo.view()->visualRect(combo.model()->index(item, 0)).center();
        QTest::mouseClick(combo.view()->viewport(), Qt::LeftButton, {}, place);
    };
    const auto enterInList = [&] {
        QTest::keyClick(&combo, Qt::Key_Down, Qt::AltModifier);
        for (const auto which : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Return})
            QTest::keyClick(combo.view(), which);
    };
    const std::tuple<const char*, std::function<void()>, const char*, const char*> rows[] = {
        {"Enter on a typed item", [&] { type("two"), key(Qt::Key_Return); }, "", "two"},
        {"leaving a typed item", [&] { type("two"), other.setFocus(); }, "", "two"},
        {"arrows", [&] { key(Qt::Key_Down), key(Qt::Key_Down), key(Qt::Key_Up); }, "010", "one"},
        {"wheel", [&] { wheel(combo); }, "0", "one"},
        {"wheel from outside", [&] { other.setFocus(), wheel(combo); }, "", ""},
        {"click in the list", [&] { clickInList(2); }, "2", "three"},
        {"Enter in the list", enterInList, "1", "two"},
        {"letters in a list", [&] { list.setFocus(), QTest::keyClicks(&list, "th"); }, "12", ""},
        {"wheel over a list", [&] { list.setFocus(), list.setCurrentIndex(0), wheel(list); }, "1", ""},
        {"wheel over a list from outside", [&] { wheel(list); }, "", ""},
    };
    EXPECT_FALSE(combo.focusPolicy() & (Qt::WheelFocus & ~Qt::StrongFocus)) << "the wheel takes no focus";
    for (const auto& [name, act, items, text] : rows) {
        combo.setCurrentIndex(-1);
        combo.setFocus();
        chosen.clear();
        act();
        EXPECT_EQ(chosen, items) << name;
        EXPECT_EQ(combo.currentText(), text) << name;
    }
}

TEST_F(ComboTest, PastedLineEndsBecomeItsOwn) {
    for (const char* text : {"a\nb\rc\r\nd", "a\r\nb\r\nc\r\nd"}) {
        combo.clearEditText();
        paste(text);
        EXPECT_EQ(combo.currentText(), "a\r\nb\r\nc\r\nd");
        key(Qt::Key_X);
        EXPECT_EQ(combo.currentText(), "a\r\nb\r\nc\r\ndx");
    }
    key(Qt::Key_Home);
    key(Qt::Key_Right);
    paste("\n");
    key(Qt::Key_X);
    EXPECT_EQ(combo.currentText(), "a\r\nx\r\nb\r\nc\r\ndx") << "the caret stands behind it";
    combo.lineEdit()->selectAll();
    paste("z\n");
    EXPECT_EQ(combo.currentText(), "z\r\n") << "shorter than what it replaces";
    for (const char* left : {"z\r", "z", ""}) {
        key(Qt::Key_Backspace);
        EXPECT_EQ(combo.currentText(), left);
    }
    combo.lineEdit()->undo();
    EXPECT_EQ(combo.currentText(), "z\r\n");

    Combo blanks(TypedText::OneLine);
    QApplication::clipboard()->setText("a\r\nb\n");
    blanks.lineEdit()->paste();
    EXPECT_EQ(blanks.currentText(), "a b ");
}

TEST_F(ComboTest, TakesAMegabyte) {
    const QString megabyte = QString("Knife, 5\t").repeated(1 << 17);
    paste(megabyte);
    EXPECT_EQ(combo.currentText(), megabyte);
    combo.addItem(megabyte);
    combo.showPopup();
    EXPECT_LT(combo.view()->sizeHintForColumn(0), 10'000);
    combo.hidePopup();
}

}  // namespace
