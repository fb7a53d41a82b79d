#include "app/documents/Documents.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QProxyStyle>
#include <QStyleOption>
#include <QWindow>
#include <filesystem>

#include "platform/KeptCopies.h"
#include "support/EditorFixture.h"
#include "ui/MessageBox.h"

using namespace klt;

namespace {

constexpr auto kNewText =
    "Version=2\r\n* The version information above MUST be the first line of the data file";

class DocumentsTest : public EditorFixture {};

TEST_F(DocumentsTest, ANewDocumentHasItsTextAndNoFlag) {
    const auto& document = (editor().documents.New(), active());
    EXPECT_EQ(document.Caption(), "KLT1");
    EXPECT_EQ(textOf(document), kNewText);
    EXPECT_FALSE(document.Modified());
    EXPECT_FALSE(document.Exists());
    EXPECT_FALSE(document.RichTextBox1->CanUndo());
    EXPECT_EQ(document.RichTextBox1->SelStart(), 0);
}

TEST_F(DocumentsTest, NumbersGrowWithOpenedFilesToo) {
    openNew();
    open(file("a.klt", "x"));
    EXPECT_EQ(openNew().Caption(), "KLT3");
}

TEST_F(DocumentsTest, AnOpenedFileIsCleanAndHasAFile) {
    const auto path = file("a.klt", "Version=2\nb");
    const auto& document = open(path);
    EXPECT_EQ(document.Caption(), path);
    EXPECT_EQ(subWindow(active()).windowTitle().toStdString(), path);
    EXPECT_EQ(textOf(document), "Version=2\r\nb");
    EXPECT_FALSE(document.Modified());
    EXPECT_TRUE(document.Exists());
    EXPECT_EQ(variables().CurrentFilePath, path);
    EXPECT_EQ(recentFile(1), path);
    EXPECT_FALSE(variables().LoadingDocuments);
}

TEST_F(DocumentsTest, TheStampIsNoEditAndDoesNotReachTheFile) {
    const auto path = file("a.klt", "Version=2\r\n* Modified: January 1, 1999\r\n");
    const auto& document = open(path);
    EXPECT_EQ(textOf(document), "Version=2\r\n* Modified: March 7, 2001\r\n");
    EXPECT_FALSE(document.Modified());
    EXPECT_FALSE(document.RichTextBox1->CanUndo());
    EXPECT_EQ(document.RichTextBox1->SelStart(), 0);
    EXPECT_EQ(readBytes(path), "Version=2\r\n* Modified: January 1, 1999\r\n");
}

TEST_F(DocumentsTest, AMissingFileLeavesAnEmptyUntitledWindow) {
    answerMessage(QMessageBox::Ok);
    const std::string path = home / "none.klt";
    const auto& document = open(path);
    EXPECT_EQ(asked.at(0), "The specified data file (" + path + ") does not exist.");
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_EQ(document.Caption(), "Untitled");
    EXPECT_EQ(textOf(document), "");
    EXPECT_FALSE(document.Modified());
    EXPECT_FALSE(document.Exists());
    EXPECT_EQ(recentFile(1), "");
}

TEST_F(DocumentsTest, FromTheFourthMessageOfMissingFilesOnTheOthersCanBeSkipped) {
    window();
    std::string commandLine;
    for (int n = 0; n < 8; ++n) commandLine += "\"" + (home / "none") + std::to_string(n) + "\" ";
    for (const size_t skippedAt : {8, 5}) {
        // One letter a message: whether there was a choice.
        std::string choices;
        std::function<void()> answer = [&] {
            answerNext<QMessageBox>([&](QMessageBox& box) {
                auto* const skip = box.button(kSkipTheRest);
                choices += skip ? 'y' : 'n';
                if (choices.size() < skippedAt) answer();
                QTest::mouseClick(choices.size() == 5 && skippedAt == 5 ? skip : box.button(QMessageBox::Ok),
                                  Qt::LeftButton);
            });
        };
        answer();
        const int before = window().forms().count();
        editor().ParseCommandLine(commandLine);
        EXPECT_EQ(window().forms().count(), before + 8);
        EXPECT_EQ(choices, std::string("nnnyyyyy").substr(0, skippedAt));
    }
}

TEST_F(DocumentsTest, AnUnreadableFileLooksOpenedAndIsToldOf) {
    const std::string path = home / "folder.klt";
    std::filesystem::create_directory(path);
    const auto& document = open(path);
    EXPECT_EQ(document.Caption(), path);
    EXPECT_EQ(textOf(document), "");
    EXPECT_TRUE(document.Exists());
    EXPECT_FALSE(document.Modified());
    EXPECT_THAT(notice(), testing::StartsWith(path + " could not be read: "));
    EXPECT_TRUE(document.RichTextBox1->hasFocus());
    dismissNotice();
    EXPECT_EQ(notice(), "");
}

TEST_F(DocumentsTest, APathInAnotherCaseIsFoundAndTakesThePlaceOfTheOneSpelled) {
    const auto path = file("Harbor.klt", "x");
    EXPECT_EQ(open(home / "HARBOR.KLT").Caption(), path);
    EXPECT_EQ(variables().CurrentFilePath, path);
}

TEST_F(DocumentsTest, ANewDocumentBehindAFileInOneListIsModified) {
    editor().documents.openFiles({file("a.klt", "x"), " "});
    EXPECT_EQ(active().Caption(), "KLT2");
    EXPECT_TRUE(active().Modified()) << "the load of the file has lowered the flag";
}

TEST_F(DocumentsTest, TheOpenCommandOpensAllThatIsChosen) {
    const auto a = file("a.klt", "a"), b = file("b.klt", "b");
    window();
    answerFileDialog("\"" + a + "\" \"" + b + "\"");
    action("F2")->trigger();
    EXPECT_EQ(lastTitle, "Select Data File to Open");
    ASSERT_EQ(window().forms().count(), 3);
    EXPECT_EQ(window().forms().documents()[0]->Caption(), a);
    EXPECT_EQ(active().Caption(), b);
}

TEST_F(DocumentsTest, ACancelledOpenDoesNothing) {
    window();
    answerFileDialog("");
    action("F2")->trigger();
    EXPECT_EQ(window().forms().count(), 1);
}

TEST_F(DocumentsTest, LaterDocumentsTakeTheActiveOnesState) {
    EXPECT_TRUE(subWindow(openNew()).isMaximized());
    EXPECT_TRUE(subWindow(openNew()).isMaximized());
    subWindow(active()).showNormal();
    EXPECT_FALSE(subWindow(openNew()).isMaximized());
}

TEST_F(DocumentsTest, TheTitleCarriesAMaximisedDocumentsCaption) {
    openNew();
    EXPECT_EQ(window().windowTitle(), "KLT Editor Beta 1.60 - [KLT1]");
    subWindow(active()).showNormal();
    EXPECT_EQ(window().windowTitle(), "KLT Editor Beta 1.60");
}

/// Keeps the title that a window's bar is drawn with.
struct TitleStyle : QProxyStyle {
    mutable QString drawn;

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option)) drawn = bar->text;
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
};

