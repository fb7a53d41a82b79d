#include "app/documents/FileChanges.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/syscall.h>
#include <sys/vfs.h>

#include <QPushButton>
#include <condition_variable>
#include <cstdarg>
#include <mutex>

#include "support/EditorFixture.h"
#include "text/Unicode.h"

using namespace klt;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kChanged = " has been changed on the disk.";
constexpr std::string_view kGone = " is no longer on the disk. A save writes it again.";

/// A folder whose file system does not answer as long as this stands, or opens no file but answers questions.
/// Who waits for it waits.
class SilentFolder {
public:
    enum Asked { Everything, Opening };
    explicit SilentFolder(const std::string& folder, Asked silent = Everything) {
        const std::lock_guard guard(mutex_);
        folder_ = folder;
        silent_ = silent;
    }
    ~SilentFolder() { end(); }
    void end() {
        const std::lock_guard guard(mutex_);
        folder_.clear();
        ended_.notify_all();
    }
    SilentFolder(const SilentFolder&) = delete;
    SilentFolder& operator=(const SilentFolder&) = delete;

    static int waiting() {
        const std::lock_guard guard(mutex_);
        return waiting_;
    }
    static void waitFor(std::string_view path, Asked asked) {
        std::unique_lock guard(mutex_);
        if (folder_.empty() || !path.starts_with(folder_) || asked < silent_) return;
        ++waiting_;
        ended_.wait(guard, [] { return folder_.empty(); });
        --waiting_;
    }

private:
    inline static std::mutex mutex_;
    inline static std::condition_variable ended_;
    inline static std::string folder_;
    inline static Asked silent_ = Everything;
    inline static int waiting_ = 0;
};

ptrdiff_t threadCount() {
    return std::distance(fs::directory_iterator("/proc/self/task"), fs::directory_iterator());
}

class FileChangesTest : public EditorFixture {
protected:
    /// The user goes to another window and comes back.
    void comeBack() {
        QWidget other;
        other.show();
        activate(other);
        activate(window());
    }
    void expectTold(const std::string& text) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return notice() == text; })) << text << '\n' << notice();
    }
    void expectChanged() { expectTold(active().Caption() + std::string(kChanged)); }
    /// Another program writes the file of the active document, and the user comes back.
    void changeOutside(std::string_view bytes) {
        writeBytes(active().Caption(), bytes);
        comeBack();
        expectChanged();
    }
    std::string offered() {
        std::string captions;
        for (const auto* button : window().findChild<QWidget*>("NoticeBar")->findChildren<QPushButton*>())
            if (button->isVisible()) captions += button->text().remove('&').toStdString() + '|';
        return captions;
    }
    void choose(const char* name) {
        auto* button = window().findChild<QPushButton*>(name);
        ASSERT_TRUE(button && button->isVisible()) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void reload() {
        const auto before = active().file;
        choose("NoticeReload");
        EXPECT_TRUE(QTest::qWaitFor([&] { return active().file != before; }));
    }
    static bool isSeen(const frmKLTEditor& document) {
        return lookAtFile(document.Caption(), document.file).state == FileState::AsSeen;
    }
};

