#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/Editor.h"
#include "app/documents/frmKLTEditor.h"
#include "platform/Clock.h"
#include "platform/Instances.h"
#include "platform/ProgramNames.h"
#include "settings/GetSetting.h"
#include "settings/Store.h"
#include "support/Scratch.h"

namespace klt {

inline constexpr auto kCtrl = Qt::ControlModifier;
inline constexpr auto kShift = Qt::ShiftModifier;

/// The objects of the running program over scratch folders, on a day of 2001. Controls are found by name.
class EditorFixture : public testing::Test {
protected:
    EditorFixture() { restart(); }
    ~EditorFixture() override {
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "a dialog was left open";
        EXPECT_EQ(waitingAnswers_, 0) << "a dialog was expected and never came";
    }

    /// A new program on the same folders; the old one ends without being asked.
    void restart(std::string commandLine = {}) {
        editor_.reset();
        editor_ = std::make_unique<Editor>(store, nullptr, std::move(commandLine));
    }
    Editor& editor() { return *editor_; }
    modVariables& variables() { return editor_->variables; }
    frmMDIKLTEditor& window() { return editor_->mainWindow(); }

    /// Writes a file, and the folder that it is to stand in.
    std::string file(std::string_view name, std::string_view bytes) {
        const std::string path = home / name;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        writeBytes(path, bytes);
        return path;
    }
    frmKLTEditor& open(const std::string& path) {
        editor_->documents.openFiles({path});
        return active();
    }
    frmKLTEditor& openNew() {
        editor_->documents.New();
        // In front of the version line nothing can be typed.
        box().SetSelStart(box().Length());
        return active();
    }
    frmKLTEditor& active() {
        if (!window().ActiveForm()) throw std::logic_error("no document is active");
        return *window().ActiveForm();
    }
    RichTextBox& box() { return *active().RichTextBox1; }
    /// How many documents are open.
    size_t count() { return window().forms().documents().size(); }
    frmKLTEditor& document(size_t index) { return *window().forms().documents().at(index); }
    static QMdiSubWindow& subWindow(frmKLTEditor& document) {
        return dynamic_cast<QMdiSubWindow&>(*document.parentWidget());
    }
    static std::string textOf(const frmKLTEditor& document) {
        return std::string(document.RichTextBox1->Text());
    }

    /// Calls `work` in the middle of the next opening, where it lets events run.
    void duringOpening(std::function<void()> work) { QTimer::singleShot(0, &life_, std::move(work)); }
    /// The end of a program tells all loops to end, those of the next one too.
    static void letLoopsRunAgain() {
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        QCoreApplication::exec();
    }
    static void letEventsRun() { QTest::qWait(0); }
    /// Offscreen nobody does it, and until a window has the focus, a key finds neither an access key nor the
    /// default button.
    static void activate(QWidget& shown) {
        shown.activateWindow();
        letEventsRun();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
    }

    /// Types into the active document.
    void type(const QString& text) { QTest::keyClicks(&box(), text); }
    void key(Qt::Key which, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&box(), which, modifiers);
    }

    QAction* action(const char* key) { return window().findChild<QAction*>(key); }
    void run(const char* command) { action(command)->trigger(); }
    std::string panel(int number) {
        return window().findChild<QLabel*>("Panel" + QString::number(number))->text().toStdString();
    }
    /// The notice that the bar shows; empty while it is hidden.
    std::string notice() {
        const auto* bar = window().findChild<QWidget*>("NoticeBar");
        return bar->isHidden() ? std::string() : bar->findChild<QLabel*>("NoticeText")->text().toStdString();
    }
    void dismissNotice() { QTest::mouseClick(window().findChild<QWidget*>("NoticeDismiss"), Qt::LeftButton); }

    std::string recentFile(int index) { return variables().RecentFiles.file(index); }
    void set(std::string_view section, std::string_view key, std::string_view value) {
        SaveSetting(store, kSettingsApplication, section, key, value);
    }
    std::string setting(std::string_view section, std::string_view key) {
        return GetSetting(store, kSettingsApplication, section, key, "(none)");
    }

    /// `answer` meets the next modal dialog that comes up; it must close it.
    template <typename DialogClass>
    void answerNext(std::function<void(DialogClass&)> answer) {
        ++waitingAnswers_;
        poll([this, answer] {
            auto* dialog = qobject_cast<DialogClass*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible()) return false;
            --waitingAnswers_;
            answer(*dialog);
            return true;
        });
    }
    /// Presses a button of the next message box, whose text goes into `asked`, behind `work`.
    void answerMessage(
        QMessageBox::StandardButton button, std::function<void()> work = [] {}) {
        answerNext<QMessageBox>([this, button, work](QMessageBox& box) {
            asked.push_back(box.text().toStdString());
            lastIcon = box.icon();
            lastTitle = box.windowTitle().toStdString();
            work();
            QTest::mouseClick(box.button(button), Qt::LeftButton);
        });
    }
    /// Types a path into the next file dialog and presses Enter; an empty one cancels.
    void answerFileDialog(const std::string& path) {
        answerNext<QFileDialog>([this, path](QFileDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            lastTitle = dialog.windowTitle().toStdString();
            proposed = name->text().toStdString();
            if (path.empty()) return dialog.reject();
            // An edit where the focus is, unlike a text that is set, takes back what is selected in the list.
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            name->setFocus();
            name->selectAll();
            name->insert(QString::fromStdString(path));
            QTest::keyClick(name, Qt::Key_Enter);
        });
    }

    ScratchHome home;
    Store store;
    FixedToday day{{2001, 3, 7}};
    std::vector<std::string> asked;
    QMessageBox::Icon lastIcon = QMessageBox::NoIcon;
    std::string lastTitle;
    std::string proposed;

private:
    /// Tries again and again, while events run, until it succeeds.
    void poll(std::function<bool()> attempt) {
        QTimer::singleShot(1, &life_, [this, attempt] {
            if (!attempt()) poll(attempt);
        });
    }

    int waitingAnswers_ = 0;
    std::unique_ptr<Editor> editor_;
    QObject life_;
};

}  // namespace klt
