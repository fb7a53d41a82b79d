// Texts that are in no file when the program ends, or when a window closes.

#include <gmock/gmock.h>

#include <QPushButton>

#include "platform/Paths.h"
#include "support/WizardFixture.h"

using namespace klt;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class RecoveryTest : public WizardFixture {
protected:
    RecoveryTest() { letLoopsRunAgain(); }

    using EditorFixture::type;
    using WizardFixture::type;

    const std::string folder_ = home / "state/klt-editor/recovery/";

    /// What is kept, by names.
    std::vector<std::string> kept() const {
        if (!PathExists(folder_)) return {};
        auto names = namesIn(folder_);
        std::erase_if(names, [](const auto& name) { return name.starts_with('.') || name == "dismissed"; });
        return names;
    }
    /// The program ends as by a signal, and is started again.
    void endAndRestart() {
        editor().copies.leaveAll();
        restart();
    }
    void clickNotice(const char* button) {
        auto* found = window().findChild<QPushButton*>(button);
        ASSERT_NE(found, nullptr);
        QTest::mouseClick(found, Qt::LeftButton);
        letEventsRun();
    }
    frmKLTEditor& called(const std::string& caption) {
        for (size_t i = 0; i < count(); ++i)
            if (document(i).Caption() == caption) return document(i);
        throw std::logic_error(caption + " is not open");
    }
    /// All that the bar has to tell, the newest first.
    std::vector<std::string> notices() {
        std::vector<std::string> all;
        while (!notice().empty()) {
            all.push_back(notice());
            auto* button = window().findChild<QPushButton*>("NoticeDismiss");
            if (!button || button->isHidden()) button = window().findChild<QPushButton*>("NoticeKeepMine");
            QTest::mouseClick(button, Qt::LeftButton);
        }
        return all;
    }
};

TEST_F(RecoveryTest, TheNextStartOpensAllTextsAsTheyWere) {
    const auto path = file("docs/a.klt", "Version=2\r\n[AUTHOR]\r\n* Modified: long ago\r\n");
    auto& named = open(path);
    box().SetSelStart(box().Length());
    type("sk");
    box().SetSelStart(3);
    const auto text = textOf(named);
    openNew();
    type("[skills]");
    const auto unnamed = textOf(active());
    endAndRestart();
    EXPECT_THAT(notice(), StartsWith("2 texts that were not saved are kept, from "));
    EXPECT_EQ(count(), 0U) << "nothing opens by itself";
    openNew();
    clickNotice("NoticeOpen");
    ASSERT_EQ(count(), 3U);
    EXPECT_EQ(notice(), "");
    auto& first = called(path);
    EXPECT_TRUE(first.Exists());
    EXPECT_TRUE(first.Modified());
    EXPECT_EQ(textOf(first), text) << "with the date that it had";
    EXPECT_EQ(first.RichTextBox1->SelStart(), 3);
    EXPECT_EQ(first.RichTextBox1->StyleAt(0), 0) << "it waits for Ctrl+K";
    // Texts of one second come in the order of their names.
    auto& second = document(&document(1) == &first ? 2 : 1);
    EXPECT_THAT(second.Caption(), testing::AnyOf("KLT2", "KLT3"));
    EXPECT_FALSE(second.Exists());
    EXPECT_EQ(textOf(second), unnamed);
    EXPECT_EQ(second.RichTextBox1->SelStart(), second.RichTextBox1->Length());
    EXPECT_EQ(panel(1), "Modified");
    // The old ones stay until the new documents have copies of their own.
    EXPECT_THAT(kept(), ElementsAre("KLT2", "a.klt"));
    editor().copies.writeAll();
    EXPECT_THAT(kept(), ElementsAre(second.Caption() == "KLT2" ? "KLT2-2" : "KLT3", "a-2.klt"));
    window().showDocument(second);
    answerMessage(QMessageBox::No);
    run("F3");
    letEventsRun();
    EXPECT_THAT(kept(), ElementsAre("a-2.klt"));
    window().showDocument(first);
    run("F4");
    EXPECT_EQ(readBytes(path), text);
    EXPECT_THAT(kept(), IsEmpty());
    endAndRestart();
    EXPECT_EQ(notice(), "");
}

