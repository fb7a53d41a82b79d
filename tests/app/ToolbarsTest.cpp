#include "app/menus/Toolbars.h"

#include <gmock/gmock.h>

#include <QClipboard>
#include <QImage>
#include <QMenuBar>
#include <QPainter>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>

#include "app/menus/CommandTable.h"
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
    /// The buttons that are enabled, by index; of the first bar those up to Find alone.
    std::vector<int> enabled(int number) {
        std::vector<int> all;
        const int end =
            number == kDefaultBar ? kFindButton + 1 : static_cast<int>(bar(number).actions().size());
        for (int index = 0; index < end; ++index)
            if (!button(number, index).isSeparator() && button(number, index).isEnabled())
                all.push_back(index);
        return all;
    }
    void closeAndStartAgain() {
        window().close();
        restart();
        letEventsRun();
    }
    /// The bars from top left to bottom right, rows apart by "/".
    std::string order() {
        letEventsRun();
        const QPoint first = bar(0).pos(), second = bar(1).pos();
        if (first.y() == second.y()) return first.x() < second.x() ? "01" : "10";
        return first.y() < second.y() ? "0/1" : "1/0";
    }
};

TEST_F(ToolbarsTest, EveryButtonIsACommandOfTheMenuWithAnImageAndATip) {
    for (const int number : {kDefaultBar, kWizardsBar}) {
        for (int index = 0; const ToolbarButton& it : kToolbarRows[static_cast<size_t>(number)].buttons) {
            const QAction& action = button(number, index++);
            ASSERT_EQ(action.isSeparator(), it.isSeparator());
            if (it.isSeparator()) continue;
            const MenuRow* command = menuRow(it.key);
            ASSERT_NE(command, nullptr) << it.key;
            EXPECT_FALSE(action.icon().isNull()) << it.key;
            const std::string shortcut = " (" + std::string(command->shortcut) + ")";
            EXPECT_EQ(action.toolTip().endsWith(shortcut.c_str()), !command->shortcut.empty()) << it.tip;
        }
    }
}

TEST_F(ToolbarsTest, TheButtonsThatNeedADocumentFollowTheFirstAndTheLast) {
    using testing::ElementsAre;
    for (int twice = 0; twice < 2; ++twice) {
        EXPECT_THAT(enabled(0), ElementsAre(0, 1));
        EXPECT_THAT(enabled(1), ElementsAre(17));
        editor().documents.New();
        editor().documents.New();
        run("F3");
        EXPECT_THAT(enabled(0), ElementsAre(0, 1, 2, 11));
        EXPECT_THAT(enabled(1), testing::IsSupersetOf({0, 1, 2, 3, 6, 11, 12, 14, 15, 17}));
        run("F3");
    }
}

TEST_F(ToolbarsTest, TheEditingButtonsFollowCaretSelectionEditAndClipboard) {
    // Of 4 Undo, 6 Cut, 7 Copy, 8 Paste, 9 Delete.
    const std::pair<const char*, std::vector<int>> rows[] = {
        {"Shift+Right", {}},       {"End", {9}},
        {"Shift+Left", {6, 7, 9}},  // behind the ninth character, though in the first line
        {"Shift+Left", {6, 7, 9}}, {"Shift+Left", {}},
        {"Down", {8, 9}},          {"Shift+Home", {6, 7, 8, 9}},
        {"z", {4, 8, 9}},          {"Ctrl+Home", {4}},
        {"Ctrl+Shift+End", {4}},
    };
    open(file("a.klt", "Version=2xyz\r\nabcdefghijkl"));
    for (auto [keys, on] : rows) {
        QTest::keySequence(&box(), QKeySequence(keys));
        on.insert(on.begin(), {0, 1, 2});
        on.push_back(kFindButton);
        EXPECT_EQ(enabled(0), on) << keys;
    }
    key(Qt::Key_End, kCtrl);
    QGuiApplication::clipboard()->clear();
    EXPECT_FALSE(button(0, kPasteButton).isEnabled());
    QGuiApplication::clipboard()->setText("text");
    EXPECT_TRUE(button(0, kPasteButton).isEnabled());
    openNew();
    EXPECT_FALSE(button(0, kUndoButton).isEnabled()) << "the new document has no change";
}

