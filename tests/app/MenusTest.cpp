#include "app/menus/Menus.h"

#include <QClipboard>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <set>

#include "app/commands/Commands.h"
#include "app/window/ArrangeWindows.h"
#include "support/Desktop.h"
#include "support/EditorFixture.h"
#include "text/Unicode.h"

using namespace klt;

namespace {

/// The names of a menu's items, in brackets behind a menu those of its own.
QString names(const QWidget& menu) {
    QStringList found;
    for (const auto* it : menu.actions()) {
        found << (it->isSeparator() ? "-" + it->text() : it->objectName());
        if (it->menu()) found.back() += "(" + names(*it->menu()) + ")";
    }
    return found.join(' ');
}

class MenusTest : public EditorFixture {
protected:
    MenusTest() { QApplication::clipboard()->clear(); }

    QMenu& menu(const char* name) { return *window().findChild<QMenu*>(name); }
    std::string caption(const char* key) {
        return action(key)->text().replace(QString::fromStdString(home / ""), "HOME/").toStdString();
    }
    /// The keys among these whose items are enabled.
    std::string enabled(const std::string& keys, const QString& popup = {}) {
        QStringList found = QString::fromStdString(keys).split(' ');
        found.removeIf(
            [&](const QString& key) { return !window().findChild<QAction*>(popup + key)->isEnabled(); });
        return found.join(' ').toStdString();
    }
    /// The documents that the Window menu lists; a star behind the marked one.
    std::string listed() {
        std::string found;
        for (const auto* it : menu("mnuWindowTOP").actions())
            if (it->objectName().startsWith('D'))
                found += it->text().toStdString() + (it->isChecked() ? "* " : " ");
        return found;
    }
};

TEST_F(MenusTest, TheTreeIsWhole) {
    open(file("a.klt", ""));
    window().closeDocument(active());
    open(file("b&c.klt", ""));
    EXPECT_EQ(names(*window().menuBar()),
              "mnuFileTOP(F1 F2 F3 - F4 F5 - RecentMenu1 RecentMenu2 - F6) "
              "mnuEditTOP(E1 - E2 E3 E4 E5 E6 E7 - E8 E9) "
              "mnuInsertTOP(I1 I2 I3 I4 I5 I6 I7 - I8 I9 - I10 I11) "
              "mnuToolsTOP(mnuTToolbars(mnuTTDefault mnuTTWizards) T1 T2 T3 T4 - T5 T6) "
              "mnuWindowTOP(W1 W2 W3 W4 - W5 W6 - W7 - D1) "
              "mnuHelpTOP(H1 H2 - H3 - H4 H5 H6 H7 H8 H9 - H10)");
    const std::string folder = upperCase(home / "");
    const std::pair<const char*, std::string> rows[] = {
        {"F4", "Save b&&c.klt"},
        {"E1", "Can't Undo"},
        {"E5", "&Delete\tDel"},
        {"RecentMenu1", "&1 " + folder + "B&&C.KLT"},
        {"RecentMenu2", "&2 " + folder + "A.KLT"},
        {"D1", "&1 HOME/b&&c.klt"},
        {"mnuHelpTOP", "&Help"},
        {"T6", "KLT &Syntax Checker..."},
    };
    for (const auto& [key, text] : rows) EXPECT_EQ(caption(key), text);
    std::set<QKeySequence> shortcuts;
    for (const auto* it : window().findChildren<QAction*>())
        EXPECT_TRUE(it->shortcut().isEmpty() || shortcuts.insert(it->shortcut()).second)
            << it->objectName().toStdString();
    EXPECT_FALSE(shortcuts.contains(QKeySequence(Qt::Key_Delete)));

    QTest::mouseClick(box().viewport(), Qt::RightButton);
    EXPECT_TRUE(menu("MainRTFPopup").isVisible());
    EXPECT_EQ(names(menu("MainRTFPopup")).remove("MainRTFPopup."),
              "E1 - E2 E3 E4 E5 - E6 -Insert Menu I1 I2 I3 I4 I5 I6 I7 - I8 I9 - I10 I11");
    menu("MainRTFPopup").close();
}

TEST_F(MenusTest, WithoutADocumentLittleIsEnabled) {
    const std::string always = "F1 F2 F6 mnuTTDefault mnuTTWizards T5 W7 H4 H5 H6 H7 H8 H9 RecentMenu1";
    const std::string withOne = "F3 F4 F5 E6 E7 E8 E9 I1 I2 I3 I4 I7 I10 I11 T6 W1 W2 W3 W4 W5 W6";
    open(file("a.klt", ""));
    EXPECT_EQ(enabled(always), always);
    EXPECT_EQ(enabled(withOne), withOne);
    window().closeDocument(active());
    EXPECT_EQ(enabled(always), always);
    EXPECT_EQ(enabled(withOne), "");
    EXPECT_EQ(caption("F4"), "Save");
    openNew();
    EXPECT_EQ(caption("F4"), "Save KLT2");
}

TEST_F(MenusTest, StatesFollowCaretEditAndClipboard) {
    // Of Undo, Cut, Copy, Paste and Delete.
    const std::string keys = "E1 E2 E3 E4 E5";
    const std::tuple<const char*, Position, Position, const char*, const char*> rows[] = {
        {"caret at the start", 0, 0, "E1", ""},
        {"selection from the first line on", 9, 3, "E1", ""},
        {"first line, one longer than usual, caret", 10, 0, "E1 E5", "E5"},
        {"first line, one longer than usual, selection", 10, 3, "E1", ""},
        {"second line, caret", 13, 0, "E1 E4 E5", "E5"},
        {"second line, selection", 13, 1, "E1 E2 E3 E4 E5", "E2 E3 E5"},
    };
    open(file("a.klt", "Version=2x\nab\n"));
    for (const bool isEdited : {false, true}) {
        for (const auto& [name, start, length, enabledItems, enabledItemsAtFirst] : rows) {
            box().Select(start, length);
            EXPECT_EQ(enabled(keys), isEdited ? enabledItems : enabledItemsAtFirst) << name;
        }
        key(Qt::Key_C, kCtrl);
        type("a");
        EXPECT_EQ(caption("E1"), "Undo");
    }
    EXPECT_TRUE(action("ctbrToolbar(0).8")->isEnabled());
    box().Select(13, 0);
    window().showPopup("MainRTFPopup", {});
    EXPECT_EQ(enabled(keys, "MainRTFPopup."), "E1 E4 E5");
    menu("MainRTFPopup").close();
    editor().documents.New();
    EXPECT_EQ(enabled(keys), "");
    open(file("b.klt", "V\nabcdefghij"));
    box().Select(9, 1);
    EXPECT_EQ(enabled(keys), "E4") << "second line after a short first one";
}

TEST_F(MenusTest, AChordWorksInTheTextWhateverItsItemSays) {
    open(file("a.klt", "Version=2\nab"));
    box().Select(0, 7);
    key(Qt::Key_C, kCtrl);
    EXPECT_EQ(QApplication::clipboard()->text(), "Version") << "the item is disabled";
    box().Select(11, 2);
    key(Qt::Key_V, kCtrl);
    key(Qt::Key_V, kCtrl);
    EXPECT_EQ(textOf(active()), "Version=2\r\nVersionVersion");
    key(Qt::Key_Z, kCtrl);
    key(Qt::Key_A, kCtrl);
    EXPECT_EQ(box().SelText(), "Version=2\r\nVersion");
}

TEST_F(MenusTest, CommandsOnText) {
    const std::tuple<const char*, const char*, Position, Position, const char*, Position> rows[] = {
        {"delete takes a line end whole", "E5", 13, 0, "Version=2\r\nabcd", 13},
        {"delete at the end of the text", "E5", 17, 0, "Version=2\r\nab\r\ncd", 17},
        {"delete a selection", "E5", 12, 4, "Version=2\r\nad", 12},
        {"delete from the popup", "MainRTFPopup.E5", 11, 0, "Version=2\r\nb\r\ncd", 11},
        {"cut", "E2", 11, 2, "Version=2\r\n\r\ncd", 11},
        {"comment line", "I10", 11, 0, "Version=2\r\nab\r\n*\r\ncd", 16},
        {"comment", "I11", 12, 0, "Version=2\r\nab // \r\ncd", 17},
        {"comment on the last line", "MainRTFPopup.I11", 15, 0, "Version=2\r\nab\r\ncd // ", 21},
    };
    for (const auto& [name, command, start, length, text, caret] : rows) {
        auto& document = open(file("a.klt", "Version=2\nab\ncd"));
        box().Select(start, length);
        emit menu("MainRTFPopup").aboutToShow();
        run(command);
        EXPECT_EQ(textOf(document), text) << name;
        EXPECT_EQ(box().SelStart(), caret) << name;
    }
}

TEST_F(MenusTest, ARecentFileIsOpenedByTheLastDigitOfItsKey) {
    EXPECT_EQ(menu("mnuFileTOP").actions().size(), 8) << "one separator less, and no entries";
    set("MRU", "MaxCount", "12");
    restart();
    for (const char* name : {"l", "k", "j", "i", "h", "g", "f", "e", "d", "c", "b", "a"})
        open(file(name, name));
    run("RecentMenu12");
    EXPECT_EQ(textOf(active()), "b");
    EXPECT_FALSE(active().Modified());
    run("RecentMenu10");
    EXPECT_EQ(count(), 13) << "there is no file 0";
    EXPECT_TRUE(caption("RecentMenu1").ends_with("/B")) << "what was opened comes first";
}

TEST_F(MenusTest, TheWindowMenuListsEightDocuments) {
    for (int number = 1; number <= 8; ++number) openNew();
    run("D2");
    EXPECT_EQ(active().Caption(), "KLT2");
    run("D2");
    EXPECT_EQ(listed(), "&1 KLT1 &2 KLT2* &3 KLT3 &4 KLT4 &5 KLT5 &6 KLT6 &7 KLT7 &8 KLT8 ");
    openNew();
    EXPECT_EQ(listed(),
              "&1 KLT1 &2 KLT2 &3 KLT3 &4 KLT4 &5 KLT5 &6 KLT6 &7 KLT7 &8 KLT8 &More Data Files... ");
    EXPECT_EQ(action("D9")->isEnabled(), commandIsThere("D9"));
    subWindow(document(4)).showMinimized();
    run("D5");
    EXPECT_FALSE(subWindow(active()).isMinimized());
    EXPECT_EQ(active().Caption(), "KLT5");
}

TEST_F(MenusTest, TheKeysGoRoundTheDocuments) {
    for (int number = 1; number <= 3; ++number) openNew();
    const std::pair<Qt::KeyboardModifiers, const char*> rows[] = {
        {kCtrl, "KLT1"}, {kCtrl, "KLT2"}, {kCtrl | kShift, "KLT1"}, {kCtrl | kShift, "KLT3"}};
    for (const auto& [modifiers, caption] : rows) {
        key(Qt::Key_F6, modifiers);
        EXPECT_EQ(active().Caption(), caption);
    }
    EXPECT_TRUE(box().hasFocus());
}

TEST_F(MenusTest, CheckMarksShowWhatIsStoredOrSeen) {
    for (const char* state : {"0", "1"}) {
        run("W7");
        EXPECT_EQ(setting("Options", "Show KLT Checker Window"), state);
        EXPECT_EQ(action("W7")->isChecked(), *state == '1');
    }
    run("mnuTTWizards");
    EXPECT_FALSE(window().toolbars().isBandVisible("A2"));
    EXPECT_FALSE(action("mnuTTWizards")->isChecked());
    EXPECT_TRUE(action("mnuTTDefault")->isChecked());
}

TEST_F(MenusTest, TilingRestoresWindowsAndLeavesTheActiveOne) {
    for (int number = 1; number <= 3; ++number) openNew();
    ASSERT_TRUE(subWindow(active()).isMaximized());
    run("W3");
    auto& icon = subWindow(document(0));
    icon.showMinimized();
    run("D2");
    run("W2");
    EXPECT_EQ(active().Caption(), "KLT2");
    EXPECT_TRUE(icon.isMinimized());
    const QRect all = window().area().viewport()->rect();
    EXPECT_EQ(subWindow(active()).geometry(), QRect(0, 0, all.width() / 2, icon.geometry().top()));
    EXPECT_EQ(icon.geometry().bottomLeft(), all.bottomLeft());
}

TEST_F(MenusTest, CascadedWindowsLeaveEachOthersTitles) {
    for (int number = 1; number <= 20; ++number) openNew();
    for (const QSize size : {QSize(1000, 800), QSize(500, 300)}) {
        window().resize(size);
        letEventsRun();
        run("W3");
        auto windows = window().area().subWindowList(QMdiArea::StackingOrder);
        EXPECT_EQ(windows.last(), &subWindow(active()));
        QRegion covered;
        for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
            const auto& each = **it;
            const QRect title(each.pos(), QSize(each.width(), each.widget()->y()));
            const QRegion seen = QRegion(title & window().area().viewport()->rect()) - covered;
            EXPECT_GE(seen.boundingRect().width(), 60) << each.windowTitle().toStdString();
            EXPECT_EQ(seen.boundingRect().height(), title.height()) << each.windowTitle().toStdString();
            covered += each.geometry();
        }
    }
}

