// The dialog of options as a whole, and its tab "General".

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>

#include "app/options/HostButtons.h"
#include "app/options/OptionsPage.h"
#include "app/options/SpinField.h"
#include "app/options/frmOptions.h"
#include "settings/AuthorProfiles.h"
#include "settings/HostFolder.h"
#include "settings/modINIStuff.h"
#include "support/FormFixture.h"

using namespace klt;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class OptionsTest : public FormFixture {
protected:
    OptionsTest() { openNew(); }

    /// Opens the dialog; `work` works with it.
    void in(const std::function<void()>& work, const char* command = "T1") {
        meet<frmOptions>(work);
        run(command);
    }
    void arrow(const char* bar, const char* which) {
        QTest::mouseClick(control(bar).findChild<QWidget*>(which), Qt::LeftButton);
    }
    void choose(int version) {
        control("Combo1").setFocus();
        keys(version == 1 ? Qt::Key_Down : Qt::Key_Up);
        EXPECT_EQ(control<QComboBox>("Combo1").currentIndex(), version);
    }
    /// Takes the text out of a field.
    void empty(const char* name) {
        enter(name, "");
        keys(Qt::Key_Delete);
    }
    std::string lineBreaker() {
        return text("Text4") + "/" + text("Text5") + (check("Check4") ? " on" : " off");
    }
    bool check(const char* name) { return control<QCheckBox>(name).isChecked(); }
    QTabWidget& tabs() { return control<QTabWidget>("vbTabControl1"); }
    bool mayApply() { return control("Apply").isEnabled(); }
};

TEST_F(OptionsTest, EachSettingIsStoredByApplyAndDoneAlone) {
    struct Row {
        const char *section, *key, *value;
        std::function<void()> change;
    } const rows[] = {
        {"MRU", "MaxCount", "2", [this] { enter("Text1", "2"); }},
        {"Options", "Maximum Nested @Functions", "99", [this] { enter("Text2", "99"); }},
        {"Options", "AutoComplete", "False", [this] { press("Check1"); }},
        {"Options", "MatchParenthesis", "False", [this] { press("Check2"); }},
        {"Options", "ShowStatusBar", "False", [this] { press("Check3"); }},
        {"Options", "AutoSyntaxCheck", "False", [this] { press("Check5"); }},
        {"Options", "WizardSyntaxCheck", "False", [this] { press("Check6"); }},
        {"Options", "LineBreaker Maximum Length", "120", [this] { enter("Text4", "120"); }},
        {"Options", "LineBreaker Tolerance", "9", [this] { arrow("VScroll5", "Down"); }},
        {"Options", "TVM Version", "1", [this] { choose(1); }},
    };
    const auto stored = [&] {
        std::vector<std::string> values;
        for (const auto& row : rows) values.push_back(setting(row.section, row.key));
        return values;
    };
    for (const char* name : {"a.klt", "b.klt", "c.klt"}) open(file(name, "Version=2\r\n"));
    const auto before = stored();
    std::vector<std::string> after;
    for (const auto& row : rows) after.emplace_back(row.value);
    for (const char* last : {"Cancelbttn", "Apply", "Done"}) {
        SCOPED_TRACE(last);
        SaveSetting(store, kSettingsApplication, "MRU", "MaxCount", "4");
        window().loadRecentFiles();
        window().updateMenus();
        in([&] {
            EXPECT_FALSE(mayApply());
            for (const auto& row : rows) {
                row.change();
                EXPECT_TRUE(mayApply()) << row.key;
                // Each by itself makes it worth storing.
                control("Apply").setEnabled(false);
            }
            control("Apply").setEnabled(true);
            press(last);
            EXPECT_EQ(isUp(), *last == 'A');
            EXPECT_TRUE(!isUp() || !mayApply());
        });
        const bool isStored = *last != 'C';
        EXPECT_EQ(stored(), isStored ? after : before);
        EXPECT_EQ(window().statusBar()->isVisible(), !isStored);
        EXPECT_EQ(action("RecentMenu3") == nullptr, isStored);
        DeleteSetting(store, kSettingsApplication, "Options");
        window().statusBar()->show();
    }
}

