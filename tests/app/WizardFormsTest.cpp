// Wizards in the running program: from the menu to a line in the document, and back.

#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QWindow>
#include <algorithm>

#include "language/EditedLine.h"
#include "language/LogicalLine.h"
#include "support/WizardFixture.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

constexpr char kHead[] = "Version=2\r\n[ADS]\r\n<Alpha>\r\nOld, 1\r\n<Mental>\r\nOdd, 2\r\n[MODS]\r\n";

class WizardFormsTest : public WizardFixture {
protected:
    WizardFormsTest() { open(file("a.klt", kHead)); }
    /// Clicks Done, and gives the box that comes up and the control that has the focus then.
    std::string refused() {
        answerMessage(QMessageBox::Ok);
        done();
        EXPECT_EQ(lastIcon, QMessageBox::Warning);
        return asked.back() + ' ' + focus();
    }
};

TEST_F(WizardFormsTest, WritesNewLinesWhereTheyBelong) {
    inWizard([&] {
        EXPECT_FALSE(the<QGroupBox>("fraCategory").isVisible());
        tabThrough({"Sea Legs", "5/4"});
        press("optAdType");
        EXPECT_EQ(focus(), "optAdType");
        tabThrough({"", "men", "+1 to sk:sailing(", "", "Limits", "IQ>=9", "", "a, b", "H1", "3", "", "Odd"});
        EXPECT_EQ(text("rtbItemGives"), "+1 To SK:sailing()");
        key(Qt::Key_Return);
        EXPECT_TRUE(form_->isVisible());
        EXPECT_EQ(text("rtbItemName") + text("rtbItemCost") + text("rtbItemGives"), "");
        EXPECT_EQ(text("rtbItemCat"), "Odd") << "it serves the next item too";
        EXPECT_EQ(the<QComboBox>("cmbAdCat").currentText(), "Mental");
        EXPECT_EQ(focus(), "rtbItemName");

        the<RichTextBox>("rtbItemCat").SetText("");
        tabThrough({"Above", "1"});
        done();
        tabThrough({"Between", "2", "", "Beta"});
        done();
        press("optQuirkType");
        EXPECT_FALSE(the<RichTextBox>("rtbItemCost").isEnabled() || the<QComboBox>("cmbAdCat").isVisible());
        type("cmbQuirkCat", "Habits");
        set("Options", "LineBreaker Maximum Length", "20");
        type("rtbItemName", "Hums");
        type("rtbItemNotes", "a b c d e");
        done();
        EXPECT_EQ(text("rtbItemCost"), "-1");
    });
    EXPECT_EQ(
        textOf(active()),
        "Version=2\r\n[ADS]\r\n<Alpha>\r\nOld, 1\r\n<Beta>\r\nBetween, 2\r\n\r\n<Mental>\r\nAbove, 1\r\n"
        "Sea Legs, 5/4, gives(+1 To SK:sailing()), mods(Limits), needs(IQ>=9), notes(a,\r\n"
        "\tb), page(H1), upto(3), cat(Odd)\r\nOdd, 2\r\n[MODS]\r\n[Quirks]\r\n\r\n\r\n<Habits>\r\nHums, "
        "-1, notes(a _\r\n\tb c d e)\r\n");
    EXPECT_TRUE(active().Modified());
    EXPECT_TRUE(QTest::qWaitFor([this] { return active().RichTextBox1->hasFocus(); }));
}

