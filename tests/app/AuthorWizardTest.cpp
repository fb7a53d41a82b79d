// The wizard of the author's block in the running program.

#include <gmock/gmock.h>

#include <QClipboard>
#include <QComboBox>
#include <QPushButton>
#include <QTabWidget>

#include "app/dialogs/frmAuthorWizard.h"
#include "settings/Catalogue.h"
#include "support/FormFixture.h"

using namespace klt;
using testing::HasSubstr;

namespace {

constexpr char kHead[] = "Version=2\r\n[ADS]\r\nOdd, 2";

class AuthorWizardTest : public FormFixture {
protected:
    /// Opens the wizard; `work` works with it.
    void inWizard(const std::function<void()>& work) {
        meet<frmAuthorWizard>(work);
        run("I8");
    }
    /// Types in the wizard, from the name on, and leaves it by what is typed, or by Escape.
    void inWizard(const char* typed) {
        inWizard([&] { keys(typed); });
    }
    void nameFile(const char* name) {
        inWizard([&] {
            enter("FileName", "");
            keys(Qt::Key_Delete);
            keys(name);
            press("Done");
        });
    }
    std::string author() {
        return control<QComboBox>("AuthorName").currentText().toStdString() + ' ' + text("Email(0)") + ' ' +
               text("Email(1)");
    }
    std::string focus() { return form_->focusWidget()->objectName().toStdString(); }
    std::string lastAuthor() { return setting("frmAuthorWizard", "Last Author"); }
    std::string profile(const char* section, const char* key = "Name") {
        return GetSetting(store, kAuthorsApplication, section, key, "(none)");
    }
};

TEST_F(AuthorWizardTest, WritesTheBlockAtTheEnd) {
    set("Options", "TVM Version", "1");
    auto& document = open(file("harbor.KLT", kHead));
    document.RichTextBox1->SetSelStart(15);
    inWizard([&] {
        EXPECT_EQ(form_->windowTitle(), "Author Section Wizard");
        EXPECT_FALSE(control<QPushButton>("HelpMe").isEnabled()) << "as long as there is none";
        EXPECT_EQ(document.RichTextBox1->SelStart(), 0);
        EXPECT_EQ(focus(), "AuthorName");
        keys("me\tm1\t\tm(\t");
        EXPECT_EQ(focus(), "FileName");
        EXPECT_EQ(text("FileName") + text("Created") + text("Modified") + text("TVMVersion"),
                  "harborMarch 7, 2001March 7, 20012.2\u00df");
        keys("\t\tx\t\t\t \t\t\t\t\t ");
        EXPECT_EQ(focus(), "OtherName");
        keys("Maps\t\tSea\t");
        EXPECT_EQ(text("BookName2"), "Sea");
        keys(" Men\t1999");
        EXPECT_EQ(text("BookName1"), " Men");
        keys("\r");
    });
    const auto block = textOf(document).substr(sizeof kHead - 1);
    EXPECT_TRUE(block.starts_with("\r\n\r\n[Author]\r\n***")) << block;
    for (const auto* part :
         {"* Filename: harbor.klt\r\n* Created: March 7, 2001\r\n* Modified: x\r\n* Requires TVM v2.2\u00df "
          "or",
          " ZENDA  Men sourcebook. \r\n* ZENDA  Men is Copyright(C)1999 by",
          "includes:\r\n*    Skills, Including Bonuses, Classes, Needs and Prereqs.\r\n*    Maps.\r\n***",
          "* Contact: Merry Anvil\r\n*          m1\r\n*          anvil@example.org\r\n*          m(\r\n***"})
        EXPECT_THAT(block, HasSubstr(part));
    EXPECT_EQ(box().SelStart(), box().Length());
    EXPECT_EQ(panel(3), "Line 33             Column 75");
    EXPECT_EQ(box().StyleAt(box().Length() - 1), static_cast<StyleByte>(StyleCategory::Comments));
    EXPECT_TRUE(QTest::qWaitFor([this] { return box().hasFocus(); }));
    EXPECT_EQ(lastAuthor(), "5");
    EXPECT_EQ(notice(), "");
    EXPECT_TRUE(document.Modified());
    box().Undo();
    EXPECT_EQ(textOf(document), kHead) << "it is one step";
    inWizard([&] {
        EXPECT_EQ(author(), "Merry Anvil merry.anvil@example.net anvil@example.org");
        press("Done");
    });
    inWizard("\r");
    EXPECT_NE(textOf(document).rfind("[Author]"), textOf(document).find("[Author]")) << "another one";
}

TEST_F(AuthorWizardTest, TakesTheNoticeOfTheTabInFront) {
    int tab = 0;
    for (const auto& [field, expected] : {std::pair("GazetteNumber2", "Gazette #7\r\n* Gazette is"),
                                          {"RulesName2", "ZENDA rules 7\r\n* by . ZENDA 7 is based"}}) {
        openNew();
        ++tab;
        inWizard([&] {
            EXPECT_EQ(control<QTabWidget>("vbTabControl1").currentIndex(), 0);
            keys("\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t");
            for (int i = 0; i < tab; ++i) keys(Qt::Key_Right);
            enter(field, "7\r");
        });
        EXPECT_THAT(textOf(active()), HasSubstr(expected));
    }
}

TEST_F(AuthorWizardTest, CompletesNamesAndStoresNewOnesByEveryRoad) {
    openNew();
    inWizard([&] {
        EXPECT_EQ(author(), "  ");
        keys("co");
        EXPECT_EQ(author(), "Copper Lantern lantern@example.net ");
        keys("rn");
        EXPECT_EQ(author(), "Corn  ");
        keys("\tmine\x1b");
    });
    EXPECT_EQ(profile("8") + profile("8", "E-Mail 1") + profile("8", "E-Mail 3"), "Cornmine");
    EXPECT_EQ(profile("Number", "Value"), "9");
    EXPECT_EQ(lastAuthor(), "(none)") << "nothing was written";
    EXPECT_EQ(setting("frmAuthorWizard", "First Time"), "False");

    inWizard("Dora\r");
    EXPECT_THAT(textOf(active()), HasSubstr("* Contact: Dora\r\n"));
    EXPECT_EQ(profile("9"), "Dora");
    EXPECT_EQ(lastAuthor(), "2") << "its place in the list";
    inWizard("Only typed");
    EXPECT_EQ(profile("Number", "Value"), "10");

    inWizard([&] {
        keys("Zed\t");
        control("AuthorName").setFocus();
        keys(Qt::Key_Up);
        EXPECT_EQ(author(), "Dora  ");
    });
    EXPECT_EQ(profile("Number", "Value"), "10") << "a name that a profile has";
    inWizard([&] {
        keys("Zed\t");
        delete form_.data();
    });
    EXPECT_EQ(profile("10"), "Zed") << "also where the program takes the wizard down";
}

TEST_F(AuthorWizardTest, TakesPlainTexts) {
    openNew();
    inWizard([&] {
        EXPECT_EQ(text("FileName"), "");
        keys("(\t(\t\t\t/b\\a/");
        EXPECT_EQ(author(), "( ( ");
        EXPECT_EQ(text("FileName"), "ba");
        control<QLineEdit>("FileName").undo();
        EXPECT_EQ(text("FileName"), "");
        QGuiApplication::clipboard()->setText("/x\\y\n\x7f\u00e9");
        control<QLineEdit>("FileName").paste();
        EXPECT_EQ(text("FileName"), "xy\u00e9");
        press("Other");
        EXPECT_EQ(focus(), "OtherName");
        press("Other");
        EXPECT_FALSE(control<QLineEdit>("OtherName").isEnabled());
    });
}

TEST_F(AuthorWizardTest, CancelByItsAccessKeyKeepsANewNameToo) {
    openNew();
    inWizard([&] {
        keys("Zed");
        QTest::keyClick(form_, Qt::Key_C, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !form_ || !form_->isVisible(); }));
    });
    EXPECT_EQ(profile("8"), "Zed");
}

