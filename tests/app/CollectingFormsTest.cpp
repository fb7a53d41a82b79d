// The wizards that collect lines, in the running program: by keys, beside their document, back from it.

#include <QComboBox>
#include <QGroupBox>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>

#include "language/StyleCategory.h"
#include "support/WizardFixture.h"

using namespace klt;

namespace {

constexpr char kHead[] =
    "Version=2\r\n[GROUPS]\r\n<A>\r\nSK:a\r\nSK:b\r\n<B>\r\nSK:a\r\nSK:b\r\n[PACKAGES]\r\n<C>\r\n{P=d}\r\n"
    "ADD=QU:q\r\nMESSAGE=m\r\n[ADS]\r\n";

class CollectingFormsTest : public WizardFixture {
protected:
    CollectingFormsTest() {
        letLoopsRunAgain();
        open(file("a.klt", kHead));
    }
    /// Opens what stands at `text`, and leaves the form open.
    WizardForm& edit(std::string_view text) {
        RichTextBox& document = box();
        document.SetSelStart(document.Find(text, 0));
        action("E6")->trigger();
        form_ = window().findChild<WizardForm*>();
        if (form_ == nullptr) throw std::logic_error("no form is open");
        activate(*form_);
        return *form_;
    }
    std::string page() {
        return the<QTabWidget>("vbTabControl1").currentWidget()->objectName().toStdString();
    }
    /// Goes on with Tab until that control has the focus.
    void tabTo(const char* name) {
        for (int i = 0; i < 40 && focus() != name; ++i) key(Qt::Key_Tab);
        EXPECT_EQ(focus(), name);
    }
    void fill(const char* name, const char* text) {
        tabTo(name);
        keys(text);
    }
    void pressByKeys(const char* name) {
        tabTo(name);
        key(Qt::Key_Space);
    }
    void turnTo(int tab) { the<QTabWidget>("vbTabControl1").setCurrentIndex(tab); }
    /// Writes an item in the wizard that this one opens.
    void answerItem(const char* form, const char* name, const char* second, const char* value) {
        inNextWizard([=, this] {
            EXPECT_EQ(form_->objectName(), form);
            const auto* types = form_->findChild<QGroupBox*>("fraType");
            EXPECT_FALSE(types != nullptr && types->isVisible());
            keys(name);
            fill(second, value);
            key(Qt::Key_Return);
        });
    }
};

TEST_F(CollectingFormsTest, AGroupIsCollectedAndWritten) {
    inWizard("I6", [&] {
        keys("New");
        fill("ItemType", "S");
        EXPECT_EQ(the<QComboBox>("ItemType").currentText(), "Skill");
        fill("ItemName", "x");
        pressByKeys("Command2");
        EXPECT_EQ(focus(), "ItemName");
        keys("(y");
        press("Command2");
        EXPECT_EQ(text("FullGroup"), "SK:x\r\nSK:(y)");
        answerMessage(QMessageBox::Ok);
        press("Command2");
        EXPECT_EQ(asked.back() + lastTitle, "MUST type a name!" + std::string(kTitle));
        activate(*form_);

        turnTo(1);
        RichTextBox& box = the<RichTextBox>("FullGroup");
        box.setFocus();
        EXPECT_NE(box.StyleRuns(), "");
        key(Qt::Key_Return);
        EXPECT_EQ(text("FullGroup"), "\r\nSK:x\r\nSK:(y)") << "no press of a button";
        box.Undo();
        QTest::keyClick(&box, Qt::Key_L, Qt::ControlModifier);
        EXPECT_EQ(text("FullGroup") + page() + focus(), "SK:(y)Picture1(0)ItemType");
        EXPECT_EQ(text("ItemName"), "x");
        press("Command3");
        EXPECT_EQ(text("FullGroup") + focus(), "GroupName");
    });
    EXPECT_NE(textOf(active()).find("<B>\r\nSK:a\r\nSK:b\r\n<New>\r\nSK:(y)\r\n\r\n[PACKAGES]"),
              std::string::npos)
        << textOf(active());
}

TEST_F(CollectingFormsTest, ABoxHasItsOwnPopup) {
    WizardForm& form = edit("SK:a");
    turnTo(1);
    RichTextBox& box = the<RichTextBox>("FullGroup");
    inPopup(*box.viewport(), [](QMenu& popup) {
        EXPECT_EQ(popup.objectName(), "MultiItemRTFPopup");
        EXPECT_EQ(itemsOf(popup), "E1 - E2 E3 E4 E5 E6 E7 - H1 ");
        QTest::keyClick(&popup, Qt::Key_L);
    });
    EXPECT_EQ(text("FullGroup") + text("ItemName"), "SK:ba");
    form.close();
}

TEST_F(CollectingFormsTest, APackageIsBuiltByKeysAlone) {
    set("Options", "AutoComplete", "False");
    open(file("a.klt", "Version=2\r\n[MODS]\r\n"));
    inWizard("I9", [&] {
        keys("Crew");
        fill("PackDescription", "Of any boat");
        fill("PackCat", "Trades");
        key(Qt::Key_Tab);
        EXPECT_TRUE(form_->focusWidget()->inherits("QTabBar"));
        key(Qt::Key_Right);
        EXPECT_EQ(page(), "Picture1(1)");
        tabTo("CreateItemType");
        for (const auto& [turn, there, next] : {std::tuple(Qt::Key_Tab, "Picture1(2)", "Message"),
                                                {Qt::Key_Backtab, "Picture1(1)", "CreateItemType"}}) {
            key(turn, kCtrl);
            EXPECT_EQ(page(), there);
            tabTo(next);
        }
        keys("A");
        answerItem("frmAdWizard", "Keel", "rtbItemCost", "5");
        pressByKeys("Command6");
        EXPECT_EQ(text("RichTextBox1"), "Keel, 5");
        activate(*form_);
        form_->field("AddMods(1)").setFocus();
        tabTo("Command5(1)");
        QTimer::singleShot(0, form_, [&] {
            // From here on it is the next modal form.
            answerItem("frmModWizard", "Mild", "ModValue", "-10%");
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_W);
        });
        key(Qt::Key_Space);
        EXPECT_EQ(text("AddMods(1)"), "Mild, -10%");
        activate(*form_);
        pressByKeys("Command10");
        EXPECT_EQ(text("FullPackage"), "CREATE=AD:Keel, 5 .WITH. Mild, -10%");
        EXPECT_EQ(text("FullCreateItem") + focus(), "CREATE=Command10");

        form_->field("Message").setFocus();
        turnTo(2);
        fill("Message", "Hello :-)");
        EXPECT_EQ(text("FullMessageLine"), "MESSAGE=Hello :-)");
        answerMessage(QMessageBox::Ok);
        press("Command12");
        EXPECT_EQ(asked.back() + '|' + lastTitle, "Hello :-)|Crew");
        EXPECT_EQ(lastIcon, QMessageBox::Information);
        press("Command13");
        press("Command3");
    });
    EXPECT_TRUE(
        textOf(active()).ends_with("[Packages]\r\n\r\n\r\n<Trades>\r\n{Crew=Of any boat}\r\n"
                                   "CREATE=AD:Keel, 5 .WITH. Mild, -10%\r\nMESSAGE=Hello :-)\r\n"))
        << textOf(active());
    const RichTextBox& document = *active().RichTextBox1;
    EXPECT_NE(document.StyleAt(static_cast<Position>(document.Text().find("CREATE="))), 0)
        << "colours come along";
}