TEST_F(OptionsTest, ShowsWhatIsStored) {
    for (const auto& [key, value] : {std::pair("LineBreaker Maximum Length", "0"),
                                     {"Maximum Nested @Functions", "7"},
                                     {"AutoComplete", "0"},
                                     {"TVM Version", "1"}})
        set("Options", key, value);
    variables().RecentFiles.MaxFileCount(50);
    in([this] {
        EXPECT_EQ(text("Text1") + text("Text2"), "97");
        EXPECT_EQ(lineBreaker(), "0/0 off");
        for (const char* name : {"Text4", "Text5", "VScroll4", "VScroll5", "lblToleranceUnit"})
            EXPECT_FALSE(control(name).isEnabled()) << name;
        EXPECT_TRUE(!check("Check1") && check("Check2"));
        EXPECT_EQ(control<QComboBox>("Combo1").currentText(), "2.2ß");
        EXPECT_TRUE(control("Command7").isEnabled() && control("Command8").isEnabled());
        choose(0);
        EXPECT_FALSE(control("Command7").isEnabled() || control("Command8").isEnabled());
    });
}

TEST_F(OptionsTest, NumbersAreDigitsWithinLimits) {
    const std::string tooLong = "Seriously, breaking lines after that much characters is meaningless...";
    struct Row {
        char field;
        int limit;
        const char *typed, *pasted, *left;
        std::string told;
    } const rows[] = {
        {'1', 10, "10", "", "9", "You are not allowed to have more than 9 MRU files."},
        {'1', 10, "0", "", "0", ""},
        {'2', 100, "101", "", "100", "You're not allowed to have more than 100 nested @Functions."},
        {'4', 200, "201", "", "200", tooLong},
        {'5', 20, "21", "", "20", "Sorry, you're not cleared for this much."},
        {'2', 100, "-1.x\b5 ", "", "15", ""},
        {'2', 100, "\b", "", "50", ""},
        {'2', 100, "", " 7\n", "7", ""},
        {'2', 100, "", "7.5", "50", ""},
        {'4', 200, "", "99999999999", "200", tooLong},
    };
    for (const auto& row : rows) {
        in([&] {
            if (!row.told.empty()) answerMessage(QMessageBox::Ok);
            const auto name = std::string("Text") + row.field, bar = std::string("VScroll") + row.field;
            enter(name.c_str(), row.typed);
            QGuiApplication::clipboard()->setText(row.pasted);
            if (*row.pasted != '\0') QTest::keyClick(form_->focusWidget(), Qt::Key_V, kCtrl);
            EXPECT_EQ(text(name.c_str()), row.left) << row.typed << row.pasted;
            EXPECT_EQ(control<SpinBar>(bar.c_str()).value(), row.limit - std::stoi(row.left));
        });
        if (row.told.empty()) continue;
        EXPECT_EQ(asked.back(), row.told);
        EXPECT_EQ(lastIcon, QMessageBox::Information);
        EXPECT_EQ(lastTitle, kTitle);
    }
}

TEST_F(OptionsTest, OtherKeysWorkAsInAnyField) {
    in([this] {
        QLineEdit& edit = field("Text2");
        enter("Text2", "12");
        for (const auto which : {Qt::Key_Home, Qt::Key_Delete}) keys(which);
        EXPECT_EQ(edit.text(), "2");
        EXPECT_EQ(edit.cursorPosition(), 1) << "the end, after each change";
        QTest::keyClick(&edit, Qt::Key_Z, kCtrl);
        EXPECT_EQ(edit.text(), "12");
    });
}

