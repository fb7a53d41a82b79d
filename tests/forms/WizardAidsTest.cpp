#include "forms/WizardAids.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>

#include "forms/AidPopup.h"
#include "language/StyleCategory.h"
#include "settings/Catalogue.h"
#include "settings/Store.h"
#include "support/Scratch.h"
#include "ui/FormPlace.h"
#include "ui/modKLTSyntaxHighlighter.h"

using namespace klt;

namespace {

using Work = std::function<void()>;

/// In the next loop of events, which is that of the menu or dialog that opens next.
void next(Work work) {
    QTimer::singleShot(0, qApp, std::move(work));
}

/// By its name in the form or dialog that is open.
template <typename Control>
Control* find(const char* name) {
    return QApplication::activeModalWidget()->findChild<Control*>(name);
}
void click(const char* button) {
    QTest::mouseClick(find<QAbstractButton>(button), Qt::LeftButton);
}
void type(const char* field, const char* text, Qt::Key end = Qt::Key_Home) {
    QTest::keyClicks(find<RichTextBox>(field), text);
    QTest::keyClick(find<RichTextBox>(field), end);
}
/// Clicks a form's Syntax Aid button, presses a key in the menu, and does `then` in the dialog that opens.
void aid(const char* button, Qt::Key key, Work then) {
    next([key, then = std::move(then)] {
        next(then);
        QTest::keyClick(QApplication::activePopupWidget(), key);
    });
    click(button);
}
/// The field gets the focus as soon as its window is active again.
bool isFocus(const QWidget& widget) {
    return widget.window()->focusWidget() == &widget;
}

class WizardAidsTest : public testing::Test {
protected:
    WizardAidsTest() { owner.show(); }

    ScratchHome home;
    Store store;
    CRegSettings styles{store};
    modKLTSyntaxHighlighter highlighter{styles};
    bool SuppressCaretUpdate = false;
    WizardAids aids{{store, highlighter, SuppressCaretUpdate}};
    QWidget owner;
    RichTextBox field{RichTextBox::Kind::Field, &owner};
};

TEST(AidPopup, IsChosenFromByItsKeys) {
    const std::tuple<const char*, std::vector<Qt::Key>, int> rows[] = {
        {"Default", {Qt::Key_T, Qt::Key_D}, 3},
        {"Default", {Qt::Key_T, Qt::Key_Escape, Qt::Key_At}, 10},
        {"Gives2", {Qt::Key_Down, Qt::Key_Up, Qt::Key_Up, Qt::Key_Return}, 8},
        {"Needs", {Qt::Key_I, Qt::Key_R}, 14},
        {"Upto", {Qt::Key_Escape}, 0},
    };
    for (const auto& [menu, keys, position] : rows) {
        next([pressed = keys] {
            for (const auto key : pressed) QTest::keyClick(QApplication::activePopupWidget(), key);
        });
        EXPECT_EQ(AidPopup(*aidMenu(menu)).choose({}), position) << menu;
    }
}

TEST_F(WizardAidsTest, AskAndPutTheAnswerIntoTheField) {
    field.SetText("+1 to \"DX\"");
    next([] {
        for (const auto* mark : {"Option2", "Check3"}) click(mark);
        auto& value = *find<RichTextBox>("GivesValue");
        type("GivesValue", ")3");
        EXPECT_EQ(value.StyleAt(1), static_cast<StyleByte>(StyleCategory::SyntaxError));
        QTest::keyClick(&value, Qt::Key_Delete);
        EXPECT_EQ(value.StyleAt(0), static_cast<StyleByte>(StyleCategory::NormalText));
        const auto& target = *find<RichTextBox>("GivesTarget");
        aid("Command1", Qt::Key_S, [] { type("richReturn", "Knife", Qt::Key_Escape); });
        EXPECT_EQ(target.Text(), "");
        aid("Command1", Qt::Key_S, [] { type("richReturn", "Knife", Qt::Key_Return); });
        EXPECT_TRUE(isFocus(target));
        type("GivesTarget", "");
        aid("Command1", Qt::Key_T, [] { type("richReturn", "ST", Qt::Key_Return); });
        aid("Command4", Qt::Key_At, [] { type("Text(0)", "", Qt::Key_Escape); });
        click("Command2");
    });
    aids.ShowGivesWizard(owner, field);
    EXPECT_EQ(field.Text(), R"(+1 to "DX", =-"3" to ", STSK:Knife")");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&owner));
}

TEST_F(WizardAidsTest, FunctionsNestToTheLimit) {
    writeSetting(store, settings::kMaximumNested, 2);
    field.SetText("1");
    std::string message;
    int levels = 0;
    std::vector<QPoint> places;
    const auto choose = [&levels, &places](const char* function) {
        auto& form = *QApplication::activeModalWidget();
        EXPECT_EQ(form.objectName(), "frmFunctionsWizard");
        EXPECT_EQ(form.property("Tag"), QString::number(levels++));
        places.push_back(form.pos());
        auto& combo = *find<QComboBox>("Combo1");
        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&combo, &menuKey);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "it has no text to change";
        QTest::keyClicks(&combo, function);
        QStringList labels;
        for (const auto* name : {"Label1", "Label2", "Label3"})
            if (find<QLabel>(name)->isVisible()) labels << find<QLabel>(name)->text();
        return labels.join(' ').toStdString();
    };
    const Work fillInnermost = [&] {
        EXPECT_EQ(choose("@SQR"), "Number:");
        aid("Command3(0)", Qt::Key_At, [&message] {
            auto* const box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box->icon() == QMessageBox::Information) message = box->text().toStdString();
            box->accept();
        });
        type("Text(0)", "4", Qt::Key_Return);
    };
    const Work fillMiddle = [&] {
        EXPECT_EQ(choose("@MAX"), "First Item: Second Item:");
        type("Text(0)", "3");
        aid("Command3(1)", Qt::Key_At, fillInnermost);
        EXPECT_TRUE(isFocus(*find<RichTextBox>("Text(1)")));
        click("Command1");
    };
    next([&] {
        EXPECT_EQ(choose("@IF"), "IF THEN ELSE");
        for (const auto* argument : {"Text(0)", "Text(1)"}) type(argument, "a");
        aid("Command3(2)", Qt::Key_At, fillMiddle);
        click("Command1");
    });
    aids.ShowFunctionsWizard(owner, field);
    EXPECT_EQ(field.Text(), "1, @IF(a THEN a ELSE @MAX(3, @SQR(4)))");
    EXPECT_TRUE(isFocus(field));
    EXPECT_EQ(message, "Cannot nest any more @Functions!");
    ASSERT_EQ(levels, 3);
    for (int level = 1; level < levels; ++level) {
        const QPoint shift = places[static_cast<size_t>(level)] - places[static_cast<size_t>(level - 1)];
        EXPECT_GE(shift.x(), 16);
        EXPECT_EQ(shift.x(), shift.y());
    }
    const auto* stored = settings::windowPosition("frmFunctionsWizard");
    EXPECT_EQ(QPoint(storedPixels(store, stored->left), storedPixels(store, stored->top)), places.front());
}

}  // namespace
