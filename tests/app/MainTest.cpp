#include "app/Startup.h"

#include <gmock/gmock.h>

#include <future>
#include <system_error>

#include "platform/HandOver.h"
#include "support/EditorFixture.h"

using namespace klt;
using testing::HasSubstr;
using testing::Optional;

namespace {

class MainTest : public EditorFixture {
protected:
    void start(const std::string& commandLine) {
        restart(commandLine);
        startUp(editor(), commandLine);
    }
};

TEST_F(MainTest, HelpAndVersionAnswerBeforeAnythingElse) {
    EXPECT_THAT(answerTo({"a.klt", "--help"}), Optional(HasSubstr("usage: klteditor")));
    EXPECT_THAT(answerTo({"--version"}), Optional(std::string("klteditor 1.60.0053\n")));
    EXPECT_EQ(answerTo({"/d:/x/", "help"}), std::nullopt);
}

TEST_F(MainTest, WithoutArgumentsThereIsOneNewDocument) {
    start("");
    EXPECT_EQ(active().Caption(), "KLT1");
    EXPECT_FALSE(active().Modified());
    EXPECT_EQ(variables().AppVersion, "1.60.0053");
    EXPECT_TRUE(variables().StartupComplete);
    EXPECT_TRUE(variables().AppIsActive);
    EXPECT_FALSE(variables().LoadingDocuments);
    EXPECT_EQ(setting("KLTEditor", "Version"), "1.60.0053");
}

TEST_F(MainTest, EachFileOfTheCommandLineIsOpened) {
    const auto a = file("a.klt", "a"), b = file("b c.klt", "b");
    start("\"" + a + "\" \"" + b + "\"");
    ASSERT_EQ(window().forms().count(), 3);
    EXPECT_EQ(window().forms().documents()[0]->Caption(), a);
    EXPECT_EQ(active().Caption(), b);
}

TEST_F(MainTest, ADirectoryAloneShowsAnEmptyWindow) {
    answerMessage(QMessageBox::Ok);
    start("/d:/nowhere");
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_NE(asked.at(0), "");
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().ActiveForm(), nullptr);
    EXPECT_TRUE(variables().StartupComplete);
}

TEST_F(MainTest, AnErrorIsShownAndTheStartGoesOn) {
    answerMessage(QMessageBox::Ok);
    reportingErrors([] { throw std::system_error(ENOSPC, std::generic_category(), "store"); });
    EXPECT_EQ(asked.at(0), "28: generic\n\nstore: No space left on device");
    answerMessage(QMessageBox::Ok);
    reportingErrors([] { throw std::runtime_error("broken"); });
    EXPECT_EQ(asked.at(1), "0: klteditor\n\nbroken");
    EXPECT_EQ(lastIcon, QMessageBox::NoIcon);
}

// After this one the program has ended once in this process: no dialog comes up any more.

TEST_F(MainTest, WhatCameDuringAShutdownIsNotCarriedOutAfterIt) {
    const auto path = file("late.klt", "late");
    openNew();
    type("x");
    ASSERT_TRUE(QTest::qWaitFor([this] { return active().Modified(); }));
    answerNext<QMessageBox>([&](QMessageBox& box) {
        emit window().filesDropped({path});
        QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
    });
    action("F6")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return editor().isOver(); }));
    letEventsRun();
    EXPECT_EQ(window().ActiveForm(), nullptr);
    EXPECT_EQ(variables().RecentFiles.FileCount(), 0);
}

TEST_F(MainTest, AWindowClosedDuringTheStartEndsIt) {
    duringOpening([this] { window().close(); });
    start("");
    EXPECT_TRUE(QTest::qWaitFor([this] { return editor().isOver(); }));
}

TEST_F(MainTest, KeysTypedDuringTheStartAreAnEditAfterIt) {
    restart();
    duringOpening([this] {
        QTest::keyClick(active().RichTextBox1, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(active().RichTextBox1, Qt::Key_X);
    });
    startUp(editor(), "");
    EXPECT_TRUE(QTest::qWaitFor([this] { return active().Modified(); }));
    EXPECT_TRUE(textOf(active()).ends_with("x"));
}

TEST_F(MainTest, AnotherProcessesFilesAreOpenedWhileItWaits) {
    Instances here(home / "run"), there(home / "run");
    Editor first(store, &here, "");
    first.mainWindow().showMinimized();
    const auto path = file("a.klt", "a");
    const auto found = there.FindMatchingWindows(kWindowTitleSought, kMainWindowClass);
    ASSERT_EQ(found.size(), 1);
    auto handedOver = std::async(std::launch::async,
                                 [&] { return ActivatePreviousInstance(found[0], "\"" + path + "\" \"\""); });
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return handedOver.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }, 30'000));
    EXPECT_EQ(handedOver.get(), HandOver::delivered);
    EXPECT_EQ(first.mainWindow().forms().count(), 3);
    EXPECT_EQ(first.mainWindow().forms().documents()[0]->Caption(), path);
    EXPECT_FALSE(first.mainWindow().isMinimized());
    EXPECT_FALSE(first.variables.LoadingDocuments);
    for (auto* document : first.mainWindow().forms().documents()) document->Label1->setEnabled(false);
    first.mainWindow().close();
    EXPECT_TRUE(there.FindMatchingWindows(kWindowTitleSought, kMainWindowClass).empty());
}

}  // namespace
