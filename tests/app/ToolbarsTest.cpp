#include "app/menus/Toolbars.h"

#include <gmock/gmock.h>

#include <QClipboard>
#include <QImage>
#include <QMenuBar>
#include <QPainter>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>

#include "app/commands/Commands.h"
#include "app/menus/CommandIcons.h"
#include "app/menus/CommandTable.h"
#include "settings/Catalogue.h"
#include "support/EditorFixture.h"

using namespace klt;

namespace {

class ToolbarsTest : public EditorFixture {
protected:
    ToolbarsTest() { QGuiApplication::clipboard()->setText("taken"); }

    QToolBar& bar(int number) {
        return *window().findChild<QToolBar*>("ctbrToolbar(" + QString::number(number) + ")");
    }
    QAction& button(int number, int index) {
        return *window().findChild<QAction*>(bar(number).objectName() + '.' + QString::number(index));
    }
    /// The buttons of the bar that are enabled, by index.
    std::vector<int> enabled(int number) {
        std::vector<int> all;
        for (int index = 0; index < bar(number).actions().size(); ++index)
            if (!button(number, index).isSeparator() && button(number, index).isEnabled())
                all.push_back(index);
        return all;
    }
    /// Those of them whose commands are there.
    static std::vector<int> there(int number, std::vector<int> indexes) {
        const auto& buttons = kToolbarRows[static_cast<std::size_t>(number)].buttons;
        std::erase_if(indexes, [&buttons](int index) {
            return !commandIsThere(buttons[static_cast<std::size_t>(index)].key);
        });
        return indexes;
    }
    void press(const char* keys) { QTest::keySequence(active().RichTextBox1, QKeySequence(keys)); }
    void closeAndStartAgain() {
        window().close();
        restart();
        letEventsRun();
    }
    /// The bars from top left to bottom right, rows apart by "/".
    std::string order() {
        letEventsRun();
        const QPoint first = bar(0).pos();
        const QPoint second = bar(1).pos();
        const bool isFirst = std::pair(first.y(), first.x()) < std::pair(second.y(), second.x());
        return std::string(isFirst ? "0" : "1") + (first.y() == second.y() ? "" : "/") +
               (isFirst ? "1" : "0");
    }
};

TEST_F(ToolbarsTest, EveryButtonIsACommandOfTheMenuWithAnImageAndATip) {
    for (const int number : {kDefaultBar, kWizardsBar}) {
        for (int index = 0;
             const ToolbarButton& it : kToolbarRows[static_cast<std::size_t>(number)].buttons) {
            const QAction& action = button(number, index++);
            ASSERT_EQ(action.isSeparator(), it.isSeparator());
            if (it.isSeparator()) continue;
            const MenuRow* command = menuRow(it.key);
            ASSERT_NE(command, nullptr) << it.key;
            EXPECT_FALSE(action.icon().isNull()) << it.key;
            const std::string shortcut = " (" + std::string(command->shortcut) + ")";
            EXPECT_EQ(it.tip.ends_with(shortcut), !command->shortcut.empty()) << it.tip;
        }
    }
    EXPECT_EQ(button(1, 11).toolTip(), "Insert Comment");
}

TEST_F(ToolbarsTest, TheButtonsThatNeedADocumentFollowTheFirstAndTheLast) {
    EXPECT_EQ(enabled(0), there(0, {0, 1, 13, 14, 15, 16, 18}));
    EXPECT_EQ(enabled(1), there(1, {17}));
    editor().documents.New();
    editor().documents.New();
    action("F3")->trigger();
    EXPECT_EQ(enabled(0), there(0, {0, 1, 2, 11, 13, 14, 15, 16, 18}));
    EXPECT_EQ(enabled(1), there(1, {0, 1, 2, 3, 4, 5, 6, 8, 9, 11, 12, 14, 15, 17}));
    action("F3")->trigger();
    EXPECT_EQ(enabled(0), there(0, {0, 1, 13, 14, 15, 16, 18}));
}

TEST_F(ToolbarsTest, TheEditingButtonsFollowCaretSelectionEditAndClipboard) {
    struct Row {
        const char* keys;
        std::vector<int> on;  // of 4 Undo, 6 Cut, 7 Copy, 8 Paste, 9 Delete
    };
    const std::vector<Row> rows = {
        {"Shift+Right", {}},       {"End", {9}},
        {"Shift+Left", {6, 7, 9}},  // behind the ninth character, though in the first line
        {"Shift+Left", {6, 7, 9}}, {"Shift+Left", {}},
        {"Down", {8, 9}},          {"Shift+Home", {6, 7, 8, 9}},
        {"z", {4, 8, 9}},          {"Ctrl+Home", {4}},
        {"Ctrl+Shift+End", {4}},
    };
    open(file("a.klt", "Version=2xyz\r\nabcdefghijkl"));
    for (const Row& row : rows) {
        press(row.keys);
        std::vector<int> on = {0, 1, 2};
        on.insert(on.end(), row.on.begin(), row.on.end());
        on.insert(on.end(), {11, 13, 14, 15, 16, 18});
        EXPECT_EQ(enabled(0), there(0, on)) << row.keys;
    }
    press("Ctrl+End");
    QGuiApplication::clipboard()->clear();
    EXPECT_FALSE(button(0, kPasteButton).isEnabled());
    QGuiApplication::clipboard()->setText("text");
    EXPECT_EQ(button(0, kPasteButton).isEnabled(), commandIsThere("E4"));
    openNew();
    EXPECT_FALSE(button(0, kUndoButton).isEnabled()) << "the new document has no change";
}

TEST_F(ToolbarsTest, AClickRunsTheCommandAndLeavesTheFocusInTheText) {
    auto& first = openNew();
    QTest::mouseClick(bar(0).widgetForAction(&button(0, 0)), Qt::LeftButton);
    letEventsRun();
    EXPECT_NE(&active(), &first);
    EXPECT_TRUE(active().RichTextBox1->hasFocus());
    for (const auto* one : bar(1).findChildren<QToolButton*>()) EXPECT_EQ(one->focusPolicy(), Qt::NoFocus);
}

TEST_F(ToolbarsTest, TheBarsComeBackWhereTheUserLeftThem) {
    EXPECT_EQ(order(), "0/1");
    window().removeToolBarBreak(&bar(1));
    EXPECT_EQ(order(), "01");
    closeAndStartAgain();
    EXPECT_EQ(order(), "01");
    window().insertToolBar(&bar(0), &bar(1));
    closeAndStartAgain();
    EXPECT_EQ(order(), "10");
    window().insertToolBarBreak(&bar(0));
    closeAndStartAgain();
    EXPECT_EQ(order(), "1/0");
    EXPECT_EQ(setting("Toolbar", "MenubarWidth"), std::to_string(window().menuBar()->width()));
    const std::string top = setting("Toolbar", "WizardsTop");
    window().toolbars().showBand("A2", false);
    window().move(0, 333);
    closeAndStartAgain();
    EXPECT_FALSE(bar(1).isVisible());
    EXPECT_TRUE(bar(0).isVisible());
    EXPECT_EQ(setting("Toolbar", "WizardsVisible"), "False");
    EXPECT_EQ(setting("Toolbar", "WizardsTop"), top) << "a hidden bar keeps its place";
}

TEST_F(ToolbarsTest, AHiddenBarKeepsItsRowAndItsOrder) {
    const auto arrange = [this](const std::string& wanted) {
        QToolBar& last = bar(wanted.ends_with('1') ? 1 : 0);
        window().addToolBar(Qt::TopToolBarArea, &last);
        window().removeToolBarBreak(&last);
        if (wanted.size() == 3) window().insertToolBarBreak(&last);
    };
    for (const char* wanted : {"01", "10", "0/1", "1/0"}) {
        for (const auto& hidden : std::vector<std::vector<const char*>>{{"A1"}, {"A1", "A2"}}) {
            SCOPED_TRACE(wanted + std::string(" without ") + hidden.front() + hidden.back());
            arrange(wanted);
            EXPECT_EQ(order(), wanted);
            for (const char* band : hidden) window().toolbars().showBand(band, false);
            // What stands in the store for the others now lies above it, now below.
            for (const int top : {400, 0}) {
                window().move(0, top);
                closeAndStartAgain();
            }
            for (const char* band : hidden) {
                EXPECT_FALSE(window().toolbars().isBandVisible(band));
                window().toolbars().showBand(band, true);
            }
            EXPECT_EQ(order(), wanted);
            closeAndStartAgain();
            EXPECT_EQ(order(), wanted);
        }
    }
}

TEST_F(ToolbarsTest, RowsThatMakeNoSenseArePassedOver) {
    for (const char* rows : {"A2/A1/A3", "A2", "A2/A2", "A2/A1/A1", "A2//A1", " A2/A1", "A2,A1", ""}) {
        SaveSetting(store, kSettingsApplication, "Toolbar", "Rows", rows);
        restart();
        EXPECT_EQ(order(), "0/1") << rows;
    }
    SaveSetting(store, kSettingsApplication, "Toolbar", "Rows", "A2/A1");
    restart();
    EXPECT_EQ(order(), "1/0");
}

TEST_F(ToolbarsTest, AbsurdPlacesAreOnlyAnOrder) {
    for (const char* key : {"DefaultLeft", "DefaultTop", "DefaultWidth"})
        SaveSetting(store, kSettingsApplication, "Toolbar", key, "2147483647");
    SaveSetting(store, kSettingsApplication, "Toolbar", "WizardsTop", "-2147483648");
    SaveSetting(store, kSettingsApplication, "Toolbar", "DefaultVisible", "perhaps");
    EXPECT_EQ(order(), "1/0");
    EXPECT_TRUE(window().rect().contains(bar(0).geometry()));
}

TEST_F(ToolbarsTest, ARightClickOnTheBarsAsksForTheirPopupAndNoOtherDoes) {
    QSignalSpy wanted(&window().toolbars(), &Toolbars::popupWanted);
    const auto rightClick = [](QWidget& on) {
        const QPoint centre = on.rect().center();
        QContextMenuEvent click(QContextMenuEvent::Mouse, centre, on.mapToGlobal(centre));
        QApplication::sendEvent(&on, &click);
    };
    openNew();
    const std::vector<QWidget*> bars = {&bar(0), bar(1).widgetForAction(&button(1, 0)), window().menuBar()};
    for (auto* on : bars) {
        QTimer::singleShot(0, qApp, [] {
            if (auto* popup = QApplication::activePopupWidget()) popup->close();
        });
        rightClick(*on);
        ASSERT_EQ(wanted.size(), 1) << on->metaObject()->className();
        EXPECT_EQ(wanted.takeFirst().front().toPoint(), on->mapToGlobal(on->rect().center()));
        letEventsRun();
    }
    rightClick(*active().RichTextBox1->viewport());
    rightClick(*window().findChild<QWidget*>("Panel3"));
    EXPECT_EQ(wanted.size(), 0);
}

TEST_F(ToolbarsTest, TheIconsFollowThePalette) {
    const QPalette before = QApplication::palette();
    openNew();
    const auto brightest = [this](QIcon::Mode mode = QIcon::Normal) {
        QImage onBlack(22, 22, QImage::Format_RGB32);
        onBlack.fill(Qt::black);
        QPainter(&onBlack).drawPixmap(0, 0, button(0, 0).icon().pixmap(QSize(22, 22), mode));
        int most = 0;
        for (int at = 0; at < 22 * 22; ++at)
            most = std::max(most, onBlack.pixelColor(at % 22, at / 22).lightness());
        return most;
    };
    EXPECT_LT(brightest(), 100);
    QApplication::setPalette(QPalette(QColor(40, 44, 48)));
    letEventsRun();
    EXPECT_GT(brightest(), 200);
    EXPECT_LT(brightest(QIcon::Disabled), 128);
    QApplication::setPalette(before);
    letEventsRun();
    EXPECT_LT(brightest(), 100);
}

}  // namespace
