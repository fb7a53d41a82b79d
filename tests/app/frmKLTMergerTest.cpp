#include "app/dialogs/frmKLTMerger.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QMimeData>
#include <QPushButton>
#include <QTreeWidget>
#include <QUrl>

#include "language/NewDocument.h"
#include "settings/Catalogue.h"
#include "support/Drop.h"
#include "support/EditorFixture.h"
#include "ui/RichTextBox.h"

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
            form = nullptr;
            if (shown.isVisible()) press("cmdCancel", shown);
            isOver = true;
        });
        activate(window());
        QTest::keyClick(&window(), Qt::Key_M, Qt::ControlModifier);
        ASSERT_TRUE(QTest::qWaitFor([&] { return isOver && !editor().queue.isHeld(); }));
        letEventsRun();
    }
    /// Until it has the focus, a key finds neither the shortcut nor the default button.
    static void activate(QWidget& shown) {
        shown.activateWindow();
        letEventsRun();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
    }
    template <typename Control>
    Control& control(const char* name) {
        auto* found = form->findChild<Control*>(name);
        if (!found) throw std::logic_error(name);
        return *found;
    }
    static void press(const char* name, const QWidget& owner) {
        QTest::mouseClick(owner.findChild<QPushButton*>(name), Qt::LeftButton);
    }
    void press(const char* name) { press(name, *form); }
    bool enabled(const char* name) { return control<QWidget>(name).isEnabled(); }
    void add(const std::string& name) {
        answerFileDialog(home / name);
        press("cmdAddFile");
    }
    std::vector<std::string> rows() {
        const auto& list = control<QTreeWidget>("vbFilesToMerge");
        std::vector<std::string> names;
        for (int row = 0; row < list.topLevelItemCount(); ++row)
            names.push_back(
                list.topLevelItem(row)->text(0).mid(int(home.folder().path().size()) + 1).toStdString());
        return names;
    }
    std::string output() { return std::string(control<RichTextBox>("Text1").Text()); }
    void drop(const std::vector<std::string>& names) {
        QMimeData data;
        QList<QUrl> urls;
        for (const auto& name : names) urls << QUrl::fromLocalFile(QString::fromStdString(home / name));
        data.setUrls(urls);
        dropOnto(*control<QTreeWidget>("vbFilesToMerge").viewport(), data);
    }

    frmKLTMerger* form = nullptr;
};

TEST_F(MergerTest, FilesComeAndGo) {
    inMerger([this] {
        EXPECT_EQ(form->windowTitle(), "KLT Merger");
        EXPECT_FALSE(enabled("cmdMerge") || enabled("cmdRemoveFiles"));
        add("a.klt");
        EXPECT_EQ(lastTitle, "Select Data File");
        EXPECT_TRUE(enabled("cmdMerge") && enabled("cmdRemoveFiles"));
        add("BASIC.KLT");
        add("b.klt");
        EXPECT_THAT(rows(), ElementsAre("b.klt", "a.klt", "BASIC.KLT"));

        // A duplicate brings the file dialog up again.
        answerNext<QFileDialog>([this](QFileDialog& dialog) {
            answerNext<QMessageBox>([this](QMessageBox& box) {
                asked.push_back(box.text().toStdString());
                answerFileDialog("");
                box.accept();
            });
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            name->setText(QString::fromStdString(home / "b.klt"));
            QTest::keyClick(name, Qt::Key_Enter);
        });
        press("cmdAddFile");
        EXPECT_THAT(asked, ElementsAre(kDuplicate));

        auto& list = control<QTreeWidget>("vbFilesToMerge");
        list.topLevelItem(0)->setSelected(true);
        list.topLevelItem(2)->setSelected(true);
        press("cmdRemoveFiles");
        EXPECT_THAT(rows(), ElementsAre("a.klt"));
        EXPECT_TRUE(enabled("cmdRemoveFiles"));
        answerMessage(QMessageBox::Ok);
        press("cmdMerge");
        EXPECT_EQ(asked.back(), "Not enough files to merge; proccess cancelled.");
        EXPECT_EQ(lastIcon, QMessageBox::Critical);
        EXPECT_TRUE(form->isVisible());
        list.selectAll();
        press("cmdRemoveFiles");
        EXPECT_FALSE(enabled("cmdMerge") || enabled("cmdRemoveFiles"));
    });
}

