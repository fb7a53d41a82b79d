// The dialog of options as a whole, and its tab "General".

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QPointer>
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
#include "support/EditorFixture.h"

using namespace klt;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class OptionsTest : public EditorFixture {
protected:
    OptionsTest() { openNew(); }

    /// Opens the dialog; `work` works with it, and Escape closes it where it is still up.
    void in(const std::function<void()>& work, const char* command = "T1") {
        meet(work);
        run(command);
    }
    void meet(const std::function<void()>& work) {
        answerNext<frmOptions>([this, work](frmOptions& shown) {
            form_ = &shown;
            activate(shown);
            work();
            if (form_ != nullptr && form_->isVisible()) QTest::keyClick(form_, Qt::Key_Escape);
        });
    }
    template <typename Control = QWidget>
    Control& control(const char* name) {
        return *form_->findChild<Control*>(name);
    }
    QLineEdit& field(const char* name) { return control<QLineEdit>(name); }
    void press(const char* name) { QTest::mouseClick(&control(name), Qt::LeftButton); }
    /// Types over what stands there.
    void enter(const char* name, const QString& text) {
        field(name).setFocus();
        field(name).selectAll();
        QTest::keyClicks(&field(name), text);
    }
    static void key(QWidget& control, Qt::Key which) { QTest::keyClick(&control, which); }
    void arrow(const char* bar, const char* which) {
        QTest::mouseClick(control(bar).findChild<QWidget*>(which), Qt::LeftButton);
    }
    void choose(int version) {
        auto& combo = control<QComboBox>("Combo1");
        combo.setFocus();
        key(combo, version == 1 ? Qt::Key_Down : Qt::Key_Up);
        EXPECT_EQ(combo.currentIndex(), version);
    }
    std::string lineBreaker() {
        return (field("Text4").text() + "/" + field("Text5").text() + (check("Check4") ? " on" : " off"))
            .toStdString();
    }
    bool check(const char* name) { return control<QCheckBox>(name).isChecked(); }
    int tab() { return control<QTabWidget>("vbTabControl1").currentIndex(); }
    bool mayApply() { return control("Apply").isEnabled(); }
    QDialog& form() { return *form_; }
    bool isUp() const { return form_ != nullptr && form_->isVisible(); }

private:
    QPointer<frmOptions> form_;
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
        EXPECT_EQ(field("Text1").text(), "9");
        EXPECT_EQ(field("Text2").text(), "7");
        EXPECT_EQ(lineBreaker(), "0/0 off");
        for (const char* name : {"Text4", "Text5", "VScroll4", "VScroll5", "lblToleranceUnit"})
            EXPECT_FALSE(control(name).isEnabled()) << name;
        EXPECT_FALSE(check("Check1"));
        EXPECT_TRUE(check("Check2"));
        EXPECT_EQ(control<QComboBox>("Combo1").currentText(), "2.2ß");
        EXPECT_TRUE(control("Command7").isEnabled() && control("Command8").isEnabled());
        choose(0);
        EXPECT_FALSE(control("Command7").isEnabled() || control("Command8").isEnabled());
    });
}

TEST_F(OptionsTest, NumbersAreDigitsWithinLimits) {
    struct Row {
        const char *field, *bar;
        int limit;
        const char *typed, *pasted, *left, *told;
    } const rows[] = {
        {"Text1", "VScroll1", 10, "10", "", "9", "You are not allowed to have more than 9 MRU files."},
        {"Text1", "VScroll1", 10, "0", "", "0", ""},
        {"Text2", "VScroll2", 100, "101", "", "100",
         "You're not allowed to have more than 100 nested @Functions."},
        {"Text4", "VScroll4", 200, "201", "", "200",
         "Seriously, breaking lines after that much characters is meaningless..."},
        {"Text5", "VScroll5", 20, "21", "", "20", "Sorry, you're not cleared for this much."},
        {"Text2", "VScroll2", 100, "-1.x\b5 ", "", "15", ""},
        {"Text2", "VScroll2", 100, "\b", "", "50", ""},
        {"Text2", "VScroll2", 100, "", " 7\n", "7", ""},
        {"Text2", "VScroll2", 100, "", "7.5", "50", ""},
        {"Text4", "VScroll4", 200, "", "99999999999", "200",
         "Seriously, breaking lines after that much characters is meaningless..."},
    };
    for (const auto& row : rows) {
        const bool isTold = *row.told != '\0';
        in([&] {
            if (isTold) answerMessage(QMessageBox::Ok);
            enter(row.field, row.typed);
            QGuiApplication::clipboard()->setText(row.pasted);
            if (*row.pasted != '\0') QTest::keyClick(&field(row.field), Qt::Key_V, kCtrl);
            EXPECT_EQ(field(row.field).text(), row.left) << row.typed << row.pasted;
            EXPECT_EQ(control<SpinBar>(row.bar).value(), row.limit - field(row.field).text().toInt());
        });
        if (!isTold) continue;
        EXPECT_EQ(asked.back(), row.told);
        EXPECT_EQ(lastIcon, QMessageBox::Information);
        EXPECT_EQ(lastTitle, kTitle);
    }
}

