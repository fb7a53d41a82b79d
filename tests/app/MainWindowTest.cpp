#include <gmock/gmock.h>

#include <QDialog>
#include <QMenuBar>
#include <QStatusBar>

#include "support/Drop.h"
#include "support/EditorFixture.h"
#include "ui/FormPlace.h"

using namespace klt;

namespace {

class MainWindowTest : public EditorFixture {
protected:
    std::unique_ptr<QDialog> showDialog() {
        auto dialog = std::make_unique<QDialog>(&window());
        dialog->setModal(true);
        dialog->show();
        return dialog;
    }
    std::string panels() { return panel(1) + "|" + panel(2) + "|" + panel(3); }
    static std::string caret(const std::string& line, size_t blanks, const std::string& column) {
        return "Line" + line + std::string(blanks, ' ') + "Column" + column;
    }
    QRect place() { return {window().pos(), window().size()}; }
    bool comesBack(int limit = 5000) {
        return QTest::qWaitFor([this] { return box().hasFocus(); }, limit);
    }
};

TEST_F(MainWindowTest, PanelsTellOfTheActiveDocument) {
    EXPECT_EQ(panel(3), caret(" 1", 15, " 1"));
    auto& first = open(file("a.klt", "ab\r\n\xC3\xA4\xC3\xB6x"));
    EXPECT_EQ(panels(), "|7 bytes|" + caret(" 1", 15, " 1"));
    key(Qt::Key_End, kCtrl);
    type("y");
    EXPECT_EQ(panels(), "Modified|8 bytes|" + caret(" 2", 15, " 5"));
    auto& second = open(file("b.klt", ""));
    EXPECT_EQ(panels(), "|0 bytes|" + caret(" 1", 15, " 1"));
    box().SetText(std::string(99, '\n'));
    box().Select(198, 0);
    EXPECT_EQ(panel(3), caret(" 100", 11, " 1"));
    answerMessage(QMessageBox::No);
    window().closeDocument(first);
    EXPECT_EQ(panel(2), "198 bytes") << "another one's closing says nothing of this one";
    openNew();
    key(Qt::Key_F4, kCtrl);
    EXPECT_EQ(&active(), &second);
    EXPECT_EQ(panel(2), "198 bytes");
    second.Label1->setEnabled(false);
    run("F3");
    EXPECT_EQ(panels(), "||" + caret("", 18, ""));
}

TEST_F(MainWindowTest, AnActivationMakesTheDocumentsPathCurrentAndBringsTheFocus) {
    auto& first = open(file("a.klt", "a"));
    open(file("b.klt", "b"));
    window().showDocument(first);
    EXPECT_EQ(variables().CurrentFilePath, first.Caption());
    EXPECT_TRUE(window().Timer1().isActive());
    window().menuBar()->setFocus();
    EXPECT_TRUE(comesBack());
    EXPECT_FALSE(window().Timer1().isActive());
}

TEST_F(MainWindowTest, TheFocusComesBackWhenTheWindowsActivationChanges) {
    openNew();
    variables().StartupComplete = true;
    for (const auto change : {QEvent::WindowActivate, QEvent::WindowDeactivate}) {
        window().Timer1().stop();
        window().menuBar()->setFocus();
        QEvent event(change);
        QCoreApplication::sendEvent(&window(), &event);
        EXPECT_FALSE(box().hasFocus());
        EXPECT_EQ(comesBack(150), change == QEvent::WindowActivate);
    }
}

TEST_F(MainWindowTest, Timer1WaitsForADialogAndForTheActivationsEnd) {
    openNew();
    auto dialog = showDialog();
    window().Timer1().start(1);
    QTest::qWait(20);
    EXPECT_TRUE(window().Timer1().isActive());
    dialog.reset();
    window().activateWindow();
    variables().ActivatingDocument = true;
    QTest::qWait(20);
    EXPECT_TRUE(window().Timer1().isActive());
    variables().ActivatingDocument = false;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window().Timer1().isActive(); }));
    EXPECT_TRUE(comesBack());
}

TEST_F(MainWindowTest, ADocumentStaysActiveWhileTheWindowIsMinimised) {
    openNew();
    const auto& second = openNew();
    window().showMinimized();
    letEventsRun();
    EXPECT_EQ(window().ActiveForm(), &second);
    window().bringForward();
    EXPECT_FALSE(window().isMinimized());
    EXPECT_EQ(window().ActiveForm(), &second);
    const auto dialog = showDialog();
    window().bringForward();
    letEventsRun();
    EXPECT_TRUE(dialog->isActiveWindow()) << "it keeps the keyboard";
}

TEST_F(MainWindowTest, WhatIsAskedWhileFilesAreOpenedComesAfterwardsInItsOrder) {
    auto& other = openNew();
    auto& first = openNew();
    const auto a = file("a.klt", "a"), b = file("b.klt", "b");
    duringOpening([&] {
        QTest::keyClick(first.RichTextBox1, 'x');
        subWindow(first).close();
        window().close();
        EXPECT_NE(textOf(first).back(), 'x');
        other.RichTextBox1->SetSelText("by code");
        EXPECT_TRUE(other.Modified() && other.RichTextBox1->CanUndo()) << "an edit, not a load";
        other.Label1->setEnabled(false);
        EXPECT_TRUE(window().forms().contains(&first));
    });
    answerMessage(QMessageBox::No);
    editor().documents.openFiles({a, b});
    EXPECT_EQ(count(), 4);
    EXPECT_FALSE(first.Modified());
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor().isOver(); }));
    EXPECT_THAT(asked, testing::ElementsAre(testing::HasSubstr("KLT2.klt"))) << "an edit, not a load";
}