TEST_F(CollectingFormsTest, ComplaintsShowTheirTab) {
    inWizard("I9", [&] {
        turnTo(4);
        answerMessage(QMessageBox::Ok);
        press("Command3");
        EXPECT_EQ(asked.back() + page() + focus(), "You must create a Package first!Picture1(5)FullPackage");
        EXPECT_FALSE(the<QGroupBox>("Frame14").isVisibleTo(form_) ||
                     the<QGroupBox>("Frame13").isVisibleTo(form_));
        QTest::keyClicks(&the<RichTextBox>("FullItemLine"), "x");
        EXPECT_EQ(text("FullItemLine"), "ADD=") << "it takes no typing";
    });
}

TEST_F(CollectingFormsTest, EditsBesideItsDocument) {
    RichTextBox& document = box();
    const QPointer<WizardForm> form = &edit("SK:b");
    EXPECT_FALSE(form->isModal());
    EXPECT_EQ(document.SelText(), "SK:a\r\nSK:b");
    document.Select(11, 0);
    document.SetSelText("* a comment\r\n");
    form->field("FullGroup").SetText("PO:c");
    press("Command3");
    EXPECT_TRUE(QTest::qWaitFor([&] { return form == nullptr; }));
    std::string expected = kHead;
    expected.replace(expected.find("SK:a\r\nSK:b"), 10, "PO:c").insert(11, "* a comment\r\n");
    EXPECT_EQ(textOf(active()), expected) << "the first of two equal blocks, which has moved";
    document.Undo();
    EXPECT_NE(textOf(active()).find("<A>\r\nSK:a\r\nSK:b"), std::string::npos) << "it is one step";
}

