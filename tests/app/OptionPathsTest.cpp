#include <gmock/gmock.h>

#include <QComboBox>
#include <QListWidget>
#include <QSignalSpy>
#include <QTabBar>
#include <semaphore>

#include "app/DataFilesFolder.h"
#include "app/options/FolderTree.h"
#include "app/options/PathsPage.h"
#include "settings/Catalogue.h"
#include "settings/EditorFormat.h"
#include "support/FormFixture.h"

using namespace klt;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

namespace {

class OptionPathsTest : public FormFixture {
protected:
    OptionPathsTest() {
        for (const auto* name : {"data/a.klt", "data/B.KLT", "data/c.txt", "data/sub/d.klt", "tvm/Tvm.Ini",
                                 "disk/e.klt", "marked/f.klt", ".hidden/g.klt"})
            file(name, "");
        file("config/gtk-3.0/bookmarks", "file://" + root + "/marked Mine\n");
        writeSetting(store, settings::kDataFilesPath, root + "/data");
        writeSetting(store, settings::kTvmVersion, 1);
    }

    /// Makes the page anew.
    void load() {
        page = std::make_unique<PathsPage>(services, nullptr, std::vector{std::string("/"), root + "/disk"});
        changed = std::make_unique<QSignalSpy>(page.get(), &OptionsPage::changed);
        show(*page);
    }
    FolderTree& tree() { return control<FolderTree>("Dir1"); }
    std::string note() { return control<QLabel>("lblNote").text().toStdString(); }
    void type(const std::string& path, Qt::Key end = Qt::Key_Return) {
        enter("FullPath", path.c_str());
        keys(end);
    }
    void clickTab(int index) {
        auto& tabs = control<QTabBar>("vbTabControl2");
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(index).center());
    }
    void pressPlace(const char* name) {
        auto& list = control<QListWidget>("Places");
        pressItem(list, list.findItems(name, Qt::MatchExactly).front());
    }
    /// Waits for the tree and the files; the folder as all show it, below the scratch folder.
    std::string shown(const std::string& folder, const std::vector<std::string>& files) {
        const auto listed = [this] {
            std::vector<std::string> names;
            for (const auto* item : control<QListWidget>("File1").findItems("*", Qt::MatchWildcard))
                names.push_back(item->text().toStdString());
            return names;
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return tree().path() == root + folder && listed() == files; }))
            << tree().path() << " " << testing::PrintToString(listed());
        return text("FullPath").substr(root.size());
    }
    std::string dataFiles() { return setting("KLTEditor", "Data Files Path"); }
    std::string host() { return setting("Options", "TVMINIPath"); }

    const std::string root = home.folder().path();
    std::vector<std::string> initialFolders;
    CRegSettings styles = editorFormatSettings(store);
    OptionsServices services{.store = store,
                             .styles = styles,
                             .recentFiles = variables().RecentFiles,
                             .setInitialFolder = [this](const auto& to) { initialFolders.push_back(to); }};
    std::unique_ptr<PathsPage> page;
    std::unique_ptr<QSignalSpy> changed;
};

