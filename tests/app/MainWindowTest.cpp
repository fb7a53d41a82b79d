#include <gmock/gmock.h>

#include <QDialog>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>

#include "support/Drop.h"
#include "support/EditorFixture.h"
#include "ui/FormPlace.h"

using namespace klt;

namespace {

class MainWindowTest : public EditorFixture {};

TEST_F(MainWindowTest, PanelsTellOfTheActiveDocument) {
    window();
    EXPECT_EQ(panel(3), "Line 1" + std::string(15, ' ') + "Column 1");
    auto& first = open(file("a.klt", "ab\r\n\xC3\xA4\xC3\xB6x"));
    EXPECT_EQ(panel(1), "");
    EXPECT_EQ(panel(2), "7 bytes");
    QTest::keyClick(first.RichTextBox1, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(panel(3), "Line 2" + std::string(15, ' ') + "Column 4");
    type("y");
    EXPECT_EQ(panel(1), "Modified");
    EXPECT_EQ(panel(2), "8 bytes");
    auto& second = open(file("b.klt", ""));
    EXPECT_EQ(panel(1), "");
    EXPECT_EQ(panel(2), "0 bytes");
    second.RichTextBox1->SetText(std::string(99, '\n'));
    second.RichTextBox1->Select(198, 0);
    EXPECT_EQ(panel(3), "Line 100" + std::string(11, ' ') + "Column 1");
    answerMessage(QMessageBox::No);
    window().closeDocument(first);
    EXPECT_EQ(panel(2), "198 bytes") << "another one's closing says nothing of this one";
}

TEST_F(MainWindowTest, TheFirstDocumentIsActivatedThoughItsFileIsMissing) {
    answerMessage(QMessageBox::Ok);
    open(home / "missing.klt");
    EXPECT_EQ(panel(2), "0 bytes");
    EXPECT_EQ(variables().CurrentFilePath, "Untitled");
    EXPECT_TRUE(window().Timer1().isActive() || active().RichTextBox1->hasFocus());
}

TEST_F(MainWindowTest, TheLastClosingClearsThePanels) {
    openNew();
    auto& second = openNew();
    QTest::keyClick(second.RichTextBox1, Qt::Key_F4, Qt::ControlModifier);
    EXPECT_FALSE(window().forms().contains(&second));
    EXPECT_EQ(panel(2), "82 bytes");
    action("F3")->trigger();
    EXPECT_EQ(panel(1), "");
    EXPECT_EQ(panel(2), "");
    EXPECT_EQ(panel(3), "Line" + std::string(18, ' ') + "Column");
}

TEST_F(MainWindowTest, AnActivationMakesTheDocumentsPathCurrentAndBringsTheFocus) {
    auto& first = open(file("a.klt", "a"));
    open(file("b.klt", "b"));
    window().showDocument(first);
    EXPECT_EQ(variables().CurrentFilePath, first.Caption());
    EXPECT_TRUE(window().Timer1().isActive());
    window().menuBar()->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return first.RichTextBox1->hasFocus(); }));
    EXPECT_FALSE(window().Timer1().isActive());
}

TEST_F(MainWindowTest, TheFocusComesBackWhenTheWindowsActivationChanges) {
    auto& text = *openNew().RichTextBox1;
    variables().StartupComplete = true;
    for (const auto change : {QEvent::WindowActivate, QEvent::WindowDeactivate}) {
        window().Timer1().stop();
        window().menuBar()->setFocus();
        QEvent event(change);
        QCoreApplication::sendEvent(&window(), &event);
        EXPECT_FALSE(text.hasFocus());
        const bool comesBack = QTest::qWaitFor([&] { return text.hasFocus(); }, 150);
        EXPECT_EQ(comesBack, change == QEvent::WindowActivate);
    }
}

TEST_F(MainWindowTest, Timer1WaitsForADialogAndForTheActivationsEnd) {
    auto& document = openNew();
    QDialog dialog(&window());
    dialog.setModal(true);
    dialog.show();
    window().Timer1().start(1);
    QTest::qWait(20);
    EXPECT_TRUE(window().Timer1().isActive());
    dialog.close();
    window().activateWindow();
    variables().ActivatingDocument = true;
    QTest::qWait(20);
    EXPECT_TRUE(window().Timer1().isActive());
    variables().ActivatingDocument = false;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window().Timer1().isActive(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return document.RichTextBox1->hasFocus(); }));
}

