// Ctrl+Space, in documents and in the fields of wizards.

#include "app/documents/Complete.h"

#include <QListView>
#include <QTabWidget>

#include "platform/CommandKeys.h"
#include "support/WizardFixture.h"

namespace klt {
namespace {

class CompleteTest : public WizardFixture {
protected:
    CompleteTest() {
        open(file("names.klt", "Version=2\n[SKILLS]\nRowing, P/E\nrope work, P/E\n[MODS]\n"));
        open(file("a.klt", "Version=2\n[ADS]\nKeel, 10, \n[SKILLS]\n"));
        activate(window());
    }
    /// "!" is the caret.
    std::string marked(const RichTextBox& box) {
        return std::string(box.Text()).insert(static_cast<size_t>(box.SelStart()), "!");
    }
    std::string line() { return lineOf(marked(box())); }
    static std::string lineOf(const std::string& text) {
        const auto caret = text.find('!');
        const auto start = text.rfind('\n', caret) + 1;
        return text.substr(start, text.find('\r', caret) - start);
    }
    void typeBehindKeel(const char* typed) {
        box().SetSelStart(static_cast<Position>(box().Text().find("10, ") + 4));
        EditorFixture::type(typed);
    }

    static QListView* list() { return qobject_cast<QListView*>(QApplication::activePopupWidget()); }
    static std::string rows() {
        QStringList all;
        for (int row = 0; list() && row < list()->model()->rowCount(); ++row)
            all << list()->model()->index(row, 0).data().toString();
        return all.join('|').toStdString();
    }
    static void press(Qt::Key which) { QTest::keyClick(QApplication::activePopupWidget(), which); }
    static void typeOn(const char* text) { QTest::keyClicks(QApplication::activePopupWidget(), text); }
    void complete() { EditorFixture::key(Qt::Key_Space, kCtrl); }
};

TEST_F(CompleteTest, TheListGoesWithItsDocument) {
    typeBehindKeel("N");
    complete();
    ASSERT_NE(list(), nullptr);
    const auto height = list()->height();
    typeOn("o");
    EXPECT_LT(list()->height(), height);
    window().showDocument(document(0));
    letEventsRun();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(CompleteTest, TypingNarrowsTheListAndEnterWritesTheRow) {
    typeBehindKeel("N");
    complete();
    ASSERT_EQ(rows(), "needs()|notes()");
    EXPECT_TRUE(list()->currentIndex().row() == 0 && box().hasFocus());
    typeOn("o");
    EXPECT_EQ(rows(), "notes()") << "a single choice too";
    press(Qt::Key_Backspace);
    EXPECT_EQ(rows(), "needs()|notes()");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_FALSE(list());
    EXPECT_EQ(line(), "Keel, 10, notes(!)");
    EXPECT_TRUE(active().Modified());
    EditorFixture::key(Qt::Key_Z, kCtrl);
    EXPECT_EQ(line(), "Keel, 10, N!");

    complete();
    press(Qt::Key_Tab);
    EXPECT_EQ(line(), "Keel, 10, needs(!)");
    EditorFixture::type("SK:r");
    complete();
    EXPECT_EQ(rows(), "rope work|Rowing") << "of the other document";
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                      list()->visualRect(list()->model()->index(1, 0)).center());
    EXPECT_EQ(line(), "Keel, 10, needs(SK:Rowing!)");
    complete();
    EXPECT_EQ(rows(), "Rowing");
    EditorFixture::key(Qt::Key_End, kCtrl);
    EXPECT_FALSE(list()) << "the caret is somewhere else";
}

TEST_F(CompleteTest, EscapeAndWhatEndsTheWordCloseTheList) {
    complete();
    EXPECT_FALSE(list()) << "nothing may stand there";
    // What is typed into the list, and how the line reads then.
    const std::pair<const char*, std::string> ends[] = {
        {"\x1b", "Keel, 10, !"}, {"x", "Keel, 10, x!"}, {"\b", "Keel, 10, !"}, {",", "Keel, 10, ,!"}};
    typeBehindKeel("");
    for (const auto& [typed, after] : ends) {
        complete();
        QTest::keyClick(list() ? QApplication::activePopupWidget() : &box(), *typed);
        EXPECT_FALSE(list()) << after;
        EXPECT_EQ(line(), after);
        EXPECT_TRUE(box().hasFocus()) << after;
    }
    complete();
    ASSERT_TRUE(list());
    document(0).RichTextBox1->SetSelText("x");
    EXPECT_TRUE(list());
    openNew();
    EXPECT_FALSE(list());
}

TEST_F(CompleteTest, WhatTheBoxRefusesIsNotWritten) {
    typeBehindKeel("");
    complete();
    box().setLocked(true);
    press(Qt::Key_Return);
    box().setLocked(false);
    EXPECT_FALSE(list());
    EXPECT_EQ(line(), "Keel, 10, !");
    EXPECT_FALSE(active().Modified());
}

TEST_F(CompleteTest, AFieldOffersWhatItsTagHolds) {
    inWizard([&] {
        const auto inField = [&](const char* field, const char* typed) {
            the<RichTextBox>(field).setFocus();
            keys(typed);
            key(Qt::Key_Space, kCtrl);
            return rows();
        };
        EXPECT_EQ(inField("rtbItemName", "g"), "");
        EXPECT_EQ(inField("rtbItemUpto", "def"), "Default");
        press(Qt::Key_Escape);
        EXPECT_FALSE(list());
        EXPECT_TRUE(form_->isVisible());
        EXPECT_EQ(text("rtbItemUpto"), "def");

        EXPECT_EQ(inField("rtbItemNeeds", "sk:Row"), "Rowing");
        press(Qt::Key_Enter);
        EXPECT_EQ(marked(the<RichTextBox>("rtbItemNeeds")), "SK:Rowing!");
        EXPECT_EQ(focus(), "rtbItemNeeds");
        EXPECT_TRUE(form_->isVisible());

        EXPECT_EQ(inField("rtbItemGives", "@ma"), "@MAX(value, value)");
        press(Qt::Key_Tab);
        EXPECT_EQ(marked(the<RichTextBox>("rtbItemGives")), "@MAX(!)");
        EXPECT_EQ(focus(), "rtbItemGives");
        key(Qt::Key_Z, kCtrl);
        EXPECT_EQ(text("rtbItemGives"), "@ma");
    });
}

TEST_F(CompleteTest, ABoxOfLinesOffersWhatTheLinesOfItsSectionHold) {
    inWizard(commands::kGroupWizard, [&] {
        auto& lines = the<RichTextBox>("FullGroup");
        form_->findChild<QTabWidget*>()->setCurrentIndex(1);
        lines.setFocus();
        keys("SK:ro");
        key(Qt::Key_Space, kCtrl);
        EXPECT_EQ(rows(), "rope work|Rowing");
        press(Qt::Key_Return);
        EXPECT_EQ(marked(lines), "SK:rope work!");
    });
}

}  // namespace
}  // namespace klt
