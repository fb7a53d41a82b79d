#include "app/menus/Menus.h"

#include <gmock/gmock.h>

#include <QClipboard>
#include <QDesktopServices>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTextBrowser>
#include <set>

#include "app/commands/Commands.h"
#include "app/menus/EditRules.h"
#include "app/window/ArrangeWindows.h"
#include "support/EditorFixture.h"

using namespace klt;

namespace {

/// The whole tree with two recent files and one document: key, caption, shortcut.
constexpr auto kTree = R"(mnuFileTOP|&File|
  F1|&New|Ctrl+N
  F2|&Open...|Ctrl+O
  F3|&Close|Ctrl+F4
  -
  F4|Save b&&c.klt|Ctrl+S
  F5|Save &As...|
  -
  RecentMenu1|&1 HOME/B&&C.KLT|
  RecentMenu2|&2 HOME/A.KLT|
  -
  F6|E&xit|Alt+F4
mnuEditTOP|&Edit|
  E1|Can't Undo|Ctrl+Z
  -
  E2|&Cut|Ctrl+X
  E3|C&opy|Ctrl+C
  E4|&Paste|Ctrl+V
  E5|&Delete	Del|
  E6|Edit &Line...|Ctrl+L
  E7|&Select All|Ctrl+A
  -
  E8|&Find...|Ctrl+F
  E9|&Replace...|Ctrl+R
mnuInsertTOP|&Insert|
  I1|&Ad/Disad/Power/Quirk...|Ctrl+F1
  I2|&Skill...|Ctrl+F2
  I3|Sp&ell...|Ctrl+F3
  I4|S&tat...|Ctrl+F5
  I5|&Bonus...|Ctrl+F8
  I6|&Group...|Ctrl+F9
  I7|&Mod...|Ctrl+F11
  -
  I8|A&uthor Section...|
  I9|&Package...|Ctrl+F7
  -
  I10|Comment &Line|
  I11|&Comment|
mnuToolsTOP|&Tools|
  mnuTToolbars|&Toolbars|
    mnuTTDefault|&Default|
    mnuTTWizards|&Wizards|
  T1|Pre&ferences...|
  T2|&Program Paths...|
  T3|&Modify Author List...|
  T4|&Editor Format...|
  -
  T5|KLT &Merger...|Ctrl+M
  T6|KLT &Syntax Checker...|Ctrl+K
mnuWindowTOP|&Window|
  W1|Tile &Horizontally|
  W2|Tile &Vertically|
  W3|&Cascade|
  W4|&Arrange Icons|
  -
  W5|&Previous Data File|Ctrl+Shift+F6
  W6|&Next Data File|Ctrl+F6
  -
  W7|Syntax Checker Window|
  -
  D1|&1 HOME/b&&c.klt|
mnuHelpTOP|&Help|
  H1|&Contents|F1
  H2|&Search for Help on...|
  -
  H3|&Tips...|
  -
  H4|&TVM Home Page...|
  H5|TVM Data Files &Page...|
  H6|TV&M Add-Ons Page...|
  H7|TVM &Docs Page...|
  H8|Grey &Harbor...|
  H9|Grey Ha&rbor Programs...|
  -
  H10|A&bout...|
)";

constexpr auto kMainPopup = R"(MainRTFPopup.E1|Can't Undo|
-
MainRTFPopup.E2|&Cut|
MainRTFPopup.E3|C&opy|
MainRTFPopup.E4|&Paste|
MainRTFPopup.E5|&Delete|
-
MainRTFPopup.E6|Edit &Line|
-Insert Menu
MainRTFPopup.I1|&Ad/Disad/Quirk/Power...|
MainRTFPopup.I2|&Skill...|
MainRTFPopup.I3|Sp&ell...|
MainRTFPopup.I4|S&tat...|
MainRTFPopup.I5|&Bonus...|
MainRTFPopup.I6|&Group...|
MainRTFPopup.I7|&Mod...|
-
MainRTFPopup.I8|A&uthor Section Wizard...|
MainRTFPopup.I9|&Package...|
-
MainRTFPopup.I10|Comment &Line|
MainRTFPopup.I11|&Comment|
)";

QString tree(const QWidget& menu, const QString& indent = {}) {
    QString rows;
    for (const auto* action : menu.actions()) {
        rows += indent;
        if (action->isSeparator()) {
            rows += "-" + action->text() + "\n";
            continue;
        }
        rows += action->objectName() + "|" + action->text() + "|" + action->shortcut().toString() + "\n";
        if (action->menu()) rows += tree(*action->menu(), indent + "  ");
    }
    return rows;
}

class MenusTest : public EditorFixture {
protected:
    MenusTest() { QApplication::clipboard()->clear(); }

