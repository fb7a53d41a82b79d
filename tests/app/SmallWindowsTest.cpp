// The windows that others only open: tips, about, thanks, the list of documents.

#include <gmock/gmock.h>

#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>

#include "app/dialogs/frmAbout.h"
#include "app/dialogs/frmKLTChecker.h"
#include "app/dialogs/frmThanks.h"
#include "app/dialogs/frmTip.h"
#include "app/dialogs/frmWindows.h"
#include "support/Desktop.h"
#include "support/EditorFixture.h"

using namespace klt;

namespace {

TEST(CheckerWindowTest, TheTwoPiecesOfItsAdviceAreOneParagraph) {
    frmKLTChecker window(nullptr);
    window.show();
    const auto& first = *window.findChild<QLabel*>("Label5");
    const auto& second = *window.findChild<QLabel*>("Label6");
    EXPECT_TRUE(first.text().endsWith("you should click the \"Unlock\""));
    EXPECT_TRUE(second.text().startsWith("button bellow (even"));
    // The line in which the one ends is the other's first.
    EXPECT_EQ(first.geometry().bottom() - second.geometry().top() + 1, first.fontMetrics().height());
    EXPECT_EQ(first.parentWidget(), second.parentWidget());
    EXPECT_EQ(second.geometry().bottom(), second.parentWidget()->rect().bottom());
    EXPECT_LE(first.parentWidget()->height(), 10 * first.fontMetrics().height());
}

class SmallWindowsTest : public EditorFixture {
protected:
    /// Opens a window; `work` works with it, and Escape closes it where it is still up.
    template <typename Dialog>
    void in(const std::function<void()>& open, const std::function<void()>& work) {
        answerNext<Dialog>([&](Dialog& shown) {
            QWidget* const outer = std::exchange(form_, &shown);
            activate(shown);
            work();
            if (shown.isVisible()) QTest::keyClick(&shown, Qt::Key_Escape);
            form_ = outer;
        });
        open();
    }
    template <typename Dialog>
    void in(const char* command, const std::function<void()>& work) {
        in<Dialog>([&] { run(command); }, work);
    }
    template <typename Control>
    Control& control(const char* name) {
        return *form_->findChild<Control*>(name);
    }
    void press(const char* name) { QTest::mouseClick(&control<QWidget>(name), Qt::LeftButton); }
    /// Presses a button by its key, and waits until it has come up again.
    void accessKey(Qt::Key which, const char* button) {
        QSignalSpy clicked(&control<QAbstractButton>(button), &QAbstractButton::clicked);
        QTest::keyClick(form_, which, Qt::AltModifier);
        EXPECT_TRUE(clicked.wait()) << button;
    }
    std::string text(const char* name) { return control<QLabel>(name).text().toStdString(); }
    void click(const char* list, int row, bool isDouble = false) {
        auto& view = control<QListWidget>(list);
        view.scrollToItem(view.item(row));
        const auto place = view.visualItemRect(view.item(row)).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        if (isDouble) QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    }

    Desktop desktop_;
    QWidget* form_ = nullptr;
};

TEST_F(SmallWindowsTest, TipsGoRoundFromWhereTheUserLeft) {
    constexpr const char *kFirst = "That KLT Editor automatically adds",
                         *kSecond = "That KLT Editor has a collection",
                         *kLast = "That KLT Editor's Syntax Checker is now";
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"0", kFirst, kSecond, kLast},
        {"24", kLast, kFirst, "That KLT Editor now features a KLT Merger?"},
        {"25", "", kFirst, kLast},
        {"255", "", kFirst, ""},
        {"256", kFirst, kSecond, kLast},
        {"-1", kFirst, kSecond, kLast},
        {"what?", kFirst, kSecond, kLast},
    };
    const auto shows = [this](const char* text) {
        return *text == '\0' ? this->text("lblTipText").empty() : this->text("lblTipText").starts_with(text);
    };
    for (const auto& [stored, shown, next, previous] : rows) {
        for (const auto& [button, then] : {std::pair("cmdNextTip", next), {"cmdPreviousTip", previous}}) {
            set("Options", "Current Tip", stored);
            in<frmTip>("H3", [&] {
                EXPECT_TRUE(shows(shown)) << stored;
                press(button);
                EXPECT_TRUE(shows(then)) << stored;
            });
        }
    }
}

TEST_F(SmallWindowsTest, TheCommandTurnsTipsOnAndTheWindowRemembers) {
    set("Options", "Show Tips at Startup", "0");
    in<frmTip>("H3", [this] {
        EXPECT_EQ(form_->windowTitle(), "Tip of the Day");
        EXPECT_EQ(setting("Options", "Show Tips at Startup"), "1");
        accessKey(Qt::Key_S, "chkLoadTipsAtStartup");
        accessKey(Qt::Key_P, "cmdPreviousTip");
        accessKey(Qt::Key_N, "cmdNextTip");
        accessKey(Qt::Key_N, "cmdNextTip");
        press("cmdOK");
        EXPECT_FALSE(form_->isVisible());
    });
    EXPECT_EQ(setting("Options", "Show Tips at Startup"), "0");
    EXPECT_EQ(setting("Options", "Current Tip"), "1");
    in<frmTip>("H3", [] {});
    EXPECT_EQ(setting("Options", "Show Tips at Startup"), "1") << "closed without a button";
}

