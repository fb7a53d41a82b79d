// The program itself, in processes of its own with folders of their own.

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>

#include "platform/HandOver.h"
#include "platform/Instances.h"
#include "platform/Paths.h"
#include "settings/GetSetting.h"
#include "settings/cMRUFileList.h"
#include "support/ChildProcess.h"
#include "support/Scratch.h"

using namespace klt;
using namespace std::chrono_literals;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

namespace {

bool waitUntil(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + 30s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

/// The recent files list turns names to upper case when it comes across them.
std::string upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
    return text;
}

class StartTest : public testing::Test {
protected:
    StartTest() {
        // As after an earlier run, with a list that holds all that is opened here.
        SaveSetting(store_, kSettingsApplication, "KLTEditor", "Version", kAppVersion);
        SaveSetting(store_, kSettingsApplication, "MRU", "MaxCount", "50");
    }

    static ChildProcess start(std::vector<std::string> arguments) {
        return ChildProcess([&](const ChildProcess::Report&) {
            arguments.insert(arguments.begin(), KLT_BIN "/klteditor");
            std::vector<char*> pointers;
            pointers.reserve(arguments.size() + 1);
            for (auto& argument : arguments) pointers.push_back(argument.data());
            pointers.push_back(nullptr);
            execv(pointers.front(), pointers.data());
        });
    }
    std::string file(const std::string& name) const {
        auto path = home_ / name;
        writeBytes(path, "Version=2\r\n");
        return path;
    }
    std::vector<WindowEntry> windows() const {
        return Instances(runtimeFolder()).FindMatchingWindows(kWindowTitleSought, kMainWindowClass);
    }
    bool waitForWindow() const {
        return waitUntil([this] { return windows().size() == 1; });
    }
    /// The recent files.
    std::vector<std::string> opened() {
        cRegistry registry(store_);
        registry.ClassKey(HKEY_CURRENT_USER);
        registry.SectionKey(recentFilesPath());
        cMRUFileList list;
        list.Load(registry);
        std::vector<std::string> files;
        for (std::int32_t i = 1; i <= list.FileCount(); ++i) files.push_back(upper(list.file(i)));
        return files;
    }
    void expectOpened(const std::vector<std::string>& files) {
        std::vector<std::string> expected(files.size());
        std::transform(files.begin(), files.end(), expected.begin(), upper);
        waitUntil([&] { return opened().size() >= expected.size(); });
        EXPECT_THAT(opened(), UnorderedElementsAreArray(expected));
    }

    ScratchHome home_;
    ScopedVariable offscreen_{"QT_QPA_PLATFORM", "offscreen"};
    Store store_;
};

}  // namespace

TEST_F(StartTest, OfTwentyAtOnceOneOpensAllFiles) {
    constexpr size_t kStarts = 20;
    std::vector<std::string> files(kStarts);
    std::vector<ChildProcess> programs;
    programs.reserve(kStarts);
    for (size_t i = 0; i < kStarts; ++i) files[i] = file(std::to_string(i) + ".klt");
    for (const auto& path : files) programs.push_back(start({path}));
    waitUntil([&] {
        return std::count_if(programs.begin(), programs.end(), [](auto& p) { return p.isRunning(); }) == 1;
    });
    EXPECT_EQ(std::count_if(programs.begin(), programs.end(), [](auto& p) { return p.isRunning(); }), 1);
    EXPECT_EQ(std::count_if(programs.begin(), programs.end(), [](auto& p) { return p.exitStatus() == 0; }),
              19);
    EXPECT_EQ(windows().size(), 1U);
    expectOpened(files);
}

TEST_F(StartTest, ALaterOneHandsItsFilesOverAndEnds) {
    const auto first = start({});
    ASSERT_TRUE(waitForWindow());
    std::filesystem::create_directory(home_ / "d:");
    const auto a = file("a b.klt"), b = file("d:/b.klt"), c = file("c.klt"), d = file("d.klt");
    auto two = start({a, b});
    EXPECT_EQ(two.waitForEnd(), 0);
    expectOpened({a, b});
    auto named = start({"/d:" + home_.folder().path() + "/", "/d:/c.klt", "/D:/d.klt"});
    EXPECT_EQ(named.waitForEnd(), 0);
    auto bare = start({});
    EXPECT_EQ(bare.waitForEnd(), 0);
    expectOpened({a, b, c, d});
    EXPECT_EQ(windows().size(), 1U);
}

TEST_F(StartTest, ASwitchAloneShowsTheWindowEmpty) {
    auto program = start({"/d:"});
    ASSERT_TRUE(waitForWindow());
    EXPECT_EQ(ActivatePreviousInstance(windows().front(), ""), HandOver::delivered) << "events run";
    EXPECT_TRUE(program.isRunning());
    EXPECT_THAT(opened(), IsEmpty());
}

TEST_F(StartTest, AKilledFirstIsNotInTheWay) {
    auto dead = start({file("a.klt")});
    ASSERT_TRUE(waitForWindow());
    dead.kill();
    const auto b = file("b.klt");
    auto next = start({b});
    ASSERT_TRUE(waitForWindow());
    EXPECT_TRUE(next.isRunning());
    EXPECT_EQ(readBytes(runtimeFolder() + "/first.lock"), std::to_string(next.pid()) + "\n");
}

TEST_F(StartTest, AFrozenFirstNeverOpensWhatItDidNotAcknowledge) {
    const auto first = start({});
    ASSERT_TRUE(waitForWindow());
    const auto window = windows().front();
    const auto late = file("late.klt"), next = file("next.klt");
    first.freeze();
    EXPECT_EQ(ActivatePreviousInstance(window, "\"" + late + "\"", 200ms), HandOver::notAcknowledged);
    first.signal(SIGCONT);
    EXPECT_EQ(ActivatePreviousInstance(window, "\"" + next + "\""), HandOver::delivered);
    expectOpened({next});
}

TEST_F(StartTest, AFirstThatDiesUnderAHandOverLeavesTheFilesToTheSender) {
    auto first = start({});
    ASSERT_TRUE(waitForWindow());
    first.freeze();
    const auto a = file("a.klt");
    auto later = start({a});
    // It has found the window and waits for the acknowledgement once the lock has seen a search go by.
    std::this_thread::sleep_for(600ms);
    first.kill();
    ASSERT_TRUE(waitForWindow());
    expectOpened({a});
    EXPECT_TRUE(later.isRunning());
}

TEST_F(StartTest, WithoutARuntimeFolderEachRunsAlone) {
    const ScopedVariable none("XDG_RUNTIME_DIR", std::nullopt);
    const auto a = file("a.klt"), b = file("b.klt");
    auto first = start({a});
    expectOpened({a});
    auto second = start({b});
    EXPECT_TRUE(
        waitUntil([this] { return !opened().empty() && opened().front() == upper(home_ / "b.klt"); }));
    EXPECT_TRUE(first.isRunning());
    EXPECT_TRUE(second.isRunning());
}

TEST_F(StartTest, QuestionsAreAnsweredBeforeAnythingElse) {
    for (const char* option : {"--help", "--version"}) {
        auto program = start({file("a.klt"), option});
        EXPECT_EQ(program.waitForEnd(), 0) << option;
    }
    EXPECT_THAT(opened(), IsEmpty());
}
