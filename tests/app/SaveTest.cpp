#include <gmock/gmock.h>

#include "support/EditorFixture.h"

using namespace klt;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

using SaveTest = EditorFixture;

TEST_F(SaveTest, SaveWritesTheFileAndClearsTheFlag) {
    const auto path = file("a.klt", "text\n");
    const auto& document = open(path);
    type("x");
    variables().CurrentFilePath = home / "other.klt";
    key(Qt::Key_S, kCtrl);
    EXPECT_EQ(readBytes(path), "xtext\r\n") << "the document's own path, whatever was current";
    EXPECT_FALSE(document.Modified());
    EXPECT_EQ(panel(1), "");
    type("y");
    EXPECT_TRUE(document.Modified());
}

TEST_F(SaveTest, SaveOfANewDocumentIsSaveAs) {
    const auto& document = openNew();
    type("x");
    answerFileDialog("");
    run("F4");
    EXPECT_EQ(document.Caption(), "KLT1");
    EXPECT_TRUE(document.Modified()) << "nothing was chosen";
    answerFileDialog(home / "new");
    run("F4");
    EXPECT_EQ(lastTitle, "Select Data File to Open");
    EXPECT_EQ(proposed, "KLT1.klt");
    EXPECT_EQ(document.Caption(), home / "new.klt") << "the default extension";
    EXPECT_TRUE(document.Exists());
    EXPECT_TRUE(fs::exists(home / "new.klt"));
    EXPECT_EQ(recentFile(1), home / "new.klt");
    EXPECT_EQ(action("F4")->text(), "Save new.klt");
}

TEST_F(SaveTest, SaveAsAsksBeforeItReplacesAFile) {
    openNew();
    const auto path = file("there.klt", "old");
    answerFileDialog(path);
    answerNext<QMessageBox>([this](QMessageBox& box) {
        box.button(QMessageBox::No)->click();
        answerNext<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    });
    run("F5");
    EXPECT_EQ(readBytes(path), "old");
    answerFileDialog(path);
    answerNext<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    run("F5");
    EXPECT_EQ(readBytes(path), textOf(active()));
    EXPECT_EQ(readBytes(path + "~"), "old") << "it was not seen here";
}

TEST_F(SaveTest, AnEncodingThatACharacterChangesIsTold) {
    const auto path = file("a.klt", "\xC9t\xE9");
    open(path);
    type("x");
    run("F4");
    EXPECT_EQ(notice(), "");
    box().SetSelText("\u0416");
    run("F4");
    EXPECT_EQ(notice(),
              path + ": the encoding changes from Windows-1252 to UTF-8, since a character asks for it.");
    EXPECT_EQ(readBytes(path), "x\u0416\u00c9t\u00e9");
    type("x");
    run("F4");
    EXPECT_EQ(notice(), "") << "it is over with the next save";
}

TEST_F(SaveTest, EncodingsComeBackAsTheyWere) {
    const std::tuple<const char*, std::string, std::string> rows[] = {
        {"windows", "caf\xE9\r\n", "xcaf\xE9\r\n"},
        {"utf8", "caf\xC3\xA9 \xE2\x82\xAC\r\n", "xcaf\xC3\xA9 \xE2\x82\xAC\r\n"},
        {"mark", "\xEF\xBB\xBFv\r\n", "\xEF\xBB\xBFxv\r\n"},
        {"utf16", std::string("\xFF\xFEv\0", 4), std::string("\xFF\xFEx\0v\0", 6)},
        {"nul", std::string("a\0b", 3), std::string("xa\0b", 4)},
    };
    for (const auto& [name, bytes, expected] : rows) {
        open(file(name, bytes));
        type("x");
        run("F4");
        EXPECT_EQ(readBytes(home / name), expected) << name;
    }
}

TEST_F(SaveTest, AFailureIsToldAndLeavesCaptionAndFlags) {
    const auto& first = open(file("docs/a.klt", "a"));
    type("x");
    fs::remove_all(home / "docs");
    run("F4");
    EXPECT_TRUE(first.Modified());
    EXPECT_THAT(notice(), StartsWith(home / "docs/a.klt could not be saved: "));
    EXPECT_TRUE(box().hasFocus());

    const std::string path = "/proc/klt-test.klt";  // takes no files from anybody
    openNew();
    answerFileDialog(path);
    run("F5");
    EXPECT_EQ(active().Caption(), "KLT2");
    EXPECT_FALSE(active().Exists());
    EXPECT_THAT(notice(), StartsWith(path + " could not be saved: "));

    // A notice goes with the document that it is about, and when that is saved.
    document(1).setModified(false);
    run("F3");
    letEventsRun();
    EXPECT_THAT(notice(), StartsWith(home / "docs/a.klt "));
    fs::create_directory(home / "docs");
    run("F4");
    EXPECT_EQ(notice(), "");
}

TEST_F(SaveTest, TheFirstSaveOverAnUnreadFileKeepsTheOldOneBesideIt) {
    const auto path = file("big.klt", "old");
    fs::resize_file(path, uintmax_t{1} << 31);  // more than is read
    const auto& document = open(path);
    EXPECT_THAT(notice(), StartsWith(path + " could not be read"));
    for (const std::string text : {"x", "xy"}) {
        type(QString(text.back()));
        run("F4");
        EXPECT_EQ(readBytes(path), text);
        EXPECT_FALSE(document.Modified());
        EXPECT_EQ(fs::file_size(path + "~"), uintmax_t{1} << 31);
    }
    EXPECT_FALSE(fs::exists(path + "~2"));
}

}  // namespace