TEST_F(OptionsTest, TheLineBreakersFieldsAreCoupled) {
    struct Row {
        const char* name;
        std::function<void()> act;
        const char* left;
    } const rows[] = {
        {"lowered", [&] { enter("Text4", "5"); }, "5/5 on"},
        {"typed on", [&] { enter("Text4", "120"); }, "120/10 on"},
        {"tolerance above", [&] { enter("Text4", "5"), enter("Text5", "12"); }, "12/12 on"},
        {"and typed on", [&] { enter("Text4", "5"), enter("Text5", "12"), enter("Text5", "2"); }, "5/2 on"},
        {"0", [&] { enter("Text4", "0"); }, "0/0 off"},
        {"the bar", [&] { enter("Text4", "5"), arrow("VScroll4", "Down"); }, "4/4 on"},
        {"the bar's keys", [&] { control("VScroll5").setFocus(), keys(Qt::Key_Up); }, "80/11 on"},
        {"off", [&] { enter("Text4", "100"), press("Check4"); }, "0/0 off"},
        {"off and on", [&] { enter("Text4", "100"), press("Check4"), press("Check4"); }, "80/10 on"},
        {"off in the field", [&] { enter("Text5", "7"), control<QCheckBox>("Check4").click(); }, "0/0 off"},
        {"empty", [&] { empty("Text4"); }, "/10 on"},
        {"empty and left", [&] { enter("Text4", "1"), empty("Text4"), press("Check1"); }, "80/10 on"},
        {"and a button's key", [&] { empty("Text5"), control<QPushButton>("Apply").click(); }, "80/10 on"},
    };
    for (const auto& row : rows) {
        in([&] {
            row.act();
            EXPECT_EQ(lineBreaker(), row.left) << row.name;
        });
    }
}

TEST_F(OptionsTest, ResetAllReopensTheDialogWhateverTheAnswer) {
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        const bool resets = answer == QMessageBox::Yes;
        open(file("a.klt", "Version=2\r\n"));
        set("Options", "AutoComplete", "False");
        set("Options", "ShowStatusBar", "False");
        window().statusBar()->hide();
        const auto data = std::filesystem::path(file("data/b.klt", "")).parent_path().string();
        window().fileDialog().InitDir(data);
        seedAuthorProfilesOnce(store);
        writeAuthorProfile(store, 0, {.name = "Somebody", .addresses = {}});
        in([&] {
            answerNext<QMessageBox>([&](QMessageBox& box) {
                EXPECT_EQ(box.text(),
                          "This will reset ALL settings to installation defaults!\n"
                          "Are you want to continue?");
                EXPECT_EQ(box.icon(), QMessageBox::Warning);
                EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
                answerMessage(QMessageBox::Ok);
                QTest::mouseClick(box.button(answer), Qt::LeftButton);
            });
            press("Command4");
            meet<frmOptions>([&] {
                EXPECT_TRUE(form_->isModal());
                EXPECT_EQ(check("Check1"), resets);
                EXPECT_FALSE(mayApply());
            });
        });
        EXPECT_EQ(asked.back(),
                  "KLT Editor will now close and reopen the frmOptions window to refresh the settings.");
        EXPECT_EQ(setting("Options", "AutoComplete"), resets ? "(none)" : "False");
        EXPECT_EQ(window().statusBar()->isVisible(), resets);
        answerNext<QFileDialog>([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.directory().path().toStdString() == data, !resets);
            dialog.reject();
        });
        run("F2");
        EXPECT_EQ(recentFile(1).empty(), resets);
        EXPECT_EQ(action("RecentMenu1") == nullptr, resets);
        EXPECT_EQ(readAuthorProfile(store, 0).name == "Somebody", !resets) << "seeded by the load";
    }
}

TEST_F(OptionsTest, ItsCommandsOpenItsTabs) {
    for (int number = 0; number < 4; ++number)
        in([&] { EXPECT_EQ(tabs().currentIndex(), number); }, ("T" + std::to_string(number + 1)).c_str());
}