TEST_F(MergerTest, DroppedFilesTakeTheirPlaces) {
    inMerger([this] {
        answerMessage(QMessageBox::Ok);
        drop({"BASIC.KLT", "x.txt", "Zbase.klt", "none.klt", "a.klt", "a.klt", "BASIC.KLT", "b.klt"});
        EXPECT_THAT(rows(), ElementsAre("b.klt", "a.klt", "BASIC.KLT"));
        EXPECT_THAT(asked, ElementsAre(kDuplicate));
        EXPECT_EQ(lastIcon, QMessageBox::Information);
    });
}

TEST_F(MergerTest, TheOutputsNameEndsInKlt) {
    inMerger([this] {
        auto& text = control<RichTextBox>("Text1");
        EXPECT_EQ(output(), home / "MyKLT.klt");
        text.Select(0, text.Length());
        QTest::keyClicks(&text, "a");
        EXPECT_EQ(output(), "a.klt");
        EXPECT_EQ(text.SelStart(), 1);
        QTest::keyClicks(&text, "b");
        EXPECT_EQ(output(), "ab.klt");
        QTest::keyClick(&text, Qt::Key_End);
        QTest::keyClick(&text, Qt::Key_Backspace);
        EXPECT_EQ(output(), "ab.kl.klt");

        QTest::mouseClick(text.viewport(), Qt::RightButton);
        auto* popup = QApplication::activePopupWidget();
        ASSERT_TRUE(popup != nullptr && popup->objectName() == "SingleItemRTFPopup");
        popup->close();

        answerFileDialog(home / "out");
        press("cmdBrowse");
        EXPECT_EQ(lastTitle, "Select Data File Name");
        EXPECT_EQ(proposed, "ab.kl.klt");
        EXPECT_EQ(output(), home / "out.klt");
        answerFileDialog("");
        press("cmdBrowse");
        EXPECT_EQ(output(), home / "out.klt");
    });
}

TEST_F(MergerTest, TheFirstNameIsWhereAFileCanBeMade) {
    const auto program = QCoreApplication::applicationDirPath().toStdString();
    const auto mine = home / "two/a.klt", documents = home / "Documents/MyKLT.klt";
    const struct {
        std::string dataFiles;
        std::string document;  // "" for a new one
        std::string output;
    } rows[] = {
        {home / "two", mine, home / "two/MyKLT.klt"},
        {home / "none", mine, home / "two/MyKLT.klt"},
        {home / "two", "", home / "two/MyKLT.klt"},
        {home / "none", "", documents},
        {"/proc", "", documents},
        {program, "", documents},
        {program + "/../" + fs::path(program).filename().string(), "", documents},
        {"", "", documents},
    };
    fs::create_directory(home / "two");
    file("two/a.klt", "");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.dataFiles + " " + row.document);
        writeSetting(store, settings::kDataFilesPath, row.dataFiles);
        editor().documents.openFiles({row.document});
        inMerger([&] { EXPECT_EQ(output(), row.output); });
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
        const auto documents = window().forms().documents().size();
        fs::remove(home / "MyKLT.klt");
        inMerger([this, loads = loads, checks = checks] {
            drop({"a.klt", "b.klt"});
            control<QCheckBox>("chkLoadFile").setChecked(loads);
            control<QCheckBox>("chkCheckSyntax").setChecked(checks);
            control<RichTextBox>("Text1").setFocus();
            QTest::keyClick(&control<RichTextBox>("Text1"), Qt::Key_Enter);
        });
        EXPECT_EQ(readBytes(home / "MyKLT.klt"), merged);
        EXPECT_EQ(window().forms().documents().size(), documents + (loads ? 1 : 0));
        EXPECT_FALSE(variables().LoadingDocuments);
        if (!loads) continue;
        EXPECT_EQ(active().Caption(), home / "MyKLT.klt");
        EXPECT_EQ(textOf(active()), merged);
        EXPECT_EQ(active().RichTextBox1->StyleRuns().contains("Sections"), checks);
    }
}

TEST_F(MergerTest, AFailureIsTold) {
    inMerger([this] {
        drop({"a.klt", "b.klt"});
        control<RichTextBox>("Text1").SetText(home / "none/out.klt");
        answerMessage(QMessageBox::Ok);
        press("cmdMerge");
    });
    EXPECT_EQ(asked.back(),
              "The files were not merged.\n" + home / "none/out.klt" + ": No such file or directory");
}

}  // namespace