TEST_F(FileChangesTest, WhatOthersDoIsToldWhenTheUserComesBack) {
    struct Row {
        const char* name;
        std::function<void(const std::string&)> change;
        std::string_view told;
        const char* offered;
    };
    const Row rows[] = {
        {"changed", [](const auto& path) { writeBytes(path, "changed"); }, kChanged, "Reload|Keep mine|"},
        {"replaced by an older one",
         [](const std::string& path) {
             writeBytes(path + ".new", "Text");
             constexpr timespec kOld[] = {{1, 0}, {1, 0}};
             utimensat(AT_FDCWD, (path + ".new").c_str(), kOld, 0);
             fs::rename(path + ".new", path);
         },
         kChanged, "Reload|Keep mine|"},
        {"removed", [](const auto& path) { fs::remove(path); }, kGone, "Keep mine|"},
        {"renamed", [](const auto& path) { fs::rename(path, path + ".other"); }, kGone, "Keep mine|"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto path = file("a.klt", "text");
        auto& document = open(path);
        row.change(path);
        comeBack();
        expectTold(path + std::string(row.told));
        EXPECT_EQ(offered(), row.offered);
        EXPECT_FALSE(document.Modified());
        writeBytes(path, "text");
        comeBack();
        expectTold("");
        fs::remove(path);
        comeBack();
        expectTold(path + std::string(kGone));
        window().closeDocument(document);
        expectTold("");
    }
}

TEST_F(FileChangesTest, ReloadIsAnOpeningThatKeepsCaretAndScroll) {
    std::string lines = "Version=2\r\n* Modified: long ago\r\n[SKILLS]\r\n";
    for (int i = 0; i < 200; ++i) lines += "Knife, page(" + std::to_string(1000 + i) + ")\r\n";
    const auto path = file("a.klt", lines);
    const auto& document = open(path);
    box().Select(box().LineIndex(100) + 3, 5);
    box().ScrollToLine(90);
    changeOutside("* new\r\n" + lines);
    reload();
    EXPECT_EQ(box().SelStart(), box().LineIndex(100) + 3);
    EXPECT_EQ(box().SelLength(), 5);
    EXPECT_EQ(box().FirstVisibleLine(), 90);
    EXPECT_FALSE(document.Modified());
    EXPECT_EQ(notice(), "");
    EXPECT_TRUE(isSeen(document));
    const auto text = textOf(document), styles = box().Styles();
    open(path);
    EXPECT_EQ(text, textOf(active()));
    EXPECT_EQ(styles, box().Styles());
}

TEST_F(FileChangesTest, BackBringsTheTextOfAChangedDocument) {
    const auto& document = open(file("a.klt", "[SKILLS]\r\nKnife, page(7)\r\ncaf\xE9\r\n"));
    box().SetSelStart(box().LineIndex(1));
    type("x");
    const auto text = textOf(document), styles = box().Styles();
    for (const char* ends : {"Back", "edit", "save", "Dismiss"}) {
        SCOPED_TRACE(ends);
        for (const char* bytes : {"caf\xC3\xA9\r\n[skills]\r\nx", "caf\xC3\xA9\r\n[skills]\r\ny"}) {
            changeOutside(bytes + std::string(ends));
            reload();
        }
        EXPECT_THAT(textOf(document), StartsWith("caf\xC3\xA9"));
        EXPECT_FALSE(document.Modified());
        EXPECT_EQ(document.encoding, Encoding::Utf8);
        EXPECT_EQ(offered(), "Back|Dismiss|");
        if (ends == std::string("Back")) {
            choose("NoticeBack");
            EXPECT_EQ(textOf(document), text);
            EXPECT_EQ(box().Styles(), styles);
            EXPECT_EQ(document.encoding, Encoding::Windows1252);
            EXPECT_EQ(box().SelStart(), box().LineIndex(1) + 1);
            EXPECT_TRUE(document.Modified());
        } else {
            if (ends == std::string("edit")) type("z");
            if (ends == std::string("save")) run("F4");
            if (ends == std::string("Dismiss")) dismissNotice();
            box().SetSelStart(0);
            type("y");
        }
        EXPECT_EQ(notice(), "");
    }
}

TEST_F(FileChangesTest, AReloadThatFailsLeavesTheText) {
    const auto& document = open(file("a.klt", "text"));
    type("x");
    changeOutside("changed");
    fs::remove(document.Caption());
    choose("NoticeReload");
    expectTold(document.Caption() + " could not be read: No such file or directory");
    EXPECT_EQ(textOf(document), "xtext");
    EXPECT_TRUE(document.Modified());
}

TEST_F(FileChangesTest, ASaveKeepsAVersionThatWasNeverSeen) {
    const auto& document = open(file("a.klt", "text"));
    const auto path = document.Caption();
    changeOutside("theirs");
    choose("NoticeKeepMine");
    EXPECT_EQ(notice(), "");
    EXPECT_TRUE(document.Modified()) << "what is kept is not on the disk";
    key(Qt::Key_S, kCtrl);
    EXPECT_EQ(readBytes(path), "text");
    EXPECT_EQ(readBytes(path + "~"), "theirs");
    expectTold("What stood in " + path + " and was not read here is kept in " + path + "~");
    dismissNotice();

    type("x");
    key(Qt::Key_S, kCtrl);
    EXPECT_FALSE(fs::exists(path + "~2")) << "its own save";
    writeBytes(path, "not noticed yet");
    key(Qt::Key_S, kCtrl);
    EXPECT_EQ(readBytes(path + "~2"), "not noticed yet");
    EXPECT_EQ(readBytes(path + "~"), "theirs");
    fs::remove(path);
    key(Qt::Key_S, kCtrl);
    EXPECT_EQ(readBytes(path), "xtext") << "written again";
    writeBytes(path, "reloaded");
    dismissNotice();
    comeBack();
    expectChanged();
    reload();
    key(Qt::Key_S, kCtrl);
    EXPECT_FALSE(fs::exists(path + "~3")) << "it was read here";
}

TEST_F(FileChangesTest, EqualBytesTellNothing) {
    const auto path = file("a.klt", "text");
    const auto& document = open(path);
    const auto before = document.file.seen->identity;
    fs::copy(path, path + "2");
    fs::rename(path + "2", path);
    comeBack();
    EXPECT_TRUE(QTest::qWaitFor([&] { return document.file.seen->identity != before; }));
    EXPECT_EQ(notice(), "");
    type("x");
    run("F4");
    EXPECT_TRUE(isSeen(document));
    fs::copy(path, path + "2");
    fs::rename(path + "2", path);
    run("F4");
    EXPECT_FALSE(fs::exists(path + "~"));
}

TEST_F(FileChangesTest, TheSameFileInTwoDocumentsIsToldHoweverItIsSpelt) {
    const auto path = file("docs/a.klt", "text");
    fs::create_symlink("docs", home / "linked");
    fs::create_symlink("a.klt", home / "docs/link.klt");
    for (const std::string other :
         {"docs/a.klt", "./docs/a.klt", "linked/a.klt", "docs/link.klt", "docs/tied.klt"}) {
        SCOPED_TRACE(other);
        const bool isTied = other == "docs/tied.klt";
        if (isTied) fs::create_hard_link(path, home / other);
        auto& first = open(path);
        EXPECT_EQ(notice(), "");
        auto& second = open(home / other);
        EXPECT_THAT(notice(), StartsWith(second.Caption() + " is open in another window too"));
        dismissNotice();
        window().showDocument(first);
        type("1");
        run("F4");
        const auto saved = readBytes(path);
        expectTold(second.Caption() + std::string(kChanged));
        window().showDocument(second);
        type("2");
        run("F4");
        const auto kept = isTied ? home / other : path;
        EXPECT_EQ(readBytes(kept + "~"), saved);
        expectTold(first.Caption() + std::string(kChanged));
        std::string told = "What stood in " + second.Caption();
        told += " and was not read here is kept in " + fs::canonical(kept).string() + "~";
        for (auto* document : {&first, &second}) {
            document->AppEnd = true;
            window().closeDocument(*document);
        }
        expectTold(told);
        dismissNotice();
        fs::remove(kept + "~");
    }
}

TEST_F(FileChangesTest, AFolderThatDoesNotAnswerHoldsUpNothing) {
    const auto path = file("dead/a.klt", "text");
    auto& document = open(path);
    auto& alive = open(file("b.klt", "b"));
    editor().documents.setPatience(std::chrono::milliseconds(50));
    const auto threads = threadCount();
    const auto silent = std::make_unique<SilentFolder>(home / "dead");
    writeBytes(alive.Caption(), "changed");
    comeBack();
    expectChanged();
    EXPECT_TRUE(QTest::qWaitFor([] { return SilentFolder::waiting() == 1; }));
    reload();

    window().showDocument(document);
    type("x");
    EXPECT_EQ(textOf(document), "xtext");
    const struct {
        const char* told;
        std::function<void()> attempt;
    } rows[] = {
        {"saved", [this] { run("F4"); }},
        {"opened", [&] { editor().documents.openFiles({path}); }},
        // As the menu lists it.
        {"opened", [&] { editor().documents.openFiles({upperCase(path)}); }},
    };
    for (const auto& [told, attempt] : rows) {
        SCOPED_TRACE(told);
        attempt();
        EXPECT_THAT(notice(),
                    testing::EndsWith(std::string(" could not be ") + told + ": Its folder does not answer"));
        EXPECT_TRUE(document.Modified());
        EXPECT_EQ(count(), 2U);
        dismissNotice();
    }
    silent->end();
    EXPECT_TRUE(QTest::qWaitFor([&] { return threadCount() <= threads; }));
    EXPECT_EQ(readBytes(path), "text") << "a save that was given up went on";
    EXPECT_EQ(notice(), "");
    run("F4");
    EXPECT_EQ(readBytes(path), "xtext");
    EXPECT_THAT(namesIn(home / "dead"), testing::ElementsAre("a.klt"));
}

TEST_F(FileChangesTest, AReloadThatGetsNoAnswerIsOfferedAgain) {
    const auto& document = open(file("dead/a.klt", "text"));
    editor().documents.setPatience(std::chrono::milliseconds(50));
    const auto threads = threadCount();
    changeOutside("changed");
    for (const auto silent : {SilentFolder::Everything, SilentFolder::Opening}) {
        {
            const SilentFolder folder(home / "dead", silent);
            choose("NoticeReload");
            EXPECT_EQ(notice(), document.Caption() + " could not be read: Its folder does not answer");
            EXPECT_EQ(textOf(document), "text");
        }
        expectChanged();
        EXPECT_TRUE(QTest::qWaitFor([&] { return threadCount() <= threads; }));
    }
    reload();
    EXPECT_EQ(textOf(document), "changed");
}

}  // namespace

extern "C" int stat(const char* path, struct stat* info) {
    SilentFolder::waitFor(path, SilentFolder::Everything);
    return static_cast<int>(syscall(SYS_newfstatat, AT_FDCWD, path, info, 0));
}

extern "C" int open(const char* path, int flags, ...) {
    SilentFolder::waitFor(path, SilentFolder::Opening);
    va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, mode_t);
    va_end(more);
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

extern "C" int statfs(const char* path, struct statfs* info) {
    SilentFolder::waitFor(path, SilentFolder::Everything);
    return static_cast<int>(syscall(SYS_statfs, path, info));
}
