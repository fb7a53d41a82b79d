#include "app/dialogs/CommonDialog1.h"

#include <gmock/gmock.h>

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTreeView>
#include <filesystem>

#include "support/EditorFixture.h"

using namespace klt;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

class CommonDialog1Test : public EditorFixture {
protected:
    CommonDialog1Test() {
        fs::create_directories(home / "one");
        fs::create_directories(home / "two");
        dialog().DialogTitle = "Select Data File to Open";
        dialog().InitDir(home / "one");
    }
    CommonDialog1& dialog() { return window().fileDialog(); }
    static std::string folderOf(const QFileDialog& dialog) { return dialog.directory().path().toStdString(); }
    static bool okEnabled(const QFileDialog& dialog) {
        return dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->isEnabled();
    }
    /// The list of files, once it shows that one, and where it stands there. The list is filled, and sorted,
    /// some time after the dialog comes up.
    static std::pair<QWidget*, QPoint> inList(const QFileDialog& dialog, const char* name) {
        const auto* list = dialog.findChild<QTreeView*>("treeView");
        const auto place = [&] {
            const auto found = list->model()->match(list->model()->index(0, 0, list->rootIndex()),
                                                    Qt::DisplayRole, name, 1, Qt::MatchExactly);
            return list->visualRect(found.value(0)).center();
        };
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return list->isVisible() && list->indexAt(place()).data() == QString(name); }));
        return {list->viewport(), place()};
    }
};

TEST_F(CommonDialog1Test, TheFolderUsedLastStaysAlsoAfterAFullPath) {
    std::string seen;
    answerNext<QFileDialog>([&](QFileDialog& shown) {
        seen = folderOf(shown);
        shown.reject();
    });
    EXPECT_THAT(dialog().ShowOpen(), IsEmpty());
    EXPECT_EQ(dialog().FileName, "");
    EXPECT_EQ(seen, home / "one");

    dialog().Flags = kOverwritePrompt | kPathMustExist;
    answerFileDialog(home / "two/a.klt");
    EXPECT_THAT(dialog().ShowSave(), ElementsAre(home / "two/a.klt"));
    EXPECT_EQ(dialog().FileName, home / "two/a.klt");

    dialog().FileName.clear();
    answerNext<QFileDialog>([&](QFileDialog& shown) {
        seen = folderOf(shown);
        EXPECT_EQ(shown.findChild<QLineEdit*>("fileNameEdit")->text(), "");
        EXPECT_EQ(shown.nameFilters(), QStringList("TVM Data Files (*.klt)"));
        shown.reject();
    });
    dialog().ShowOpen();
    EXPECT_EQ(seen, home / "two");
}

TEST_F(CommonDialog1Test, AFolderThatDoesNotExistIsRefused) {
    dialog().Flags = kPathMustExist;
    answerFileDialog(home / "none/a.klt");
    answerNext<QMessageBox>([&](QMessageBox& box) {
        asked.push_back(box.text().toStdString());
        box.accept();
        answerNext<QFileDialog>([](QFileDialog& shown) { shown.reject(); });
    });
    EXPECT_THAT(dialog().ShowSave(), IsEmpty());
    EXPECT_EQ(asked.at(0), "The folder " + home / "none/" + " does not exist.");
}

TEST_F(CommonDialog1Test, UnderTheMergersTitleOnlyDataFilesCanBeChosenAndNoBaseFiles) {
    const struct {
        const char* title;
        const char* name;
        bool enabled;
    } rows[] = {
        {"Select Data File", "a.klt", true},
        {"Select Data File", "A.KLT", true},
        {"Select Data File", "a.txt", false},
        {"Select Data File", "Zbase.klt", false},
        {"Select Data File", "BASE.KLT", false},
        {"Select Data File", "a.klt.txt", false},
        {"Select Data File to Open", "base.klt", true},
        {"Select Data File to Open", "a.txt", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.title) + " " + row.name);
        dialog().DialogTitle = row.title;
        answerNext<QFileDialog>([&](QFileDialog& shown) {
            QTest::keyClicks(shown.findChild<QLineEdit*>("fileNameEdit"), row.name);
            EXPECT_EQ(okEnabled(shown), row.enabled);
            shown.reject();
        });
        dialog().ShowOpen();
    }
}

TEST_F(CommonDialog1Test, ASelectionInTheListIsPolicedToo) {
    file("one/a.klt", "");
    file("one/base.klt", "");
    dialog().DialogTitle = "Select Data File";
    answerNext<QFileDialog>([&](QFileDialog& shown) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
        for (const auto& [name, enabled] : {std::pair("a.klt", true), {"base.klt", false}, {"a.klt", true}}) {
            const auto [list, place] = inList(shown, name);
            QTest::mouseClick(list, Qt::LeftButton, {}, place);
            EXPECT_EQ(okEnabled(shown), enabled) << name;
        }
        shown.reject();
    });
    dialog().ShowOpen();
}

TEST_F(CommonDialog1Test, EnterAndADoubleClickDoNotPassTheDisabledButton) {
    file("one/base.klt", "");
    file("one/a.klt", "");
    QWidget other;
    dialog().DialogTitle = "Select Data File";
    for (QWidget* owner : {&other, static_cast<QWidget*>(&window())}) {
        dialog().InitDir(home.folder().path());
        answerNext<QFileDialog>([&](QFileDialog& shown) {
            auto* name = shown.findChild<QLineEdit*>("fileNameEdit");
            const auto enter = [&](const std::string& typed) {
                name->setFocus();
                name->setText(QString::fromStdString(typed));
                QTest::keyClick(name, Qt::Key_Enter);
            };
            EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
            enter(home / "one");
            EXPECT_EQ(folderOf(shown), home / "one");
            for (const char* typed : {"base.klt", "base", "a.txt"}) {
                enter(typed);
                ASSERT_TRUE(shown.isVisible()) << typed;
            }
            const auto [list, place] = inList(shown, "base.klt");
            QTest::mouseDClick(list, Qt::LeftButton, {}, place);
            ASSERT_TRUE(shown.isVisible());
            name->setFocus();
            name->clear();
            QTest::keyClicks(name, "a.klt");
            EXPECT_TRUE(QApplication::activePopupWidget());
            QTest::keyClick(name, Qt::Key_Enter);
        });
        EXPECT_THAT(dialog().ShowOpen(owner), ElementsAre(home / "one/a.klt"));
        EXPECT_FALSE(QApplication::activePopupWidget());
    }
}

TEST_F(CommonDialog1Test, TheStoredFolderIsUsedUnlessItIsGone) {
    SaveSetting(store, kSettingsApplication, "KLTEditor", "Data Files Path", home / "two");
    restart();
    std::string seen;
    const auto look = [&](QFileDialog& shown) {
        seen = folderOf(shown);
        shown.reject();
    };
    answerNext<QFileDialog>(look);
    dialog().ShowOpen();
    EXPECT_EQ(seen, home / "two");

    fs::remove(home / "two");
    restart();
    answerNext<QFileDialog>(look);
    dialog().ShowOpen();
    EXPECT_EQ(seen, QCoreApplication::applicationDirPath().toStdString());
    EXPECT_EQ(setting("KLTEditor", "Data Files Path"), seen);
}

}  // namespace
