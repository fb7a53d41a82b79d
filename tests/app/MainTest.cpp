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

TEST_F(MainTest, ADirectoryAloneShowsAnEmptyWindow) {
    answerMessage(QMessageBox::Ok);
    start("/d:/nowhere");
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_NE(asked.at(0), "");
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(count(), 0);
    EXPECT_TRUE(variables().StartupComplete);
}

TEST_F(MainTest, AnErrorIsShownAndTheStartGoesOn) {
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[] { throw std::system_error(ENOSPC, std::generic_category(), "store"); },
         "28: generic\n\nstore: No space left on device"},
        {[] { throw std::runtime_error("broken"); }, "0: klteditor\n\nbroken"}};
    for (const auto& [step, told] : rows) {
        answerMessage(QMessageBox::Ok);
        reportingErrors(step);
        EXPECT_EQ(asked.back(), told);
        EXPECT_EQ(lastIcon, QMessageBox::NoIcon);
    }
}

// After this one the program has ended once in this process: no dialog comes up any more.

TEST_F(MainTest, WhatCameDuringAShutdownIsNotCarriedOutAfterIt) {
    const auto path = file("late.klt", "late");
    openNew();
    type("x");
    answerNext<QMessageBox>([&](QMessageBox& box) {
        emit window().filesDropped({path});
        QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
    });
    run("F6");
    ASSERT_TRUE(QTest::qWaitFor([this] { return editor().isOver(); }));
    letEventsRun();
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(variables().RecentFiles.FileCount(), 0);
}

TEST_F(MainTest, AWindowClosedDuringTheStartEndsIt) {
    duringOpening([this] { window().close(); });
    start("");
    EXPECT_TRUE(QTest::qWaitFor([this] { return editor().isOver(); }));
}

TEST_F(MainTest, KeysTypedDuringTheStartAreAnEditAfterIt) {
    duringOpening([this] {
        key(Qt::Key_End, kCtrl);
        type("x");
    });
    start("");
    EXPECT_TRUE(QTest::qWaitFor([this] { return active().Modified(); }));
    EXPECT_TRUE(textOf(active()).ends_with("x"));
}

TEST_F(MainTest, AnotherProcessesFilesAreOpenedWhileItWaits) {
    Instances here(home / "run"), there(home / "run");
    const auto windows = [&] { return there.FindMatchingWindows(kWindowTitleSought, kMainWindowClass); };
    Editor first(store, &here, "");
    auto& shown = first.mainWindow();
    shown.showMinimized();
    const auto path = file("a.klt", "a");
    ASSERT_EQ(windows().size(), 1);
    auto handedOver = std::async(std::launch::async, [path, to = windows()[0]] {
        return ActivatePreviousInstance(to, "\"" + path + "\" \"\"");
    });
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return handedOver.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }, 30'000));
    EXPECT_EQ(handedOver.get(), HandOver::delivered);
    const auto& documents = shown.forms().documents();
    ASSERT_EQ(documents.size(), 2);
    EXPECT_EQ(documents[0]->Caption(), path);
    EXPECT_FALSE(shown.isMinimized());
    EXPECT_FALSE(first.variables.LoadingDocuments);
    documents[1]->Label1->setEnabled(false);
    shown.close();
    EXPECT_TRUE(windows().empty());
}

}  // namespace