TEST_F(WizardFormsTest, EditsALineInItsPlace) {
    RichTextBox& document = box();
    document.SetSelStart(document.Find("Odd", 0));
    inWizard("E6", [&] {
        EXPECT_FALSE(the<QGroupBox>("fraType").isVisible() || the<QGroupBox>("fraCategory").isVisible());
        EXPECT_EQ(text("rtbItemName") + text("rtbItemCost"), "Odd2");
        type("rtbItemName", "Very ");
        key(Qt::Key_Escape);
    });
    EXPECT_EQ(textOf(active()), kHead);
    EXPECT_EQ(document.SelText(), "Odd, 2");
    inWizard("E6", [&] {
        type("rtbItemName", "Very ");
        done();
        EXPECT_FALSE(form_->isVisible());
    });
    EXPECT_NE(textOf(active()).find("\r\n<Mental>\r\nVery Odd, 2\r\n[MODS]"), std::string::npos);
    EXPECT_TRUE(panel(3).starts_with("Line 6 ")) << panel(3);
    document.Undo();
    EXPECT_EQ(textOf(active()), kHead) << "it is one step";
}

TEST_F(WizardFormsTest, LeaveEveryItemOfAFileAsItIs) {
    RichTextBox& document = *open(KLT_TEST_DATA "/golden/harbor.klt").RichTextBox1;
    const auto eachLine = [&document](const auto& look) {
        for (Position place = 0; place < document.Length();) {
            look(std::string(GetLogicalLine(document.Text(), place).text), place);
            place = GetLogicalLine(document.Text(), place).range.end;
        }
    };
    const auto joined = [&eachLine] {
        std::string lines;
        eachLine([&lines](const auto& line, Position) { lines += joinItemLine(line) + '\n'; });
        return lines;
    };
    const auto before = joined();
    Section section = Section::Other;
    int items = 0;
    eachLine([&](const auto& line, Position place) {
        const auto kind = classifyLine(line, section);
        if (kind == LineKind::SectionHeader) section = sectionOf(line);
        const PlaceRow* const row = wizardOfSection(section).place;
        if (kind != LineKind::Item || row == nullptr || row->step != ItemStep::SingleLine) return;
        ++items;
        document.SetSelStart(place);
        inWizard("E6", [&] {
            EXPECT_EQ(form_->findChild<QLabel*>("LineLoss"), nullptr);
            EXPECT_NE(document.SelLength(), 0) << "the item stays selected";
            EXPECT_TRUE(row->combo.empty() || form_->wizard().state.control(row->combo).state >= 0);
            const auto* combo = qobject_cast<QComboBox*>(form_->focusWidget());
            EXPECT_FALSE(combo != nullptr && combo->lineEdit()->hasSelectedText());
            key(Qt::Key_Return);
        });
    });
    EXPECT_EQ(items, 75);
    EXPECT_EQ(joined(), before);
}

TEST_F(WizardFormsTest, OpenByTheirChords) {
    const std::tuple<Qt::Key, const char*, const char*, const char*> rows[] = {
        {Qt::Key_F1, "frmAdWizard", "Ad/Disad/Quirk/Power Wizard", "rtbItemName"},
        {Qt::Key_F2, "frmSkillWizard", "Skill Wizard", "rtbItemName"},
        {Qt::Key_F3, "frmSpellWizard", "Spell Wizard", "SpellName"},
        {Qt::Key_F5, "frmStatWizard", "Stat Wizard", "StatName"},
        {Qt::Key_F11, "frmModWizard", "Mod Wizard", "ModGroup"},
    };
    for (const auto& [chord, name, title, first] : rows) {
        activate(window());
        inNextWizard([&] {
            EXPECT_EQ(form_->objectName(), name);
            EXPECT_EQ(form_->windowTitle(), title);
            EXPECT_EQ(focus(), first);
        });
        QTest::keyClick(active().RichTextBox1, chord, Qt::ControlModifier);
        letEventsRun();
    }
}