TEST_F(RecoveryTest, WhatHasHappenedToTheFileSinceIsTold) {
    for (const auto* name : {"gone.klt", "other.klt", "open.klt"}) {
        open(file(std::string("docs/") + name, "text"));
        type("x");
    }
    endAndRestart();
    std::filesystem::remove(home / "docs/gone.klt");
    file("docs/other.klt", "written since");
    open(home / "docs/open.klt");
    clickNotice("NoticeOpen");
    ASSERT_EQ(count(), 4U);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return notice().starts_with(home / "docs/other.klt has been changed"); }));
    EXPECT_THAT(notices(), testing::Contains(HasSubstr("docs/open.klt is open in another window too")));
    EXPECT_FALSE(called(home / "docs/gone.klt").Exists());
    auto& other = called(home / "docs/other.klt");
    EXPECT_TRUE(other.Exists());
    window().showDocument(other);
    run("F4");
    EXPECT_EQ(readBytes(home / "docs/other.klt"), "xtext");
    EXPECT_EQ(readBytes(home / "docs/other.klt~"), "written since");
}

TEST_F(RecoveryTest, DismissedTextsAreToldOfNoMore) {
    openNew();
    type("x");
    endAndRestart();
    EXPECT_THAT(notice(), StartsWith("A text that was not saved is kept, from "));
    clickNotice("NoticeDismiss");
    EXPECT_THAT(namesIn(folder_ + "dismissed"), ElementsAre("KLT1"));
    endAndRestart();
    EXPECT_EQ(notice(), "");
}

TEST_F(RecoveryTest, TheTextOfACancelledSaveIsKept) {
    openNew();
    type("x");
    const auto text = textOf(active());
    answerFileDialog("");
    answerMessage(QMessageBox::Yes);
    run("F3");
    EXPECT_EQ(count(), 0U) << "it goes unsaved";
    EXPECT_EQ(notice(), "KLT1.klt was not saved. Its text is kept in " + folder_ + "KLT1");
    EXPECT_EQ(readBytes(folder_ + "KLT1"), text);
    openNew();
    type("y");
    answerFileDialog("");
    answerMessage(QMessageBox::Yes);
    run("F6");
    ASSERT_TRUE(editor().isOver());
    restart();
    EXPECT_THAT(notice(), StartsWith("2 texts "));
}

TEST_F(RecoveryTest, ATextThatTheDateOfALoadHasReplacedIsKept) {
    const auto mine = file("docs/a.klt", "* Modified: by me"), dated = file("docs/b.klt", "* Modified: 1999");
    for (const auto& path : {mine, dated}) {
        open(path);
        for (int save = 0; save < 2; ++save) {
            type("x");
            run("F4");
        }
    }
    EXPECT_THAT(namesIn(home / "docs"), ElementsAre("a.klt", "a.klt~", "b.klt"));
    EXPECT_EQ(readBytes(mine + "~"), "* Modified: by me");
    EXPECT_EQ(notice(), "What stood in " + mine + " before its date was changed is kept in " + mine + "~");
}

TEST_F(RecoveryTest, AReplacedTextIsKeptThoughTheProgramEndsBeforeTheSave) {
    const auto path = file("docs/a.klt", "* Modified: by me");
    open(path);
    type("x");
    endAndRestart();
    clickNotice("NoticeOpen");
    letEventsRun();
    EXPECT_EQ(notice(), "") << "nobody has changed the file";
    run("F4");
    EXPECT_EQ(readBytes(path + "~"), "* Modified: by me");
}

TEST_F(RecoveryTest, AStateFolderThatTakesNothingIsToldOnce) {
    openNew();
    type("x");
    std::filesystem::remove_all(home / "state");
    file("state", "in the way");
    for (int i = 0; i < 3; ++i) {
        type("x");
        editor().copies.writeAll();
    }
    EXPECT_EQ(notices(), std::vector<std::string>{"Changed texts can't be kept in " +
                                                  folder_.substr(0, folder_.size() - 1) +
                                                  " while you write: Not a directory"});
}

TEST_F(RecoveryTest, WhatAWizardHasCollectedIsKept) {
    open(file("a.klt", "Version=2\r\n[GROUPS]\r\n<A>\r\nSK:a\r\n"));
    const auto collect = [this] {
        type("GroupName", "New");
        type("ItemType", "S");
        type("ItemName", "x");
        press("Command2");
        EXPECT_EQ(text("FullGroup"), "SK:x");
        editor().copies.writeAll();
        EXPECT_EQ(kept().size(), 1U);
    };
    inWizard("I6", [&] {
        collect();
        press("Command3");
    });
    run("F4");
    EXPECT_THAT(kept(), IsEmpty()) << "it is written";
    inWizard("I6", collect);
    ASSERT_EQ(kept().size(), 1U) << "it was thrown away";
    EXPECT_EQ(notice(), "The lines of the wizard were not written. They are kept in " + folder_ + kept()[0]);
    EXPECT_FALSE(active().Modified());
    endAndRestart();
    clickNotice("NoticeOpen");
    EXPECT_EQ(textOf(active()), "SK:x");
    EXPECT_FALSE(active().Exists());
}