TEST_F(DocumentsTest, TitlesShowANameAsItIs) {
    TitleStyle style;
    const auto seen = [](QString title) { return title.remove(QChar(0x200B)).toStdString(); };
    for (const char* name : {"a[*].klt", "[*][*].klt", "[[*]*].klt", "[*", "b[*", "c[*]"}) {
        SCOPED_TRACE(name);
        const auto path = file(name, "");
        QMdiSubWindow& shown = subWindow(open(path));
        shown.showMaximized();
        EXPECT_EQ(seen(window().windowHandle()->title()), "KLT Editor Beta 1.60 - [" + path + "]");
        shown.showNormal();
        shown.resize(1500, 300);
        shown.setStyle(&style);
        shown.grab();
        EXPECT_EQ(seen(style.drawn), path);
        action("F3")->trigger();
    }
}

TEST_F(DocumentsTest, ACopyLeftByAKilledSaveIsToldOfAtTheNextOpen) {
    const auto path = file("a.klt", "x");
    const auto pid = fork();
    if (pid == 0) {
        const KeptCopy copy(path, "old");
        _exit(copy.error() ? 1 : 0);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    ASSERT_EQ(status, 0);
    open(path);
    EXPECT_THAT(notice(), testing::HasSubstr("what stood there before is kept in"));
    dismissNotice();
    open(path);
    EXPECT_EQ(notice(), "");
}

TEST_F(DocumentsTest, TwoEditorsKeepEachOthersRecentFiles) {
    open(file("a.klt", "a"));
    {
        Editor other(store, nullptr, "");
        other.documents.openFiles({file("b.klt", "b")});
    }
    open(file("c.klt", "c"));
    EXPECT_EQ(variables().RecentFiles.FileCount(), 3);
}

}  // namespace