TEST_F(OptionsTest, OtherKeysWorkAsInAnyField) {
    in([this] {
        QLineEdit& edit = field("Text2");
        enter("Text2", "12");
        key(edit, Qt::Key_Home);
        key(edit, Qt::Key_Delete);
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
        {"tolerance typed on", [&] { enter("Text4", "5"), enter("Text5", "12"), enter("Text5", "2"); },
         "5/2 on"},
        {"0", [&] { enter("Text4", "0"); }, "0/0 off"},
        {"the bar", [&] { enter("Text4", "5"), arrow("VScroll4", "Down"); }, "4/4 on"},
        {"the bar's keys", [&] { control("VScroll5").setFocus(), key(control("VScroll5"), Qt::Key_Up); },
         "80/11 on"},
        {"off", [&] { enter("Text4", "100"), press("Check4"); }, "0/0 off"},
        {"off and on", [&] { enter("Text4", "100"), press("Check4"), press("Check4"); }, "80/10 on"},
        {"off while one types", [&] { enter("Text5", "7"), control<QCheckBox>("Check4").click(); },
         "0/0 off"},
        {"empty", [&] { enter("Text4", ""), key(field("Text4"), Qt::Key_Delete); }, "/10 on"},
        {"empty and left",
         [&] {
             enter("Text4", "1"), key(field("Text4"), Qt::Key_Home), key(field("Text4"), Qt::Key_Delete),
                 control("Check1").setFocus();
         },
         "80/10 on"},
        {"empty and a button's key",
         [&] {
             enter("Text5", ""), key(field("Text5"), Qt::Key_Delete), control<QPushButton>("Apply").click();
         },
         "80/10 on"},
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
                answerNext<QMessageBox>([&](QMessageBox& second) {
                    EXPECT_EQ(second.text(),
                              "KLT Editor will now close and reopen the frmOptions window to refresh the "
                              "settings.");
                    QTest::mouseClick(second.button(QMessageBox::Ok), Qt::LeftButton);
                    meet([&] {
                        EXPECT_TRUE(form().isModal());
                        EXPECT_EQ(check("Check1"), resets);
                        EXPECT_FALSE(mayApply());
                    });
                });
                QTest::mouseClick(box.button(answer), Qt::LeftButton);
            });
            press("Command4");
        });
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
        in([&] { EXPECT_EQ(tab(), number); }, ("T" + std::to_string(number + 1)).c_str());
}

TEST_F(OptionsTest, AnotherTabStoresTheFirstTwo) {
    in([&] {
        control<QTabWidget>("vbTabControl1").setCurrentIndex(2);
        control<QTabWidget>("vbTabControl1").setCurrentIndex(0);
        EXPECT_EQ(setting("Options", "TVM Version"), "(none)") << "nothing was changed";
        enter("Text2", "7");
        choose(1);
        QTest::keyClick(&control("Combo1"), Qt::Key_Tab, kCtrl);
        EXPECT_EQ(tab(), 1);
        EXPECT_FALSE(mayApply());
        EXPECT_EQ(setting("Options", "Maximum Nested @Functions"), "7");
        EXPECT_NE(setting("KLTEditor", "Data Files Path"), "(none)");
    });
}

TEST_F(OptionsTest, AFieldMayKeepEnterAndEscape) {
    in([this] {
        auto* page = form().findChild<OptionsPage*>();
        emit page->takesEnter(true);
        for (const auto which : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
            key(field("Text1"), which);
            EXPECT_TRUE(isUp()) << which;
        }
        emit page->takesEnter(false);
        key(field("Text1"), Qt::Key_Return);
        EXPECT_FALSE(isUp());
        EXPECT_EQ(setting("Options", "TVM Version"), "0");
    });
}

TEST_F(OptionsTest, TellsWhatTheStoreDidNotTake) {
    Store nowhere(file("file", "") + "/store.sqlite3");
    frmOptions dialog(
        {.store = nowhere, .styles = variables().Settings, .recentFiles = variables().RecentFiles});
    dialog.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    answerMessage(QMessageBox::Ok);
    QTest::mouseClick(dialog.findChild<QWidget*>("Done"), Qt::LeftButton);
    EXPECT_EQ(asked.back(), "The settings could not be stored.");
    EXPECT_EQ(lastIcon, QMessageBox::Warning);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(variables().RecentFiles.MaxFileCount(), 4);
}

TEST_F(OptionsTest, TheHostsFileTakesTheEditor) {
    set("Options", "TVM Version", "1");
    const auto host = home / "host/TVM.INI";
    const auto program = hostProgram(runningProgram(), host, qgetenv("PATH").toStdString());
    const std::string key = "TVM Data File Editor",
                      addOns = "[Addons]\r\n" + key + "=" + program.command + "\r\n",
                      toolbar = addOns + "[Toolbits]\r\nspace1=|\r\n" + key + "=";
    const std::tuple<const char*, const char*, std::string> rows[] = {
        {"Command7", "did not contain an entry for KLT Editor in the Add-Ons menu", addOns},
        {"Command7", "already contained an entry for KLT Editor in the Add-Ons menu", addOns},
        {"Command8", "did not contain an entry for KLT Editor in the toolbar",
         toolbar + program.command + "|" + program.bitmap + "\r\n"},
        {"Command8", "already contained an entry for KLT Editor in the toolbar",
         toolbar + "RunAddon(" + key + ")|" + program.bitmap + "\r\n"},
    };
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
    for (const auto& [button, told, bytes] : rows) {
        click(button);
        EXPECT_THAT(asked.back(), HasSubstr(told));
        EXPECT_EQ(lastIcon, QMessageBox::Information);
        EXPECT_EQ(readBytes(host), bytes);
    }
    answerMessage(QMessageBox::Ok);
    tellHostResult(window(), host, kHostAddOns, {false, modINIStuff().IniFlush()});
    EXPECT_EQ(asked.back(), "[Section] and FileName Not Registered in Private.Ini!");
    EXPECT_EQ(lastIcon, QMessageBox::Critical);
    EXPECT_EQ(lastTitle, "IniFile Logic Error");
}

}  // namespace
