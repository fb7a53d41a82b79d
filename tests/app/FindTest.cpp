#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "app/dialogs/frmFind.h"
#include "support/EditorFixture.h"

namespace klt {
namespace {

class FindTest : public EditorFixture {
protected:
    FindTest() { open(file("a.klt", "Version=2\r\none two\r\nTWO three\r\ntwo")); }

    frmFind& form() {
        for (auto* found : window().findChildren<frmFind*>("frmFind"))
            if (found->isVisible()) return *found;
        throw std::logic_error("the find window is not open");
    }
    bool isOpen() {
        letEventsRun();
        return window().findChild<frmFind*>("frmFind") != nullptr;
    }
    template <typename Control>
    Control& control(const char* name) {
        return *form().findChild<Control*>(name);
    }
    QComboBox& combo(const char* name) { return control<QComboBox>(name); }
    void openForm(Qt::Key which) {
        window().activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([this] { return window().isActiveWindow(); }));
        key(which, kCtrl);
        ASSERT_TRUE(QTest::qWaitFor([this] { return form().isActiveWindow(); }));
    }
    void fill(const char* name, const QString& text) {
        combo(name).setFocus();
        QTest::keyClick(&combo(name), Qt::Key_A, kCtrl);
        QTest::keyClicks(&combo(name), text);
    }
    void paste(const char* name, const QString& text) {
        QApplication::clipboard()->setText(text);
        combo(name).setFocus();
        QTest::keyClick(&combo(name), Qt::Key_V, kCtrl);
    }
    void press(const char* name) { QTest::mouseClick(&control<QPushButton>(name), Qt::LeftButton); }
    void enter(const char* name = "Combo1") { QTest::keyClick(&control<QWidget>(name), Qt::Key_Enter); }
    /// Presses Alt and the letter; a button shows itself pressed for a while before it acts.
    void access(Qt::Key which) {
        QTest::keyClick(&form(), which, Qt::AltModifier);
        QTest::qWait(150);
    }
    QStringList items(const char* name) {
        QStringList all;
        for (int n = 0; n < combo(name).count(); ++n) all << combo(name).itemText(n);
        return all;
    }
    std::string enabled() {
        std::string shown;
        for (const char* name : {"cmdFindReplace(0)", "cmdFindReplace(1)", "cmdFindReplace(2)"})
            if (control<QWidget>(name).isVisible()) shown += control<QWidget>(name).isEnabled() ? '1' : '0';
        return shown;
    }
};

TEST_F(FindTest, FindsByKeysAndTellsWhenNoMoreIsThere) {
    box().Select(15, 3);
    openForm(Qt::Key_F);
    EXPECT_EQ(form().windowTitle(), "Find");
    EXPECT_EQ(combo("Combo1").currentText(), "two");
    EXPECT_TRUE(combo("Combo1").hasFocus());
    EXPECT_TRUE(control<QRadioButton>("optDirectionDown").isChecked());
    EXPECT_FALSE(combo("Combo2").isVisible());
    EXPECT_EQ(enabled(), "11");

    enter();
    EXPECT_EQ(box().SelStart(), 20);
    EXPECT_TRUE(panel(3).starts_with("Line 3 ")) << panel(3);
    EXPECT_TRUE(action("ctbrToolbar(0).7")->isEnabled());
    EXPECT_FALSE(variables().SuppressCaretUpdate);
    control<QCheckBox>("chkStartFromBeginning").click();
    access(Qt::Key_N);
    EXPECT_EQ(box().SelStart(), 31) << "this press begins afresh no more";
    EXPECT_FALSE(control<QCheckBox>("chkStartFromBeginning").isChecked());
    answerMessage(QMessageBox::Ok);
    access(Qt::Key_N);
    EXPECT_EQ(asked.back(), "Can't find any matches.");
    EXPECT_EQ(lastTitle, kTitle);
    EXPECT_EQ(lastIcon, QMessageBox::Information);
    EXPECT_EQ(box().SelStart(), 0);
    EXPECT_EQ(combo("Combo1").currentText(), "two");
    EXPECT_EQ(items("Combo1"), QStringList({"two", "two", "two", ""}));
}

TEST_F(FindTest, AllGoesFromMatchToMatch) {
    openForm(Qt::Key_F);
    access(Qt::Key_A);
    fill("Combo1", "two");
    for (const Position place : {15, 20, 31, 0, 15}) {
        if (place == 0) answerMessage(QMessageBox::Ok);
        enter();
        EXPECT_EQ(box().SelStart(), place);
    }
    EXPECT_EQ(asked.size(), 1U);
}

TEST_F(FindTest, ReplacesNothingTwice) {
    openForm(Qt::Key_R);
    access(Qt::Key_A);
    fill("Combo2", "two by two");
    fill("Combo1", "two");
    QTest::keyClick(&combo("Combo1"), Qt::Key_Enter);
    access(Qt::Key_R);
    EXPECT_EQ(textOf(active()), "Version=2\r\none two by two\r\nTWO three\r\ntwo");
    press("cmdFindReplace(1)");
    EXPECT_EQ(textOf(active()), "Version=2\r\none two by two\r\ntwo by two three\r\ntwo");
}

TEST_F(FindTest, TakesLinesAndLongTexts) {
    const QString line(20'000, 'x');
    const QString lines = line + "\r\n" + line;
    open(file("b.klt", ("Version=2\r\n" + lines + "y\r\n").toStdString()));
    openForm(Qt::Key_R);
    paste("Combo1", line + '\n' + line);
    EXPECT_TRUE(combo("Combo1").currentText() == lines);
    combo("Combo1").setEditText(line + '\n' + line);
    paste("Combo2", "a\nb\n");
    press("cmdFindReplace(1)");
    EXPECT_TRUE(box().Text() == "Version=2\r\na\r\nb\r\ny\r\n");
    press("Command2");
    EXPECT_FALSE(isOpen());

    box().Undo();
    box().Select(11, static_cast<Position>(lines.size()));
    openForm(Qt::Key_F);
    EXPECT_TRUE(combo("Combo1").currentText() == lines);
    press("Command2");
    EXPECT_FALSE(isOpen());
    box().SetText(QByteArray("line\r\n").repeated(1 << 18).toStdString());
    box().Select(0, box().Length());
    openForm(Qt::Key_F);
    EXPECT_EQ(combo("Combo1").currentText(), "");
    EXPECT_EQ(combo("Combo1").lineEdit()->placeholderText(), "The selected text is too long to look for");
}

TEST_F(FindTest, EnterPressesTheButtonWithTheFocus) {
    openForm(Qt::Key_F);
    fill("Combo1", "two");
    const std::pair<const char*, std::function<bool()>> rows[] = {
        {"chkMatchCase", [this] { return box().SelStart() == 15; }},
        {"cmdFindReplace(1)", [this] { return form().windowTitle() == "Replace"; }},
        {"Combo2", [this] { return box().SelStart() == 31; }},
        {"cmdFindReplace(1)", [this] { return textOf(active()).ends_with("TWO three\r\n"); }},
        {"Command2", [this] { return !isOpen(); }},
    };
    for (const auto& [focus, hasWorked] : rows) {
        control<QWidget>(focus).setFocus();
        enter(focus);
        EXPECT_TRUE(hasWorked()) << focus;
        if (focus == rows[0].first) control<QCheckBox>(focus).setChecked(true);
    }
}

TEST_F(FindTest, ReplacesInTheOtherShape) {
    openForm(Qt::Key_F);
    EXPECT_EQ(enabled(), "01");
    press("cmdFindReplace(1)");
    EXPECT_EQ(form().windowTitle(), "Replace");
    EXPECT_TRUE(control<QWidget>("Command2").hasFocus());
    EXPECT_EQ(enabled(), "000");
    fill("Combo1", "two");
    EXPECT_EQ(enabled(), "111");
    fill("Combo2", "2");
    press("cmdFindReplace(1)");
    EXPECT_EQ(textOf(active()), "Version=2\r\none 2\r\nTWO three\r\ntwo");
    EXPECT_TRUE(active().Modified());
    EXPECT_EQ(items("Combo2"), QStringList({"2", "", "", ""}));

    access(Qt::Key_A);
    fill("Combo2", "zwei");
    answerMessage(QMessageBox::Ok);
    access(Qt::Key_L);
    EXPECT_EQ(textOf(active()), "Version=2\r\none 2\r\nzwei three\r\nzwei");
    EXPECT_EQ(asked.back(), "Done replacing.\r\n2 replacements were made.");
    EXPECT_EQ(items("Combo2"), QStringList({"zwei", "2", "", ""}));
    for (const char* text :
         {"Version=2\r\none 2\r\nTWO three\r\ntwo", "Version=2\r\none two\r\nTWO three\r\ntwo"}) {
        key(Qt::Key_Z, kCtrl);
        EXPECT_EQ(textOf(active()), text);
    }

    const std::function<void()> wishes[] = {
        [this] { QTest::mouseClick(combo("Combo2").lineEdit(), Qt::RightButton); },
        [this] { QTest::keyClick(&combo("Combo2"), Qt::Key_F10, kShift); }};
    for (const auto& wish : wishes) {
        wish();
        auto* popup = QApplication::activePopupWidget();
        ASSERT_TRUE(popup != nullptr && popup->objectName() == "SingleItemRTFPopup");
        popup->close();
    }
}

TEST_F(FindTest, KeepsHistoryAndPlaceInTheStore) {
    openForm(Qt::Key_R);
    EXPECT_EQ(form().pos(), QPoint(1725 / 15, 2160 / 15));
    for (const char* text : {"o", "n", "e", "t", "w"}) {
        fill("Combo1", text);
        enter();
    }
    form().move(30, 45);
    QTest::keyClick(&form(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(setting("Search Strings", "0") + setting("Search Strings", "3"), "wn");
    EXPECT_EQ(setting("frmFind", "Left") + " " + setting("frmFind", "Top"), "450 675");

    openForm(Qt::Key_R);
    EXPECT_EQ(items("Combo1"), QStringList({"w", "t", "e", "n"}));
    EXPECT_EQ(form().pos(), QPoint(30, 45));
    QTest::keyClick(&combo("Combo1"), Qt::Key_Down);
    QTest::keyClick(&combo("Combo1"), Qt::Key_Down);
    EXPECT_EQ(combo("Combo1").currentText(), "t") << "one chosen from the list";
    form().move(60, 45);
    window().close();
    EXPECT_EQ(setting("frmFind", "Left"), "900") << "closed with the main window";
}

TEST_F(FindTest, StaysOpenForWhateverIsActive) {
    openForm(Qt::Key_F);
    fill("Combo1", "three");
    auto& first = active();
    open(file("b.klt", "Version=2\r\n" + std::string(500, 'x') + " Three"));
    press("cmdFindReplace(0)");
    EXPECT_EQ(box().SelText(), "Three");
    EXPECT_GT(box().SendScintilla(RichTextBox::SCI_GETXOFFSET), 0) << "it is in sight";
    EXPECT_EQ(first.RichTextBox1->SelLength(), 0);
    openForm(Qt::Key_R);
    EXPECT_EQ(combo("Combo1").currentText(), "three") << "the same window in its other shape";
    EXPECT_TRUE(combo("Combo1").hasFocus());
    window().closeDocument(active());
    window().closeDocument(active());
    press("cmdFindReplace(0)");
}

}  // namespace
}  // namespace klt