TEST_F(MainWindowTest, DroppedFilesAreOpened) {
    dropFiles(window(), {file("a.klt", "a"), "http://example.org/x", file("b.klt", "b")});
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(active().Caption(), home / "b.klt");
}

TEST_F(MainWindowTest, TheStatusBarIsShownBySetting) {
    EXPECT_FALSE(window().statusBar()->isHidden());
    set("Options", "ShowStatusBar", "False");
    restart();
    EXPECT_TRUE(window().statusBar()->isHidden());
}

TEST_F(MainWindowTest, ThePanelsFitTheirTextsAtAnyFont) {
    openNew();
    for (const int points : {8, 20}) {
        QFont font = window().font();
        font.setPointSize(points);
        window().setFont(font);
        window().panels().showCaret(123456, 78);
        window().panels().showLength(123456789);
        window().panels().showModified(true);
        for (const char* name : {"Panel1", "Panel2", "Panel3"}) {
            const auto& label = *window().findChild<QLabel*>(name);
            EXPECT_TRUE(QTest::qWaitFor([&] {
                const QRect seen = label.visibleRegion().boundingRect();
                return seen.width() >= label.fontMetrics().horizontalAdvance(label.text()) &&
                       seen.height() >= label.fontMetrics().height();
            })) << name
                << points;
        }
        const auto& length = *window().findChild<QLabel*>("Panel2");
        const int width = length.width();
        window().panels().showLength(1);
        letEventsRun();
        EXPECT_EQ(length.width(), width) << "what stands behind it stays in its place";
    }
}

TEST(WindowPlaceTest, AWindowOverOneOfItsKindLeavesTheTitleInView) {
    const QRect screen(0, 10, 1000, 800);
    const std::tuple<const char*, QPoint, QPoint> rows[] = {
        {"beside", {100, 100}, {120, 120}},
        {"at the bottom", {100, 500}, {120, 10}},
        {"at the right", {390, 100}, {0, 120}},
    };
    for (const auto& [name, outer, expected] : rows)
        EXPECT_EQ(placeOver({outer, QSize(50, 50)}, {600, 300}, 20, screen), QRect(expected, QSize(600, 300)))
            << name;
}

TEST(WindowPlaceTest, APlaceIsBroughtOntoTheScreens) {
    const std::vector<QRect> screens = {{0, 0, 1000, 800}, {1000, 0, 1000, 800}};
    const std::tuple<const char*, QRect, QRect> rows[] = {
        {"fits", {10, 20, 600, 400}, {10, 20, 600, 400}},
        {"on the second", {1200, 20, 600, 400}, {1200, 20, 600, 400}},
        {"over an edge", {-300, 20, 600, 400}, {-300, 20, 600, 400}},
        {"left of all", {-5000, 20, 600, 400}, {0, 20, 600, 400}},
        {"right of all", {9000, 20, 600, 400}, {1400, 20, 600, 400}},
        {"below", {1100, 9000, 600, 400}, {1100, 400, 600, 400}},
        {"title above", {100, -200, 600, 400}, {100, 0, 600, 400}},
        {"over two screens", {0, 0, 1900, 700}, {0, 0, 1900, 700}},
        {"too large", {0, 0, 90000, 90000}, {0, 0, 1000, 800}},
    };
    for (const auto& [name, stored, expected] : rows)
        EXPECT_EQ(placeOnScreens(stored, screens), expected) << name;
    EXPECT_EQ(placeOnScreens({1, 2, 3, 4}, {}), QRect(1, 2, 3, 4));
}

TEST_F(MainWindowTest, ThePlaceIsRememberedInTwips) {
    const auto stored = [this] {
        std::string all;
        for (const char* key : {"WindowState", "Left", "Top", "Width", "Height"})
            all += setting("KLTEditor", key) + " ";
        return all;
    };
    window().move(40, 30);
    window().resize(500, 400);
    run("F6");
    EXPECT_EQ(stored(), "0 600 450 7500 6000 ");
    restart();
    EXPECT_EQ(place(), QRect(40, 30, 500, 400));
    window().showMaximized();
    EXPECT_TRUE(QTest::qWaitFor([this] { return window().width() != 500; }));
    run("F6");
    EXPECT_EQ(stored(), "2 600 450 7500 6000 ") << "the earlier place stays";
    restart();
    EXPECT_TRUE(window().isMaximized());
}

TEST_F(MainWindowTest, ThePlaceHasDefaultsAlsoForNonsense) {
    for (const char* value : {"", "wide", "2147483647"}) {
        for (const char* key : {"Top", "Left", "Height", "Width", "WindowState"})
            if (*value) set("KLTEditor", key, value);
        restart();
        EXPECT_TRUE(*value == '2' || place() == QRect(10, 7, 622, 468)) << value;
        EXPECT_TRUE(window().screen()->geometry().contains(window().geometry().topLeft())) << value;
    }
}

}  // namespace
