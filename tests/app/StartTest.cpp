// The program itself, in processes of its own with folders of their own.

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>

#include "platform/Instances.h"
#include "platform/Paths.h"
#include "settings/GetSetting.h"
#include "settings/HostProgram.h"
#include "settings/cMRUFileList.h"
#include "support/ChildProcess.h"
#include "support/Scratch.h"
#include "text/Unicode.h"

using namespace klt;
using namespace std::chrono_literals;
using testing::UnorderedElementsAreArray;

namespace {

bool waitUntil(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + 30s;
    while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::sleep_for(10ms);
    return condition();
}

class StartTest : public testing::Test {
protected:
    StartTest() {
        // As after an earlier run, with a list that holds all that is opened here. Tips are on: the first one
        // shows them and takes files all the same, and one that hands its files over must not.
        SaveSetting(store_, kSettingsApplication, "KLTEditor", "Version", kAppVersion);
        SaveSetting(store_, kSettingsApplication, "MRU", "MaxCount", "50");
    }

    static ChildProcess start(std::vector<std::string> arguments) {
        return ChildProcess([&](const ChildProcess::Report&) {
            arguments.insert(arguments.begin(), KLT_BIN "/klteditor");
            std::vector<char*> pointers;
            for (auto& argument : arguments) pointers.push_back(argument.data());
            pointers.push_back(nullptr);
            execv(pointers.front(), pointers.data());
        });
    }
    /// A program that nobody is in the way of, once its window is there.
    static ChildProcess startFirst() {
        auto program = start({});
        EXPECT_TRUE(waitUntil([] { return windows().size() == 1; }));
        return program;
    }
    std::string file(const std::string& name) const {
        auto path = home_ / name;
        writeBytes(path, "Version=2\r\n");
        return path;
    }
    static std::vector<WindowEntry> windows() {
        return Instances(runtimeFolder()).FindMatchingWindows(kWindowTitleSought, kMainWindowClass);
    }
    /// The recent files, in upper case, as the list has those that it has come across again.
    std::vector<std::string> opened() {
        auto registry = recentFilesRegistry(store_);
        cMRUFileList list;
        list.Load(registry);
        std::vector<std::string> files;
        for (std::int32_t i = 1; i <= list.FileCount(); ++i) files.push_back(upperCase(list.file(i)));
        return files;
    }
    void expectOpened(std::vector<std::string> files) {
        for (auto& path : files) path = upperCase(path);
        waitUntil([&] { return opened().size() >= files.size(); });
        EXPECT_THAT(opened(), UnorderedElementsAreArray(files));
    }

    ScratchHome home_;
    ScopedVariable offscreen_{"QT_QPA_PLATFORM", "offscreen"};
    Store store_;
};

}  // namespace

TEST_F(StartTest, OfTwentyAtOnceOneOpensAllFiles) {
    std::vector<std::string> files;
    for (int i = 0; i < 20; ++i) files.push_back(file(std::to_string(i) + ".klt"));
    std::vector<ChildProcess> programs;
    for (const auto& path : files) programs.push_back(start({path}));
    const auto isOneLeft = [&] { return std::ranges::count_if(programs, &ChildProcess::isRunning) == 1; };
    EXPECT_TRUE(waitUntil(isOneLeft));
    EXPECT_EQ(std::ranges::count(programs, std::optional(0), &ChildProcess::exitStatus), 19);
    EXPECT_EQ(windows().size(), 1U);
    expectOpened(files);
}

TEST_F(StartTest, APictureForTheHostStandsBesideTheProgram) {
    const auto picture = hostProgram(KLT_BIN "/klteditor", home_ / "TVM.INI", "").bitmap;
    EXPECT_TRUE(readBytes(picture).starts_with("BM")) << picture;
}

TEST_F(StartTest, ALaterOneHandsItsFilesOverAndEnds) {
    const auto first = startFirst();
    std::filesystem::create_directory(home_ / "d:");
    const auto a = file("a b.klt"), b = file("d:/b.klt"), c = file("c.klt"), d = file("d.klt");
    EXPECT_EQ(start({a, b}).waitForEnd(), 0);
    expectOpened({a, b});
    EXPECT_EQ(start({"/d:" + home_.folder().path() + "/", "/d:/c.klt", "/D:/d.klt"}).waitForEnd(), 0);
    std::filesystem::create_directories(home_ / ".wine/dosdevices");
    std::filesystem::create_directory_symlink(home_ / "d:", home_ / ".wine/dosdevices/k:");
    const auto e = file("d:/e.klt");
    EXPECT_EQ(start({R"(K:\e.klt)"}).waitForEnd(), 0);
    EXPECT_EQ(start({}).waitForEnd(), 0);
    for (const char* question : {"--help", "--version"})
        EXPECT_EQ(start({file("f.klt"), question}).waitForEnd(), 0) << question;
    expectOpened({a, b, c, d, e});
    EXPECT_EQ(windows().size(), 1U);
}

TEST_F(StartTest, AFirstThatDiesUnderAHandOverLeavesTheFilesToTheSender) {
    auto first = startFirst();
    first.freeze();
    const auto a = file("a.klt");
    auto later = start({a});
    // It has found the window and waits for the acknowledgement once the lock has seen a search go by.
    std::this_thread::sleep_for(600ms);
    first.kill();
    expectOpened({a});
    EXPECT_TRUE(later.isRunning());
}