TEST_F(SmallWindowsTest, NoTipIsCutOff) {
    in<frmTip>("H3", [this] {
        const auto& label = control<QLabel>("lblTipText");
        for (int tip = 0; tip < 25; ++tip) {
            EXPECT_GE(label.height(), label.heightForWidth(label.width())) << tip;
            press("cmdNextTip");
        }
    });
}

TEST_F(SmallWindowsTest, AboutTellsVersionAndAddresses) {
    in<frmAbout>("H10", [this] {
        EXPECT_EQ(text("lblVersion"), "KLT Editor Beta 1.60, build 0053");
        EXPECT_EQ(form_->windowTitle(), "KLT Editor Beta 1.60, build 0053");
        press("lblMail(0)");
        EXPECT_EQ(desktop_.opened(), "mailto:" + text("lblMail(0)"));
        control<QWidget>("lblMail(1)").setFocus();
        QTest::keyClick(&control<QWidget>("lblMail(1)"), Qt::Key_Return);
        EXPECT_EQ(desktop_.opened(), "mailto:" + text("lblMail(1)"));
        EXPECT_TRUE(form_->isVisible());
        EXPECT_EQ(form_->findChild<QWidget*>("picEasterEgg"), nullptr);
        press("cmdOK");
        EXPECT_FALSE(form_->isVisible());
    });
}

TEST_F(SmallWindowsTest, TheHiddenPictureMovesFromClickToClick) {
    set("Special", "frmAboutBox Easter Egg", "Enabled");
    in<frmAbout>("H10", [this] {
        auto& picture = control<QWidget>("picEasterEgg");
        const auto& timer = control<QTimer>("Timer1");
        const auto image = [&] { return picture.grab().toImage(); };
        EXPECT_EQ(form_->findChild<QWidget*>("picLogo"), nullptr);
        EXPECT_FALSE(timer.isActive());
        const auto first = image();
        press("picEasterEgg");
        EXPECT_EQ(timer.interval(), 50);
        EXPECT_TRUE(QTest::qWaitFor([&] { return image() != first; }));
        EXPECT_TRUE(QTest::qWaitFor([&] { return image() == first; })) << "the ring closes";
        press("picEasterEgg");
        EXPECT_FALSE(timer.isActive());
    });
}

TEST_F(SmallWindowsTest, ThanksLeadToTheContributors) {
    const auto work = [this] {
        auto& contributors = control<QListWidget>("lstContributor");
        auto& addresses = control<QListWidget>("lstURL");
        ASSERT_EQ(contributors.count(), addresses.count());
        const auto& label = control<QLabel>("lblDescription");
        for (int row = 0; row < contributors.count(); ++row) {
            click("lstContributor", row);
            EXPECT_EQ(addresses.currentRow(), row);
            EXPECT_FALSE(label.text().isEmpty());
            EXPECT_GE(label.height(), label.heightForWidth(label.width())) << row;
            EXPECT_EQ(desktop_.opened(), "") << "a choice opens nothing";
            accessKey(Qt::Key_G, "cmdMailTo");
            const auto address = addresses.item(row)->text().toStdString();
            EXPECT_EQ(desktop_.opened(), address.starts_with("https://") ? address : "mailto:" + address);
        }
        click("lstURL", addresses.currentRow() - 1);
        EXPECT_TRUE(desktop_.opened().starts_with("https://"));
        click("lstContributor", contributors.currentRow());
        EXPECT_EQ(addresses.currentRow(), contributors.currentRow());
        press("cmdOK");
    };
    in<frmAbout>("H10", [&] { in<frmThanks>([this] { press("cmdThanks"); }, work); });
}

TEST_F(SmallWindowsTest, TheListOfDocumentsActivatesTheChosenOne) {
    for (int number = 1; number <= 10; ++number) openNew();
    EXPECT_TRUE(action("D9")->isEnabled());
    subWindow(document(1)).showMinimized();
    window().showDocument(document(9));
    const auto arrowUp = [this] {
        auto& list = control<QListWidget>("lstDataFiles");
        QTest::keyClick(&list, Qt::Key_Up);
        QTest::keyClick(&list, Qt::Key_Return);
    };
    const std::tuple<const char*, std::function<void()>, const char*> rows[] = {
        {"nothing chosen", [this] { press("cmdDone"); }, "KLT10"},
        {"cancelled", [this] { click("lstDataFiles", 2), press("cmdCancel"); }, "KLT10"},
        {"a button", [this] { click("lstDataFiles", 2), press("cmdDone"); }, "KLT3"},
        {"keys go on from the active one", arrowUp, "KLT2"},
        {"a double click", [this] { click("lstDataFiles", 8, true); }, "KLT9"},
    };
    for (const auto& [name, choose, chosen] : rows) {
        in<frmWindows>("D9", [&] {
            EXPECT_EQ(control<QListWidget>("lstDataFiles").count(), 10);
            EXPECT_FALSE(control<QWidget>("cmdDone").isEnabled());
            choose();
        });
        EXPECT_EQ(active().Caption(), chosen) << name;
        EXPECT_FALSE(subWindow(active()).isMinimized()) << name;
    }
}

}  // namespace
