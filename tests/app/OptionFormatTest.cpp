#include <gmock/gmock.h>

#include <QCheckBox>
#include <QListWidget>
#include <QSignalSpy>

#include "app/commands/Commands.h"
#include "app/options/FormatPage.h"
#include "settings/EditorFormat.h"
#include "support/FormFixture.h"
#include "ui/Combo.h"
#include "ui/StyleTable.h"

using namespace klt;

namespace {

class OptionFormatTest : public FormFixture {
protected:
    OptionFormatTest() { show(page); }
    QListWidget& rows() { return control<QListWidget>("vbCodeColors"); }
    QComboBox& colours() { return control<QComboBox>("excmbColor"); }
    void choose(int row) { pressItem(rows(), rows().item(row)); }
    /// What the page shows: colour, bold, italic, and the sample's ink if it is not the same.
    std::string shown() {
        const auto& sample = control<QLabel>("Label5");
        const QColor ink = sample.palette().color(sample.foregroundRole());
        const Rgb rgb = ColourIndexToRgb(colours().currentIndex());
        EXPECT_EQ(ink, QColor(rgb.red, rgb.green, rgb.blue));
        const bool bold = sample.font().bold(), italic = sample.font().italic();
        EXPECT_EQ(bold, control<QCheckBox>("chkEffects(0)").isChecked());
        EXPECT_EQ(italic, control<QCheckBox>("chkEffects(1)").isChecked());
        return colours().currentText().toStdString() + (bold ? " bold" : "") + (italic ? " italic" : "");
    }
    std::string stored(const char* category) {
        std::string all;
        for (const auto* key : {"Color", "Bold", "Italic"})
            all += styles.GetSetting(category, key, "-") + (key[0] == 'I' ? "" : " ");
        return all;
    }

    CRegSettings styles = editorFormatSettings(store);
    OptionsServices services{store, styles, variables().RecentFiles};
    FormatPage page{services};
};

TEST_F(OptionFormatTest, EachCategoryIsShownAsItIsStored) {
    ASSERT_EQ(rows().count(), 13);
    ASSERT_EQ(colours().count(), 19);
    EXPECT_EQ(colours().itemText(0) + colours().itemText(18), "0018");
    EXPECT_EQ(rows().currentRow(), 0);
    for (int row = 0; row < 13; ++row) {
        choose(row);
        const auto& fallback = kStyleDefaults.at(static_cast<size_t>(row));
        const auto& info = control<QLabel>("lblInfo");
        EXPECT_EQ(info.text(), QString(fallback.description).remove('\r'));
        EXPECT_GE(info.height(), info.heightForWidth(info.width())) << row;
        EXPECT_EQ(colours().currentIndex(), fallback.colourIndex);
        EXPECT_EQ(shown().ends_with(" bold"), fallback.bold);
    }
    const std::tuple<const char*, const char*, const char*, const char*> stored[] = {
        {"18", "True", "True", "18 bold italic"},
        {"7", "0", "-1", "07 italic"},
        {"19", "False", "what?", ""},
        {"-1", "True", "", " bold"},
        {"", "", "", "02"},
    };
    for (const auto& [colour, bold, italic, wanted] : stored) {
        for (const auto& [key, value] : {std::pair("Color", colour), {"Bold", bold}, {"Italic", italic}})
            styles.SaveSetting("Comments", key, value);
        choose(0);
        choose(5);
        EXPECT_EQ(shown(), wanted);
    }
}

TEST_F(OptionFormatTest, ChangesAreStoredAtOnceAndTakenBackByAButton) {
    QSignalSpy changed(&page, &OptionsPage::changed);
    choose(7);
    EXPECT_EQ(stored("Sections"), "- - -");
    press("chkEffects(0)");
    EXPECT_EQ(stored("Sections"), "- True -");
    QTest::keyClick(&page, Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stored("Sections") == "- True True"; }));
    press("chkEffects(0)");
    colours().setFocus();
    QTest::keyClick(&colours(), Qt::Key_Up);
    EXPECT_EQ(stored("Sections"), "16 False True");
    EXPECT_EQ(shown(), "16 italic");
    QTest::keyClick(&rows(), Qt::Key_Down);
    EXPECT_EQ(shown(), "13");
    EXPECT_EQ(stored("SubSections"), "- - -");
    QTest::keyClick(&rows(), Qt::Key_Up);
    press("Command9");
    EXPECT_EQ(stored("Sections"), "- - -");
    EXPECT_EQ(shown(), "17");
    EXPECT_EQ(changed.count(), 0) << "nothing is left for a button of the dialog";
}

TEST_F(OptionFormatTest, DocumentsShowItAtTheirNextPass) {
    open(file("a.klt", "[ADS]\r\n"));
    const auto ink = [this] {
        constexpr auto kSections = static_cast<unsigned long>(StyleCategory::Sections);
        return box().SendScintilla(RichTextBox::SCI_STYLEGETFORE, kSections) +
               box().SendScintilla(RichTextBox::SCI_STYLEGETBOLD, kSections);
    };
    EXPECT_EQ(ink(), 0xFF8000);
    choose(7);
    press("chkEffects(0)");
    colours().setFocus();
    QTest::keyClick(&colours(), Qt::Key_Home);
    EXPECT_EQ(stored("Sections"), "0 True -");
    EXPECT_EQ(ink(), 0xFF8000);
    runCommand(editor(), "T6");
    EXPECT_EQ(ink(), 1);
}

TEST_F(OptionFormatTest, AStoreThatTakesNothingIsToldAndShownAsItIs) {
    Store broken("/dev/null/store.sqlite3");
    CRegSettings none = editorFormatSettings(broken);
    FormatPage unstored({broken, none, variables().RecentFiles});
    show(unstored);
    answerMessage(QMessageBox::Ok);
    press("chkEffects(0)");
    EXPECT_THAT(asked, testing::ElementsAre("The settings could not be stored."));
    EXPECT_FALSE(control<QCheckBox>("chkEffects(0)").isChecked());
}

}  // namespace
