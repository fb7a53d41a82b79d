#include "app/Startup.h"

#include <gmock/gmock.h>

#include <QWindow>
#include <future>
#include <system_error>

#include "app/dialogs/frmTip.h"
#include "app/options/frmOptions.h"
#include "platform/HandOver.h"
#include "support/EditorFixture.h"

using namespace klt;
using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Optional;

namespace {

class MainTest : public EditorFixture {
protected:
    MainTest() {
        set("Options", "Show Tips at Startup", "0");
        set("Options", "TVM Version", "0");
    }

    /// Calls `work` while the first document is opened; before it events run for the splash.
    void duringFirstDocument(const std::function<void()>& work) {
        duringOpening([this, work] {
            for (auto* window : QApplication::topLevelWidgets())
                if (window->findChild<frmKLTEditor*>() != nullptr) return work();
            duringFirstDocument(work);
        });
    }
    static QWidget* splash() {
        for (auto* window : QApplication::topLevelWidgets())
            if (window->objectName() == "frmSplash") return window;
        return nullptr;
    }
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
    EXPECT_FALSE(active().Modified() || variables().LoadingDocuments);
    EXPECT_TRUE(variables().StartupComplete && variables().AppIsActive);
    EXPECT_EQ(variables().AppVersion, "1.60.0053");
    EXPECT_EQ(setting("KLTEditor", "Version"), "1.60.0053");
}

TEST_F(MainTest, TheSplashTakesClicksAndGoesWithTheStart) {
    set("Options", "AutoSyntaxCheck", "False");
    duringOpening([this] {
        ASSERT_NE(splash(), nullptr);
        EXPECT_TRUE(splash()->isVisible());
        EXPECT_EQ(splash()->cursor().shape(), Qt::WaitCursor);
        EXPECT_EQ(splash()->findChild<QLabel*>("lblVersion")->text(), "Beta 1.60, build 0053");
        auto* dragon = splash()->findChild<QLabel*>("lblDragon");
        EXPECT_EQ(dragon->text(), "");
        QTest::mouseClick(splash()->findChild<QWidget*>("Picture1"), Qt::LeftButton);
        EXPECT_EQ(dragon->text(), "Dragon Enabled...");
    });
    start("");
    EXPECT_EQ(splash(), nullptr);
    EXPECT_EQ(setting("Special", "frmAboutBox Easter Egg"), "Enabled");
}

TEST_F(MainTest, ABoxComesUpInFrontOfTheSplash) {
    answerMessage(QMessageBox::Ok, [] {
        EXPECT_TRUE(splash() && splash()->isVisible());
        EXPECT_FALSE(splash()->windowHandle()->flags() & Qt::WindowStaysOnTopHint);
    });
    start(home / "missing.klt");
}

TEST_F(MainTest, TheSplashIsGoneWhenTheFirstPassBegins) {
    // The second file's pass runs behind the first one's box.
    answerMessage(QMessageBox::Ok, [] { EXPECT_NE(splash(), nullptr); });
    struct : QObject {
        bool eventFilter(QObject* receiver, QEvent* event) override {
            if (event->type() == QEvent::Show && receiver->objectName() == "frmKLTChecker")
                ++shown, left += splash() != nullptr;
            return false;
        }
        int shown = 0, left = 0;
    } watch;
    qApp->installEventFilter(&watch);
    start("\"" + (home / "missing.klt") + "\" \"" + file("a.klt", "Version=2\r\n[ADS]\r\n") + "\"");
    EXPECT_GT(watch.shown, 0);

    set("Options", "AutoSyntaxCheck", "False");
    duringFirstDocument([this] { run("T6"); });
    start("\"" + file("b.klt", "Version=2\r\n[ADS]\r\n") + "\"");
    EXPECT_GT(watch.shown, 2);
    EXPECT_EQ(watch.left, 0);
}

TEST_F(MainTest, TipsComeWhenAllIsOpenAndOnlyFor1) {
    set("Options", "Show Tips at Startup", "2");
    start("");
    set("Options", "Show Tips at Startup", "1");
    answerNext<frmTip>([this](frmTip& tips) {
        EXPECT_EQ(splash(), nullptr);
        EXPECT_EQ(count(), 1);
        EXPECT_FALSE(variables().StartupComplete);
        // What others hand over meanwhile is opened at once.
        emit window().filesDropped({file("b.klt", "b")});
        EXPECT_EQ(count(), 2);
        QTest::mouseClick(tips.findChild<QWidget*>("cmdOK"), Qt::LeftButton);
    });
    start(file("a.klt", "a"));
    EXPECT_TRUE(variables().StartupComplete);
}

TEST_F(MainTest, TheHostsVersionIsDemandedBehindTheTipsAndBesideTheWindow) {
    set("Options", "TVM Version", "");
    set("Options", "Show Tips at Startup", "1");
    const auto dialogs = [this] {
        auto all = window().findChildren<frmOptions*>();
        all.removeIf([](const frmOptions* dialog) { return !dialog->isVisible(); });
        return all;
    };
    answerNext<frmTip>([&](frmTip& tips) {
        EXPECT_TRUE(dialogs().isEmpty());
        // As on a small screen.
        answerMessage(QMessageBox::Ok, [&] { dialogs()[0]->setFixedHeight(250); });
        QTest::mouseClick(tips.findChild<QWidget*>("cmdOK"), Qt::LeftButton);
    });
    start("");
    EXPECT_EQ(asked.back() + lastTitle, "You MUST set your TVM version." + std::string(kTitle));
    EXPECT_EQ(lastIcon, QMessageBox::NoIcon);
    EXPECT_TRUE(variables().StartupComplete);
    ASSERT_EQ(dialogs().size(), 1);
    const QPointer before = dialogs()[0];
    EXPECT_FALSE(before->isModal());
    EXPECT_EQ(before->focusWidget()->objectName(), "Combo1");
    EXPECT_FALSE(before->focusWidget()->visibleRegion().isEmpty());
    box().SetSelStart(box().Length());
    type("x");
    EXPECT_TRUE(textOf(active()).ends_with("x"));

    window().activateWindow();
    run("T1");
    EXPECT_EQ(dialogs().size(), 1);
    EXPECT_TRUE(QTest::qWaitForWindowActive(before));

    answerNext<QMessageBox>([this](QMessageBox& question) {
        answerNext<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QTest::keyClick(&question, Qt::Key_Escape);
    });
    QTest::mouseClick(before->findChild<QWidget*>("Command4"), Qt::LeftButton);
    ASSERT_EQ(dialogs().size(), 1);
    EXPECT_TRUE(dialogs()[0] != before && !dialogs()[0]->isModal());

    emit window().unloading();
    EXPECT_TRUE(dialogs().isEmpty()) << "it goes with the main window";
    EXPECT_EQ(setting("Options", "TVM Version"), "");
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
    answerMessage(QMessageBox::Ok);
    reportingErrors([] { throw std::system_error(ENOSPC, std::generic_category(), "store"); });
    EXPECT_EQ(asked.back(), "28: generic\n\nstore: No space left on device");
    EXPECT_EQ(lastIcon, QMessageBox::NoIcon);
    answerMessage(QMessageBox::Ok);
    reportingErrors([] { throw std::runtime_error("broken"); });
    EXPECT_EQ(asked.back(), "0: klteditor\n\nbroken");
    EXPECT_EQ(lastIcon, QMessageBox::NoIcon);
}

// After this one the program has ended once in this process: no dialog comes up any more.

TEST_F(MainTest, WhatCameDuringAShutdownIsNotCarriedOutAfterIt) {
    const auto path = file("late.klt", "late");
    openNew();
    type("x");
    answerMessage(QMessageBox::No, [&] { emit window().filesDropped({path}); });
    run("F6");
    ASSERT_TRUE(QTest::qWaitFor([this] { return editor().isOver(); }));
    letEventsRun();
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(variables().RecentFiles.FileCount(), 0);
}

TEST_F(MainTest, AWindowClosedDuringTheStartEndsIt) {
    duringFirstDocument([this] { window().close(); });
    start("");
    EXPECT_TRUE(QTest::qWaitFor([this] { return editor().isOver(); }));
}

TEST_F(MainTest, KeysTypedDuringTheStartAreAnEditAfterIt) {
    duringFirstDocument([this] {
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
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return handedOver.wait_for(0s) == std::future_status::ready; }, 30'000));
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