TEST_F(WizardFormsTest, TellWhatTheyDoNotKeep) {
    RichTextBox& document =
        *open(file("a.klt", "Version=2\n[SKILLS]\n<A>\nKnife, P/E, needs(ST 12\n")).RichTextBox1;
    document.SetSelStart(document.Find("Knife", 0));
    int width = 0;
    inWizard("E6", [&] {
        const auto& note = the<QLabel>("LineLoss");
        EXPECT_EQ(note.text(), "This form does not keep: needs(ST 12. It writes: needs(ST 1).");
        type("rtbItemName", "x");
        EXPECT_TRUE(note.isVisible());
        width = form_->width();
    });
    document.SetSelText(std::string(3'000, 'n') + ", P/E; page(1)");
    inWizard("E6", [&] {
        EXPECT_EQ(form_->width(), width) << "however long it is";
        EXPECT_LT(the<QLabel>("LineLoss").height(), 40);
    });
}

TEST_F(WizardFormsTest, ASpellHasNoLimitForAnOldHost) {
    for (const auto& [version, isNew] :
         {std::pair("", false), {"0", false}, {"x", false}, {"-1", false}, {"2", true}, {"0.4", true}}) {
        set("Options", "TVM Version", version);
        inWizard("I3", [&] {
            for (const auto* each :
                 the<QGroupBox>("fraUpto").findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
                EXPECT_EQ(each->isEnabled(), isNew) << version << each->objectName().toStdString();
        });
    }
}

TEST_F(WizardFormsTest, FillsItsFieldsByTheAids) {
    inWizard([&] {
        inNextWizard([&] {
            press("Option1");
            type("GivesTarget", "DX");
            type("GivesValue", "2");
            press("Command2");
        });
        press("cmdGivesWizard");
        EXPECT_EQ(text("rtbItemGives"), "=\"2\" \"DX\"");
        QTimer::singleShot(0, form_, [] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_W); });
        press("cmdUpto");
        EXPECT_EQ(text("rtbItemUpto"), "LowPrereq");
    });
}

TEST_F(WizardFormsTest, WhatFallsIntoAnOpeningIsCarriedOutBehindItAndIsAnEdit) {
    set("Options", "Show KLT Checker Window", "0");
    auto& document = open(file("a.klt", kHead));
    const std::string missing = home / "none.klt", other = file("b.klt", "b");
    inWizard([&] {
        tabThrough({"Sea Legs", "5"});
        press("optAdType");
        tabThrough({"", "Mental"});
        the<RichTextBox>("rtbItemName").setFocus();
        duringOpening([&] {
            EXPECT_TRUE(editor().queue.isHeld());
            key(Qt::Key_Return);
            keys("Next");
            QTest::mouseClick(the<RichTextBox>("rtbItemCost").viewport(), Qt::LeftButton);
            type("rtbItemCost", "7");
            form_->windowHandle()->close();
            EXPECT_EQ(text("rtbItemName"), "Sea Legs");
            answerMessage(QMessageBox::Ok);
        });
        editor().queue.submit(Origin::Outside, [&] {
            editor().documents.openFiles({missing, other});
            EXPECT_TRUE(form_->isActiveWindow()) << "keys for a window below it would be lost";
        });
        EXPECT_EQ(asked.size(), 1) << "a box of the opening itself is answered in its middle";
        EXPECT_TRUE(QTest::qWaitFor([&] { return !form_->isVisible(); }));
        EXPECT_EQ(text("rtbItemName") + text("rtbItemCost"), "Next7");
    });
    EXPECT_EQ(active().Caption(), other);
    EXPECT_TRUE(document.Modified() && !active().Modified());
    EXPECT_NE(textOf(document).find("<Mental>\r\nSea Legs, 5\r\nOdd, 2"), std::string::npos)
        << textOf(document);
    window().showDocument(document);
    EXPECT_TRUE(action("E1")->isEnabled());
    document.RichTextBox1->Undo();
    EXPECT_EQ(textOf(document), kHead);
}

TEST_F(WizardFormsTest, TellsWhatIsMissing) {
    inWizard([&] {
        EXPECT_EQ(refused(), "Invalid Entry! rtbItemName");
        tabThrough({"x", "1"});
        EXPECT_EQ(refused(), "You MUST select an rtbItem Type! cmdOK");
        press("optPoType");
        EXPECT_EQ(refused(), "Invalid Entry! cmbPoCat");
    });
    EXPECT_EQ(textOf(active()), kHead);
}

TEST_F(WizardFormsTest, TellsWhereNoLineCanBeEdited) {
    RichTextBox& document = *open(file("a.klt", "Version=2\n[Author]\n* x\n[PACKAGES]\n<y>\n")).RichTextBox1;
    const std::tuple<const char*, const char*, QMessageBox::Icon> rows[] = {
        {"Version", "This section CANNOT be edited!!!", QMessageBox::Warning},
        {"* x", "Sorry, the Author section", QMessageBox::Information},
        {"<y>", "No package stands here", QMessageBox::Information},
    };
    for (const auto& [at, message, icon] : rows) {
        document.SetSelStart(document.Find(at, 0));
        activate(window());
        answerMessage(QMessageBox::Ok);
        QTest::keyClick(&document, Qt::Key_L, Qt::ControlModifier);
        EXPECT_TRUE(asked.back().starts_with(message)) << asked.back();
        EXPECT_EQ(lastIcon, icon);
    }
}

TEST_F(WizardFormsTest, CombosCompleteAndKeep) {
    inWizard([&] {
        press("optQuirkType");
        const int height = form_->height();
        press("optAdType");
        EXPECT_EQ(form_->height(), height);
        auto& combo = the<QComboBox>("cmbAdCat");
        const auto pick = [&](const char* typed) {
            combo.setFocus();
            combo.lineEdit()->selectAll();
            type("cmbAdCat", typed);
        };
        // Its text, the item and what is selected.
        const auto now = [&] {
            const auto& state = form_->wizard().state.control("cmbAdCat");
            EXPECT_EQ(combo.currentText().toStdString(), state.text);
            return state.text + ' ' + std::to_string(state.state) + ' ' +
                   combo.lineEdit()->selectedText().toStdString();
        };
        pick("m");
        EXPECT_EQ(now(), "Mental 1 ental");
        key(Qt::Key_Left);
        EXPECT_EQ(now(), "Mental 1 ") << "it is not completed again";
        pick("mx");
        EXPECT_EQ(now(), "Mx -1 ");
        key(Qt::Key_Tab);
        EXPECT_EQ(now(), "Mx 2 ");
        set("Options", "AutoComplete", "False");
        pick("al");
        EXPECT_EQ(now(), "al -1 ");
        key(Qt::Key_Tab);
        EXPECT_EQ(now(), "Alpha 0 ");
        key(Qt::Key_Backtab);
        key(Qt::Key_Down);
        EXPECT_EQ(now(), "Mental 1 Mental") << "so that its beginning is not completed";
    });
}

TEST_F(WizardFormsTest, ATypedCategoryIsNoChoice) {
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"Enter", [&] { key(Qt::Key_Return); }},
        {"access key",
         [&] {
             QTest::keyClick(form_, Qt::Key_D, Qt::AltModifier);
             // The button shows itself pressed before it acts.
             EXPECT_TRUE(QTest::qWaitFor([&] { return text("rtbItemName").empty(); }));
         }},
        {"mouse", [&] { done(); }},
    };
    set("Options", "AutoComplete", "False");
    for (const auto& [name, leave] : rows) {
        open(file("a.klt", "Version=2\r\n[ADS]\r\n<Mentality>\r\n<Mental>\r\n"));
        inWizard([&] {
            press("optAdType");
            type("rtbItemName", "Odd");
            type("rtbItemCost", "1");
            the<QComboBox>("cmbAdCat").setFocus();
            keys("Mental");
            leave();
        });
        EXPECT_EQ(textOf(active()), "Version=2\r\n[ADS]\r\n<Mentality>\r\nOdd, 1\r\n<Mental>\r\n") << name;
    }
}

