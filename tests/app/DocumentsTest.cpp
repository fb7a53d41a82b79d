#include "app/documents/Documents.h"

#include <gmock/gmock.h>

#include <QProxyStyle>
#include <QStyleOption>
#include <QWindow>

#include "platform/KeptCopies.h"
#include "support/ChildProcess.h"
#include "support/EditorFixture.h"
#include "ui/MessageBox.h"

using namespace klt;

namespace {

class DocumentsTest : public EditorFixture {
protected:
    static void expectUntouched(const frmKLTEditor& document, std::string_view text) {
        EXPECT_EQ(textOf(document), text);
        EXPECT_FALSE(document.Modified());
        EXPECT_FALSE(document.RichTextBox1->CanUndo());
        EXPECT_EQ(document.RichTextBox1->SelStart(), 0);
    }
};

TEST_F(DocumentsTest, ANewDocumentHasItsTextAndNoFlag) {
    editor().documents.New();
    EXPECT_EQ(active().Caption(), "KLT1");
    EXPECT_FALSE(active().Exists());
    expectUntouched(active(),
                    "Version=2\r\n* The version information above MUST be the first line of the data file");
    open(file("a.klt", "x"));
    EXPECT_EQ(openNew().Caption(), "KLT3") << "opened files count too";
}

TEST_F(DocumentsTest, AnOpenedFileIsCleanThoughStampedAndSpelledAsItStandsThere) {
    const std::string bytes = "Version=2\n* Modified: January 1, 1999\n";
    const auto path = file("Harbor.klt", bytes);
    set("Options", "AutoSyntaxCheck", "False");
    const auto& document = open(home / "HARBOR.KLT");
    expectUntouched(document, "Version=2\r\n* Modified: March 7, 2001\r\n");
    EXPECT_EQ(readBytes(path), bytes);
    EXPECT_TRUE(document.Exists());
    EXPECT_EQ(document.Caption(), path);
    EXPECT_EQ(subWindow(active()).windowTitle().toStdString(), path);
    EXPECT_EQ(variables().CurrentFilePath, path);
    EXPECT_EQ(recentFile(1), path);
    EXPECT_FALSE(variables().LoadingDocuments);
}

TEST_F(DocumentsTest, AMissingFileLeavesAnEmptyUntitledWindow) {
    answerMessage(QMessageBox::Ok);
    const std::string path = home / "none.klt";
    const auto& document = open(path);
    EXPECT_EQ(asked.at(0), "The specified data file (" + path + ") does not exist.");
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_EQ(document.Caption(), "Untitled");
    EXPECT_EQ(variables().CurrentFilePath, "Untitled") << "it is activated all the same";
    EXPECT_EQ(panel(2), "0 bytes");
    expectUntouched(document, "");
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
                choices += box.button(kSkipTheRest) ? 'y' : 'n';
                if (choices.size() < skippedAt) answer();
                box.button(choices.size() == 5 && skippedAt == 5 ? kSkipTheRest : QMessageBox::Ok)->click();
            });
        };
        answer();
        const auto before = count();
        editor().ParseCommandLine(commandLine);
        EXPECT_EQ(count(), before + 8);
        EXPECT_EQ(choices, std::string("nnnyyyyy").substr(0, skippedAt));
    }
}

TEST_F(DocumentsTest, AnUnreadableFileLooksOpenedAndIsToldOf) {
    file("folder.klt/x", "");
    const std::string path = home / "folder.klt";
    const auto& document = open(path);
    EXPECT_EQ(document.Caption(), path);
    EXPECT_TRUE(document.Exists());
    expectUntouched(document, "");
    EXPECT_THAT(notice(), testing::StartsWith(path + " could not be read: "));
    EXPECT_TRUE(box().hasFocus());
    dismissNotice();
    EXPECT_EQ(notice(), "");
}

TEST_F(DocumentsTest, ANewDocumentBehindAFileInOneListIsModified) {
    editor().documents.openFiles({file("a.klt", "x"), " "});
    EXPECT_EQ(active().Caption(), "KLT2");
    EXPECT_TRUE(active().Modified()) << "the load of the file has lowered the flag";
}

TEST_F(DocumentsTest, TheOpenCommandOpensAllThatIsChosen) {
    const auto a = file("a.klt", "a"), b = file("b.klt", "b");
    for (const auto& chosen : {std::string(), "\"" + a + "\" \"" + b + "\""}) {
        EXPECT_EQ(count(), 0);
        answerFileDialog(chosen);
        run("F2");
        EXPECT_EQ(lastTitle, "Select Data File to Open");
    }
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(document(0).Caption(), a);
    EXPECT_EQ(active().Caption(), b);
}

TEST_F(DocumentsTest, LaterDocumentsTakeTheActiveOnesState) {
    openNew();
    EXPECT_TRUE(subWindow(openNew()).isMaximized());
    subWindow(active()).showNormal();
    EXPECT_FALSE(subWindow(openNew()).isMaximized());
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

TEST_F(DocumentsTest, ShareOneZoomThatIsRemembered) {
    const auto zoom = [&] { return box().SendScintilla(RichTextBox::SCI_GETZOOM); };
    openNew();
    openNew();
    key(Qt::Key_Plus, kCtrl);
    EXPECT_EQ(setting("KLTEditor", "Zoom"), "1");
    EXPECT_EQ(setting("KLTEditor", "FieldZoom"), "(none)");
    EXPECT_EQ(document(0).RichTextBox1->SendScintilla(RichTextBox::SCI_GETZOOM), 1);
    openNew();
    EXPECT_EQ(zoom(), 1);

    for (const auto& [stored, read] : {std::pair("3", 3), {"99", 20}, {"x", 0}}) {
        set("KLTEditor", "Zoom", stored);
        restart();
        openNew();
        EXPECT_EQ(zoom(), read) << stored;
    }
}

TEST_F(DocumentsTest, TitlesShowANameAsItIs) {
    TitleStyle style;
    const auto seen = [](QString title) { return title.remove(QChar(0x200B)).toStdString(); };
    for (const char* name : {"a[*].klt", "[*][*].klt", "[[*]*].klt", "[*", "b[*", "c[*]"}) {
        const auto path = file(name, "");
        QMdiSubWindow& shown = subWindow(open(path));
        shown.showMaximized();
        EXPECT_EQ(seen(window().windowHandle()->title()), "KLT Editor Beta 1.60 - [" + path + "]");
        shown.showNormal();
        EXPECT_EQ(window().windowTitle(), "KLT Editor Beta 1.60");
        shown.resize(1500, 300);
        shown.setStyle(&style);
        shown.grab();
        EXPECT_EQ(seen(style.drawn), path);
        run("F3");
    }
}

TEST_F(DocumentsTest, ACopyLeftByAKilledSaveIsToldOfAtTheNextOpen) {
    const auto path = file("a.klt", "x");
    ChildProcess saver([&](const ChildProcess::Report&) {
        const KeptCopy copy(path, "old");
        _exit(copy.error() ? 1 : 0);
    });
    ASSERT_EQ(saver.waitForEnd(), 0);
    open(path);
    EXPECT_THAT(notice(), testing::HasSubstr("what stood there before is kept in"));
    dismissNotice();
    run("F3");
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
