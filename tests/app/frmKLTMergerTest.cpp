#include "app/dialogs/frmKLTMerger.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QPushButton>
#include <QTreeWidget>

#include "language/NewDocument.h"
#include "settings/Catalogue.h"
#include "support/Drop.h"
#include "support/EditorFixture.h"

using namespace klt;
using testing::ElementsAre;

namespace {

namespace fs = std::filesystem;

constexpr const char* kDuplicate = "File already selected; you can't merge a file with itself.";

class MergerTest : public EditorFixture {
protected:
    MergerTest() {
        for (const char* name : {"a.klt", "b.klt", "BASIC.KLT", "Zbase.klt", "x.txt"})
            file(name, std::string("[ADS]\r\nof ") + name);
        writeSetting(store, settings::kDataFilesPath, home.folder().path());
    }

    /// Opens the merger by its key; `work` works with it, and it is closed afterwards.
    void inMerger(const std::function<void()>& work) {
        bool isOver = false;
        answerNext<frmKLTMerger>([&](frmKLTMerger& shown) {
            form = &shown;
            activate(shown);
            work();
            if (shown.isVisible()) press("cmdCancel");
            isOver = true;
        });
        activate(window());
        QTest::keyClick(&window(), Qt::Key_M, kCtrl);
        ASSERT_TRUE(QTest::qWaitFor([&] { return isOver && !editor().queue.isHeld(); }));
        letEventsRun();
    }
    template <typename Control>
    Control& control(const char* name) {
        return *form->findChild<Control*>(name);
    }
    void press(const char* name) { QTest::mouseClick(&control<QPushButton>(name), Qt::LeftButton); }
    bool enabled(const char* name) { return control<QWidget>(name).isEnabled(); }
    QTreeWidget& list() { return control<QTreeWidget>("vbFilesToMerge"); }
    RichTextBox& output() { return control<RichTextBox>("Text1"); }
    void add(const std::string& name) {
        answerFileDialog(home / name);
        press("cmdAddFile");
    }
    std::vector<std::string> files() {
        std::vector<std::string> names;
        for (int row = 0; row < list().topLevelItemCount(); ++row)
            names.push_back(fs::relative(list().topLevelItem(row)->text(0).toStdString(), home / ""));
        return names;
    }
    void drop(std::vector<std::string> names) {
        for (auto& name : names) name = home / name;
        dropFiles(*list().viewport(), names);
    }

    frmKLTMerger* form = nullptr;
};

TEST_F(MergerTest, FilesComeAndGo) {
    inMerger([this] {
        EXPECT_EQ(form->windowTitle(), "KLT Merger");
        EXPECT_FALSE(enabled("cmdMerge") || enabled("cmdRemoveFiles"));
        answerMessage(QMessageBox::Ok);
        drop({"BASIC.KLT", "x.txt", "Zbase.klt", "none.klt", "a.klt", "a.klt", "BASIC.KLT"});
        EXPECT_EQ(lastIcon, QMessageBox::Information);
        EXPECT_TRUE(enabled("cmdMerge") && enabled("cmdRemoveFiles"));
        add("b.klt");
        EXPECT_EQ(lastTitle, "Select Data File");
        EXPECT_THAT(files(), ElementsAre("b.klt", "a.klt", "BASIC.KLT"));

        // A duplicate brings the file dialog up again.
        answerNext<QMessageBox>([this](QMessageBox& box) {
            asked.push_back(box.text().toStdString());
            answerFileDialog("");
            box.accept();
        });
        add("b.klt");
        EXPECT_THAT(asked, ElementsAre(kDuplicate, kDuplicate));

        list().topLevelItem(0)->setSelected(true);
        list().topLevelItem(2)->setSelected(true);
        press("cmdRemoveFiles");
        EXPECT_THAT(files(), ElementsAre("a.klt"));
        EXPECT_TRUE(enabled("cmdRemoveFiles"));
        answerMessage(QMessageBox::Ok);
        press("cmdMerge");
        EXPECT_EQ(asked.back(), "Not enough files to merge; proccess cancelled.");
        EXPECT_EQ(lastIcon, QMessageBox::Critical);
        EXPECT_TRUE(form->isVisible());
        list().selectAll();
        press("cmdRemoveFiles");
        EXPECT_FALSE(enabled("cmdMerge") || enabled("cmdRemoveFiles"));
    });
}

TEST_F(MergerTest, TheOutputsNameEndsInKlt) {
    inMerger([this] {
        EXPECT_EQ(output().Text(), home / "MyKLT.klt");
        output().Select(0, output().Length());
        QTest::keyClicks(&output(), "a");
        EXPECT_EQ(output().Text(), "a.klt");
        EXPECT_EQ(output().SelStart(), 1);
        QTest::keyClicks(&output(), "b");
        EXPECT_EQ(output().Text(), "ab.klt");
        QTest::keyClick(&output(), Qt::Key_End);
        QTest::keyClick(&output(), Qt::Key_Backspace);
        EXPECT_EQ(output().Text(), "ab.kl.klt");

        QTest::mouseClick(output().viewport(), Qt::RightButton);
        auto* popup = QApplication::activePopupWidget();
        ASSERT_TRUE(popup != nullptr && popup->objectName() == "SingleItemRTFPopup");
        popup->close();

        for (const auto& chosen : {home / "out", std::string()}) {
            answerFileDialog(chosen);
            press("cmdBrowse");
            EXPECT_EQ(lastTitle, "Select Data File Name");
            EXPECT_EQ(proposed, chosen.empty() ? "out.klt" : "ab.kl.klt");
            EXPECT_EQ(output().Text(), home / "out.klt");
        }
    });
}

TEST_F(MergerTest, TheFirstNameIsWhereAFileCanBeMade) {
    const auto program = QCoreApplication::applicationDirPath().toStdString();
    const auto mine = home / "two/a.klt", documents = home / "Documents/MyKLT.klt";
    // The stored folder, the document, "" for a new one, and the name.
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {home / "two", mine, home / "two/MyKLT.klt"},
        {home / "none", mine, home / "two/MyKLT.klt"},
        {home / "two", "", home / "two/MyKLT.klt"},
        {home / "none", "", documents},
        {"/proc", "", documents},
        {program, "", documents},
        {program + "/../" + fs::path(program).filename().string(), "", documents},
        {"", "", documents},
    };
    file("two/a.klt", "");
    for (const auto& [folder, document, name] : rows) {
        SCOPED_TRACE(folder + " " + document);
        writeSetting(store, settings::kDataFilesPath, folder);
        editor().documents.openFiles({document});
        inMerger([&, &expected = name] { EXPECT_EQ(output().Text(), expected); });
    }
    inMerger([this] {
        drop({"a.klt", "b.klt"});
        press("cmdMerge");
    });
    EXPECT_TRUE(fs::exists(documents)) << "in a folder that was not there";
}