TEST_F(WizardFormsTest, CombosTakeKeysByTheirKind) {
    inWizard("I4", [&] {
        auto& name = the<QComboBox>("StatName");
        type("StatName", "d");
        EXPECT_EQ(name.currentText(), "DX");
        for (const Qt::Key still : {Qt::Key_Right, Qt::Key_Shift, Qt::Key_F7, Qt::Key_End}) key(still);
        key(Qt::Key_Backspace);
        EXPECT_EQ(name.currentText(), "DX") << "what Backspace took is completed again";
        EXPECT_EQ(name.lineEdit()->selectedText(), "X");
        name.lineEdit()->clear();
        QTest::keyPress(&name, 'W', Qt::ShiftModifier);
        QTest::keyRelease(&name, Qt::Key_Shift);
        QTest::keyPress(&name, 'i');
        QTest::keyRelease(&name, 'W');
        QTest::keyRelease(&name, 'i');
        EXPECT_EQ(name.currentText(), "Will") << "keys overlap";
        QApplication::clipboard()->setText("d");
        name.lineEdit()->selectAll();
        QTest::keyClick(&name, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(name.currentText(), "d") << "a command completes nothing";
        name.lineEdit()->clear();
        type("StatName", "My(a");
        EXPECT_EQ(name.currentText(), "My(a)");
        EXPECT_EQ(name.lineEdit()->cursorPosition(), 4);
    });
    inWizard("I2", [&] {
        auto& types = the<QComboBox>("cmbItemType");
        types.setFocus();
        const auto down = [&](int times) {
            while (times-- > 0) key(Qt::Key_Down);
        };
        const auto now = [&] { return types.currentText() + ' ' + the<QGroupBox>("fraDefault").title(); };
        type("cmbItemType", "MA/H");
        EXPECT_EQ(now(), "MA/H Skill Default") << "typing is no choice";
        down(10);
        EXPECT_EQ(now(), "MA/H Skill Default (Required)");
        types.lineEdit()->selectAll();
        type("cmbItemType", "x");
        key(Qt::Key_Up);
        EXPECT_EQ(types.currentText(), "x") << "no item stands in front of none";
        down(1);
        EXPECT_EQ(now(), "P/E Skill Default");
        down(9);
        type("rtbItemName", "Knife");
        type("rtbItemDefault", "DX-4");
        type("cmbItemClass", "Blades");
        done();
        EXPECT_EQ(now(), " Skill Default");
        EXPECT_EQ(focus(), "rtbItemName");
    });
    EXPECT_TRUE(textOf(active()).ends_with("[Skills]\r\n\r\n\r\n<Blades>\r\nKnife, MA/H, default(DX-4)\r\n"));
}

TEST_F(WizardFormsTest, FieldsAndCombosHaveThePopup) {
    inWizard([&] {
        press("optAdType");
        auto& box = the<RichTextBox>("rtbItemName");
        type("rtbItemName", "abc");
        box.Select(0, 1);
        for (QWidget* widget :
             {box.viewport(), static_cast<QWidget*>(the<QComboBox>("cmbAdCat").lineEdit())}) {
            inPopup(*widget, [](QMenu& popup) {
                EXPECT_EQ(itemsOf(popup), "E1 - E2 E3 E4 E5 - E7 - H1 ");
                EXPECT_TRUE(popup.actions().back()->isEnabled()) << "there is help on it";
                QTest::keyClick(&popup, Qt::Key_S);
            });
        }
        EXPECT_EQ(box.SelText(), "abc");
        box.setFocus();
        key(Qt::Key_F1);
        EXPECT_TRUE(std::ranges::any_of(QApplication::topLevelWidgets(),
                                        [](auto* each) { return each->inherits("QWhatsThat"); }));
    });
}

TEST_F(WizardFormsTest, OpensWhereItStood) {
    inWizard([&] { form_->move(90, 60); });
    EXPECT_EQ(setting("frmAdWizard", "Top") + ' ' + setting("frmAdWizard", "Left"), "900 1350");
    inWizard([&] { EXPECT_EQ(form_->pos(), QPoint(90, 60)); });
}

}  // namespace