TEST_F(OptionsTest, AnotherTabStoresTheFirstTwo) {
    in([&] {
        for (const int other : {2, 0}) tabs().setCurrentIndex(other);
        EXPECT_EQ(setting("Options", "TVM Version"), "(none)") << "nothing was changed";
        enter("Text2", "7");
        choose(1);
        QTest::keyClick(&control("Combo1"), Qt::Key_Tab, kCtrl);
        EXPECT_EQ(tabs().currentIndex(), 1);
        EXPECT_FALSE(mayApply());
        EXPECT_EQ(setting("Options", "Maximum Nested @Functions"), "7");
        EXPECT_NE(setting("KLTEditor", "Data Files Path"), "(none)");
    });
}

TEST_F(OptionsTest, AFieldMayKeepEnterAndEscape) {
    in([this] {
        auto* page = form_->findChild<OptionsPage*>();
        control("Text1").setFocus();
        emit page->takesEnter(true);
        for (const auto which : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
            keys(which);
            EXPECT_TRUE(isUp()) << which;
        }
        emit page->takesEnter(false);
        keys(Qt::Key_Return);
        EXPECT_FALSE(isUp());
        EXPECT_EQ(setting("Options", "TVM Version"), "0");
    });
}

TEST_F(OptionsTest, TellsWhatTheStoreDidNotTake) {
    Store nowhere(file("file", "") + "/store.sqlite3");
    frmOptions dialog(
        {.store = nowhere, .styles = variables().Settings, .recentFiles = variables().RecentFiles});
    show(dialog);
    answerMessage(QMessageBox::Ok);
    press("Done");
    EXPECT_EQ(asked.back(), "The settings could not be stored.");
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_TRUE(isUp());
    EXPECT_EQ(variables().RecentFiles.MaxFileCount(), 4);
}

TEST_F(OptionsTest, TheHostsFileTakesTheEditor) {
    set("Options", "TVM Version", "1");
    const auto host = home / "host/TVM.INI";
    const auto program = hostProgram(runningProgram(), host, qgetenv("PATH").toStdString());
    const std::string key = "TVM Data File Editor",
                      addOns = "[Addons]\r\n" + key + "=" + program.command + "\r\n",
                      toolbar = "[Toolbits]\r\nspace1=|\r\n" + key + "=";
    const auto click = [this](const char* button) {
        in([&] {
            answerMessage(QMessageBox::Ok);
            press(button);
        });
    };
    for (const char* button : {"Command7", "Command8"}) {
        click(button);
        EXPECT_THAT(asked.back(), StartsWith("You'll have to specify the TVM.INI path"));
        EXPECT_EQ(lastTitle, kTitle);
    }
    set("Options", "TVMINIPath", home / "host");
    click("Command7");
    EXPECT_THAT(asked.back(), HasSubstr(host + ": No such file or directory"));
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_FALSE(std::filesystem::exists(home / "host"));
    file("host/TVM.INI", "");
    for (const auto& [button, place] : {std::pair("Command7", "Add-Ons menu"), {"Command8", "toolbar"}})
        for (const std::string had : {"did not contain", "already contained"}) {
            click(button);
            EXPECT_THAT(asked.back(), HasSubstr(had + " an entry for KLT Editor in the " + place));
            EXPECT_EQ(lastIcon, QMessageBox::Information);
        }
    EXPECT_EQ(readBytes(host), addOns + toolbar + "RunAddon(" + key + ")|" + program.bitmap + "\r\n");
    answerMessage(QMessageBox::Ok);
    tellHostResult(window(), host, kHostAddOns, {false, modINIStuff().IniFlush()});
    EXPECT_EQ(asked.back(), "[Section] and FileName Not Registered in Private.Ini!");
    EXPECT_EQ(lastIcon, QMessageBox::Critical);
    EXPECT_EQ(lastTitle, "IniFile Logic Error");
}

}  // namespace