TEST_F(MergerTest, TheCheckFollowsLoadingAndTheSetting) {
    for (const bool automatic : {true, false}) {
        writeSetting(store, settings::kAutoSyntaxCheck, automatic);
        inMerger([this, automatic] {
            auto& load = control<QCheckBox>("chkLoadFile");
            for (const bool loads : {false, true, false}) {
                EXPECT_EQ(enabled("chkCheckSyntax"), loads);
                EXPECT_EQ(control<QCheckBox>("chkCheckSyntax").isChecked(), loads == automatic);
                load.click();
            }
        });
    }
}

TEST_F(MergerTest, WritesOpensAndChecks) {
    const std::string merged = std::string(kNewDocumentText) + "\r\n[ADS]\r\nof b.klt\r\nof a.klt\r\n";
    for (const auto& [loads, checks] : {std::pair(false, false), {true, false}, {true, true}}) {
        const auto documents = count();
        fs::remove(home / "MyKLT.klt");
        inMerger([this, loads = loads, checks = checks] {
            drop({"a.klt", "b.klt"});
            control<QCheckBox>("chkLoadFile").setChecked(loads);
            control<QCheckBox>("chkCheckSyntax").setChecked(checks);
            output().setFocus();
            QTest::keyClick(&output(), Qt::Key_Enter);
        });
        EXPECT_EQ(readBytes(home / "MyKLT.klt"), merged);
        EXPECT_EQ(count(), documents + (loads ? 1 : 0));
        EXPECT_FALSE(variables().LoadingDocuments);
        if (!loads) continue;
        EXPECT_EQ(active().Caption(), home / "MyKLT.klt");
        EXPECT_EQ(textOf(active()), merged);
        EXPECT_EQ(box().StyleRuns().contains("Sections"), checks);
    }
}

TEST_F(MergerTest, AnInputThatIsReplacedIsKept) {
    const auto old = readBytes(home / "a.klt");
    inMerger([this] {
        drop({"a.klt", "b.klt"});
        control<QCheckBox>("chkLoadFile").setChecked(false);
        output().SetText(home / "a.klt");
        press("cmdMerge");
    });
    EXPECT_EQ(notice(),
              home / "a.klt" + " was merged into itself. What stood there is kept in " + home / "a.klt~");
    EXPECT_EQ(readBytes(home / "a.klt~"), old);
}

TEST_F(MergerTest, AnUnknownHeadingIsTold) {
    file("b.klt", "[ADS]\r\nx\r\n[SKILS]\r\ny");
    inMerger([this] {
        drop({"a.klt", "b.klt"});
        control<QCheckBox>("chkLoadFile").setChecked(false);
        press("cmdMerge");
    });
    EXPECT_EQ(notice(), home / "b.klt" +
                            ":3: unknown heading [SKILS] stays where it stood. What other files bring comes "
                            "behind it, and moves under it once it is corrected.");
}

TEST_F(MergerTest, AFailureIsToldAndLeavesTheDialogWithItsList) {
    inMerger([this] {
        drop({"a.klt", "b.klt"});
        const auto listed = files();
        output().SetText(home / "none/out.klt");
        answerMessage(QMessageBox::Ok);
        press("cmdMerge");
        ASSERT_TRUE(form->isVisible());
        EXPECT_EQ(files(), listed);
        EXPECT_EQ(count(), 0);
        output().SetText(home / "out.klt");
        press("cmdMerge");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_TRUE(fs::exists(home / "out.klt"));
    EXPECT_EQ(asked.back(),
              "The files were not merged.\n" + home / "none/out.klt" + ": No such file or directory");
}

}  // namespace