TEST_F(ToolbarsTest, AClickRunsTheCommandAndLeavesTheFocusInTheText) {
    QTest::mouseClick(bar(0).widgetForAction(&button(0, 0)), Qt::LeftButton);
    letEventsRun();
    EXPECT_EQ(count(), 1);
    EXPECT_TRUE(box().hasFocus());
    for (const auto* one : bar(1).findChildren<QToolButton*>()) EXPECT_EQ(one->focusPolicy(), Qt::NoFocus);
}

TEST_F(ToolbarsTest, TheBarsComeBackWhereTheUserLeftThem) {
    EXPECT_EQ(order(), "0/1");
    window().move(0, 333);
    closeAndStartAgain();
    EXPECT_EQ(setting("Toolbar", "MenubarWidth"), std::to_string(window().menuBar()->width()));
    const std::string top = setting("Toolbar", "WizardsTop");
    window().toolbars().showBand("A2", false);
    window().move(0, 0);
    closeAndStartAgain();
    EXPECT_FALSE(bar(1).isVisible());
    EXPECT_TRUE(bar(0).isVisible());
    EXPECT_EQ(setting("Toolbar", "WizardsVisible"), "False");
    EXPECT_EQ(setting("Toolbar", "WizardsTop"), top) << "a hidden bar keeps its place";
}

TEST_F(ToolbarsTest, TheirRowsAndOrderComeBackAlsoThoseOfHiddenBars) {
    for (const std::string wanted : {"01", "10", "0/1", "1/0"}) {
        for (const auto& hidden : std::vector<std::vector<const char*>>{{}, {"A1"}, {"A1", "A2"}}) {
            SCOPED_TRACE(testing::Message() << wanted << ", hidden " << hidden.size());
            QToolBar& last = bar(wanted.ends_with('1') ? 1 : 0);
            window().addToolBar(Qt::TopToolBarArea, &last);
            window().removeToolBarBreak(&last);
            if (wanted.size() == 3) window().insertToolBarBreak(&last);
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
    for (const char* rows :
         {"A2/A1/A3", "A2", "A1/A1", "A2/A1/A1", "A2//A1", " A2/A1", "A2,A1", "", "A2/A1"}) {
        set("Toolbar", "Rows", rows);
        restart();
        EXPECT_EQ(order(), std::string_view(rows) == "A2/A1" ? "1/0" : "0/1") << rows;
    }
}

TEST_F(ToolbarsTest, AbsurdPlacesAreOnlyAnOrder) {
    for (const char* key : {"DefaultLeft", "DefaultTop", "DefaultWidth"}) set("Toolbar", key, "2147483647");
    set("Toolbar", "WizardsTop", "-2147483648");
    set("Toolbar", "DefaultVisible", "perhaps");
    EXPECT_EQ(order(), "1/0");
    EXPECT_TRUE(window().rect().contains(bar(0).geometry()));
}

TEST_F(ToolbarsTest, ARightClickOnTheBarsAsksForTheirPopupAndNoOtherDoes) {
    QSignalSpy wanted(&window().toolbars(), &Toolbars::popupWanted);
    openNew();
    const std::pair<QWidget*, int> rows[] = {{&bar(0), 1},
                                             {bar(1).widgetForAction(&button(1, 0)), 1},
                                             {window().menuBar(), 1},
                                             {box().viewport(), 0},
                                             {window().findChild<QWidget*>("Panel3"), 0}};
    for (const auto& [on, times] : rows) {
        wanted.clear();
        const QPoint centre = on->rect().center();
        QContextMenuEvent click(QContextMenuEvent::Mouse, centre, on->mapToGlobal(centre));
        QApplication::sendEvent(on, &click);
        if (auto* popup = QApplication::activePopupWidget()) popup->close();
        ASSERT_EQ(wanted.size(), times) << on->metaObject()->className();
        EXPECT_EQ(wanted.value(0).value(0).toPoint(), times ? on->mapToGlobal(centre) : QPoint());
    }
}

TEST_F(ToolbarsTest, TheIconsFollowThePalette) {
    const QPalette before = QApplication::palette();
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
