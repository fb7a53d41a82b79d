#include <gmock/gmock.h>

#include "support/EditorFixture.h"

using namespace klt;
using testing::HasSubstr;

namespace {

namespace fs = std::filesystem;

class CloseCheckTest : public EditorFixture {
protected:
    static constexpr auto kClose = "F3", kExit = "F6";

    /// A document of a file in a folder of its own, changed; what is typed stands in front.
    frmKLTEditor& openChanged(std::string_view name = "a.klt") {
        auto& document = open(file("docs/" + std::string(name), "text"));
        type("x");
        return document;
    }
    void answerWith(QMessageBox::StandardButton button, const char* command = kClose) {
        answerMessage(button);
        run(command);
    }
};

TEST_F(CloseCheckTest, TheQuestionNamesTheDocumentAndCancelKeepsIt) {
    auto& document = openNew();
    type("x");
    for (const auto& [caption, name] : {std::pair("KLT1", "KLT1.klt"),
                                        {"/a/b/harbor.klt", "harbor.klt"},
                                        {"/a/b.c/harbor", "harbor.klt"},
                                        {"/a/notes.old", "notes.old"}}) {
        document.setCaption(caption);
        variables().LoadingDocuments = true;
        answerWith(QMessageBox::Cancel);
        EXPECT_EQ(asked.back(), std::string("The data file ") + name + " has been changed!\nSave changes?");
        EXPECT_FALSE(variables().LoadingDocuments);
    }
    EXPECT_EQ(lastTitle, "KLT Editor Beta 1.60");
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_EQ(window().ActiveForm(), &document);
    EXPECT_TRUE(document.Modified());
}

TEST_F(CloseCheckTest, TheDocumentThatIsAskedAboutComesToTheFront) {
    auto& first = openChanged("a.klt");
    openChanged("b.klt");
    subWindow(first).showMinimized();
    run("D2");
    ASSERT_NE(window().ActiveForm(), &first);
    answerMessage(QMessageBox::Cancel, [&] {
        EXPECT_EQ(window().ActiveForm(), &first);
        EXPECT_TRUE(first.isVisible() && !subWindow(first).isMinimized());
    });
    window().closeDocument(first);
    EXPECT_EQ(window().ActiveForm(), &first);
    run("D2");
    answerMessage(QMessageBox::No, [&] { EXPECT_EQ(window().ActiveForm(), &first); });
    answerNext<QMessageBox>([this](QMessageBox&) {
        EXPECT_EQ(active().Caption(), home / "docs/b.klt");
        answerMessage(QMessageBox::Cancel);
    });
    run(kExit);
    EXPECT_EQ(count(), 1);
}

TEST_F(CloseCheckTest, YesWritesTheFileAndNoDoesNot) {
    for (const auto& [answer, written] :
         {std::pair(QMessageBox::Yes, "xtext"), std::pair(QMessageBox::No, "text")}) {
        openChanged();
        answerWith(answer);
        EXPECT_EQ(readBytes(home / "docs/a.klt"), written);
        EXPECT_EQ(count(), 0);
    }
}

TEST_F(CloseCheckTest, YesForADocumentWithoutFileAsksForOne) {
    openNew();
    type("x");
    answerFileDialog(home / "new");
    answerWith(QMessageBox::Yes);
    EXPECT_EQ(lastTitle, "Select Data File Name");
    EXPECT_EQ(proposed, "KLT1.klt");
    EXPECT_THAT(readBytes(home / "new.klt"), testing::EndsWith("data filex"));
    EXPECT_EQ(recentFile(1), home / "new.klt");
}

TEST_F(CloseCheckTest, TextThatCouldNotBeWrittenIsKeptAndNamedUntilDismissed) {
    openChanged();
    fs::remove_all(home / "docs");
    answerWith(QMessageBox::Yes);
    EXPECT_EQ(count(), 0);
    const auto kept = home / "state/klt-editor/recovery/a.klt";
    EXPECT_EQ(readBytes(kept), "xtext");
    EXPECT_THAT(notice(), testing::StartsWith(home / "docs/a.klt could not be saved: "));
    EXPECT_THAT(notice(), HasSubstr(kept));
    dismissNotice();
    restart();
    EXPECT_EQ(notice(), "");
}

TEST_F(CloseCheckTest, WhereNothingCanBeKeptTheDocumentStaysAndAShutdownStops) {
    auto& document = openChanged();
    fs::remove_all(home / "docs");
    fs::remove_all(home / "state");
    file("state", "in the way");
    for (const auto* command : {kClose, kExit}) {
        answerWith(QMessageBox::Yes, command);
        EXPECT_EQ(window().ActiveForm(), &document);
        EXPECT_THAT(notice(), HasSubstr("The document stays"));
    }
    EXPECT_FALSE(editor().isOver());
    EXPECT_FALSE(document.AppEnd);
}

TEST_F(CloseCheckTest, AShutdownAsksEachInTurnAndStopsAtCancel) {
    openChanged("a.klt");
    openNew();
    auto& third = openChanged("c.klt");
    openChanged("d.klt");
    answerMessage(QMessageBox::No);
    answerNext<QMessageBox>([this](QMessageBox&) { answerMessage(QMessageBox::Cancel); });
    run(kExit);
    EXPECT_THAT(asked, testing::ElementsAre(HasSubstr("a.klt"), HasSubstr("c.klt")));
    EXPECT_EQ(count(), 2) << "what was unloaded stays unloaded";
    EXPECT_FALSE(third.AppEnd);
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(editor().isOver());
}

TEST_F(CloseCheckTest, AShutdownTakesTheWindowDown) {
    openChanged();
    set("Special", "frmAboutBox Easter Egg", "Enabled");
    answerWith(QMessageBox::Yes, kExit);
    EXPECT_TRUE(editor().isOver());
    EXPECT_FALSE(window().isVisible());
    EXPECT_FALSE(window().Timer1().isActive());
    EXPECT_EQ(readBytes(home / "docs/a.klt"), "xtext");
    EXPECT_EQ(setting("Special", "frmAboutBox Easter Egg"), "(none)");
}

}  // namespace