struct SessionCase {
    const char* what;
    std::vector<QMessageBox::StandardButton> answers;
    bool isCancelled;
};

TEST_F(RecoveryTest, ASessionThatEndsAsksWhereItMayAndClosesNothing) {
    using enum QMessageBox::StandardButton;
    for (const auto& [what, answers, isCancelled] :
         {SessionCase{"both answered", {No, Yes}, false},
          SessionCase{"the second goes back", {No, Cancel}, true}}) {
        restart();
        open(file("docs/a.klt", "a"));
        type("x");
        open(file("docs/b.klt", "b"));
        type("x");
        bool isReleased = false, hasCancelled = false;
        answerMessage(answers[0], [this, second = answers[1]] { answerMessage(second); });
        editor().sessionEnd.prepare(
            {[] { return true; }, [&] { isReleased = true; }, [&] { hasCancelled = true; }});
        EXPECT_TRUE(isReleased) << what;
        EXPECT_EQ(hasCancelled, isCancelled) << what;
        EXPECT_EQ(count(), 2U) << what;
        EXPECT_EQ(readBytes(home / "docs/b.klt"), isCancelled ? "b" : "xb") << what;
        // Who has answered is not asked again, until the next edit.
        if (isCancelled) answerMessage(No, [this] { answerMessage(No); });
        run("F6");
        EXPECT_TRUE(editor().isOver()) << what;
        EXPECT_THAT(kept(), IsEmpty()) << what;
        letLoopsRunAgain();
    }
}

TEST_F(RecoveryTest, WhatASessionThatGoesOnHasAnsweredIsWatchedOn) {
    using enum QMessageBox::StandardButton;
    openNew();
    type("first");
    open(file("docs/b.klt", "b"));
    type("x");
    // Yes, no file, then back.
    answerMessage(Yes, [this] {
        answerFileDialog("");
        answerMessage(Cancel);
    });
    editor().sessionEnd.prepare({[] { return true; }, [] {}, [] {}});
    EXPECT_EQ(kept().size(), 1U);
    window().showDocument(document(0));
    type(" second");
    editor().keepAllTexts();
    ASSERT_EQ(kept().size(), 2U);
    EXPECT_THAT(readBytes(folder_ + kept()[0]), testing::EndsWith("first second"));
}

TEST_F(RecoveryTest, WhatWasRefusedOrSavedAtTheEndOfASessionIsNotKept) {
    using enum QMessageBox::StandardButton;
    open(file("docs/a.klt", "a"));
    type("x");
    open(file("docs/b.klt", "b"));
    type("x");
    editor().copies.writeAll();
    answerMessage(No, [this] { answerMessage(Yes); });
    editor().sessionEnd.prepare({[] { return true; }, [] {}, [] {}});
    EXPECT_FALSE(document(1).Modified()) << "it is saved, and may go on";
    editor().keepAllTexts();
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(RecoveryTest, TheTextBeforeAReloadOutlivesTheProgram) {
    for (const bool closes : {false, true}) {
        restart();
        const auto path = file("docs/a.klt", "a");
        open(path);
        type("typed ");
        writeBytes(path, "written by others");
        editor().documents.noticeChanges();
        ASSERT_TRUE(QTest::qWaitFor([this] { return notice().find("has been changed") != notice().npos; }));
        clickNotice("NoticeReload");
        ASSERT_TRUE(QTest::qWaitFor([this] { return textOf(active()) == "written by others"; }));
        if (closes) run("F3");
        endAndRestart();
        clickNotice("NoticeOpen");
        ASSERT_EQ(count(), 1U);
        EXPECT_EQ(textOf(active()), "typed a");
        answerMessage(QMessageBox::No);
        run("F3");
        letEventsRun();
        EXPECT_THAT(kept(), IsEmpty());
    }
}

TEST_F(RecoveryTest, ASessionThatAsksNobodyKeepsTheTexts) {
    open(file("docs/a.klt", "a"));
    type("x");
    editor().sessionEnd.prepare({[] { return false; }, [] {}, [] {}});
    EXPECT_EQ(readBytes(folder_ + "a.klt"), "xa");
    type("y");
    QEvent end(QEvent::Quit);
    QApplication::sendEvent(qApp, &end);
    restart();
    clickNotice("NoticeOpen");
    EXPECT_EQ(textOf(active()), "xya");
}

}  // namespace
