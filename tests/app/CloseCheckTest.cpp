#include <gmock/gmock.h>

#include <filesystem>

#include "platform/Recovery.h"
#include "support/EditorFixture.h"

using namespace klt;
using testing::HasSubstr;

namespace {

namespace fs = std::filesystem;

class CloseCheckTest : public EditorFixture {
protected:
    void close() { action("F3")->trigger(); }
    /// A document of a file in a folder of its own, changed; what is typed stands in front.
    frmKLTEditor& openChanged(std::string_view name = "a.klt") {
        fs::create_directories(home / "docs");
        auto& document = open(file("docs/" + std::string(name), "text"));
        type("x");
        return document;
    }
    void closeWindow() { action("F6")->trigger(); }
};

TEST_F(CloseCheckTest, TheQuestionNamesTheDocument) {
    const struct {
        std::string caption;
        const char* name;
    } rows[] = {
        {"KLT1", "KLT1.klt"},
        {"/a/b/harbor.klt", "harbor.klt"},
        {"/a/b.c/harbor", "harbor.klt"},
        {"/a/notes.old", "notes.old"},
    };
    auto& document = openNew();
    type("x");
    for (const auto& row : rows) {
        document.setCaption(row.caption);
        answerMessage(QMessageBox::Cancel);
        close();
        EXPECT_EQ(asked.back(),
                  "The data file " + std::string(row.name) + " has been changed!\nSave changes?");
    }
    EXPECT_EQ(lastTitle, "KLT Editor Beta 1.60");
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_EQ(window().ActiveForm(), &document);
    EXPECT_TRUE(document.Modified());
}

TEST_F(CloseCheckTest, YesWritesTheFileAndNoDoesNot) {
    for (const auto& [answer, written] :
         {std::pair(QMessageBox::Yes, "xtext"), std::pair(QMessageBox::No, "text")}) {
        openChanged();
        answerMessage(answer);
        close();
        EXPECT_EQ(readBytes(home / "docs/a.klt"), written);
        EXPECT_EQ(window().ActiveForm(), nullptr);
    }
}

TEST_F(CloseCheckTest, CancelLowersLoadingDocuments) {
    openChanged();
    variables().LoadingDocuments = true;
    answerMessage(QMessageBox::Cancel);
    close();
    EXPECT_FALSE(variables().LoadingDocuments);
}

TEST_F(CloseCheckTest, YesForADocumentWithoutFileAsksForOne) {
    openNew();
    type("x");
    answerMessage(QMessageBox::Yes);
    answerFileDialog(home / "new");
    close();
    EXPECT_EQ(lastTitle, "Select Data File Name");
    EXPECT_EQ(proposed, "KLT1.klt");
    EXPECT_THAT(readBytes(home / "new.klt"), testing::EndsWith("data filex"));
    EXPECT_EQ(recentFile(1), home / "new.klt");
}

TEST_F(CloseCheckTest, ACancelledFileDialogLetsTheDocumentGoUnsaved) {
    openNew();
    type("x");
    answerMessage(QMessageBox::Yes);
    answerFileDialog("");
    close();
    EXPECT_EQ(window().ActiveForm(), nullptr);
}

TEST_F(CloseCheckTest, TextThatCouldNotBeWrittenIsKeptAndNamedUntilDismissed) {
    openChanged();
    fs::remove_all(home / "docs");
    answerMessage(QMessageBox::Yes);
    close();
    EXPECT_EQ(window().ActiveForm(), nullptr);
    ASSERT_EQ(recoveryFiles().size(), 1);
    const auto kept = recoveryFiles()[0];
    EXPECT_EQ(readBytes(kept), "xtext");
    EXPECT_THAT(notice(), testing::StartsWith(home / "docs/a.klt could not be saved: "));
    EXPECT_THAT(notice(), HasSubstr(kept));

    restart();
    window();
    EXPECT_THAT(notice(), HasSubstr(kept));
    dismissNotice();
    restart();
    window();
    EXPECT_EQ(notice(), "");
}

TEST_F(CloseCheckTest, WhereNothingCanBeKeptTheDocumentStaysAndAShutdownStops) {
    auto& document = openChanged();
    fs::remove_all(home / "docs");
    fs::remove_all(home / "state");
    writeBytes(home / "state", "in the way");
    for (const auto& closing : {std::function<void()>([&] { close(); }), {[&] { closeWindow(); }}}) {
        answerMessage(QMessageBox::Yes);
        closing();
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
    closeWindow();
    EXPECT_THAT(asked, testing::ElementsAre(HasSubstr("a.klt"), HasSubstr("c.klt")));
    EXPECT_EQ(window().forms().count(), 3) << "what was unloaded stays unloaded";
    EXPECT_FALSE(third.AppEnd);
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(editor().isOver());
}

TEST_F(CloseCheckTest, AShutdownTakesTheWindowDown) {
    openChanged();
    answerMessage(QMessageBox::Yes);
    SaveSetting(store, kSettingsApplication, "Special", "frmAboutBox Easter Egg", "Enabled");
    closeWindow();
    EXPECT_TRUE(editor().isOver());
    EXPECT_FALSE(window().isVisible());
    EXPECT_FALSE(window().Timer1().isActive());
    EXPECT_EQ(readBytes(home / "docs/a.klt"), "xtext");
    EXPECT_EQ(setting("Special", "frmAboutBox Easter Egg"), "(none)");
}

}  // namespace
