// The tab of the dialog of options in which author profiles are edited.

#include <gmock/gmock.h>

#include <QDialogButtonBox>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/options/AuthorsPage.h"
#include "app/options/OptionsServices.h"
#include "settings/Catalogue.h"
#include "settings/EditorFormat.h"
#include "support/Desktop.h"
#include "support/FormFixture.h"

using namespace klt;

namespace {

/// The profiles one behind another, with "*" before the default one.
std::string linesOf(const AuthorList& list) {
    std::string text;
    for (int i = 0; const auto& [name, addresses] : list.profiles)
        text += (i++ == list.last ? "*" : "") + name + "|" + addresses[0] + "|" + addresses[1] + "|" +
                addresses[2] + "\n";
    return text;
}

class OptionAuthorsTest : public FormFixture {
protected:
    /// Makes the page anew, over three profiles, in a dialog that Enter and Escape would close.
    void load() {
        storeAuthorList(store, {{{"Ann", {"a@x"}}, {"Bob", {"b@x", "b@y"}}, {"Cid", {}}}, 1},
                        readAuthorProfiles(store));
        dialog = std::make_unique<QDialog>();
        page = new AuthorsPage(services);
        dialog->setLayout(new QVBoxLayout);
        dialog->layout()->addWidget(page);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
        dialog->layout()->addWidget(buttons);
        QObject::connect(buttons, &QDialogButtonBox::accepted, dialog.get(), &QDialog::accept);
        changed = std::make_unique<QSignalSpy>(page, &OptionsPage::changed);
        settled = std::make_unique<QSignalSpy>(page, &OptionsPage::settled);
        takesEnter = std::make_unique<QSignalSpy>(page, &OptionsPage::takesEnter);
        show(*dialog);
    }
    QTableWidget& grid() { return control<QTableWidget>("vbAuthorList"); }
    QLineEdit& edit() { return field("txtEdit"); }
    void click(int row, int column) {
        pressItem(grid(), grid().item(row, column));
        const QRect cell = grid().visualItemRect(grid().item(row, column));
        EXPECT_TRUE(edit().isVisible() && edit().hasFocus() && cell.contains(edit().geometry()));
        EXPECT_EQ(edit().selectedText(), grid().item(row, column)->text());
        EXPECT_TRUE(takesEnter->back().front().toBool());
    }
    QMenu& popUp() {
        QTest::mouseClick(&edit(), Qt::RightButton);
        return dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
    }
    /// What the grid shows.
    std::string shown() {
        AuthorList list;
        for (int row = 0; row < grid().rowCount(); ++row) {
            const auto text = [&](int column) { return grid().item(row, column)->text().toStdString(); };
            list.profiles.push_back({text(0), {text(1), text(2), text(3)}});
            if (grid().item(row, 0)->background().color() == QColor(0, 255, 255)) list.last = row;
        }
        return linesOf(list);
    }
    std::string stored() { return linesOf(readAuthorList(store)); }