    QMenu& menu(const char* name) { return *window().findChild<QMenu*>(name); }
    /// The keys among these whose items are enabled.
    QString enabled(const QString& keys, const QString& popup = {}) {
        QStringList found = keys.split(' ');
        found.removeIf(
            [&](const QString& key) { return !window().findChild<QAction*>(popup + key)->isEnabled(); });
        return found.join(' ');
    }
    std::string entries(const char* name, const QString& prefix) {
        std::string found;
        for (const auto* it : menu(name).actions())
            if (it->objectName().startsWith(prefix))
                found += it->text().toStdString() + (it->isChecked() ? "* " : " ");
        return found;
    }
};

TEST_F(MenusTest, TheTreeIsWhole) {
    open(file("a.klt", ""));
    window().closeDocument(active());
    open(file("b&c.klt", ""));
    const QString folder = QString::fromStdString(home / "");
    QString found = tree(*window().menuBar());
    found.replace(folder, "HOME/").replace(folder.toUpper(), "HOME/");
    EXPECT_EQ(found.toStdString(), kTree);
    QTest::mouseClick(active().RichTextBox1->viewport(), Qt::RightButton);
    EXPECT_TRUE(menu("MainRTFPopup").isVisible());
    EXPECT_EQ(tree(menu("MainRTFPopup")).toStdString(), kMainPopup);
    menu("MainRTFPopup").close();
}

TEST(EditRulesTest, WhatAnItemNeeds) {
    const struct {
        const char* name;
        MenuFacts facts;
        const char* enabled;  // document, undo, cut or copy, paste, delete
    } rows[] = {
        {"no document", {.clipboardHasText = true}, ""},
        {"caret at the start", {.documentOpen = true, .clipboardHasText = true}, "O"},
        {"modified", {.documentOpen = true, .modified = true}, "OU"},
        {"selection from the first line on", {true, false, true, 9, 50, 0}, "O"},
        {"first line longer than usual, caret", {true, false, true, 10, 0, 0}, "OD"},
        {"first line longer than usual, selection", {true, false, true, 10, 2, 0}, "O"},
        {"second line, caret", {true, false, true, 11, 0, 1}, "OPD"},
        {"second line, selection", {true, false, true, 11, 1, 1}, "OCPD"},
        {"second line after a short first one", {true, false, true, 9, 1, 1}, "OP"},
        {"nothing to paste", {true, false, false, 11, 0, 1}, "OD"},
    };
    constexpr std::pair<char, Rule> kRules[] = {{'O', Rule::Document},
                                                {'U', Rule::Undo},
                                                {'C', Rule::CutOrCopy},
                                                {'P', Rule::Paste},
                                                {'D', Rule::Delete}};
    for (const auto& row : rows) {
        std::string found;
        for (const auto& [letter, rule] : kRules)
            if (isEnabled(rule, row.facts)) found += letter;
        EXPECT_EQ(found, row.enabled) << row.name;
    }
}

TEST_F(MenusTest, WithoutADocumentLittleIsEnabled) {
    open(file("a.klt", ""));
    QString keys;
    for (const auto* it : window().findChildren<QAction*>(QRegularExpression("^([EFHITW]\\d+|mnuTT[DW].*)$")))
        keys += (keys.isEmpty() ? "" : " ") + it->objectName();
    const auto there = [](const QString& all) {
        QStringList found = all.split(' ');
        found.removeIf([](const QString& key) { return !commandIsThere(key.toStdString()); });
        return found.join(' ');
    };
    EXPECT_EQ(
        enabled(keys),
        there("F1 F2 F3 F4 F5 F6 E6 E7 E8 E9 I1 I2 I3 I4 I5 I6 I7 I8 I9 I10 I11 mnuTTDefault mnuTTWizards T1 "
              "T2 T3 T4 T5 T6 W1 W2 W3 W4 W5 W6 W7 H1 H2 H3 H4 H5 H6 H7 H8 H9 H10"));
    window().closeDocument(active());
    EXPECT_EQ(enabled(keys),
              there("F1 F2 F6 mnuTTDefault mnuTTWizards T1 T2 T3 T4 T5 W7 H1 H2 H3 H4 H5 H6 H7 H8 H9 H10"));
    EXPECT_TRUE(action("RecentMenu1")->isEnabled());
    EXPECT_EQ(action("F4")->text(), "Save");
    openNew();
    EXPECT_EQ(action("F4")->text(), "Save KLT2");
}