TEST_F(OptionPathsTest, EachControlLeadsToAFolderThatIsStored) {
    const auto select = [this](const char* name, Qt::Key key) { QTest::keyClick(&control(name), key); };
    fs::create_directories(home / ".wine/dosdevices");
    fs::create_symlink(root, home / ".wine/dosdevices/x:");
    struct Row {
        const char* name;
        std::function<void()> go;
        std::string folder;
        std::vector<std::string> files;
    } const rows[] = {
        {"the tree, by key", [&] { select("Dir1", Qt::Key_Up); }, "/config", {}},
        {"the tree, by mouse",
         [&] {
             select("Dir1", Qt::Key_Right);
             ASSERT_TRUE(QTest::qWaitFor([this] { return tree().currentItem()->childCount() == 1; }));
             pressItem(tree(), tree().currentItem()->child(0));
         },
         "/data/sub",
         {"d.klt"}},
        {"home", [&] { pressPlace("Home"); }, "", {}},
        {"the first place, by key",
         [&] {
             control("Places").setFocus(Qt::TabFocusReason);
             EXPECT_EQ(changed->count(), 0) << "the focus chooses nothing";
             select("Places", Qt::Key_Down);
         },
         "",
         {}},
        {"a bookmark", [&] { pressPlace("Mine"); }, "/marked", {"f.klt"}},
        {"the next drive", [&] { select("Drive1", Qt::Key_Down); }, "/disk", {"e.klt"}},
        {"a path", [&] { type(root + "//disk/"); }, "/disk", {"e.klt"}},
        {"a path from home", [&] { type("~/.hidden"); }, "/.hidden", {"g.klt"}},
        {"a path from here", [&] { type(" ../marked"); }, "/marked", {"f.klt"}},
        {"a path of Windows programs", [&] { type(R"(X:\data\sub)"); }, "/data/sub", {"d.klt"}},
        {"a path without Enter",
         [&] { type(root + "/disk", Qt::Key_Home), page->save(); },
         "/disk",
         {"e.klt"}},
    };
    for (const auto& row : rows) {
        load();
        EXPECT_EQ(shown("/data", {"a.klt", "B.KLT"}), "/data") << row.name;
        EXPECT_EQ(changed->count(), 0) << row.name;
        row.go();
        EXPECT_EQ(shown(row.folder, row.files), row.folder) << row.name;
        EXPECT_EQ(control<QComboBox>("Drive1").currentIndex(), row.folder == "/disk" ? 1 : 0) << row.name;
        EXPECT_GT(changed->count(), 0) << row.name;
        initialFolders.clear();
        EXPECT_TRUE(page->save());
        EXPECT_EQ(dataFiles(), root + row.folder) << row.name;
        EXPECT_THAT(initialFolders, ElementsAre(root + row.folder)) << row.name;
        writeSetting(store, settings::kDataFilesPath, root + "/data");
    }
    EXPECT_EQ(host(), "(none)");
}

TEST_F(OptionPathsTest, APathThatIsNoFolderIsToldInPlace) {
    for (const std::string typed : {"/data/none", "/data/a.klt", ""}) {
        load();
        type(typed.empty() ? " " : root + typed);
        EXPECT_EQ(note(), "There is no such folder.") << typed;
        EXPECT_FALSE(page->save()) << typed;
        EXPECT_EQ(dataFiles(), root + "/data");
        keys(Qt::Key_Escape);
        EXPECT_EQ(text("FullPath") + note(), root + "/data");
        type(root + typed + "x", Qt::Key_End);
        page->hide();
        EXPECT_TRUE(page->save()) << "what nobody sees is dropped";
    }
    writeSetting(store, settings::kDataFilesPath, root + "/data/gone/away");
    load();
    EXPECT_EQ(shown("/data", {}), "/data/gone/away") << "the view is as close as it can be";
    EXPECT_TRUE(QTest::qWaitFor([this] { return note() == "No such file or directory"; }));
    pressItem(tree(), tree().currentItem());
    EXPECT_EQ(shown("/data", {"a.klt", "B.KLT"}), "/data");
}

TEST_F(OptionPathsTest, TheInnerTabAsksAboutWhatHasChanged) {
    struct Row {
        const char* name;
        int from;
        std::function<void()> change;
        QMessageBox::StandardButton answer;
        std::string dataFiles, host;
    } const rows[] = {
        {"nothing has changed", 0, [] {}, QMessageBox::NoButton, "/data", "/tvm"},
        {"and back", 0, [&] { type("~/disk"), type("~/data"); }, QMessageBox::NoButton, "/data", "/tvm"},
        {"yes", 0, [&] { type("~/disk"); }, QMessageBox::Yes, "/disk", "/tvm"},
        {"no", 0, [&] { type("~/disk"); }, QMessageBox::No, "/data", "/tvm"},
        {"no Enter", 0, [&] { type("~/disk", Qt::Key_End); }, QMessageBox::Yes, "/disk", "/tvm"},
        {"the host's, yes", 1, [&] { type("~/disk"); }, QMessageBox::Yes, "/data", "/disk"},
        {"the host's, no", 1, [&] { type("~/disk"); }, QMessageBox::No, "/data", "/tvm"},
    };
    for (const auto& row : rows) {
        writeSetting(store, settings::kDataFilesPath, root + "/data");
        writeSetting(store, settings::kTvmIniPath, root + "/tvm");
        load();
        clickTab(row.from);
        row.change();
        asked.clear(), initialFolders.clear();
        QSignalSpy settled(page.get(), &OptionsPage::settled);
        std::vector<std::string> questions;
        if (row.answer != QMessageBox::NoButton) {
            answerMessage(row.answer);
            questions = {std::string("Do you wish to save the changes to the ") +
                         (row.from == 1 ? "TVM.INI Path?" : "Data Files Path?")};
        }
        clickTab(1 - row.from);
        EXPECT_EQ(asked, questions) << row.name;
        EXPECT_EQ(settled.count(), 1) << row.name;
        EXPECT_EQ(dataFiles(), root + row.dataFiles) << row.name;
        EXPECT_EQ(host(), root + row.host) << row.name;
        EXPECT_EQ(initialFolders.size(), row.dataFiles == "/disk" ? 1U : 0U) << row.name;
        row.from == 1 ? shown("/data", {"a.klt", "B.KLT"}) : shown("/tvm", {"Tvm.Ini"});
    }
}

