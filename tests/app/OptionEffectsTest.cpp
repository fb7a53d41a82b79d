// What is set in the options is seen where it acts, at once.

#include <QComboBox>
#include <QStatusBar>
#include <QTabWidget>

#include "app/options/frmOptions.h"
#include "support/WizardFixture.h"

using namespace klt;

namespace {

class OptionEffectsTest : public WizardFixture {
protected:
    OptionEffectsTest() { newAdvantages(); }

    /// A document with one category of advantages, the caret at its end.
    void newAdvantages() {
        open(file(std::to_string(count()) + ".klt", "Version=2\r\n[ADS]\r\n<Mental>\r\n"));
        box().SetSelStart(box().Length());
    }
    void inOptions(const std::function<void(frmOptions&)>& work) {
        answerNext<frmOptions>([work](frmOptions& dialog) {
            activate(dialog);
            work(dialog);
            QTest::mouseClick(dialog.findChild<QWidget*>("Done"), Qt::LeftButton);
        });
        run("T1");
    }
    void press(const char* check) {
        inOptions([=](frmOptions& dialog) {
            QTest::mouseClick(dialog.findChild<QWidget*>(check), Qt::LeftButton);
        });
    }
    void enter(const char* name, const std::string& text) {
        inOptions([=](frmOptions& dialog) {
            auto& field = *dialog.findChild<QLineEdit*>(name);
            if (name == std::string("FullPath")) dialog.showTab(OptionsTab::Paths);
            field.setFocus();
            field.selectAll();
            QTest::keyClicks(&field, QString::fromStdString(text));
        });
    }

    std::string typedParenthesis() {
        const Position end = box().Length();
        box().SetSelStart(end);
        EditorFixture::type("(");
        return std::string(box().Slice(end, box().Length()));
    }
    std::string completedCategory() {
        std::string shown;
        inWizard([&] {
            WizardFixture::press("optAdType");
            auto& category = the<QComboBox>("cmbAdCat");
            category.setFocus();
            QTest::keyClicks(&category, "m");
            shown = category.currentText().toStdString();
        });
        return shown;
    }
    bool isFieldColoured() {
        bool isColoured = false;
        inWizard([&] {
            type("rtbItemCost", "@INT(1)");
            isColoured = the<RichTextBox>("rtbItemCost").StyleAt(0) != 0;
        });
        return isColoured;
    }
    bool isOpenedColoured() {
        newAdvantages();
        return box().StyleAt(0) != 0;
    }
    bool breaksAt(int length) {
        newAdvantages();
        inWizard([&] {
            WizardFixture::press("optAdType");
            the<QComboBox>("cmbAdCat").setCurrentText("Mental");
            type("rtbItemName", "Sailor");
            type("rtbItemCost", "5");
            type("rtbItemNotes", std::string(static_cast<size_t>(length) / 2, 'a').append(" b c").c_str());
            type("rtbItemPage", std::string(static_cast<size_t>(length) / 2, '1').c_str());
            done();
        });
        return textOf(active()).find("_\r\n") != std::string::npos;
    }
    bool spellsHaveLimits() {
        bool has = false;
        inWizard("I3", [&] { has = the<QWidget>("ItemUpto").isEnabled(); });
        return has;
    }
    std::string dialogFolder() {
        std::string folder;
        answerNext<QFileDialog>([&](QFileDialog& dialog) {
            folder = dialog.directory().absolutePath().toStdString();
            dialog.reject();
        });
        run("F2");
        return folder;
    }
};

TEST_F(OptionEffectsTest, EachSettingActsAtOnce) {
    EXPECT_EQ(typedParenthesis(), "()");
    press("Check2");
    EXPECT_EQ(typedParenthesis(), "(");

    EXPECT_EQ(completedCategory(), "Mental");
    press("Check1");
    EXPECT_EQ(completedCategory(), "m");

    EXPECT_TRUE(window().statusBar()->isVisible());
    press("Check3");
    EXPECT_FALSE(window().statusBar()->isVisible());

    EXPECT_TRUE(isFieldColoured());
    press("Check6");
    EXPECT_FALSE(isFieldColoured());

    EXPECT_TRUE(isOpenedColoured());
    press("Check5");
    EXPECT_FALSE(isOpenedColoured());

    EXPECT_FALSE(breaksAt(40));
    enter("Text4", "30");
    EXPECT_TRUE(breaksAt(40));
    press("Check4");
    EXPECT_FALSE(breaksAt(100));

    EXPECT_FALSE(spellsHaveLimits());
    inOptions(
        [](frmOptions& dialog) { QTest::keyClick(dialog.findChild<QComboBox*>("Combo1"), Qt::Key_Down); });
    EXPECT_TRUE(spellsHaveLimits());

    const std::string folder = home / "data files";
    std::filesystem::create_directory(folder);
    enter("FullPath", folder);
    EXPECT_EQ(dialogFolder(), folder);
}

}  // namespace