    const std::string ann = "Ann|a@x||\n", ann1 = "Ann|1||\n", bob = "*Bob|b@x|b@y|\n", cid = "Cid|||\n",
                      rob = "*Rob|b@x|b@y|\n", dan = "Dan|||\n", added = "New Author|||\n";
    CRegSettings styles = editorFormatSettings(store);
    OptionsServices services{.store = store, .styles = styles, .recentFiles = variables().RecentFiles};
    std::unique_ptr<QDialog> dialog;
    AuthorsPage* page = nullptr;
    std::unique_ptr<QSignalSpy> changed, settled, takesEnter;
};

TEST_F(OptionAuthorsTest, CellsAreEditedInPlace) {
    struct Row {
        const char* name;
        std::function<void()> edit;
        std::string shown;
    } const rows[] = {
        {"Enter", [this] { click(0, 1), keys("1\r"); }, ann1 + bob + cid},
        {"Escape", [this] { click(0, 1), keys("1\x1b"); }, ann + bob + cid},
        {"Tab", [this] { click(0, 2), keys("2\t3\tRob"), keys(Qt::Key_Enter); }, "Ann|a@x|2|3\n" + rob + cid},
        {"another cell", [this] { click(0, 1), keys("1"), click(2, 0), keys("\x1b"); }, ann1 + bob + cid},
        {"the focus goes", [this] { click(0, 1), keys("1"), grid().setFocus(); }, ann1 + bob + cid},
        {"keys alone",
         [this] {
             grid().setFocus();
             for (const auto which : {Qt::Key_Down, Qt::Key_Right, Qt::Key_F2}) keys(which);
             keys("1\r");
         },
         ann + "*Bob|1|b@y|\n" + cid},
        {"stored meanwhile", [this] { click(0, 1), keys("1"), page->save(); }, ann1 + bob + cid},
        {"a popup is opened, and another one used",
         [this] {
             click(0, 1), keys("1");
             QTest::keyClick(&popUp(), Qt::Key_Escape);
             keys("2");
             EXPECT_EQ(edit().text(), "12");
             QTest::keyClick(&popUp(), Qt::Key_S);
             keys("3\r");
         },
         "Ann|3||\n" + bob + cid},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        load();
        EXPECT_EQ(shown(), ann + bob + cid);
        EXPECT_TRUE(grid().selectedItems().isEmpty());
        row.edit();
        EXPECT_EQ(shown(), row.shown);
        EXPECT_FALSE(edit().isVisible());
        EXPECT_FALSE(takesEnter->back().front().toBool());
        EXPECT_GT(changed->count(), 0);
        EXPECT_TRUE(dialog->isVisible());
    }
}

TEST_F(OptionAuthorsTest, AChangeIsToldAsSoonAsOneTypes) {
    load();
    for (const auto* end : {"\r", "\x1b"}) click(0, 1), keys(end);
    EXPECT_EQ(changed->count(), 0);
    click(0, 1), keys("x");
    EXPECT_EQ(changed->count(), 1);
}

TEST_F(OptionAuthorsTest, ButtonsChangeRowsAndSavingNumbersThemAnew) {
    struct Row {
        const char* name;
        std::function<void()> change;
        std::string stored;
    } const rows[] = {
        {"add", [this] { press("Command1"), keys("Dan"), press("Command1"); }, ann + bob + cid + dan + added},
        {"no name", [this] { click(0, 0), keys(Qt::Key_Delete), press("Command1"); },
         "|a@x||\n" + bob + cid + added},
        {"delete", [this] { click(0, 2), press("Command2"); }, bob + cid},
        {"delete the default", [this] { click(1, 0), press("Command2"); }, ann + cid},
        {"delete by keys, and edit on",
         [this] {
             grid().setFocus(), keys(Qt::Key_F2), keys("x");
             QSignalSpy clicked(&control<QPushButton>("Command2"), &QPushButton::clicked);
             QTest::keyClick(dialog.get(), Qt::Key_E, Qt::AltModifier);
             EXPECT_TRUE(clicked.wait());
             keys(Qt::Key_F2), keys("Rob\r");
         },
         rob + cid},
        {"another default", [this] { click(0, 1), keys("1"), press("Command5"); },
         "*" + ann1 + bob.substr(1) + cid},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        load();
        row.change();
        EXPECT_GT(changed->count(), 0);
        EXPECT_EQ(stored(), ann + bob + cid);
        EXPECT_TRUE(page->save());
        EXPECT_EQ(stored(), row.stored);
        EXPECT_EQ(shown(), row.stored);
    }
}

TEST_F(OptionAuthorsTest, TheDefaultStandsOutAlsoWhileItsRowIsSelected) {
    load();
    for (const auto background : {Qt::white, Qt::black}) {
        dialog->setPalette(QPalette(background, background));
        click(0, 1), press("Command5");
        const QRect cell = grid().visualItemRect(grid().item(0, 0));
        const QImage image = grid().viewport()->grab().toImage();
        EXPECT_EQ(image.pixelColor(cell.right() - 4, cell.center().y()), QColor(0, 255, 255));
        EXPECT_NE(image.pixelColor(cell.right() + 4, cell.center().y()), QColor(0, 255, 255));
        EXPECT_EQ(grid().item(0, 0)->foreground().color(), QColor(Qt::black));
    }
}

TEST_F(OptionAuthorsTest, ButtonsAskForARow) {
    load();
    for (const auto& [button, text] : {std::pair("Command2", "Must select an author to delete!"),
                                       {"Command5", "Must select an author to be default!"}}) {
        answerMessage(QMessageBox::Ok);
        press(button);
        EXPECT_EQ(asked.back(), text);
        EXPECT_EQ(lastIcon, QMessageBox::Warning);
        EXPECT_EQ(lastTitle, "KLT Editor Beta 1.60");
    }
    EXPECT_EQ(changed->count(), 0);
    EXPECT_EQ(shown(), ann + bob + cid);
}

TEST_F(OptionAuthorsTest, ResetIsAskedForAndStoredAtOnce) {
    load();
    for (const auto which : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Y}) {
        const bool isYes = which == Qt::Key_Y;
        answerNext<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.text(),
                      "This will delete all author profiles and reset installation defaults!\r\n"
                      "Are you sure you want to continue?");
            EXPECT_EQ(box.icon(), QMessageBox::Warning);
            EXPECT_EQ(box.windowTitle(), "KLT Editor Beta 1.60");
            EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
            QTest::keyClick(&box, which, isYes ? Qt::AltModifier : Qt::NoModifier);
        });
        press("Command6");
        EXPECT_EQ(std::ranges::count(stored(), '\n'), isYes ? 8 : 3);
        EXPECT_EQ(settled->count(), isYes ? 1 : 0);
    }
    EXPECT_EQ(shown(), stored());
}

TEST_F(OptionAuthorsTest, SavingTakesInWhatOthersStoredMeanwhile) {
    load();
    writeAuthorProfile(store, 3, {"Dan", {}});
    writeSetting(store, settings::kAuthorCount, 4);
    click(0, 1), keys("1");
    EXPECT_TRUE(page->save());
    EXPECT_EQ(shown(), ann1 + bob + cid + dan);
    EXPECT_EQ(stored(), shown());
    click(3, 0), press("Command2");
    EXPECT_TRUE(page->save());
    EXPECT_EQ(stored(), ann1 + bob + cid) << "it is known by now";
}

TEST_F(OptionAuthorsTest, ThePopupMailsToAnAddress) {
    Desktop desktop;
    load();
    for (const auto& [text, address] :
         {std::pair("a@example.org?cc=b@example.org", "mailto:a@example.org%3Fcc=b@example.org"),
          {"nobody", ""}}) {
        SCOPED_TRACE(text);
        click(2, 3), keys(text);
        QMenu& menu = popUp();
        QStringList captions;
        for (const auto* item : menu.actions()) captions += item->text().section('\t', 0, 0);
        const QString plain = "&Undo||&Cut|C&opy|&Paste|&Delete||&Select All||&Help";
        EXPECT_EQ(captions.join('|'), *address == '\0' ? plain : plain + "|&Mail to");
        EXPECT_EQ(menu.objectName(), *address == '\0' ? "SingleItemRTFPopup" : "MailToRTFPopup");
        QTest::keyClick(&menu, Qt::Key_M);
        menu.close();
        EXPECT_EQ(desktop.opened(), address);
        keys("\x1b");
    }
}

}  // namespace