TEST_F(OptionPathsTest, AHostFolderWhereTheViewBeginsIsNoChoice) {
    const auto expect = [this](const char* name, const std::string& stored,
                               const std::function<void()>& choose) {
        SCOPED_TRACE(name);
        removeSetting(store, settings::kTvmIniPath);
        load();
        clickTab(1);
        if (fs::exists(home / ".tvm"))
            shown("/.tvm", {"tvm.ini"});
        else
            shown("", {});
        choose();
        EXPECT_EQ(changed->count() > 0, stored == root);
        EXPECT_TRUE(page->save());
        EXPECT_EQ(host(), stored);
        clickTab(0);
        EXPECT_THAT(asked, IsEmpty());
    };
    expect("home", "(none)", [] {});
    expect("home, chosen", root, [&] { pressPlace("Home"); });
    expect("home, clicked in the tree", root, [&] { pressItem(tree(), tree().currentItem()); });
    file(".tvm/tvm.ini", "");
    expect("the host's folder", root + "/.tvm", [] {});
}

TEST_F(OptionPathsTest, WithoutAHostTheDataFilesAreLeft) {
    load();
    auto& tabs = control<QTabBar>("vbTabControl2");
    clickTab(1);
    type(root + "/disk");
    QSignalSpy settled(page.get(), &OptionsPage::settled);
    page->showHost(false);
    EXPECT_FALSE(tabs.isVisible());
    EXPECT_EQ(shown("/data", {"a.klt", "B.KLT"}), "/data");
    EXPECT_EQ(host(), "(none)");
    EXPECT_EQ(settled.count(), 0);
    type(root + "/disk");
    for (const bool is22 : {false, true}) page->showHost(is22);
    EXPECT_TRUE(tabs.isVisible());
    EXPECT_EQ(tabs.currentIndex(), 0);
    EXPECT_EQ(shown("/disk", {"e.klt"}), "/disk") << "a choice on the first tab stays";
    writeSetting(store, settings::kTvmVersion, 0);
    load();
    EXPECT_FALSE(control<QTabBar>("vbTabControl2").isVisible());
}

TEST_F(OptionPathsTest, DataFilesHaveAFolderByDefault) {
    EXPECT_EQ(defaultDataFilesFolder(root + "/data"), root + "/data");
    EXPECT_EQ(defaultDataFilesFolder(root + "/none"), root) << "where there are no documents";
    fs::create_directory(home / "Documents");
    EXPECT_EQ(defaultDataFilesFolder(root + "/none"), root + "/Documents");
    removeSetting(store, settings::kDataFilesPath);
    EXPECT_EQ(dataFilesFolder(store), defaultDataFilesFolder());
    set("KLTEditor", "Data Files Path", root + "/none");
    EXPECT_EQ(dataFilesFolder(store), root + "/none");
    window();
    EXPECT_EQ(dataFiles(), defaultDataFilesFolder()) << "what is gone at the start is replaced";
}

TEST(FolderTree, GoesOnBesideAFolderThatDoesNotAnswer) {
    static std::counting_semaphore<> answers{0}, ended{0};
    const auto list = [](const std::string& folder, const auto& found) {
        if (folder == "/dead") answers.acquire();
        if (folder == "/locked")
            found({{}, {}, true, "Permission denied"});
        else
            found({{"a", "dead", "locked"}, {}, true, {}});
        ended.release();
    };
    {
        FolderReader reader(list);
        FolderTree shown(reader);
        const auto expect = [&shown](const std::string& to, const std::string& path) {
            shown.goTo(to);
            EXPECT_TRUE(QTest::qWaitFor([&] { return shown.path() == path; })) << to;
        };
        expect("/dead/a", "/dead");
        expect("/a/a/a", "/a/a/a");
        // It may be open below.
        expect("/locked/a", "/locked/a");
    }
    answers.release();
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(ended.try_acquire_for(std::chrono::seconds(30)));
}

}  // namespace