TEST_F(MenusTest, ATitleThatIsTooLongKeepsTheFilesName) {
    auto& document = openNew();
    auto& frame = subWindow(document);
    frame.showNormal();
    frame.resize(300, 200);
    const auto shown = [&](const char* name) {
        document.setCaption('/' + std::string(200, 'x') + name);
        letEventsRun();
        return frame.grab(QRect(0, 0, frame.width(), document.y())).toImage();
    };
    const QImage one = shown("/file.kl1");
    EXPECT_NE(shown("/file.kl2"), one) << "its end is in view";
    EXPECT_EQ(shown("x/file.kl1"), one);
}

TEST(ArrangeWindowsTest, Places) {
    const QRect area(0, 10, 100, 80);
    using Places = std::vector<QRect>;
    const std::tuple<const char*, Places, Places> rows[] = {
        {"rows",
         windowPlaces(Arrangement::TileHorizontally, area, 3, 20),
         {{0, 10, 100, 26}, {0, 36, 100, 27}, {0, 63, 100, 27}}},
        {"columns",
         windowPlaces(Arrangement::TileVertically, area, 3, 20),
         {{0, 10, 33, 80}, {33, 10, 33, 80}, {66, 10, 34, 80}}},
        {"cascade",
         windowPlaces(Arrangement::Cascade, area, 3, 8),
         {{0, 10, 75, 60}, {8, 18, 75, 60}, {16, 26, 75, 60}}},
        {"longer cascade",
         windowPlaces(Arrangement::Cascade, area, 5, 10),
         {{0, 10, 75, 40}, {6, 20, 75, 40}, {12, 30, 75, 40}, {18, 40, 75, 40}, {24, 50, 75, 40}}},
        {"two cascades",
         windowPlaces(Arrangement::Cascade, {0, 10, 200, 80}, 4, 15),
         {{0, 10, 75, 60}, {15, 25, 75, 60}, {100, 10, 75, 60}, {115, 25, 75, 60}}},
        {"cascade in no room", windowPlaces(Arrangement::Cascade, {}, 2, 0), {{0, 0, 0, 0}, {0, 0, 0, 0}}},
        {"icons", iconPlaces(area, {40, 10}, 3), {{0, 80, 40, 10}, {40, 80, 40, 10}, {0, 70, 40, 10}}},
        {"icons in little room", iconPlaces({0, 0, 5, 5}, {40, 10}, 2), {{0, -5, 40, 10}, {0, -15, 40, 10}}},
    };
    for (const auto& [name, places, expected] : rows) EXPECT_EQ(places, expected) << name;
}

TEST_F(MenusTest, HelpOpensSixPages) {
    Desktop desktop;
    std::set<std::string> pages;
    for (const char* key : {"H4", "H5", "H6", "H7", "H8", "H9"}) {
        run(key);
        const auto [page, isNew] = pages.insert(desktop.opened());
        EXPECT_TRUE(page->starts_with("https://www.example.") && isNew) << key << *page;
    }
}

}  // namespace
