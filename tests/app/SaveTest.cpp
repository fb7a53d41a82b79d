#include <gmock/gmock.h>

#include <filesystem>

#include "support/EditorFixture.h"

using namespace klt;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

class SaveTest : public EditorFixture {
protected:
    void save() { action("F4")->trigger(); }
    void saveAs() { action("F5")->trigger(); }
};

TEST_F(SaveTest, SaveWritesTheFileAndClearsTheFlag) {
    const auto path = file("a.klt", "text\n");
    auto& document = open(path);
    type("x");
    variables().CurrentFilePath = home / "other.klt";
    QTest::keyClick(document.RichTextBox1, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(readBytes(path), "xtext\r\n") << "the document's own path, whatever was current";
    EXPECT_FALSE(document.Modified());
    EXPECT_EQ(panel(1), "");
    type("y");
    EXPECT_TRUE(document.Modified());
}

TEST_F(SaveTest, SaveOfANewDocumentIsSaveAs) {
    auto& document = openNew();
    answerFileDialog(home / "new");
    save();
    EXPECT_EQ(lastTitle, "Select Data File to Open");
    EXPECT_EQ(proposed, "KLT1.klt");
    EXPECT_EQ(document.Caption(), home / "new.klt") << "the default extension";
    EXPECT_TRUE(document.Exists());
    EXPECT_TRUE(fs::exists(home / "new.klt"));
    EXPECT_EQ(recentFile(1), home / "new.klt");
    EXPECT_EQ(action("F4")->text(), "Save new.klt");
}

TEST_F(SaveTest, ACancelledSaveAsDoesNothing) {
    auto& document = openNew();
    type("x");
    answerFileDialog("");
    saveAs();
    EXPECT_EQ(document.Caption(), "KLT1");
    EXPECT_TRUE(document.Modified());
}

TEST_F(SaveTest, SaveAsAsksBeforeItReplacesAFile) {
    openNew();
    const auto path = file("there.klt", "old");
    answerFileDialog(path);
    answerNext<QMessageBox>([this, path](QMessageBox& box) {
        QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
        answerNext<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    });
    saveAs();
    EXPECT_EQ(readBytes(path), "old");
}

TEST_F(SaveTest, EncodingsComeBackAsTheyWere) {
    const struct {
        const char* name;
        std::string bytes, expected;
    } rows[] = {
        {"windows", "caf\xE9\r\n", "xcaf\xE9\r\n"},
        {"utf8", "caf\xC3\xA9 \xE2\x82\xAC\r\n", "xcaf\xC3\xA9 \xE2\x82\xAC\r\n"},
        {"mark", "\xEF\xBB\xBFv\r\n", "\xEF\xBB\xBFxv\r\n"},
        {"utf16", std::string("\xFF\xFEv\0", 4), std::string("\xFF\xFEx\0v\0", 6)},
        {"nul", std::string("a\0b", 3), std::string("xa\0b", 4)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto path = file(row.name, row.bytes);
        open(path);
        type("x");
        save();
        EXPECT_EQ(readBytes(path), row.expected);
    }
}

TEST_F(SaveTest, AFailedSaveTellsAndKeepsTheFlag) {
    fs::create_directory(home / "docs");
    auto& document = open(file("docs/a.klt", "a"));
    type("x");
    fs::remove_all(home / "docs");
    save();
    EXPECT_TRUE(document.Modified());
    EXPECT_THAT(notice(), StartsWith(home / "docs/a.klt could not be saved: "));
    EXPECT_TRUE(document.RichTextBox1->hasFocus());
}

TEST_F(SaveTest, AFailedSaveAsLeavesCaptionAndFlags) {
    auto& document = openNew();
    const std::string path = "/proc/klt-test.klt";  // takes no files from anybody
    answerFileDialog(path);
    saveAs();
    EXPECT_EQ(document.Caption(), "KLT1");
    EXPECT_FALSE(document.Exists());
    EXPECT_THAT(notice(), StartsWith(path + " could not be saved: "));
}

TEST_F(SaveTest, TheFirstSaveOverAnUnreadFileKeepsTheOldOneBesideIt) {
    const auto path = file("big.klt", "old");
    fs::resize_file(path, uintmax_t{1} << 31);  // more than is read
    auto& document = open(path);
    EXPECT_THAT(notice(), HasSubstr("could not be read"));
    type("x");
    save();
    EXPECT_EQ(readBytes(path), "x");
    EXPECT_EQ(fs::file_size(path + "~"), uintmax_t{1} << 31);
    EXPECT_FALSE(document.Modified());
    type("y");
    save();
    EXPECT_EQ(readBytes(path), "xy");
    EXPECT_FALSE(fs::exists(path + "~2"));
}

}  // namespace
