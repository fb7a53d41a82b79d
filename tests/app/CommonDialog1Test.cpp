#include "app/dialogs/CommonDialog1.h"

#include <gmock/gmock.h>

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTreeView>

#include "support/EditorFixture.h"

using namespace klt;
using testing::ElementsAre;

namespace {

namespace fs = std::filesystem;

class CommonDialog1Test : public EditorFixture {
protected:
    CommonDialog1Test() {
        for (const char* name : {"one/a.klt", "one/base.klt", "two/b.klt"}) file(name, "");
        dialog().DialogTitle = "Select Data File to Open";
        dialog().InitDir(home / "one");
    }
    CommonDialog1& dialog() { return window().fileDialog(); }
    static QLineEdit* nameEdit(const QFileDialog& shown) {
        return shown.findChild<QLineEdit*>("fileNameEdit");
    }
    static std::string folderOf(const QFileDialog& shown) { return shown.directory().path().toStdString(); }
    static bool okEnabled(const QFileDialog& shown) {
        return shown.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->isEnabled();
    }
    /// `work` meets the dialog that opens a file; what it leaves up is cancelled.
    std::vector<std::string> openWith(const std::function<void(QFileDialog&)>& work,
                                      QWidget* owner = nullptr) {
        answerNext<QFileDialog>([&](QFileDialog& shown) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
            work(shown);
            if (shown.isVisible()) shown.reject();
        });
        return dialog().ShowOpen(owner);
    }
    /// The folder that the dialog comes up with.
    std::string shownFolder() {
        std::string folder;
        openWith([&](QFileDialog& shown) { folder = folderOf(shown); });
        return folder;
    }
    /// The list of files, once it shows that one, and where it stands there. The list is filled, and sorted,
    /// some time after the dialog comes up.
    static std::pair<QWidget*, QPoint> inList(const QFileDialog& shown, const char* name) {
        const auto* list = shown.findChild<QTreeView*>("treeView");
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
    EXPECT_EQ(shownFolder(), home / "one");
    EXPECT_EQ(dialog().FileName, "");

    dialog().Flags = kOverwritePrompt | kPathMustExist;
    answerFileDialog(home / "two/a.klt");
    EXPECT_THAT(dialog().ShowSave(), ElementsAre(home / "two/a.klt"));
    EXPECT_EQ(dialog().FileName, home / "two/a.klt");

    dialog().FileName.clear();
    openWith([&](QFileDialog& shown) {
        EXPECT_EQ(folderOf(shown), home / "two");
        EXPECT_EQ(nameEdit(shown)->text(), "");
        EXPECT_EQ(shown.nameFilters(), QStringList("TVM Data Files (*.klt)"));
    });
}

TEST_F(CommonDialog1Test, AFolderThatDoesNotExistIsRefused) {
    dialog().Flags = kPathMustExist;
    answerFileDialog(home / "none/a.klt");
    answerNext<QMessageBox>([&](QMessageBox& box) {
        asked.push_back(box.text().toStdString());
        answerFileDialog("");
        box.accept();
    });
    EXPECT_THAT(dialog().ShowSave(), ElementsAre());
    EXPECT_EQ(asked.at(0), "The folder " + home / "none/" + " does not exist.");
}

TEST_F(CommonDialog1Test, UnderTheMergersTitleOnlyDataFilesCanBeChosenAndNoBaseFiles) {
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"Select Data File", "a.klt", true},
        {"Select Data File", "A.KLT", true},
        {"Select Data File", "a.txt", false},
        {"Select Data File", "Zbase.klt", false},
        {"Select Data File", "BASE.KLT", false},
        {"Select Data File", "a.klt.txt", false},
        {"Select Data File to Open", "base.klt", true},
        {"Select Data File to Open", "a.txt", true},
    };
    for (const auto& [title, name, enabled] : rows) {
        dialog().DialogTitle = title;
        openWith([&](QFileDialog& shown) {
            QTest::keyClicks(nameEdit(shown), name);
            EXPECT_EQ(okEnabled(shown), enabled) << title << ' ' << name;
        });
    }
}

TEST_F(CommonDialog1Test, NeitherASelectionNorEnterNorADoubleClickPassesTheDisabledButton) {
    QWidget other;
    dialog().DialogTitle = "Select Data File";
    for (QWidget* owner : {&other, static_cast<QWidget*>(&window())}) {
        dialog().InitDir(home.folder().path());
        const auto chosen = openWith(
            [&](QFileDialog& shown) {
                auto* name = nameEdit(shown);
                for (const auto& typed :
                     {home / "one", std::string("base.klt"), std::string("base"), std::string("a.txt")}) {
                    name->setFocus();
                    name->setText(QString::fromStdString(typed));
                    QTest::keyClick(name, Qt::Key_Enter);
                    EXPECT_EQ(folderOf(shown), home / "one");
                    ASSERT_TRUE(shown.isVisible()) << typed;
                }
                for (const auto& [entry, enabled] :
                     {std::pair("a.klt", true), {"base.klt", false}, {"a.klt", true}}) {
                    const auto [list, place] = inList(shown, entry);
                    QTest::mouseClick(list, Qt::LeftButton, {}, place);
                    EXPECT_EQ(okEnabled(shown), enabled) << entry;
                }
                const auto [list, place] = inList(shown, "base.klt");
                QTest::mouseDClick(list, Qt::LeftButton, {}, place);
                ASSERT_TRUE(shown.isVisible());
                name->setFocus();
                name->clear();
                QTest::keyClicks(name, "a.klt");
                EXPECT_TRUE(QApplication::activePopupWidget());
                QTest::keyClick(name, Qt::Key_Enter);
            },
            owner);
        EXPECT_THAT(chosen, ElementsAre(home / "one/a.klt"));
        EXPECT_FALSE(QApplication::activePopupWidget());
    }
}

TEST_F(CommonDialog1Test, TheColumnsAreAsWideAsWhatTheyHold) {
    file("two/" + std::string(120, 'n') + ".klt", std::string(3000, 'x'));
    dialog().InitDir(home / "two");
    openWith([](QFileDialog& shown) {
        const auto* list = shown.findChild<QTreeView*>("treeView");
        const auto fits = [list](int column) {
            int needed = 0;
            for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
                const auto cell = list->model()->index(row, column, list->rootIndex());
                needed = std::max(needed, list->fontMetrics().horizontalAdvance(cell.data().toString()));
            }
            return needed > 0 && list->columnWidth(column) > needed;
        };
        for (const int column : {0, 1, 2, 3})
            EXPECT_TRUE(QTest::qWaitFor([&] { return fits(column); })) << column;
        const auto type = list->model()->index(0, 2, list->rootIndex()).data().toString();
        EXPECT_EQ(type.toStdString(), "KLT file") << "by its name: what stands in it is not read";
    });
}

TEST_F(CommonDialog1Test, TheStoredFolderIsUsedUnlessItIsGone) {
    set("KLTEditor", "Data Files Path", home / "two");
    restart();
    EXPECT_EQ(shownFolder(), home / "two");
    fs::remove_all(home / "two");
    restart();
    EXPECT_EQ(shownFolder(), QCoreApplication::applicationDirPath().toStdString());
    EXPECT_EQ(setting("KLTEditor", "Data Files Path"), shownFolder());
}

}  // namespace
