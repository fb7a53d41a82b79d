// Ctrl+G and F12.

#include "app/documents/GoTo.h"

#include <QListView>

#include "support/EditorFixture.h"

namespace klt {
namespace {

class GoToTest : public EditorFixture {
protected:
    /// Opens a document of items far apart, scrolled, with "Keel" selected backward.
    void openLong() {
        open(file("a.klt", "Version=2\n* x\n[ADS]\n<Sea>\n" + kFar + "Sea Legs, 5\n" + kFar +
                               "Keel Sense, 10\n[SKILLS]\n" + kFar + "Rowing, needs(AD:Keel Sense)"));
        activate(window());
        caret_ = at("Keel");
        box().SendScintilla(RichTextBox::SCI_SETSELECTION, static_cast<unsigned long>(caret_),
                            static_cast<long>(caret_ + 4));
        box().ScrollToLine(box().GetLineFromChar(caret_) - 3);
        letEventsRun();
        view_ = view();
    }
    Position at(std::string_view what) { return static_cast<Position>(box().Text().find(what)); }
    /// Where caret, selection and view are.
    std::vector<Position> view() {
        return {box().SendScintilla(RichTextBox::SCI_GETCURRENTPOS), box().SelStart(), box().SelLength(),
                box().FirstVisibleLine()};
    }
    bool isInView(Position place) {
        const Position line = box().GetLineFromChar(place) - box().FirstVisibleLine();
        return line >= 0 && line < box().SendScintilla(RichTextBox::SCI_LINESONSCREEN);
    }

    static QWidget* field() { return QApplication::activePopupWidget(); }
    static QListView& list() { return *field()->findChild<QListView*>("GoToList"); }
    static void press(Qt::Key which) { QTest::keyClick(field()->focusWidget(), which); }
    void openField(const char* typed = "") {
        key(Qt::Key_G, kCtrl);
        ASSERT_TRUE(field());
        QTest::keyClicks(field()->focusWidget(), typed);
    }
    static std::string rows() {
        QStringList all;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            all << list().model()->index(row, 0).data().toString().trimmed();
        return all.join('|').toStdString();
    }
    static std::string chosen() { return list().currentIndex().data().toString().trimmed().toStdString(); }

    const std::string kFar = std::string(200, '\n');
    Position caret_ = 0;
    std::vector<Position> view_;
};

TEST_F(GoToTest, TheFieldFiltersAndTheViewFollows) {
    openLong();
    openField();
    EXPECT_EQ(rows(), "[ADS]|<Sea>|Sea Legs|Keel Sense|[SKILLS]|Rowing");
    EXPECT_EQ(chosen(), "Keel Sense");
    EXPECT_EQ(view(), view_) << "nothing moves at first";

    QTest::keyClicks(field()->focusWidget(), "E sEa");
    EXPECT_EQ(rows(), "<Sea>|Sea Legs");
    EXPECT_EQ(box().SelText(), "<Sea>");
    press(Qt::Key_Down);
    EXPECT_EQ(chosen(), "Sea Legs");
    EXPECT_EQ(box().SelText(), "Sea Legs");
    EXPECT_TRUE(isInView(at("Sea Legs")));
    press(Qt::Key_Down);
    press(Qt::Key_PageUp);
    EXPECT_EQ(chosen(), "<Sea>");
    QTest::keyClicks(field()->focusWidget(), "x");
    EXPECT_EQ(view(), view_) << "nothing is found";
    press(Qt::Key_Return);
    EXPECT_TRUE(field());
    press(Qt::Key_Backspace);
    EXPECT_EQ(box().SelText(), "<Sea>");
    press(Qt::Key_Escape);
    EXPECT_FALSE(field());
    EXPECT_EQ(view(), view_);
    EXPECT_TRUE(box().hasFocus());
}

TEST_F(GoToTest, EnterAndAClickJump) {
    openLong();
    const struct {
        const char* typed;
        Position line;
    } numbers[] = {{"3", 3}, {"0", 1}, {"999999", box().LineCount()}};
    for (const auto& [typed, line] : numbers) {
        openField(typed);
        press(Qt::Key_Enter);
        EXPECT_FALSE(field());
        EXPECT_EQ(box().SelStart(), box().LineIndex(line - 1)) << typed;
    }
    openField("row");
    press(Qt::Key_Return);
    EXPECT_EQ(box().SelStart(), at("Rowing"));
    EXPECT_EQ(box().SelLength(), 0);
    openField();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualRect(list().model()->index(2, 0)).center());
    EXPECT_FALSE(field());
    EXPECT_EQ(box().SelStart(), at("Sea Legs"));
    EXPECT_TRUE(isInView(at("Sea Legs")));
}

TEST_F(GoToTest, TheFieldGoesWithAnEditAndWithTheDocument) {
    openLong();
    openField("sea");
    box().SetSelText("x");
    EXPECT_FALSE(field());
    openField("legs");
    openNew();
    EXPECT_FALSE(field());
    key(Qt::Key_G, kCtrl);
    ASSERT_TRUE(field());
    EXPECT_EQ(rows(), "");
    press(Qt::Key_Down);
    active().AppEnd = true;
    window().closeDocument(active());
    letEventsRun();
    EXPECT_FALSE(field());
}

TEST_F(GoToTest, TheKeyGoesToTheItemInAnyDocument) {
    open(file("b.klt", "Version=2\n[SKILLS]\nKnots, P/E\nHauling, P/E"));
    openLong();
    box().SetSelStart(at("AD:Keel") + 4);
    key(Qt::Key_F12);
    EXPECT_EQ(box().SelStart(), caret_);
    EXPECT_EQ(box().SelLength(), 0);
    EXPECT_TRUE(isInView(caret_));

    box().SetSelStart(box().Length());
    type(", SK:Hauling>2, SK:Nobody");
    key(Qt::Key_F12);
    EXPECT_EQ(&active(), &document(1)) << "there is no such item";
    box().SetSelStart(at("Hauling"));
    key(Qt::Key_F12);
    EXPECT_EQ(&active(), &document(0));
    EXPECT_EQ(box().SelStart(), at("Hauling"));
}

}  // namespace
}  // namespace klt
