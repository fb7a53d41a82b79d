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

struct Shown {
    frmInput& dialog;
    RichTextBox& field;
    QPushButton& ok;
    QPushButton& cancel;
};

TEST(frmInput, GivesWhatWasTypedAndNothingWhereItIsCancelled) {
    const ScratchHome home;
    Store store;
    CRegSettings styles(store);
    modKLTSyntaxHighlighter highlighter(styles);
    const struct {
        const char* what;
        const char* typed;
        std::function<void(const Shown&)> close;
        const char* result;
    } rows[] = {
        {"Enter", "Knife (", [](const Shown& it) { QTest::keyClick(&it.field, Qt::Key_Return); }, "Knife ()"},
        {"OK", "x", [](const Shown& it) { QTest::mouseClick(&it.ok, Qt::LeftButton); }, "x"},
        {"Cancel", "x", [](const Shown& it) { QTest::mouseClick(&it.cancel, Qt::LeftButton); }, ""},
        {"Escape", "x", [](const Shown& it) { QTest::keyClick(&it.field, Qt::Key_Escape); }, ""},
        {"the system menu", "x", [](const Shown& it) { it.dialog.close(); }, ""},
        {"OK, and closed again", "x",
         [](const Shown& it) {
             it.ok.click();
             it.dialog.close();
         },
         "x"},
        {"Enter without a text", "",
         [](const Shown& it) {
             QTest::keyClick(&it.field, Qt::Key_Return);
             EXPECT_TRUE(it.dialog.isVisible());
             EXPECT_FALSE(it.ok.isEnabled());
             it.dialog.close();
         },
         ""},
    };
    QWidget owner;
    owner.show();
    for (const auto& row : rows) {
        frmInput dialog(highlighter, store);
        bool wasShown = false;
        QTimer::singleShot(0, &dialog, [&] {
            const Shown it{dialog, *dialog.findChild<RichTextBox*>("richReturn"),
                           *dialog.findChild<QPushButton*>("OKButton"),
                           *dialog.findChild<QPushButton*>("CancelButton")};
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            wasShown = QApplication::activeModalWidget() == &dialog && it.field.hasFocus();
            EXPECT_EQ(dialog.findChild<QLabel*>("lblCaption")->buddy(), &it.field);
            EXPECT_FALSE(it.ok.isEnabled()) << row.what;
            QTest::keyClicks(&it.field, row.typed);
            EXPECT_EQ(it.ok.isEnabled(), *row.typed != '\0') << row.what;
            row.close(it);
        });
        EXPECT_EQ(dialog.windowTitle(), "KLT Editor Beta");
        dialog.ShowDialog("Name of the &skill:", &owner, "Skill");
        EXPECT_TRUE(wasShown) << row.what;
        EXPECT_EQ(dialog.windowTitle(), "Skill");
        EXPECT_EQ(dialog.DialogResult(), row.result) << row.what;
    }
}

}  // namespace