TEST_F(MainWindowTest, ADocumentStaysActiveWhileTheWindowIsMinimised) {
    openNew();
    auto& second = openNew();
    window().showMinimized();
    letEventsRun();
    EXPECT_EQ(window().ActiveForm(), &second);
    window().bringForward();
    EXPECT_FALSE(window().isMinimized());
    EXPECT_EQ(window().ActiveForm(), &second);
    QDialog dialog(&window());
    dialog.setModal(true);
    dialog.show();
    window().bringForward();
    letEventsRun();
    EXPECT_TRUE(dialog.isActiveWindow()) << "it keeps the keyboard";
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
    EXPECT_EQ(window().forms().count(), 5);
    EXPECT_FALSE(first.Modified());
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor().isOver(); }));
    EXPECT_THAT(asked, testing::ElementsAre(testing::HasSubstr("KLT2.klt"))) << "an edit, not a load";
}

TEST_F(MainWindowTest, DroppedFilesAreOpened) {
    window();
    const auto a = file("a.klt", "a"), b = file("b.klt", "b");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(a)), QUrl("http://example.org/x"),
                  QUrl::fromLocalFile(QString::fromStdString(b))});
    dropOnto(window(), data);
    EXPECT_EQ(window().forms().count(), 3);
    EXPECT_EQ(active().Caption(), b);
}

TEST_F(MainWindowTest, TheStatusBarIsShownBySetting) {
    EXPECT_FALSE(window().statusBar()->isHidden());
    SaveSetting(store, kSettingsApplication, "Options", "ShowStatusBar", "False");
    restart();
    EXPECT_TRUE(window().statusBar()->isHidden());
}

TEST(WindowPlaceTest, APlaceIsBroughtOntoTheScreens) {
    const std::vector<QRect> screens = {{0, 0, 1000, 800}, {1000, 0, 1000, 800}};
    const struct {
        const char* name;
        QRect place, expected;
    } rows[] = {
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
    for (const auto& row : rows) EXPECT_EQ(placeOnScreens(row.place, screens), row.expected) << row.name;
    EXPECT_EQ(placeOnScreens({1, 2, 3, 4}, {}), QRect(1, 2, 3, 4));
}

TEST_F(MainWindowTest, ThePlaceIsRememberedInTwips) {
    window().move(40, 30);
    window().resize(500, 400);
    action("F6")->trigger();
    EXPECT_EQ(setting("KLTEditor", "WindowState"), "0");
    EXPECT_EQ(setting("KLTEditor", "Left"), "600");
    EXPECT_EQ(setting("KLTEditor", "Top"), "450");
    EXPECT_EQ(setting("KLTEditor", "Width"), "7500");
    EXPECT_EQ(setting("KLTEditor", "Height"), "6000");
    restart();
    EXPECT_EQ(window().geometry().size(), QSize(500, 400));
    EXPECT_EQ(window().pos(), QPoint(40, 30));
    window().showMaximized();
    action("F6")->trigger();
    EXPECT_EQ(setting("KLTEditor", "WindowState"), "2");
    EXPECT_EQ(setting("KLTEditor", "Width"), "7500") << "the earlier place stays";
    restart();
    EXPECT_TRUE(window().isMaximized());
}

TEST_F(MainWindowTest, ThePlaceHasDefaultsAlsoForNonsense) {
    EXPECT_EQ(window().size(), QSize(622, 468));
    EXPECT_EQ(window().pos(), QPoint(10, 7));
    for (const char* key : {"Top", "Left", "Height", "Width", "WindowState"})
        SaveSetting(store, kSettingsApplication, "KLTEditor", key, "wide");
    restart();
    EXPECT_EQ(window().size(), QSize(622, 468));
    for (const char* key : {"Top", "Left", "Height", "Width", "WindowState"})
        SaveSetting(store, kSettingsApplication, "KLTEditor", key, "2147483647");
    restart();
    EXPECT_TRUE(window().screen()->geometry().contains(window().geometry().topLeft()));
}

}  // namespace