TEST_F(MenusTest, StatesFollowCaretEditAndClipboard) {
    auto& text = *open(file("a.klt", "Version=2\nab\n")).RichTextBox1;
    EXPECT_EQ(enabled("E1 E2 E3 E4 E5"), "");
    text.Select(11, 0);
    EXPECT_EQ(enabled("E1 E2 E3 E4 E5"), "E5");
    text.Select(11, 1);
    EXPECT_EQ(enabled("E1 E2 E3 E4 E5"), "E2 E3 E5");
    QTest::keyClick(&text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(enabled("E1 E2 E3 E4 E5"), "E2 E3 E4 E5");
    EXPECT_TRUE(action("ctbrToolbar(0).8")->isEnabled());
    type("x");
    EXPECT_EQ(enabled("E1 E2 E3 E4 E5"), "E1 E4 E5");
    EXPECT_EQ(action("E1")->text(), "Undo");
    window().showPopup("MainRTFPopup", {});
    EXPECT_EQ(enabled("E1 E2 E3 E4 E5", "MainRTFPopup."), "E1 E4 E5");
    menu("MainRTFPopup").close();
    editor().documents.New();
    EXPECT_EQ(enabled("E1 E2 E3 E4 E5"), "");
}

TEST_F(MenusTest, AChordWorksInTheTextWhateverItsItemSays) {
    auto& text = *open(file("a.klt", "Version=2\nab")).RichTextBox1;
    text.Select(0, 7);
    QTest::keyClick(&text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Version") << "the item is disabled";
    text.Select(11, 2);
    QTest::keyClick(&text, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(textOf(active()), "Version=2\r\nVersionVersion");
    QTest::keyClick(&text, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(text.SelText(), "Version=2\r\nVersion");
}

TEST_F(MenusTest, CommandsOnText) {
    const struct {
        const char* name;
        const char* command;
        Position start, length;
        const char* text;
        Position caret;
    } rows[] = {
        {"delete takes a line end whole", "E5", 13, 0, "Version=2\r\nabcd", 13},
        {"delete at the end of the text", "E5", 17, 0, "Version=2\r\nab\r\ncd", 17},
        {"delete a selection", "E5", 12, 4, "Version=2\r\nad", 12},
        {"delete from the popup", "MainRTFPopup.E5", 11, 0, "Version=2\r\nb\r\ncd", 11},
        {"cut", "E2", 11, 2, "Version=2\r\n\r\ncd", 11},
        {"comment line", "I10", 11, 0, "Version=2\r\nab\r\n*\r\ncd", 16},
        {"comment", "I11", 12, 0, "Version=2\r\nab // \r\ncd", 17},
        {"comment on the last line", "MainRTFPopup.I11", 15, 0, "Version=2\r\nab\r\ncd // ", 21},
    };
    for (const auto& row : rows) {
        auto& document = open(file("a.klt", "Version=2\nab\ncd"));
        document.RichTextBox1->Select(row.start, row.length);
        emit menu("MainRTFPopup").aboutToShow();
        action(row.command)->trigger();
        EXPECT_EQ(textOf(document), row.text) << row.name;
        EXPECT_EQ(document.RichTextBox1->SelStart(), row.caret) << row.name;
    }
}

TEST_F(MenusTest, ARecentFileIsOpenedByTheLastDigitOfItsKey) {
    window();
    EXPECT_EQ(menu("mnuFileTOP").actions().size(), 8) << "one separator less, and no entries";
    cRegistry registry(store);
    registry.ClassKey(HKEY_CURRENT_USER);
    registry.SectionKey(recentFilesPath());
    variables().RecentFiles.MaxFileCount(12);
    for (const char* name : {"l", "k", "j", "i", "h", "g", "f", "e", "d", "c", "b", "a"})
        variables().RecentFiles.AddFile(file(name, name));
    variables().RecentFiles.Save(registry);
    window().updateMenus();
    action("RecentMenu12")->trigger();
    EXPECT_EQ(textOf(active()), "b");
    EXPECT_FALSE(active().Modified());
    action("RecentMenu10")->trigger();
    EXPECT_EQ(window().forms().count(), 2) << "there is no file 0";
    EXPECT_EQ(action("RecentMenu1")->text().right(2), "/B") << "what was opened comes first";
}

TEST_F(MenusTest, TheWindowMenuListsEightDocuments) {
    for (int number = 1; number <= 8; ++number) openNew();
    action("D2")->trigger();
    EXPECT_EQ(active().Caption(), "KLT2");
    action("D2")->trigger();
    EXPECT_EQ(entries("mnuWindowTOP", "D"),
              "&1 KLT1 &2 KLT2* &3 KLT3 &4 KLT4 &5 KLT5 &6 KLT6 &7 KLT7 &8 KLT8 ");
    openNew();
    EXPECT_EQ(entries("mnuWindowTOP", "D"),
              "&1 KLT1 &2 KLT2 &3 KLT3 &4 KLT4 &5 KLT5 &6 KLT6 &7 KLT7 &8 KLT8 &More Data Files... ");
    EXPECT_EQ(action("D9")->isEnabled(), commandIsThere("D9"));
    subWindow(*window().forms().documents()[4]).showMinimized();
    action("D5")->trigger();
    EXPECT_FALSE(subWindow(active()).isMinimized());
    EXPECT_EQ(active().Caption(), "KLT5");
}

TEST_F(MenusTest, TheKeysGoRoundTheDocuments) {
    for (int number = 1; number <= 3; ++number) openNew();
    const auto press = [&](Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(active().RichTextBox1, Qt::Key_F6, modifiers);
        return active().Caption();
    };
    EXPECT_EQ(press(Qt::ControlModifier), "KLT1");
    EXPECT_EQ(press(Qt::ControlModifier), "KLT2");
    EXPECT_EQ(press(Qt::ControlModifier | Qt::ShiftModifier), "KLT1");
    EXPECT_EQ(press(Qt::ControlModifier | Qt::ShiftModifier), "KLT3");
    EXPECT_TRUE(active().RichTextBox1->hasFocus());
}

TEST_F(MenusTest, CheckMarksShowWhatIsStoredOrSeen) {
    window();
    for (const char* state : {"0", "1"}) {
        action("W7")->trigger();
        EXPECT_EQ(setting("Options", "Show KLT Checker Window"), state);
        EXPECT_EQ(action("W7")->isChecked(), *state == '1');
    }
    action("mnuTTWizards")->trigger();
    EXPECT_FALSE(window().toolbars().isBandVisible("A2"));
    EXPECT_FALSE(action("mnuTTWizards")->isChecked());
    EXPECT_TRUE(action("mnuTTDefault")->isChecked());
}

TEST_F(MenusTest, TilingRestoresWindowsAndLeavesTheActiveOne) {
    for (int number = 1; number <= 3; ++number) openNew();
    ASSERT_TRUE(subWindow(active()).isMaximized());
    auto& icon = *window().forms().documents()[0];
    action("W3")->trigger();
    subWindow(icon).showMinimized();
    action("D2")->trigger();
    action("W2")->trigger();
    EXPECT_EQ(active().Caption(), "KLT2");
    EXPECT_TRUE(subWindow(icon).isMinimized());
    const QRect all = window().area().viewport()->rect();
    const QRect second = subWindow(active()).geometry();
    EXPECT_EQ(second.topLeft(), all.topLeft());
    EXPECT_EQ(second.width(), all.width() / 2);
    EXPECT_EQ(second.bottom() + 1, subWindow(icon).geometry().top());
    EXPECT_EQ(subWindow(icon).geometry().bottomLeft(), all.bottomLeft());
}

TEST(ArrangeWindowsTest, Places) {
    const QRect area(0, 10, 100, 80);
    const struct {
        const char* name;
        std::vector<QRect> places, expected;
    } rows[] = {
        {"rows",
         windowPlaces(Arrangement::TileHorizontally, area, 3, 20),
         {{0, 10, 100, 26}, {0, 36, 100, 27}, {0, 63, 100, 27}}},
        {"columns",
         windowPlaces(Arrangement::TileVertically, area, 3, 20),
         {{0, 10, 33, 80}, {33, 10, 33, 80}, {66, 10, 34, 80}}},
        {"cascade",
         windowPlaces(Arrangement::Cascade, area, 3, 20),
         {{0, 10, 75, 60}, {20, 30, 75, 60}, {0, 10, 75, 60}}},
        {"cascade in no room", windowPlaces(Arrangement::Cascade, {}, 2, 0), {{0, 0, 0, 0}, {0, 0, 0, 0}}},
        {"icons", iconPlaces(area, {40, 10}, 3), {{0, 80, 40, 10}, {40, 80, 40, 10}, {0, 70, 40, 10}}},
        {"icons in little room", iconPlaces({0, 0, 5, 5}, {40, 10}, 2), {{0, -5, 40, 10}, {0, -15, 40, 10}}},
    };
    for (const auto& row : rows) EXPECT_EQ(row.places, row.expected) << row.name;
}

TEST_F(MenusTest, HelpOpensSixPages) {
    QTextBrowser browser;
    QDesktopServices::setUrlHandler("https", &browser, "setSource");
    std::set<QString> pages;
    for (const char* key : {"H4", "H5", "H6", "H7", "H8", "H9"}) {
        action(key)->trigger();
        pages.insert(browser.source().host() + browser.source().path());
    }
    QDesktopServices::unsetUrlHandler("https");
    EXPECT_THAT(pages,
                testing::AllOf(testing::SizeIs(6),
                               testing::Each(testing::ResultOf(
                                   [](const QString& it) { return it.startsWith("www.example."); }, true))));
}

}  // namespace
