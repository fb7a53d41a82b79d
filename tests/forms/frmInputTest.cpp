#include "forms/frmInput.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "settings/Store.h"
#include "support/Box.h"
#include "support/Scratch.h"
#include "ui/modKLTSyntaxHighlighter.h"

using namespace klt;

namespace {

using Close = std::function<void(frmInput&)>;

Close press(Qt::Key key) {
    return [key](frmInput& dialog) { QTest::keyClick(dialog.focusWidget(), key); };
}
Close click(const char* button) {
    return [button](frmInput& dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
    };
}
const Close kClose = [](frmInput& dialog) { dialog.close(); };
const Close kReject = [](frmInput& dialog) { dialog.reject(); };
const Close kIsOpen = [](frmInput& dialog) { EXPECT_TRUE(dialog.isVisible()); };

TEST(frmInput, KnownNamesAreAtHand) {
    const ScratchHome home;
    Store store;
    CRegSettings styles(store);
    modKLTSyntaxHighlighter highlighter(styles);
    const std::string text = "[SKILLS]\r\nRope Work, P/E\r\nRowing, P/A\r\n[ADS]\r\nRope, 5\r\n";
    QWidget owner;
    owner.show();
    for (const auto& [kind, result] : {std::pair("SK:", "Rope Work"), {"AD:", "Rope"}}) {
        frmInput dialog(highlighter, store);
        dialog.completeNames(*findPrefixTag(kind), [&] { return std::vector<std::string_view>{text}; });
        QTimer::singleShot(0, &dialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            QTest::keyClicks(dialog.focusWidget(), "ro");
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Space, Qt::ControlModifier);
            QWidget* const list = QApplication::activePopupWidget();
            EXPECT_NE(list, nullptr);
            if (list != nullptr) QTest::keyClick(list, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible()) << "the list has taken the key";
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        });
        dialog.ShowDialog("Name:", &owner);
        EXPECT_EQ(dialog.DialogResult(), result);
    }
}

TEST(frmInput, GivesWhatWasTypedAndNothingWhereItIsCancelled) {
    const ScratchHome home;
    Store store;
    CRegSettings styles(store);
    modKLTSyntaxHighlighter highlighter(styles);
    const std::tuple<const char*, const char*, std::vector<Close>, const char*> rows[] = {
        {"Enter", "Knife (", {press(Qt::Key_Return)}, "Knife ()"},
        {"OK", "x", {click("OKButton")}, "x"},
        {"Cancel", "x", {click("CancelButton")}, ""},
        {"Escape", "x", {press(Qt::Key_Escape)}, ""},
        {"the system menu", "x", {kClose}, ""},
        {"OK, and refused behind it", "x", {click("OKButton"), kReject}, "x"},
        {"Enter without a text", "x", {press(Qt::Key_Backspace), press(Qt::Key_Return), kIsOpen, kClose}, ""},
    };
    QWidget owner;
    owner.show();
    for (const auto& [what, typed, ways, result] : rows) {
        frmInput dialog(highlighter, store);
        bool wasShown = false;
        QTimer::singleShot(0, &dialog, [&] {
            auto& field = *dialog.findChild<RichTextBox*>("richReturn");
            const auto& ok = *dialog.findChild<QPushButton*>("OKButton");
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            wasShown = QApplication::activeModalWidget() == &dialog && field.hasFocus();
            EXPECT_EQ(dialog.findChild<QLabel*>("lblCaption")->buddy(), &field);
            EXPECT_FALSE(ok.isEnabled()) << what;
            QTest::keyClicks(&field, typed);
            EXPECT_TRUE(ok.isEnabled()) << what;
            for (const auto& way : ways) way(dialog);
        });
        EXPECT_EQ(dialog.windowTitle(), "KLT Editor Beta");
        dialog.ShowDialog("Name of the &skill:", &owner, "Skill");
        EXPECT_TRUE(wasShown) << what;
        EXPECT_EQ(dialog.windowTitle(), "Skill");
        EXPECT_EQ(dialog.DialogResult(), result) << what;
    }
}

}  // namespace