TEST_F(AuthorWizardTest, NamesTheFileOfTheNextSave) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"b.klt", "bay", "bay.klt"}, {"b.klt", "bay.KLT", "bay.klt"},
        {"b.klt", "", "b.klt"},      {"b.klt", " ", "b.klt"},
        {"b.klt", ".klt", "b.klt"},  {"a.KLT", "a", "a.KLT"},
        {"a.KLT", "a.klt", "a.KLT"}, {"a.txt", "a.txt", "a.txt"},
        {"a.txt", "a", "a.klt"},     {"a.txt", "a.txt.klt", "a.txt.klt"},
    };
    int folder = 0;
    for (const auto& [old, typed, name] : rows) {
        const auto in = std::to_string(++folder) + '/';
        const std::string path = file(in + old, kHead), wanted = home / (in + name);
        auto& document = open(path);
        nameFile(typed);
        EXPECT_EQ(document.Caption(), wanted);
        EXPECT_EQ(variables().CurrentFilePath, wanted);
        const bool isNew = path != wanted;
        const auto told = path + " stays as it is. The document is saved as " + wanted + " from now on.";
        EXPECT_EQ(notice(), isNew ? told : "");
        if (isNew) dismissNotice();
        EXPECT_EQ(action("F4")->text().toStdString(), std::string("Save ") + name);
        run("F4");
        EXPECT_TRUE(!isNew || readBytes(path) == kHead);
        EXPECT_THAT(readBytes(wanted), HasSubstr("[Author]"));
        EXPECT_FALSE(document.Modified());
    }
    const auto odd = file("a\xFF.klt", kHead);
    open(odd);
    inWizard("\r");
    EXPECT_EQ(active().Caption(), odd) << "what can't be shown is no new name";
}