TEST_F(CollectingFormsTest, RefusesWhatHasChangedUnderIt) {
    RichTextBox& document = box();
    WizardForm& form = edit("ADD=QU:q");
    EXPECT_FALSE(the<QComboBox>("PackCat").isVisible());
    EXPECT_EQ(text("PackName") + text("PackDescription"), "Pd");
    document.SetSelStart(document.Find("QU:q", 0) + 3);
    document.SetSelText("x");
    form.field("FullPackage").SetText("MESSAGE=n");
    for (int tries = 0; tries < 2; ++tries) {
        const std::string before = textOf(active());
        answerMessage(QMessageBox::Ok);
        press("Command3");
        EXPECT_TRUE(asked.back().find("has changed") != std::string::npos) << asked.back();
        EXPECT_EQ(text("FullPackage"), "MESSAGE=n");
        EXPECT_EQ(textOf(active()), before);
        openNew();
    }
    form.close();
}

TEST_F(CollectingFormsTest, OneOfAKindStandsOpen) {
    WizardForm& form = edit("SK:b");
    RichTextBox& document = box();
    document.SetSelStart(document.Find("<B>", 0));
    for (const char* command : {"E6", "I6"}) {
        activate(window());
        action(command)->trigger();
        EXPECT_TRUE(QTest::qWaitFor([&] { return form.isActiveWindow(); })) << command;
        EXPECT_EQ(window().findChildren<WizardForm*>().size(), 1);
        EXPECT_EQ(document.SelStart(), document.Find("<B>", 0));
        document.SetSelStart(document.SelStart());
    }
    form.close();
    letEventsRun();
    EXPECT_EQ(window().findChildren<WizardForm*>().size(), 0);
}

constexpr char kNotWritten[] = "The lines of the Group Wizard have not been written!\nSave changes?";

TEST_F(CollectingFormsTest, TheEndOfTheProgramAsksForLinesNotWritten) {
    edit("SK:b").field("FullGroup").SetText("PO:c");
    answerMessage(QMessageBox::Cancel);
    window().close();
    EXPECT_EQ(asked.back(), kNotWritten);
    EXPECT_FALSE(window().isUnloaded());
    EXPECT_EQ(textOf(active()) + text("FullGroup"), std::string(kHead) + "PO:c");
    answerMessage(QMessageBox::Yes);
    answerMessage(QMessageBox::Yes);
    window().close();
    EXPECT_EQ(asked.at(1), kNotWritten);
    EXPECT_EQ(asked.back(), "The data file a.klt has been changed!\nSave changes?");
    EXPECT_TRUE(window().isUnloaded());
    EXPECT_NE(readBytes(home / "a.klt").find("<A>\r\nPO:c\r\n<B>"), std::string::npos);
}

TEST_F(CollectingFormsTest, TheEndOfTheProgramGivesThemUp) {
    edit("SK:b").field("FullGroup").SetText("PO:c");
    answerMessage(QMessageBox::No);
    window().close();
    EXPECT_TRUE(window().isUnloaded());
    EXPECT_EQ(asked.size(), 1) << "the document was not changed";
}

TEST_F(CollectingFormsTest, TheEndOfTheProgramAsksNothingWhereNothingWasChanged) {
    edit("SK:b");
    window().close();
    EXPECT_TRUE(window().isUnloaded());
}

}  // namespace