TEST_F(AuthorWizardTest, AsksWhereANameIsTaken) {
    const std::string path = file("a.klt", kHead), taken = file("b.klt", "taken"), gone = file("c.klt", "c");
    auto& document = open(path);
    nameFile("b");
    nameFile("a");
    EXPECT_EQ(document.Caption(), path) << "the old file's name again";
    run("F4");
    EXPECT_THAT(readBytes(path), HasSubstr("[Author]"));

    nameFile("b");
    answerFileDialog("");
    run("F4");
    EXPECT_EQ(proposed, "b.klt");
    EXPECT_EQ(lastTitle, "Select Data File to Open");
    EXPECT_TRUE(document.Modified());
    answerFileDialog(home / "d");
    run("F4");
    EXPECT_EQ(readBytes(taken), "taken");
    EXPECT_EQ(document.Caption(), home / "d.klt");
    type("x");
    run("F4");
    EXPECT_FALSE(document.Modified()) << "it asks once";

    open(gone);
    std::filesystem::remove(gone);
    window().showDocument(document);
    nameFile("c");
    answerMessage(QMessageBox::Yes);
    answerFileDialog(home / "e");
    run("F3");
    EXPECT_EQ(asked.back(), "The data file c.klt has been changed!\nSave changes?");
    EXPECT_EQ(proposed, "c.klt");
    EXPECT_EQ(lastTitle, "Select Data File Name");
    EXPECT_TRUE(std::filesystem::exists(home / "e.klt"));
    EXPECT_FALSE(std::filesystem::exists(gone));
}

TEST_F(AuthorWizardTest, NamesADocumentWithoutAFile) {
    auto& document = openNew();
    nameFile("bay");
    EXPECT_EQ(document.Caption(), "bay.klt");
    EXPECT_FALSE(document.Exists());
    EXPECT_EQ(notice(), "");
    inWizard([&] { EXPECT_EQ(text("FileName"), "bay"); });
    answerFileDialog("");
    run("F4");
    EXPECT_EQ(proposed, "bay.klt");
}

TEST_F(AuthorWizardTest, WritesIntoItsOwnDocument) {
    auto& document = open(file("a.klt", kHead));
    const std::string other = file("b.klt", "b");
    inWizard([&] {
        editor().queue.submit(Origin::Outside, [&] { editor().documents.openFiles({other}); });
        enter("FileName", "c");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !editor().queue.isHeld(); }));
        press("Done");
    });
    EXPECT_EQ(textOf(active()), "b");
    EXPECT_EQ(active().Caption(), other);
    EXPECT_THAT(textOf(document), HasSubstr("[Author]"));
    EXPECT_EQ(document.Caption(), home / "c.klt");
    EXPECT_EQ(variables().CurrentFilePath, other);

    inWizard([&] {
        active().AppEnd = true;
        window().closeDocument(active());
        letEventsRun();
        answerMessage(QMessageBox::Ok);
        press("Done");
        EXPECT_TRUE(isUp());
    });
    EXPECT_THAT(asked.back(), HasSubstr("Nothing was written"));
}

}  // namespace
